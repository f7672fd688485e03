// What a row or a node shows beside its text: a word, and a colour that says the same.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zv::forms {

struct Sign {
    std::string text;
    /// Of the sign and of the text beside it on white, as 0xRRGGBB; on other grounds it is shown as
    /// ShownColor says.
    std::uint32_t color = 0;

    bool operator==(const Sign&) const = default;
};

/// What a cell shows that has a sign; an empty text or sign leaves the other alone.
inline std::string WithSign(std::string_view text, std::string_view sign) {
    constexpr std::string_view kBetween = "  ";
    std::string shown(text);
    if (!text.empty() && !sign.empty()) shown += kBetween;
    return shown.append(sign);
}

}  // namespace zv::forms
