// What a user may enter into a field.
#pragma once

#include <cstdint>
#include <string_view>

namespace zv::items {

/// The catalogue id of why a text is refused, 0 when it is not: a single quote (131) or, with
/// `numericOnly`, a non-empty text that is not a number (130).
std::int16_t WhyRefused(std::string_view text, bool numericOnly);

}  // namespace zv::items
