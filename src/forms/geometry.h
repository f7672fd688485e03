// Places and sizes. The unit is 1/96 inch ("logical pixel") everywhere above the backends, which
// scale it to the display; mouse positions reach handlers in twips (1/1440 inch).
#pragma once

#include <algorithm>

namespace zv::forms {

struct Position {
    int x = 0;
    int y = 0;
    bool operator==(const Position&) const = default;
};

struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    constexpr int Right() const { return left + width; }
    constexpr int Bottom() const { return top + height; }
    bool operator==(const Rect&) const = default;
};

/// What both cover; without extent where they do not meet.
constexpr Rect Common(const Rect& a, const Rect& b) {
    const int left = std::max(a.left, b.left);
    const int top = std::max(a.top, b.top);
    return {left, top, std::max(std::min(a.Right(), b.Right()) - left, 0),
            std::max(std::min(a.Bottom(), b.Bottom()) - top, 0)};
}

inline constexpr int kTwipsPerUnit = 15;

}  // namespace zv::forms
