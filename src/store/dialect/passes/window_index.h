// Alert windows that meet a span of days are found by their index.
#pragma once

#include "store/dialect/schema_info.h"
#include "store/dialect/target.h"
#include "store/dialect/tree.h"

namespace zv::store::dialect::passes {

/// Selects that ask for the windows which begin until one day and end from another on, of the table
/// that `index` is of, search by it, in the target's way and where that pays.
///
/// `Inside`: those that stand in another one or in an insert's place of values. `Outside`: the one
/// that the statement is.
Statement UseWindowIndexInside(Statement statement, const WindowIndex& index, const Target& target);
Statement UseWindowIndexOutside(Statement statement, const WindowIndex& index,
                                const Target& target);

}  // namespace zv::store::dialect::passes
