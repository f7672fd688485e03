// Which rows of tTaskList are a plan's own. Plans and customer cards are numbered in one column, so
// a visit may stand under the number of a plan; a plan makes tasks only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "changes/row_change.h"
#include "store/database.h"

namespace zv::plans {

/// What a statement that finds items by `taskID` carries behind its condition, so that it leaves
/// items of other kinds alone: empty where none stands under the number. Database errors reach the
/// caller. `taskId` goes into the statement as it stands.
std::string OnlyItemsOfPlan(store::Database& database, std::string_view taskId);

/// The deletion of the items that meet a condition, as they are stored. Opens nothing; database
/// errors reach the caller.
std::vector<changes::RowChange> ItemsThatGo(store::Database& database, std::string_view condition);

}  // namespace zv::plans
