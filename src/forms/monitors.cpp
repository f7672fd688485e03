#include "forms/monitors.h"

#include <cstdint>
#include <stdexcept>
#include <utility>

#include "forms/viewport.h"

namespace zv::forms {
namespace {

std::int64_t AreaOf(const Rect& rect) {
    return std::int64_t{rect.width} * rect.height;
}

int Gap(int firstEnd, int secondBegin, int secondEnd, int firstBegin) {
    return std::max({secondBegin - firstEnd, firstBegin - secondEnd, 0});
}

std::int64_t SquaredDistance(const Rect& a, const Rect& b) {
    const std::int64_t x = Gap(a.Right(), b.left, b.Right(), a.left);
    const std::int64_t y = Gap(a.Bottom(), b.top, b.Bottom(), a.top);
    return x * x + y * y;
}

}  // namespace

Monitors::Monitors(std::vector<Monitor> monitors) : monitors_(std::move(monitors)) {
    if (monitors_.empty()) throw std::invalid_argument("a desktop has a monitor");
}

std::size_t Monitors::PositionAround(const Rect& place) const {
    std::size_t best = 0;
    for (std::size_t i = 1; i < monitors_.size(); i++) {
        const std::int64_t own = AreaOf(Common(monitors_[i].bounds, place));
        const std::int64_t most = AreaOf(Common(monitors_[best].bounds, place));
        const bool isNearer = own == 0 && most == 0 &&
                              SquaredDistance(monitors_[i].bounds, place) <
                                  SquaredDistance(monitors_[best].bounds, place);
        if (own > most || isNearer) best = i;
    }
    return best;
}

Rect Monitors::Desktop() const {
    Rect all = Primary().bounds;
    for (const Monitor& monitor : monitors_) {
        const int right = std::max(all.Right(), monitor.bounds.Right());
        const int bottom = std::max(all.Bottom(), monitor.bounds.Bottom());
        all.left = std::min(all.left, monitor.bounds.left);
        all.top = std::min(all.top, monitor.bounds.top);
        all.width = right - all.left;
        all.height = bottom - all.top;
    }
    return all;
}

bool LiesWhole(const Monitors& monitors, const Rect& place) {
    return FitInto(place, monitors.Around(place).workArea) == place;
}

}  // namespace zv::forms
