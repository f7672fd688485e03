// The rows of a table are distinct where its key is shown; engines do not look for that.
#pragma once

#include "store/dialect/schema_info.h"
#include "store/dialect/tree.h"

namespace zv::store::dialect::passes {

/// Takes "distinct" from selects on one table that show its key, of a union from the last.
Statement DropDistinct(Statement statement, const SchemaInfo& schema);

}  // namespace zv::store::dialect::passes
