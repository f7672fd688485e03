// What a user or a host reads of run-time errors.
#pragma once

#include <cstdint>
#include <string>

#include "base/errors.h"

namespace zv::resources {

/// An error's own text, or the spoken language's text for its number. An engine's error is told by
/// its kind, the engine's own words in parentheses behind it for whoever is asked for help.
std::string DescribeError(const RuntimeError& error, std::int16_t language);

}  // namespace zv::resources
