#include "forms/viewport.h"

#include <algorithm>

namespace zv::forms {
namespace {

// The least change of `offset` that shows `begin` to `end` in a view of `length`.
int Shown(int offset, int begin, int end, int length) {
    if (end > offset + length) offset = end - length;
    return std::min(offset, begin);
}

/// What an arrow of the bar moves by.
constexpr int kLine = 24;
constexpr int kLinesOfANotch = 3;

Position Moved(Position offset, Viewport::Axis axis, int by) {
    return axis == Viewport::Axis::Horizontal ? Position{offset.x + by, offset.y}
                                              : Position{offset.x, offset.y + by};
}

}  // namespace

void Viewport::Set(Size inside, Size least, int bar) {
    inside_ = inside;
    bool across = inside.width < least.width;
    // A bar takes room from the other direction.
    const bool down = inside.height - (across ? bar : 0) < least.height;
    across = inside.width - (down ? bar : 0) < least.width;
    view_ = {std::max(inside.width - (down ? bar : 0), 0),
             std::max(inside.height - (across ? bar : 0), 0)};
    content_ = {std::max(view_.width, least.width), std::max(view_.height, least.height)};
    ScrollTo(offset_);
}

bool Viewport::ScrollTo(Position offset) {
    const Position possible{std::clamp(offset.x, 0, content_.width - view_.width),
                            std::clamp(offset.y, 0, content_.height - view_.height)};
    if (possible == offset_) return false;
    offset_ = possible;
    return true;
}

bool Viewport::Reveal(const Rect& place) {
    return ScrollTo({Shown(offset_.x, place.left, place.Right(), view_.width),
                     Shown(offset_.y, place.top, place.Bottom(), view_.height)});
}

Position Viewport::After(Axis axis, Step step) const {
    const bool across = axis == Axis::Horizontal;
    const int page = across ? view_.width : view_.height;
    const int content = across ? content_.width : content_.height;
    switch (step) {
        case Step::LineBack:
            return Moved(offset_, axis, -kLine);
        case Step::LineOn:
            return Moved(offset_, axis, kLine);
        case Step::PageBack:
            return Moved(offset_, axis, -page);
        case Step::PageOn:
            return Moved(offset_, axis, page);
        case Step::Start:
            return across ? Position{0, offset_.y} : Position{offset_.x, 0};
        case Step::End:
            break;
    }
    return across ? Position{content - page, offset_.y} : Position{offset_.x, content - page};
}

Position Viewport::AfterWheel(Axis axis, int turned) const {
    constexpr int kWayOfANotch = kLine * kLinesOfANotch;
    const int half = turned < 0 ? -kNotch / 2 : kNotch / 2;
    const int way = (turned * kWayOfANotch + half) / kNotch;
    return Moved(offset_, axis, axis == Axis::Horizontal ? way : -way);
}

Rect FitInto(const Rect& place, const Rect& area) {
    const int width = std::min(place.width, area.width);
    const int height = std::min(place.height, area.height);
    return {std::clamp(place.left, area.left, area.Right() - width),
            std::clamp(place.top, area.top, area.Bottom() - height), width, height};
}

}  // namespace zv::forms
