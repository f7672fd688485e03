// The top-level windows of this thread while one of them stands in front of all others.
#pragma once

#include <windows.h>

#include <vector>

namespace zv::forms::win32 {

/// Windows that nothing blocks; null: there are none.
using StaysFree = bool (*)(HWND window);

/// The window in front of the user, which a modal one is to stand above: the thread's active one,
/// otherwise the uppermost that the user can work with; null when there is none. `except` is the
/// modal one itself.
HWND WindowToBlock(HWND except = nullptr, StaysFree stays = nullptr);

/// Disables every enabled window of the thread but one, the host's included, until it dies.
class OtherWindowsDisabled {
 public:
    explicit OtherWindowsDisabled(HWND except, StaysFree stays = nullptr);
    ~OtherWindowsDisabled();
    OtherWindowsDisabled(const OtherWindowsDisabled&) = delete;
    OtherWindowsDisabled& operator=(const OtherWindowsDisabled&) = delete;

 private:
    static BOOL CALLBACK Visit(HWND window, LPARAM data) noexcept;
    HWND except_;
    StaysFree stays_;
    std::vector<HWND> disabled_;
    bool whole_ = true;  ///< false: there was no memory for all of them
};

}  // namespace zv::forms::win32
