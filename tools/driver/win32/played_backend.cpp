#include "driver/win32/played_backend.h"

#include <vector>

#include "forms/win32/system_dpi.h"

namespace zv::driver {

void PumpMessages() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

namespace {

BOOL CALLBACK TakeOurs(HWND window, LPARAM data) {
    if (forms::win32::FormWindow::Owning(window)) {
        reinterpret_cast<std::vector<HWND>*>(data)->push_back(window);
    }
    return TRUE;
}

}  // namespace

void PlayedBackend::SetWorkArea(const forms::Rect& area) {
    const int dpi = forms::win32::SystemDpi();
    const forms::Rect pixels = forms::win32::FromNative(forms::win32::Scale(dpi).ToPixels(area));
    screens.monitors = forms::Monitors({{pixels, pixels, dpi}});
}

void PlayedBackend::SetMonitors(const forms::Monitors& monitors) {
    screens.monitors = monitors;
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), &TakeOurs, reinterpret_cast<LPARAM>(&windows));
    constexpr WPARAM kBitsOfAColor = 32;
    const forms::Rect& primary = monitors.Primary().bounds;
    for (const HWND window : windows) {
        SendMessageW(window, WM_DISPLAYCHANGE, kBitsOfAColor,
                     MAKELPARAM(primary.width, primary.height));
        const auto* ours = forms::win32::FormWindow::Owning(window);
        if (ours) FollowScale(*ours);
    }
}

void PlayedBackend::FollowScale(const forms::win32::FormWindow& window) {
    const HWND handle = window.Handle();
    const int former = window.GetScale().Dpi();
    const int dpi = screens.DpiOf(handle);
    if (dpi == former) return;
    RECT place{};
    GetWindowRect(handle, &place);
    SIZE size{MulDiv(static_cast<int>(place.right - place.left), dpi, former),
              MulDiv(static_cast<int>(place.bottom - place.top), dpi, former)};
    SendMessageW(handle, forms::win32::kGetDpiScaledSize, static_cast<WPARAM>(dpi),
                 reinterpret_cast<LPARAM>(&size));
    const RECT suggested{place.left, place.top, place.left + size.cx, place.top + size.cy};
    SendMessageW(handle, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
}

forms::SystemTheme PlayedBackend::GetTheme() {
    return theme ? *theme : Win32Backend::GetTheme();
}

void PlayedBackend::RunModal(forms::Form& form) {
    if (modalLoop) {
        modalLoop(form);
    } else {
        Win32Backend::RunModal(form);
    }
}

void PlayedBackend::MenuIdle() {
    if (!onMenuIdle) return;
    onMenuIdle();
    // The menu's loop waits for a message before it looks whether the menu has ended, and the one
    // that reports it may have been handled by what ran here.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

}  // namespace zv::driver
