#include "forms/win32/thread_windows.h"

#include <new>

namespace zv::forms::win32 {

namespace {

struct Search {
    HWND except;
    HWND found;
};

BOOL CALLBACK TakeUppermost(HWND window, LPARAM data) noexcept {
    auto& search = *reinterpret_cast<Search*>(data);
    if (window == search.except || !IsWindowVisible(window) || !IsWindowEnabled(window))
        return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

HWND WindowToBlock(HWND except) {
    const HWND active = GetActiveWindow();
    if (active && active != except) return GetAncestor(active, GA_ROOT);
    Search search{except, nullptr};
    EnumThreadWindows(GetCurrentThreadId(), &TakeUppermost, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

OtherWindowsDisabled::OtherWindowsDisabled(HWND except) : except_(except) {
    EnumThreadWindows(GetCurrentThreadId(), &OtherWindowsDisabled::Visit,
                      reinterpret_cast<LPARAM>(this));
    if (!whole_) throw std::bad_alloc();
    for (const HWND window : disabled_) EnableWindow(window, FALSE);
}

OtherWindowsDisabled::~OtherWindowsDisabled() {
    for (const HWND window : disabled_) {
        if (IsWindow(window)) EnableWindow(window, TRUE);
    }
}

BOOL CALLBACK OtherWindowsDisabled::Visit(HWND window, LPARAM data) noexcept {
    auto* self = reinterpret_cast<OtherWindowsDisabled*>(data);
    if (window != self->except_ && IsWindowVisible(window) && IsWindowEnabled(window)) {
        // Nothing may be thrown through the system's enumeration.
        try {
            self->disabled_.push_back(window);
        } catch (const std::bad_alloc&) {
            self->whole_ = false;
            return FALSE;
        }
    }
    return TRUE;
}

}  // namespace zv::forms::win32
