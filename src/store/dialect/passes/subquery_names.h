// Subqueries among tables, for engines in which each needs a name.
#pragma once

#include "store/dialect/target.h"
#include "store/dialect/tree.h"

namespace zv::store::dialect::passes {

/// Gives those that were written without a name one of the target's.
Statement NameSubqueries(Statement statement, const Target& target);

}  // namespace zv::store::dialect::passes
