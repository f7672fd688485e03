// The rows of an Access table, in the order of its pages.
#pragma once

#include <functional>

#include "zvdb/access/mdb_file.h"

namespace zv::zvdb::access {

/// Calls `take` with each row and a name for it ("row 3 on page 120"). Throws Damage, naming the
/// table, when a page is not the table's, a moved row is not where it went, or the rows are not as
/// many as the definition says.
void ForEachRow(MdbFile& file, const TableDefinition& table,
                const std::function<void(const AccessRow&, const std::string&)>& take);

}  // namespace zv::zvdb::access
