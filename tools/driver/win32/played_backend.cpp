#include "driver/win32/played_backend.h"

#include <utility>
#include <vector>

#include "forms/win32/standing_box.h"
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

bool IsBox(HWND window) {
    return GetClassLongPtrW(window, GCW_ATOM) == forms::win32::kDialogClass;
}

BOOL CALLBACK TakeOurs(HWND window, LPARAM data) {
    if (forms::win32::FormWindow::Owning(window) || IsBox(window)) {
        reinterpret_cast<std::vector<HWND>*>(data)->push_back(window);
    }
    return TRUE;
}

void Rescale(HWND window, int former, int dpi) {
    if (dpi == former) return;
    RECT place{};
    GetWindowRect(window, &place);
    SIZE size{MulDiv(static_cast<int>(place.right - place.left), dpi, former),
              MulDiv(static_cast<int>(place.bottom - place.top), dpi, former)};
    if (IsZoomed(window)) size = {place.right - place.left, place.bottom - place.top};
    SendMessageW(window, forms::win32::kGetDpiScaledSize, static_cast<WPARAM>(dpi),
                 reinterpret_cast<LPARAM>(&size));
    const RECT suggested{place.left, place.top, place.left + size.cx, place.top + size.cy};
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
}

}  // namespace

void PlayedBackend::SetWorkArea(const forms::Rect& area) {
    const int dpi = forms::win32::SystemDpi();
    const forms::Rect pixels = forms::win32::FromNative(forms::win32::Scale(dpi).ToPixels(area));
    screens.monitors = forms::Monitors({{pixels, pixels, dpi}});
}

void PlayedBackend::SetMonitors(const forms::Monitors& monitors) {
    const auto before = std::exchange(screens.monitors, monitors);
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), &TakeOurs, reinterpret_cast<LPARAM>(&windows));
    constexpr WPARAM kBitsOfAColor = 32;
    const forms::Rect& primary = monitors.Primary().bounds;
    for (const HWND window : windows) {
        const forms::Rect place = ScriptedScreens::PlaceOf(window);
        const int former = before ? before->Around(place).dpi : forms::win32::SystemDpi();
        if (IsZoomed(window)) Cover(window, place);
        SendMessageW(window, WM_DISPLAYCHANGE, kBitsOfAColor,
                     MAKELPARAM(primary.width, primary.height));
        const auto* ours = forms::win32::FormWindow::Owning(window);
        if (ours)
            FollowScale(*ours);
        else if (IsWindow(window))
            Rescale(window, former, screens.DpiOf(window));
    }
}

void PlayedBackend::Cover(HWND window, const forms::Rect& place) const {
    const forms::Rect& area = screens.monitors->Around(place).workArea;
    SetWindowPos(window, nullptr, area.left, area.top, area.width, area.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void PlayedBackend::FollowScale(const forms::win32::FormWindow& window) {
    Rescale(window.Handle(), window.GetScale().Dpi(), screens.DpiOf(window.Handle()));
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
