#include "driver/win32/played_backend.h"

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

forms::Rect PlayedBackend::WorkArea() {
    if (!workArea) return Win32Backend::WorkArea();
    return forms::win32::Scale(forms::win32::SystemDpi()).ToUnits(*workArea);
}

forms::SystemTheme PlayedBackend::GetTheme() {
    return theme ? *theme : Win32Backend::GetTheme();
}

RECT PlayedBackend::WorkAreaAround(const RECT& place) {
    return workArea ? *workArea : Win32Backend::WorkAreaAround(place);
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
