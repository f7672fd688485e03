// Switches among the workstation settings.
#pragma once

#include <string_view>

#include "base/number.h"

namespace zv::resources {

/// The value of the box that shows a stored switch: 1 for any number but 0. Throws error 13 for a
/// text that is no number.
inline int SwitchOf(std::string_view text) {
    return number::ToDouble(text) != 0 ? 1 : 0;
}

/// As SwitchOf; `otherwise` for a text that is no number.
inline int SwitchOr(std::string_view text, int otherwise) {
    try {
        return SwitchOf(text);
    } catch (const RuntimeError&) {
        return otherwise;
    }
}

}  // namespace zv::resources
