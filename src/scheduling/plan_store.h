// Plans in the database.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "scheduling/plan.h"
#include "scheduling/plan_rules.h"
#include "session/session.h"

namespace zv::scheduling {

/// The number to propose for a new plan: the largest one + 1, or 1.
std::string ProposeTaskId(Session& session);

/// Nothing when there is no such plan.
std::optional<Plan> LoadPlan(Session& session, std::int32_t taskId);

/// The plan that is being changed, as it was when it was opened or last saved; number 0 for a new
/// one.
struct EditedPlan {
    std::int32_t taskId = 0;
    std::string title;
};

/// Adds the plan, or overwrites the one that is being changed, in one row update. Answers why not
/// when a rule of uniqueness forbids it; nothing is written then.
std::optional<Refusal> SavePlan(Session& session, const Plan& plan, const EditedPlan& edited);

}  // namespace zv::scheduling
