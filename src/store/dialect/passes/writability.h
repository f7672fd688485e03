// Whether the rows that a select shows can be written back, and how they are found again.
#pragma once

#include <string>

#include "store/dialect/target.h"
#include "store/dialect/tree.h"

namespace zv::store::dialect::passes {

/// The table whose rows a select shows as they are: one table, no total, no grouping, no
/// "distinct". Empty for any other statement.
std::string WritableTable(const Statement& statement);

// Of a select on a writable table, for an engine that numbers its rows.

/// The numbers of the result's rows, in its order.
Query KeysOf(Query query, const Target& target);
/// The same columns of the row whose number is the parameter ?1.
Query RowOf(Query query, const Target& target);

}  // namespace zv::store::dialect::passes
