// zvReceiver: stands for the programs that the system hands something to, so that a test can see
// what arrived.
//
//   zvReceiver FILE ADDRESS...   writes what it was started with, a line of UTF-8, and ends
//   zvReceiver                   a dialer: a window "dialer" with one box that takes the keys
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <string>

#include "windows_by_name.h"

namespace {

int WriteDown(int count, wchar_t** values) {
    FILE* file = _wfopen(values[1], L"ab");
    if (!file) return 1;
    for (int i = 2; i < count; i++) {
        std::fprintf(file, "%s%s", i > 2 ? "|" : "", zv::outside::Narrow(values[i]).c_str());
    }
    std::fprintf(file, "\n");
    return std::fclose(file) == 0 ? 0 : 1;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
    switch (message) {
        case WM_SETFOCUS:
            SetFocus(GetWindow(window, GW_CHILD));
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, w, l);
    }
}

int BeTheDialer() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"zvDialer";
    RegisterClassW(&windowClass);
    const HWND window =
        CreateWindowW(L"zvDialer", L"dialer", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 320, 120,
                      nullptr, nullptr, windowClass.hInstance, nullptr);
    const HWND box = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_BORDER, 10, 10, 280, 24,
                                   window, nullptr, windowClass.hInstance, nullptr);
    const ATOM name = GlobalAddAtomW(L"txtNumber");
    SetPropW(box, L"zv.Name", reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(name)));
    SetForegroundWindow(window);
    SetFocus(box);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    GlobalDeleteAtom(name);
    return 0;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    int count = 0;
    wchar_t** const values = CommandLineToArgvW(GetCommandLineW(), &count);
    return count >= 3 ? WriteDown(count, values) : BeTheDialer();
}
