// Which rows of tTaskList are a plan's own. Plans and customer cards are numbered in one column, so
// a visit may stand under the number of a plan; a plan makes tasks only.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/session.h"

namespace zv::scheduling {

/// What a statement that finds items by `taskID` carries behind its condition, so that it leaves
/// items of other kinds alone: empty where none stands under the number. Database errors reach the
/// caller. `taskId` goes into the statement as it stands.
std::string OnlyItemsOfPlan(Session& session, std::string_view taskId);

/// Deletes a plan and its items. Database errors reach the caller.
void DeletePlan(Session& session, std::int32_t taskId);

}  // namespace zv::scheduling
