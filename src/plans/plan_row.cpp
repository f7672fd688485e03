#include "plans/plan_row.h"

#include <algorithm>

#include "store/row_merge.h"

namespace zv::plans {

const changes::Table& PlanTable() {
    static constexpr changes::Table kTable{
        .name = "tTaskSet",
        .columns = kPlanColumns,
        .title = "taskTitle",
        .select = "select * from tTaskSet where taskID=",
        .erase = "Delete from tTaskSet where taskID =",
    };
    return kTable;
}

std::size_t PlanFieldIndex(std::string_view name) {
    return static_cast<std::size_t>(std::find(kPlanFields.begin(), kPlanFields.end(), name) -
                                    kPlanFields.begin());
}

std::vector<std::size_t> PlanGroups() {
    std::vector<std::size_t> groups;
    // A field alone is a group of its own position, together they have that of their first one.
    for (std::size_t i = 0; i < kPlanFields.size(); i++) groups.push_back(i);
    const auto join = [&groups](std::string_view field, std::string_view first) {
        groups[PlanFieldIndex(field)] = PlanFieldIndex(first);
    };
    join("tEnd", "tbegin");
    for (const std::string_view field : {"CircleType", "taskMonth", "taskday", "TaskWeek"}) {
        join(field, "CircleValue");
    }
    join("TypeValue", "Type");
    groups[PlanFieldIndex("TaskID")] = store::RowMerge::kAlwaysOwn;
    return groups;
}

store::RowValues ValuesOf(const Plan& plan) {
    return {plan.taskId,     plan.title,  plan.begin,   plan.end,    plan.circleValue,
            plan.circleType, plan.month,  plan.day,     plan.week,   plan.type,
            plan.typeValue,  plan.setMan, plan.doneMan, plan.content};
}

Plan PlanOf(const store::RowValues& values) {
    const auto value = [&values](std::string_view field) -> const store::Value& {
        return values[PlanFieldIndex(field)];
    };
    Plan plan;
    plan.taskId = value("TaskID").ToInt32();
    plan.title = value("taskTitle").ToText();
    plan.begin = value("tbegin").ToDate();
    plan.end = value("tEnd").ToDate();
    plan.circleType = value("CircleType").ToInt16();
    plan.circleValue = value("CircleValue").ToInt16();
    plan.month = value("taskMonth").ToInt16();
    plan.day = value("taskday").ToInt16();
    plan.week = value("TaskWeek").ToInt16();
    plan.type = value("Type").ToInt16();
    plan.typeValue = value("TypeValue").ToInt16();
    plan.setMan = value("SetMan").ToText();
    plan.doneMan = value("DoneMan").ToText();
    plan.content = value("Content").ToText();
    return plan;
}

Plan ReadPlan(const store::Recordset& row) {
    return PlanOf(store::ReadRow(row, kPlanFields));
}

}  // namespace zv::plans
