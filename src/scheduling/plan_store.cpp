#include "scheduling/plan_store.h"

namespace zv::scheduling {
namespace {

constexpr double kLongestProposal = 1e15;

}  // namespace

std::string ProposeTaskId(Session& session) {
    session.database.EnsureConnection();
    const auto rows = session.database.Open("select max(TaskID) as  MaxID from tTaskSet");
    std::string proposal = "1";
    if (!rows->Eof() && !rows->Field("maxID").IsNull()) {
        // The column may hold more than a plan's number may be, which the field then tells.
        const double next = rows->Field("maxID").ToDouble() + 1;
        if (next < kLongestProposal) proposal = std::to_string(static_cast<std::int64_t>(next));
    }
    rows->Close();
    return proposal;
}

std::optional<store::RowValues> LoadPlan(Session& session, std::int32_t taskId) {
    session.database.EnsureConnection();
    const auto row =
        session.database.Open("select * from tTaskSet where taskID=" + std::to_string(taskId));
    std::optional<store::RowValues> values;
    if (!row->Eof()) values = store::ReadRow(*row, kPlanFields);
    row->Close();
    return values;
}

std::optional<PlanSummary> LoadSummary(Session& session, std::int32_t taskId) {
    session.database.EnsureConnection();
    const auto row = session.database.Open(
        "select taskTitle,Content,DoneMan,SetMan from tTaskSet where taskID=" +
        std::to_string(taskId));
    std::optional<PlanSummary> plan;
    if (!row->Eof()) {
        plan = {row->Field("taskTitle").ToText(), row->Field("Content").ToText(),
                row->Field("DoneMan").ToText(), row->Field("SetMan").ToText()};
    }
    row->Close();
    return plan;
}

std::unique_ptr<store::Recordset> OpenPlanList(Session& session) {
    session.database.EnsureConnection();
    return session.database.Open(
        "select distinct taskID as fID,taskTitle,DoneMan from tTaskSet Order by taskTitle");
}

}  // namespace zv::scheduling
