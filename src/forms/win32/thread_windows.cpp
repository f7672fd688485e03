#include "forms/win32/thread_windows.h"

#include <new>

namespace zv::forms::win32 {

namespace {

struct Search {
    HWND except;
    StaysFree stays;
    HWND found;
};

bool IsFree(HWND window, StaysFree stays) noexcept {
    return stays && stays(window);
}

BOOL CALLBACK TakeUppermost(HWND window, LPARAM data) noexcept {
    auto& search = *reinterpret_cast<Search*>(data);
    if (window == search.except || !IsWindowVisible(window) || !IsWindowEnabled(window) ||
        IsFree(window, search.stays)) {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

}  // namespace

HWND WindowToBlock(HWND except, StaysFree stays) {
    const HWND active = GetActiveWindow();
    const HWND root = active ? GetAncestor(active, GA_ROOT) : nullptr;
    if (root && active != except && !IsFree(root, stays)) return root;
    Search search{except, stays, nullptr};
    EnumThreadWindows(GetCurrentThreadId(), &TakeUppermost, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

OtherWindowsDisabled::OtherWindowsDisabled(HWND except, StaysFree stays)
    : except_(except), stays_(stays) {
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
    if (window != self->except_ && IsWindowVisible(window) && IsWindowEnabled(window) &&
        !IsFree(window, self->stays_)) {
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
