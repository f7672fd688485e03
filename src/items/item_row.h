// The fields of an item as they are stored and as an editor is about to store them: one value for
// each field of the table, in its order.
#pragma once

#include <cstddef>
#include <vector>

#include "changes/row_change.h"
#include "items/fields.h"
#include "items/item.h"
#include "store/row_merge.h"

namespace zv::items {

using ItemRow = store::RowValues;
/// A field without a value is left as it is stored.
using ItemEntry = store::RowChanges;

/// The current row of tTaskList.
ItemRow ReadItem(const store::Recordset& row);

/// tTaskList with the fields above.
const changes::Table& ItemTable();

/// The groups of the fields for a merge. The writer is the current user at every save.
std::vector<std::size_t> MergeGroups();

}  // namespace zv::items
