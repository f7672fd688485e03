#include "base/spreadsheet_text.h"

#include <algorithm>
#include <array>

namespace zv {
namespace {

constexpr auto kStarts =
    std::to_array<std::string_view>({"=", "+", "-", "@", "\t", "\r", "\n", "＝", "＋", "－", "＠"});

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// An optional sign, digits, at most one point among them.
bool IsPlainNumber(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    if (std::count(text.begin(), text.end(), '.') > 1) return false;
    return std::any_of(text.begin(), text.end(), IsDigit) &&
           std::all_of(text.begin(), text.end(), [](char c) { return IsDigit(c) || c == '.'; });
}

}  // namespace

bool WouldBeComputed(std::string_view text) {
    const bool starts = std::any_of(kStarts.begin(), kStarts.end(), [text](std::string_view sign) {
        return text.starts_with(sign);
    });
    return starts && !IsPlainNumber(text);
}

}  // namespace zv
