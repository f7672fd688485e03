// Real windows that a driver plays: no loop waits for a person, and timers have no clock.
#pragma once

#include <functional>
#include <optional>

#include "driver/win32/scripted_screens.h"
#include "forms/win32/form_window.h"
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

    ScriptedScreens screens;

    /// In place of the system's colours.
    std::optional<forms::SystemTheme> theme;

    /// There is one monitor, of the system's scale, of which windows may cover `area`, in units.
    /// Windows that are open stay where they are.
    void SetWorkArea(const forms::Rect& area);
    /// From now on there are these monitors; windows that are open get the messages that a system
    /// sends then.
    void SetMonitors(const forms::Monitors& monitors);
    /// What the system sends a window that lies on a monitor of another scale than its own.
    void FollowScale(const forms::win32::FormWindow& window);

    const forms::win32::Screens& GetScreens() const override { return screens; }
    forms::SystemTheme GetTheme() override;
    void RunModal(forms::Form& form) override;
    void MenuIdle() override;
    bool TimersRun() const override { return timersRun; }

 private:
    /// A maximised window covers what windows may of the monitor at that place.
    void Cover(HWND window, const forms::Rect& place) const;
};

}  // namespace zv::driver
