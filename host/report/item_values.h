// Stored values of items as a reader sees them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/value.h"

namespace zv::report {

/// A kind ("fType") and a state ("tDone") print as their names, a date as "yyyy-mm-dd" (with
/// "hh:mm" behind it when it has a time of day), anything else as its text. A number that is no
/// kind or state prints as it is.
std::string PrintedValue(std::string_view field, const store::Value& value, std::int16_t language);

}  // namespace zv::report
