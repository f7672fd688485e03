// A plan as a row of tTaskSet.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "changes/row_change.h"
#include "plans/plan.h"
#include "store/column.h"
#include "store/row_values.h"

namespace zv::plans {

/// The columns of a plan, in the order of writing.
inline constexpr auto kPlanColumns = std::to_array<store::Column>({
    {"TaskID", store::ColumnKind::Number},
    {"taskTitle"},
    {"tbegin", store::ColumnKind::Date},
    {"tEnd", store::ColumnKind::Date},
    {"CircleValue", store::ColumnKind::Number},
    {"CircleType", store::ColumnKind::Number},
    {"taskMonth", store::ColumnKind::Number},
    {"taskday", store::ColumnKind::Number},
    {"TaskWeek", store::ColumnKind::Number},
    {"Type", store::ColumnKind::Number},
    {"TypeValue", store::ColumnKind::Number},
    {"SetMan"},
    {"DoneMan"},
    {"Content"},
});
inline constexpr auto kPlanFields = store::NamesOf(kPlanColumns);

/// tTaskSet with the fields above.
const changes::Table& PlanTable();

/// The position of a field above; kPlanFields.size() for any other.
std::size_t PlanFieldIndex(std::string_view name);

/// The groups of the fields above, of which a save takes one version as a whole: the dates, the
/// recurrence, the alert. A plan keeps its number.
std::vector<std::size_t> PlanGroups();

/// The fields above of a plan, and back. PlanOf throws error 13 when a date is missing or a number
/// is none.
store::RowValues ValuesOf(const Plan& plan);
Plan PlanOf(const store::RowValues& values);

/// The plan of the current row. Throws like PlanOf.
Plan ReadPlan(const store::Recordset& row);

}  // namespace zv::plans
