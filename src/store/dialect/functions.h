// The functions of the dialect, each with its translation.
#pragma once

#include <string_view>
#include <vector>

#include "store/dialect/target.h"

namespace zv::store::dialect {

/// A call of `name` (any case) at `position` as the target writes it. Throws RuntimeError
/// (DatabaseStatement) for an unknown function or a wrong number or form of arguments.
Expression TranslateCall(const Target& target, std::string_view name,
                         std::vector<Expression> arguments, std::size_t position);

bool IsAggregate(std::string_view name);

}  // namespace zv::store::dialect
