// Texts of truth values and lines, as scenarios write them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/errors.h"
#include "base/number.h"
#include "base/text.h"

namespace zv::script {

inline std::string Truth(bool value) {
    return value ? "true" : "false";
}

/// "true" or "false" in any case, or a number that is not 0 or is. Throws error 13 otherwise.
inline bool ToTruth(std::string_view text) {
    if (text::EqualsIgnoreCase(text, "true")) return true;
    if (text::EqualsIgnoreCase(text, "false")) return false;
    const auto value = number::Parse(text);
    if (!value) throw RuntimeError(ErrorNumber::TypeMismatch);
    return *value != 0;
}

inline std::string JoinLines(const std::vector<std::string>& lines) {
    return text::Join(lines, "\n");
}

/// The lines so far; they are gone afterwards.
inline std::string TakeLines(std::vector<std::string>& lines) {
    const std::string result = JoinLines(lines);
    lines.clear();
    return result;
}

}  // namespace zv::script
