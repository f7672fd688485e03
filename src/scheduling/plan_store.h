// Plans in the database.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "scheduling/plan.h"
#include "session/session.h"

namespace zv::scheduling {

/// The number to propose for a new plan: the largest one + 1, or 1.
std::string ProposeTaskId(Session& session);

/// The row of a plan; nothing when there is none.
std::optional<store::RowValues> LoadPlan(Session& session, std::int32_t taskId);

}  // namespace zv::scheduling
