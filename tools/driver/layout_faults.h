// What is wrong with how a window's controls lie and what of their captions can be read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"
#include "forms/form.h"

namespace zv::driver {

/// What a driver measures at a window, in a unit of its own: 1/96 inch or pixels.
class Ruler {
 public:
    virtual ~Ruler() = default;
    /// In the room of the container, or of the window's content.
    virtual forms::Rect PlaceOf(const forms::Control& control) const = 0;
    /// What the control has inside its own border.
    virtual forms::Size RoomIn(const forms::Control& control) const = 0;
    virtual forms::Size ContentOf(const forms::Form& form) const = 0;
    /// A text in the control's own font, lines broken at line feeds.
    virtual forms::Size SizeOf(const forms::Control& control, std::string_view text) const = 0;
    /// From 1/96 inch.
    virtual int Own(int units) const = 0;
};

/// A line for each fault of what the window shows at this moment, in the order of its controls:
/// a control without extent, outside of its container, across another one, or with a caption that
/// has no room. Data that is cut may stand in a tool tip; a caption may not. Empty for none.
std::vector<std::string> LayoutFaults(const forms::Form& form, const Ruler& ruler);

/// Measures what the controls themselves keep, by the widths that the backend gives.
class StateRuler : public Ruler {
 public:
    explicit StateRuler(forms::Backend& backend) : backend_(backend) {}
    forms::Rect PlaceOf(const forms::Control& control) const override { return control.Bounds(); }
    forms::Size RoomIn(const forms::Control& control) const override;
    forms::Size ContentOf(const forms::Form& form) const override { return form.ClientSize(); }
    forms::Size SizeOf(const forms::Control& control, std::string_view text) const override;
    int Own(int units) const override { return units; }

 private:
    forms::Backend& backend_;
};

}  // namespace zv::driver
