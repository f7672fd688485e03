#include "plans/plan_store.h"

#include <utility>

#include "plans/plan_items.h"

namespace zv::plans {
namespace {

constexpr double kLongestProposal = 1e15;

}  // namespace

std::string ProposeNumber(store::Database& database) {
    database.EnsureConnection();
    const auto rows = database.Open("select max(TaskID) as  MaxID from tTaskSet");
    std::string proposal = "1";
    if (!rows->Eof() && !rows->Field("maxID").IsNull()) {
        // The column may hold more than a plan's number may be; the field refuses that when it is
        // left.
        const double next = rows->Field("maxID").ToDouble() + 1;
        if (next < kLongestProposal) proposal = std::to_string(static_cast<std::int64_t>(next));
    }
    rows->Close();
    return proposal;
}

std::optional<store::RowValues> Load(store::Database& database, std::int32_t taskId) {
    database.EnsureConnection();
    const auto row = database.Open(std::string(PlanTable().select) + std::to_string(taskId));
    std::optional<store::RowValues> values;
    if (!row->Eof()) values = store::ReadRow(*row, kPlanFields);
    row->Close();
    return values;
}

std::optional<PlanName> LoadName(store::Database& database, std::int32_t taskId) {
    database.EnsureConnection();
    const auto row = database.Open("select * from tTaskSet where taskID=" + std::to_string(taskId) +
                                   " order by taskID");
    std::optional<PlanName> name;
    if (!row->Eof()) name = {row->Field("TaskID").ToText(), row->Field("taskTitle").ToText()};
    row->Close();
    return name;
}

std::optional<PlanSummary> LoadSummary(store::Database& database, std::int32_t taskId) {
    database.EnsureConnection();
    const auto row =
        database.Open("select taskTitle,Content,DoneMan,SetMan from tTaskSet where taskID=" +
                      std::to_string(taskId));
    std::optional<PlanSummary> plan;
    if (!row->Eof()) {
        plan = {row->Field("taskTitle").ToText(), row->Field("Content").ToText(),
                row->Field("DoneMan").ToText(), row->Field("SetMan").ToText()};
    }
    row->Close();
    return plan;
}

std::unique_ptr<store::Recordset> OpenList(store::Database& database) {
    database.EnsureConnection();
    return database.Open(
        "select distinct taskID as fID,taskTitle,DoneMan from tTaskSet Order by taskTitle");
}

std::vector<changes::RowChange> WhatDeleteTakes(store::Database& database, std::int32_t taskId) {
    database.EnsureConnection();
    const std::string number = std::to_string(taskId);
    std::vector<changes::RowChange> taken =
        ItemsThatGo(database, "taskID =" + number + OnlyItemsOfPlan(database, number));
    if (auto plan = changes::Load(database, PlanTable(), taskId)) {
        taken.push_back({&PlanTable(), taskId, std::move(plan), std::nullopt});
    }
    return taken;
}

void Delete(store::Database& database, std::int32_t taskId) {
    database.EnsureConnection();
    const std::string number = std::to_string(taskId);
    database.Execute("Delete from tTaskList where taskID =" + number +
                     OnlyItemsOfPlan(database, number));
    database.Execute(std::string(PlanTable().erase) + number);
}

}  // namespace zv::plans
