#include "forms/theme.h"

#include <algorithm>
#include <cmath>

namespace zv::forms {
namespace {

constexpr std::uint32_t kBlack = 0x000000;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kMost = 0xFF;

std::uint32_t Part(std::uint32_t color, unsigned shift) {
    return (color >> shift) & kMost;
}

// The numbers are those of the definition of sRGB.
double Luminance(std::uint32_t color) {
    const auto linear = [&](unsigned shift) {
        const double value = Part(color, shift) / double{kMost};
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

/// `parts` of `whole` on the way from one colour to the other.
std::uint32_t Between(std::uint32_t from, std::uint32_t to, std::uint32_t parts,
                      std::uint32_t whole) {
    std::uint32_t mixed = 0;
    for (const unsigned shift : {16U, 8U, 0U}) {
        const std::uint32_t sum = Part(from, shift) * (whole - parts) + Part(to, shift) * parts;
        mixed |= (sum / whole) << shift;
    }
    return mixed;
}

}  // namespace

double Contrast(std::uint32_t a, std::uint32_t b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

std::uint32_t MadeReadable(std::uint32_t color, std::uint32_t ground) {
    constexpr std::uint32_t kSteps = 20;
    // One of the two ends can be read on any ground.
    const std::uint32_t end = Contrast(kWhite, ground) > Contrast(kBlack, ground) ? kWhite : kBlack;
    for (std::uint32_t step = 0; step < kSteps; step++) {
        const std::uint32_t mixed = Between(color, end, step, kSteps);
        if (Contrast(mixed, ground) >= kReadable) return mixed;
    }
    return end;
}

std::optional<std::uint32_t> ShownColor(std::uint32_t color, const SystemTheme& theme,
                                        bool selected) {
    if (selected || theme.highContrast) return std::nullopt;
    return MadeReadable(color, theme.window);
}

}  // namespace zv::forms
