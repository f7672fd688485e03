#include "forms/win32/thread_windows.h"

namespace zv::forms::win32 {

OtherWindowsDisabled::OtherWindowsDisabled(HWND except) : except_(except) {
    EnumThreadWindows(GetCurrentThreadId(), &OtherWindowsDisabled::Visit,
                      reinterpret_cast<LPARAM>(this));
    for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

OtherWindowsDisabled::~OtherWindowsDisabled() {
    for (const HWND window : disabled_) {
        if (IsWindow(window)) EnableWindow(window, TRUE);
    }
}

BOOL CALLBACK OtherWindowsDisabled::Visit(HWND window, LPARAM data) {
    auto* self = reinterpret_cast<OtherWindowsDisabled*>(data);
    if (window != self->except_ && IsWindowVisible(window) && IsWindowEnabled(window)) {
        self->disabled_.push_back(window);
    }
    return TRUE;
}

}  // namespace zv::forms::win32
