// Fonts of anybody's making, for widths and for files.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "report/font_set.h"

namespace zv::fuzz {

struct FontProduct {
    std::function<double(const report::FontSet&, char32_t)> advance =
        [](const report::FontSet& fonts, char32_t c) {
            return static_cast<double>(fonts.Find(c).advance);
        };
};

/// A font is left out or can be used: every character has a width, texts are as wide as their
/// characters, and behind it a sound font still gives what this one lacks. A page is laid out; that
/// of a sound font is written to a file.
void PlayFont(std::string_view input, const FontProduct& product = {});
std::vector<std::string> FontSeeds();

}  // namespace zv::fuzz
