// The fields of an item as they are stored and as the editor is about to store them.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "store/connection.h"

namespace zv::mainwindow {

/// The fields that the editor writes, in the order of writing.
inline constexpr auto kItemFields = std::to_array<std::string_view>(
    {"fType", "fWay", "TaskID", "fGuest", "taskTitle", "tDoneMan", "taskTime", "tDuring1",
     "tDuring2", "fContent", "fOther0", "fOther1", "fOther2", "fOther3", "fOther4", "fOther5",
     "fUser", "tDone"});

/// The position of a field above; kItemFields.size() for any other.
std::size_t ItemFieldIndex(std::string_view name);

using ItemRecord = std::array<store::Value, kItemFields.size()>;
/// A field without a value is left as it is stored.
using ItemEntry = std::array<std::optional<store::Value>, kItemFields.size()>;

/// The current row of tTaskList.
ItemRecord ReadItem(const store::Recordset& row);

/// The fields that hold something else than when the item was read, and that the entry would set
/// to something else again: what writing the entry would undo.
std::vector<std::size_t> FindConflicts(const ItemRecord& asRead, const ItemRecord& now,
                                       const ItemEntry& entry);

}  // namespace zv::mainwindow
