#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace zv::forms {

/// What a canvas is painted on: the backend's drawing device, null where there is no display.
struct CanvasSurface {
    void* device = nullptr;
    int width = 0;  ///< in pixels
    int height = 0;
    int dpi = 96;
};

/// An area that its owner paints and that can be scrolled.
class Canvas : public Control {
 public:
    /// One direction of scrolling.
    struct Scroll {
        int extent = 0;    ///< of the contents
        int visible = 0;   ///< of them at one time
        int position = 0;  ///< 0 .. extent - visible
        int Last() const { return extent > visible ? extent - visible : 0; }
        bool operator==(const Scroll&) const = default;
    };
    /// Room that a scroll bar takes where the backend reports nothing else.
    static constexpr int kScrollBar = 17;

    Canvas(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::Canvas, std::move(name), parent, index) {
        SetTabStop(true);
    }

    /// Paints the whole area; called whenever the system asks for it.
    std::function<void(const CanvasSurface&)> onPaint;
    /// The user moved to another position, which Horizontal() and Vertical() show.
    std::function<void()> onScroll;
    /// Notches of the wheel, away from the user positive.
    std::function<void(int notches, bool control)> onWheel;

    void Repaint() { Notify(Aspect::Image); }
    const Scroll& Horizontal() const { return horizontal_; }
    const Scroll& Vertical() const { return vertical_; }
    /// Positions outside are brought inside. Raises no event.
    void SetScroll(Scroll horizontal, Scroll vertical);
    /// The area beside the scroll bars.
    Size ViewSize() const;

    /// What the user and the backend did; positions outside are brought inside.
    void UserScroll(int x, int y);
    void UserWheel(int notches, bool control);
    void UserPaint(const CanvasSurface& surface);
    void SetScrollBarSize(int units) { scrollBar_ = units; }

 private:
    Scroll horizontal_;
    Scroll vertical_;
    int scrollBar_ = kScrollBar;
};

}  // namespace zv::forms
