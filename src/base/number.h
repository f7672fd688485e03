// The conversions between text and numbers that the windows rely on.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zv::number {

/// Lenient reading: skips blanks, tabs and line feeds anywhere, reads a sign, digits, one point
/// and an exponent, and stops at the first other character. 0 when nothing was read. Throws error 6
/// for a number that is too large.
double Val(std::string_view text);

/// The whole text as a number (blanks around it allowed, thousands commas too); nothing otherwise.
/// Infinite for one that is too large, so that every bound refuses it, 0 for one that is too small.
std::optional<double> Parse(std::string_view text);
inline bool IsNumeric(std::string_view text) {
    return Parse(text).has_value();
}

/// Rounded to nearest, halves to even. Throws error 6 when out of range.
std::int16_t ToInt16(double value);
std::int32_t ToInt32(double value);
/// As above; throws error 13 when the text is not a number, 6 when it is too large.
double ToDouble(std::string_view text);
std::int16_t ToInt16(std::string_view text);
std::int32_t ToInt32(std::string_view text);
/// a + b and a * b in 16 bits; throw error 6 on overflow.
std::int16_t Add16(int a, int b);
std::int16_t Multiply16(int a, int b);

}  // namespace zv::number
