// The monitors of a desktop, and which of them a window lies on.
#pragma once

#include <vector>

#include "forms/geometry.h"
#include "forms/scale.h"

namespace zv::forms {

/// Places are in pixels of the desktop, which may be negative: the primary monitor has the origin.
struct Monitor {
    Rect bounds;
    /// What windows may cover of it.
    Rect workArea;
    int dpi = Scale::kUsualDpi;
    bool operator==(const Monitor&) const = default;
};

class Monitors {
 public:
    /// At least one; the first is the primary one.
    explicit Monitors(std::vector<Monitor> monitors);

    const Monitor& Primary() const { return monitors_.front(); }
    /// The one that has most of the place, or is nearest to it where none has any.
    const Monitor& Around(const Rect& place) const { return monitors_[PositionAround(place)]; }
    /// Its position in the list.
    std::size_t PositionAround(const Rect& place) const;
    /// What all of them cover together, the room between them included.
    Rect Desktop() const;

 private:
    std::vector<Monitor> monitors_;
};

/// It lies on one monitor and covers nothing that windows may not.
bool LiesWhole(const Monitors& monitors, const Rect& place);

}  // namespace zv::forms
