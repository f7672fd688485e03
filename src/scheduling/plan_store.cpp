#include "scheduling/plan_store.h"

namespace zv::scheduling {
namespace {

using store::CursorType;
using store::LockType;

constexpr double kLongestProposal = 1e15;

bool TitleOfAnother(Session& session, const Plan& plan, const EditedPlan& edited) {
    // A plan that keeps its title was asked about it when it was first saved.
    if (edited.taskId != 0 && plan.title == edited.title) return false;
    const auto rows =
        session.database.Open("select * from tTaskSet Where taskTitle='" + plan.title + "'");
    bool found = false;
    for (; !rows->Eof() && !found; rows->MoveNext()) {
        // Letters compare without regard to case, so a plan may find itself.
        found = edited.taskId == 0 || rows->Field("TaskID").ToDouble() != edited.taskId;
    }
    rows->Close();
    return found;
}

}  // namespace

std::string ProposeTaskId(Session& session) {
    session.EnsureConnection();
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

std::optional<Plan> LoadPlan(Session& session, std::int32_t taskId) {
    session.EnsureConnection();
    const auto rows =
        session.database.Open("select * from tTaskSet where taskID=" + std::to_string(taskId));
    std::optional<Plan> plan;
    if (!rows->Eof()) plan = ReadPlan(*rows);
    rows->Close();
    return plan;
}

std::optional<Refusal> SavePlan(Session& session, const Plan& plan, const EditedPlan& edited) {
    session.EnsureConnection();
    const auto row =
        session.database.Open("select * from tTaskSet Where taskID=" + std::to_string(plan.taskId),
                              CursorType::Keyset, LockType::Optimistic);
    PlansPresent present;
    present.numberExists = !row->Eof();
    if (auto refusal = CheckUniqueness(plan.taskId, edited.taskId, present)) return refusal;
    present.titleOfAnother = TitleOfAnother(session, plan, edited);
    if (auto refusal = CheckUniqueness(plan.taskId, edited.taskId, present)) return refusal;

    if (edited.taskId == 0) row->AddNew();
    WritePlan(plan, *row);
    row->Update();
    row->Close();
    return {};
}

}  // namespace zv::scheduling
