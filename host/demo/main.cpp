// A small host application: what a business program does around the control.
#include <windows.h>

#include <commctrl.h>
#include <ole2.h>
#include <shellapi.h>

#include "demo/command_line.h"
#include "demo/demo_window.h"

namespace {

std::vector<std::wstring> OwnArguments() {
    int count = 0;
    wchar_t** all = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> arguments(all + 1, all + count);
    LocalFree(all);
    return arguments;
}

int RunMessages(zv::demo::DemoWindow& window) {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (window.TranslateKey(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

// A control whose last object is gone can be unloaded; one that stays has left something behind.
bool ControlStays() {
    CoFreeUnusedLibrariesEx(0, 0);
    return GetModuleHandleW(L"zv_Task.ocx") != nullptr;
}

constexpr int kControlStays = 3;

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    const auto options = zv::demo::ReadOptions(OwnArguments());
    if (!options) {
        MessageBoxW(nullptr, zv::demo::texts::kUsage, L"zvDemo", MB_ICONINFORMATION);
        return 2;
    }
    if (FAILED(OleInitialize(nullptr))) return 1;
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&controls);
    int status = 0;
    {
        zv::demo::DemoWindow window(*options);
        status = RunMessages(window);
    }
    if (status == 0 && ControlStays()) status = kControlStays;
    OleUninitialize();
    return status;
}
