// Measures native windows, in pixels.
#pragma once

#include "driver/layout_faults.h"
#include "forms/win32/form_window.h"

namespace zv::driver {

class NativeRuler : public Ruler {
 public:
    /// `window` must outlive this.
    explicit NativeRuler(const forms::win32::FormWindow& window) : window_(window) {}
    forms::Rect PlaceOf(const forms::Control& control) const override;
    forms::Size RoomIn(const forms::Control& control) const override;
    forms::Size ContentOf(const forms::Form& form) const override;
    forms::Size SizeOf(const forms::Control& control, std::string_view text) const override;
    int Own(int units) const override { return window_.GetScale().ToPixels(units); }

 private:
    HWND HandleOf(const forms::Control& control) const;

    const forms::win32::FormWindow& window_;
};

}  // namespace zv::driver
