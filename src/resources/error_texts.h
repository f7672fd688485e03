// What a user reads of run-time errors.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/errors.h"

namespace zv::resources {

/// The text of a classic error number in the control's language: 1 Traditional, any other
/// Simplified. A number without a text of its own is named by its number.
std::string ErrorText(ErrorNumber number, std::int16_t language);

/// The text of an engine's error by its kind, in the control's language; empty for the kinds that
/// say nothing by themselves (Own, Other).
std::string_view ErrorKindText(ErrorKind kind, std::int16_t language);

}  // namespace zv::resources
