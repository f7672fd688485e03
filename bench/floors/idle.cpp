// What a program that waits needs at least: one window, and a timer that it wakes up for every five
// minutes; ends when the window is asked to close.
#include <windows.h>

int WINAPI wWinMain(HINSTANCE module, HINSTANCE, PWSTR, int) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = [](HWND window, UINT message, WPARAM w, LPARAM l) -> LRESULT {
        if (message == WM_CLOSE) PostQuitMessage(0);
        return DefWindowProcW(window, message, w, l);
    };
    windowClass.hInstance = module;
    windowClass.lpszClassName = L"zvBenchIdle";
    RegisterClassW(&windowClass);
    const HWND window =
        CreateWindowW(L"zvBenchIdle", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, module, nullptr);
    if (window == nullptr) return 1;
    constexpr UINT kFiveMinutes = 300'000;
    SetTimer(window, 1, kFiveMinutes, nullptr);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    return 0;
}
