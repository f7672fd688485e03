#include "base/number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "base/errors.h"

namespace zv::number {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Length of the longest number at the start of `text`, which holds no blanks.
std::size_t NumberLength(std::string_view text) {
    const auto peek = [&](std::size_t at) { return at < text.size() ? text[at] : '\0'; };
    std::size_t at = peek(0) == '+' || peek(0) == '-' ? 1 : 0;
    std::size_t digits = 0;
    bool point = false;
    while (IsDigit(peek(at)) || (peek(at) == '.' && !point)) {
        if (peek(at) == '.')
            point = true;
        else
            digits++;
        at++;
    }
    if (digits == 0) return 0;
    if (peek(at) == 'e' || peek(at) == 'E') {
        std::size_t exponent = at + 1;
        if (peek(exponent) == '+' || peek(exponent) == '-') exponent++;
        if (IsDigit(peek(exponent))) {
            while (IsDigit(peek(exponent))) exponent++;
            at = exponent;
        }
    }
    return at;
}

/// Of a number that no double holds: it is too large, not too small.
bool IsHuge(std::string_view digits) {
    const std::size_t mark = digits.find_first_of("eE");
    const std::string_view mantissa = digits.substr(0, mark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    auto magnitude = static_cast<double>(point) - static_cast<double>(first);
    if (mark != std::string_view::npos) {
        const bool down = digits[mark + 1] == '-';
        double exponent = 0;
        for (const char c : digits.substr(mark)) {
            if (IsDigit(c)) exponent = exponent * 10 + (c - '0');
        }
        magnitude += down ? -exponent : exponent;
    }
    return magnitude > 0;
}

/// Infinite when it is too large, 0 when it is too small.
double Convert(std::string_view digits) {
    if (digits.starts_with('+')) digits.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc::result_out_of_range) return value;
    if (!IsHuge(digits)) return 0;
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    return digits.starts_with('-') ? -kInfinite : kInfinite;
}

double Finite(double value) {
    if (std::isinf(value)) throw RuntimeError(ErrorNumber::Overflow);
    return value;
}

double RoundHalfEven(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    if (rest < 0.5) return floor;
    if (rest > 0.5) return floor + 1;
    return std::fmod(floor, 2) == 0 ? floor : floor + 1;
}

template <typename Integer>
Integer Round(double value) {
    const double rounded = RoundHalfEven(value);
    if (!(rounded >= std::numeric_limits<Integer>::min() &&
          rounded <= std::numeric_limits<Integer>::max())) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<Integer>(rounded);
}

double ParseOrThrow(std::string_view text) {
    const auto value = Parse(text);
    if (!value) throw RuntimeError(ErrorNumber::TypeMismatch);
    return Finite(*value);
}

}  // namespace

double Val(std::string_view text) {
    std::string packed;
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\n') packed += c;
    }
    return Finite(Convert(std::string_view(packed).substr(0, NumberLength(packed))));
}

std::optional<double> Parse(std::string_view text) {
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
    std::string plain;
    // A comma counts as a thousands mark only behind a digit of the whole part.
    bool behindDigit = false;
    for (const char c : text) {
        behindDigit = behindDigit && c == ',' && plain.find('.') == std::string::npos;
        if (behindDigit) continue;
        plain += c;
        behindDigit = IsDigit(c);
    }
    if (NumberLength(plain) != plain.size()) return std::nullopt;
    return Convert(plain);
}

std::int16_t ToInt16(double value) {
    return Round<std::int16_t>(value);
}
std::int32_t ToInt32(double value) {
    return Round<std::int32_t>(value);
}
double ToDouble(std::string_view text) {
    return ParseOrThrow(text);
}
std::int16_t ToInt16(std::string_view text) {
    return ToInt16(ParseOrThrow(text));
}
std::int32_t ToInt32(std::string_view text) {
    return ToInt32(ParseOrThrow(text));
}
std::int16_t Add16(int a, int b) {
    return ToInt16(static_cast<double>(a) + b);
}
std::int16_t Multiply16(int a, int b) {
    return ToInt16(static_cast<double>(a) * b);
}

}  // namespace zv::number
