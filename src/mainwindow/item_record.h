// The fields of an item as they are stored and as the editor is about to store them.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "store/row_merge.h"

namespace zv::mainwindow {

/// The fields that the editor writes, in the order of writing.
inline constexpr auto kItemFields = std::to_array<std::string_view>(
    {"fType", "fWay", "TaskID", "fGuest", "taskTitle", "tDoneMan", "taskTime", "tDuring1",
     "tDuring2", "fContent", "fOther0", "fOther1", "fOther2", "fOther3", "fOther4", "fOther5",
     "fUser", "tDone"});

/// The position of a field above; kItemFields.size() for any other.
std::size_t ItemFieldIndex(std::string_view name);

/// The groups of the fields above: kind, card and guest belong together, so do the three dates, and
/// the state and its doer. The user is the current one at every save.
std::vector<std::size_t> ItemGroups();

/// A field without a value is left as it is stored.
using ItemEntry = store::RowChanges;

/// The current row of tTaskList.
store::RowValues ReadItem(const store::Recordset& row);

}  // namespace zv::mainwindow
