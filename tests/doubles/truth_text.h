// Texts of truth values.
#pragma once

#include <string>
#include <string_view>

#include "base/errors.h"
#include "base/number.h"
#include "base/text.h"

namespace zv::doubles {

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

}  // namespace zv::doubles
