// Plans in the database.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "scheduling/plan.h"
#include "session/session.h"

namespace zv::scheduling {

/// The number to propose for a new plan: the largest one + 1, or 1.
std::string ProposeTaskId(Session& session);

/// The row of a plan; nothing when there is none.
std::optional<store::RowValues> LoadPlan(Session& session, std::int32_t taskId);

/// What is shown of a plan beside its items.
struct PlanSummary {
    std::string title;
    std::string content;
    std::string doneMan;
    std::string setMan;
};
/// Nothing when there is no such plan.
std::optional<PlanSummary> LoadSummary(Session& session, std::int32_t taskId);

/// Number (as fID), title and doer of every plan, by title.
std::unique_ptr<store::Recordset> OpenPlanList(Session& session);

}  // namespace zv::scheduling
