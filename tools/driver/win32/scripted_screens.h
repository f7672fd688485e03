// Monitors that the machine need not have, in place of the system's.
#pragma once

#include <optional>

#include "forms/monitors.h"
#include "forms/win32/screens.h"

namespace zv::driver {

class ScriptedScreens : public forms::win32::Screens {
 public:
    /// In place of the system's monitors.
    std::optional<forms::Monitors> monitors;

    RECT WorkAreaAt(HWND window) const override;
    RECT WorkAreaAround(const RECT& place) const override;
    int DpiOf(HWND window) const override;
    int DpiAround(const RECT& place) const override;
    int FrameDpi(int dpi) const override;
    forms::Size Largest() const override;
    std::optional<forms::Rect> MaximisedAt(HWND window) const override;

    /// Of the native window, in pixels of the desktop; where a minimised one comes back to.
    static forms::Rect PlaceOf(HWND window);
};

}  // namespace zv::driver
