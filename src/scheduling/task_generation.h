// The recurrence engine on the database: turns a plan into the dated items of tTaskList.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/date_time.h"
#include "session/session.h"

namespace zv::scheduling {

/// Told before each row is written: the rows written so far, and which part (0 to 1) of the
/// plan's time lies before the row. What it throws ends the run like a database error.
using GenerationProgress = std::function<void(int rows, double part)>;

/// Deletes the old items of a plan (all, or only the undone ones as the user answers), writes the
/// new ones, stamps the plan with the current user and tells the user. Each row is saved by
/// itself; an error of the database or error 6 (see Occurrences) ends the run where it stands and
/// reaches the caller, the plan not stamped. `taskId` goes into the statements as it stands.
void GenerateTaskList(Session& session, const std::string& taskId,
                      const GenerationProgress& progress = {});

/// Adds the one item of a plan for a date after asking the user. 1 when an undone item for that
/// date exists or was added; 0 when the plan is missing or the user cancels.
std::int16_t AddTaskInstance(Session& session, std::int16_t taskId, DateTime date);

}  // namespace zv::scheduling
