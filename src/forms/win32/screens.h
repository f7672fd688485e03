// What the system says of its monitors: the one place that asks, so that a test can have monitors
// that the machine has not.
#pragma once

#include <windows.h>

#include <optional>

#include "forms/geometry.h"

namespace zv::forms::win32 {

/// Asks the system. Places are in pixels of the desktop.
class Screens {
 public:
    Screens() = default;
    virtual ~Screens() = default;
    Screens(const Screens&) = delete;
    Screens& operator=(const Screens&) = delete;

    /// What windows may cover of the monitor where `window` lies; of the primary one for null.
    virtual RECT WorkAreaAt(HWND window) const;
    /// The same of the monitor that has most of a place, or is nearest to it.
    virtual RECT WorkAreaAround(const RECT& place) const;
    virtual int DpiOf(HWND window) const;
    /// Of a window that is made at the corner of `place`.
    virtual int DpiAround(const RECT& place) const;
    /// The resolution at which the system draws the frame and the scroll bars of a window that has
    /// `dpi` itself.
    virtual int FrameDpi(int dpi) const { return dpi; }
    /// How large windows may be beyond what the system allows by itself; without extent for no
    /// more.
    virtual Size Largest() const { return {}; }
    /// Where the window lies when it is maximised; nothing for where the system puts it.
    virtual std::optional<Rect> MaximisedAt(HWND) const { return {}; }
};

}  // namespace zv::forms::win32
