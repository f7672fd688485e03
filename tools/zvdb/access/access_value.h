// The value of a field of an Access row.
#pragma once

#include "store/value.h"
#include "zvdb/access/mdb_file.h"
#include "zvdb/import/table_source.h"

namespace zv::zvdb::access {

/// NULL stays apart from the empty text; a boolean is 1 or 0; money and decimals are numbers. What
/// cannot be read or is not exact is said in `remark`; answers whether there is such a remark.
bool DecodeField(MdbFile& file, const AccessRow& row, const AccessColumn& column,
                 store::Value& value, CellRemark& remark);

}  // namespace zv::zvdb::access
