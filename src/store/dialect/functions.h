// The functions of the dialect, each with its translation.
#pragma once

#include <string_view>
#include <vector>

#include "store/dialect/expression.h"

namespace zv::store::dialect {

/// A call of `name` (any case) at `position` in the target's terms. Throws RuntimeError
/// (DatabaseStatement) for an unknown function or a wrong number or form of arguments.
Expression TranslateCall(std::string_view name, std::vector<Expression> arguments,
                         std::size_t position);

bool IsAggregate(std::string_view name);

}  // namespace zv::store::dialect
