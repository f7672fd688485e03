// Real windows that a driver plays: no loop waits for a person, and timers have no clock.
#pragma once

#include <functional>
#include <optional>

#include "forms/win32/win32_backend.h"

namespace zv::driver {

/// Handles every message of this thread that waits.
void PumpMessages();

class PlayedBackend : public forms::win32::Win32Backend {
 public:
    using Win32Backend::Win32Backend;

    /// Runs in place of the message loop while a modal window is open, the other windows disabled.
    /// It returns when that window is gone, and calls PumpMessages between its steps. Without one
    /// the window has its own loop.
    std::function<void(forms::Form&)> modalLoop;
    /// Called while a menu is open and the user does nothing.
    std::function<void()> onMenuIdle;
    /// False: timers tick only when the driver makes them. Set before windows are shown.
    bool timersRun = true;

    /// In place of the work area of every monitor, in pixels.
    std::optional<RECT> workArea;

    /// In place of the system's colours.
    std::optional<forms::SystemTheme> theme;

    forms::Rect WorkArea() override;
    forms::SystemTheme GetTheme() override;
    RECT WorkAreaAround(const RECT& place) override;
    void RunModal(forms::Form& form) override;
    void MenuIdle() override;
    bool TimersRun() const override { return timersRun; }
};

}  // namespace zv::driver
