// The engine of plans with its questions and its outcome in boxes.
#pragma once

#include <cstdint>
#include <string>

#include "plans/generation.h"
#include "session/session.h"

namespace zv::windows {

/// plans::GenerateTaskList for the current user. Asks whether items that are done go too, and says
/// how the run ended; what it throws reaches the caller without a box.
void GenerateTaskList(Session& session, const std::string& taskId,
                      const plans::GenerationProgress& progress = {});

/// plans::AddTaskInstance. True when the plan has an undone item for the date; false when the user
/// cancels or the plan is gone, which a box says.
bool AddTaskInstance(Session& session, std::int16_t taskId, DateTime date);

}  // namespace zv::windows
