// Between units (1/96 inch) and the pixels of a monitor.
#pragma once

#include <cstdint>

#include "forms/geometry.h"

namespace zv::forms {

/// Whole units survive the way to pixels and back at 96 dots an inch and above.
class Scale {
 public:
    static constexpr int kUsualDpi = 96;

    explicit constexpr Scale(int dpi = kUsualDpi) : dpi_(dpi) {}
    constexpr int Dpi() const { return dpi_; }
    constexpr int ToPixels(int units) const { return Convert(units, dpi_, kUsualDpi); }
    constexpr int ToUnits(int pixels) const { return Convert(pixels, kUsualDpi, dpi_); }
    /// The least number of units that has so many pixels wherever it begins: edges are rounded, not
    /// extents.
    constexpr int UnitsThatHold(int pixels) const {
        return static_cast<int>((std::int64_t{pixels} * kUsualDpi + dpi_ - 1) / dpi_);
    }
    constexpr int ToTwips(int pixels) const { return Convert(pixels, kTwipsPerInch, dpi_); }
    constexpr int FromTwips(int twips) const { return Convert(twips, dpi_, kTwipsPerInch); }
    constexpr Size ToPixels(Size units) const {
        return {ToPixels(units.width), ToPixels(units.height)};
    }
    constexpr Size ToUnits(Size pixels) const {
        return {ToUnits(pixels.width), ToUnits(pixels.height)};
    }
    constexpr Rect ToUnits(const Rect& pixels) const {
        return {ToUnits(pixels.left), ToUnits(pixels.top), ToUnits(pixels.width),
                ToUnits(pixels.height)};
    }

 private:
    static constexpr int kTwipsPerInch = 1440;

    // To the nearest, halves away from zero.
    static constexpr int Convert(int value, int by, int of) {
        const std::int64_t product = std::int64_t{value} * by;
        const std::int64_t half = product < 0 ? -(of / 2) : of / 2;
        return static_cast<int>((product + half) / of);
    }

    int dpi_;
};

}  // namespace zv::forms
