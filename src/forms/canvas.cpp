#include "forms/canvas.h"

#include <algorithm>

namespace zv::forms {
namespace {

Canvas::Scroll Inside(Canvas::Scroll scroll) {
    scroll.position = std::clamp(scroll.position, 0, scroll.Last());
    return scroll;
}

}  // namespace

void Canvas::SetScroll(Scroll horizontal, Scroll vertical) {
    horizontal = Inside(horizontal);
    vertical = Inside(vertical);
    if (horizontal == horizontal_ && vertical == vertical_) return;
    horizontal_ = horizontal;
    vertical_ = vertical;
    Notify(Aspect::Value);
}

Size Canvas::ViewSize() const {
    return {std::max(0, Bounds().width - scrollBar_), std::max(0, Bounds().height - scrollBar_)};
}

void Canvas::UserScroll(int x, int y) {
    const Scroll formerX = horizontal_;
    const Scroll formerY = vertical_;
    Scroll horizontal = horizontal_;
    Scroll vertical = vertical_;
    horizontal.position = x;
    vertical.position = y;
    SetScroll(horizontal, vertical);
    if (formerX == horizontal_ && formerY == vertical_) return;
    if (onScroll) FromUser(onScroll);
}

void Canvas::UserWheel(int notches, bool control) {
    if (onWheel) FromUser([&] { onWheel(notches, control); });
}

void Canvas::UserPaint(const CanvasSurface& surface) {
    // Shown once in a box, an error of painting would be shown again by every repaint behind it.
    try {
        if (onPaint) onPaint(surface);
    } catch (const std::exception&) {
        onPaint = nullptr;
        FromUser([] { throw; });
    }
}

}  // namespace zv::forms
