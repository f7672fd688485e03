// The two-language message catalogue.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/errors.h"

namespace zv::resources {

/// Entry `id` of the table, ids as stored (Traditional texts at id + 10000). Throws error 326
/// (ResourceNotFound) for an id without an entry.
std::string_view CatalogueText(int storedId);

/// The entry id + 10000 × language, computed in 16 bits: throws error 6 on overflow.
std::string LoadText(std::int16_t id, std::int16_t language);

/// What a user or a host reads of an error: its own text, or the language's text for its number. An
/// engine's error is told by its kind, the engine's own words in parentheses behind it for whoever
/// is asked for help.
std::string DescribeError(const RuntimeError& error, std::int16_t language);

}  // namespace zv::resources
