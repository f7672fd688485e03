// What a row or a node shows beside its text: a word, and a colour that says the same.
#pragma once

#include <cstdint>
#include <string>

namespace zv::forms {

struct Sign {
    std::string text;
    /// Of the sign and of the text beside it on white, as 0xRRGGBB; on other grounds it is shown as
    /// ShownColor says.
    std::uint32_t color = 0;

    bool operator==(const Sign&) const = default;
};

}  // namespace zv::forms
