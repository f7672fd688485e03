// Plans in the database. Database errors reach the caller.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "plans/plan_row.h"
#include "store/database.h"

namespace zv::plans {

/// The number to propose for a new plan: the largest one + 1, or 1.
std::string ProposeNumber(store::Database& database);

/// The row of a plan; nothing when there is none.
std::optional<store::RowValues> Load(store::Database& database, std::int32_t taskId);

/// A plan's number and title as they are stored.
struct PlanName {
    std::string number;
    std::string title;
};
/// Nothing when there is no such plan.
std::optional<PlanName> LoadName(store::Database& database, std::int32_t taskId);

/// What is shown of a plan beside its items.
struct PlanSummary {
    std::string title;
    std::string content;
    std::string doneMan;
    std::string setMan;
};
/// Nothing when there is no such plan.
std::optional<PlanSummary> LoadSummary(store::Database& database, std::int32_t taskId);

/// Number (as fID), title and doer of every plan, by title.
std::unique_ptr<store::Recordset> OpenList(store::Database& database);

/// What Delete takes: the plan and its items, as they are stored.
std::vector<changes::RowChange> WhatDeleteTakes(store::Database& database, std::int32_t taskId);
/// Deletes a plan and its items; one that is gone is no error.
void Delete(store::Database& database, std::int32_t taskId);

}  // namespace zv::plans
