// Breaking a text into lines of a width.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zv::report {

/// As it can be printed: line breaks of every kind become "\n", tabs four blanks; other control
/// characters and characters that only steer the display of others (zero width, direction) are
/// taken out. Broken UTF-8 becomes U+FFFD.
std::string CleanText(std::string_view text);

/// Whether a line may end between two characters that stand together. Chinese breaks anywhere
/// except before closing and after opening punctuation; Latin words stay whole.
bool MayBreakBetween(char32_t before, char32_t after);

/// Width of one character.
using Measure = std::function<double(char32_t)>;

struct Line {
    std::size_t begin = 0;  ///< bytes of the text that was broken
    std::size_t length = 0;
};

/// At least one line, also of an empty text. `text` is cleaned. A word that is wider than a line is
/// broken where the line is full; blanks at a break are not part of a line.
std::vector<Line> BreakLines(std::string_view text, double width, const Measure& measure);

/// Width of the widest part that must not be broken.
double WidestPart(std::string_view text, const Measure& measure);

}  // namespace zv::report
