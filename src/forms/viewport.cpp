#include "forms/viewport.h"

#include <algorithm>

namespace zv::forms {
namespace {

// The least change of `offset` that shows `begin` to `end` in a view of `length`.
int Shown(int offset, int begin, int end, int length) {
    if (end > offset + length) offset = end - length;
    return std::min(offset, begin);
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

Rect FitInto(const Rect& place, const Rect& area) {
    const int width = std::min(place.width, area.width);
    const int height = std::min(place.height, area.height);
    return {std::clamp(place.left, area.left, area.Right() - width),
            std::clamp(place.top, area.top, area.Bottom() - height), width, height};
}

}  // namespace zv::forms
