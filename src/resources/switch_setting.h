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

}  // namespace zv::resources
