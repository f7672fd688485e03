// The system's colours as the user has set them, and what of a window's own can be read on them.
#pragma once

#include <cstdint>
#include <optional>

namespace zv::forms {

/// A colour is 0xRRGGBB.
struct SystemTheme {
    std::uint32_t window = 0xFFFFFF;  ///< the ground of lists and boxes
    /// The user needs a few colours that differ much, and no others.
    bool highContrast = false;

    bool operator==(const SystemTheme&) const = default;
};

/// The least that a text of usual size needs.
inline constexpr double kReadable = 4.5;

/// Of two colours, from 1 to 21, as the guidelines for accessible pages (WCAG 2) count it.
double Contrast(std::uint32_t a, std::uint32_t b);
/// The colour itself where it can be read on `ground`; otherwise as little lighter or darker as
/// makes it readable.
std::uint32_t MadeReadable(std::uint32_t color, std::uint32_t ground);
/// How a text of a colour that means something is shown; nothing where the system's own colours
/// must stay: on selected rows, and where the user needs contrast.
std::optional<std::uint32_t> ShownColor(std::uint32_t color, const SystemTheme& theme,
                                        bool selected);

}  // namespace zv::forms
