// What a user reads of the run-time errors that carry no text of their own.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/errors.h"

namespace zv::resources {

/// The text of a classic error number in the control's language: 1 Traditional, any other
/// Simplified. A number without a text of its own is named by its number.
std::string ErrorText(ErrorNumber number, std::int16_t language);

}  // namespace zv::resources
