#include "scheduling/task_generation.h"

#include <algorithm>
#include <memory>
#include <optional>

#include "resources/text_ids.h"
#include "scheduling/occurrences.h"
#include "scheduling/plan.h"
#include "scheduling/plan_items.h"
#include "store/sql_text.h"

namespace zv::scheduling {
namespace {

using store::CursorType;
using store::LockType;
using store::Recordset;

constexpr int kNotDone = 0;

std::unique_ptr<Recordset> OpenForChange(Session& session, const std::string& sql) {
    return session.database.Open(sql, CursorType::Keyset, LockType::Optimistic);
}

bool HasDoneItems(Session& session, const std::string& taskId, const std::string& own) {
    const auto rows = OpenForChange(
        session, "select * from tTaskList where taskID =" + taskId + " And tDone=1" + own);
    const bool found = !rows->Eof();
    rows->Close();
    return found;
}

/// Answers whether the user was asked.
bool DeleteOldItems(Session& session, const std::string& taskId) {
    std::string statement = "delete from tTaskList where taskID =" + taskId;
    std::string own = OnlyItemsOfPlan(session, taskId);
    const bool asks = HasDoneItems(session, taskId, own);
    if (asks) {
        if (session.windows.ShowMessage(session.LoadText(text_id::kDeleteDoneToo),
                                        forms::box::kYesNo + forms::box::kQuestion) !=
            forms::Answer::Yes) {
            statement += " And tDone=0";
        }
        // The question may have stood for long enough for a visit to be entered.
        session.database.EnsureConnection();
        own = OnlyItemsOfPlan(session, taskId);
    }
    session.database.Execute(statement + own);
    return asks;
}

void TellThatPlanIsGone(Session& session, const std::string& taskId) {
    session.windows.ShowMessage(forms::BoxText(session.LoadText(text_id::kTaskNumber)) + " [" +
                                    forms::Inserted{taskId} + "] " +
                                    session.LoadText(text_id::kExistsNoMore),
                                forms::box::kExclamation);
}

void SetAlertWindow(Recordset& row, DateTime date, int type, int width) {
    const AlertWindow window = AlertWindowOf(date, type, width);
    if (window.first) row.SetField("tDuring1", *window.first);
    if (window.last) row.SetField("tDuring2", *window.last);
}

// The part of the plan's time that lies before a date.
double PartBefore(const Plan& plan, DateTime date) {
    const auto whole = static_cast<double>(plan.end.Seconds() - plan.begin.Seconds());
    if (whole <= 0) return 0;
    return std::clamp(static_cast<double>(date.Seconds() - plan.begin.Seconds()) / whole, 0.0, 1.0);
}

void WriteItems(Session& session, const Recordset& planRow, const GenerationProgress& progress) {
    const Plan plan = ReadPlan(planRow);
    const auto target = OpenForChange(session, "select * from tTasklist");
    Occurrences occurrences(plan);
    for (int rows = 0; const auto date = occurrences.Next(); rows++) {
        if (progress) progress(rows, PartBefore(plan, *date));
        target->AddNew();
        target->SetField("TaskID", plan.taskId);
        target->SetField("taskTitle", planRow.Field("taskTitle"));
        target->SetField("fContent", planRow.Field("Content"));
        target->SetField("tDone", kNotDone);
        target->SetField("taskTime", *date);
        SetAlertWindow(*target, *date, plan.type, plan.typeValue);
        target->Update();
    }
    target->Close();
}

struct PlanOfInstance {
    int type = 0;
    int width = 0;
    std::string title;
};

// Nothing for a plan that is gone, which the user is told.
std::optional<PlanOfInstance> FindPlanOrTell(Session& session, const std::string& taskId) {
    const auto row = OpenForChange(session, "select * from tTaskSet where taskID =" + taskId);
    std::optional<PlanOfInstance> plan;
    if (!row->Eof()) {
        plan = PlanOfInstance{row->Field("Type").ToInt16(), row->Field("TypeValue").ToInt16(),
                              row->Field("taskTitle").ToText()};
    }
    row->Close();
    if (!plan) TellThatPlanIsGone(session, taskId);
    return plan;
}

std::unique_ptr<Recordset> OpenUndone(Session& session, const std::string& taskId, DateTime date) {
    return OpenForChange(session, "select * from tTasklist where taskID =" + taskId + " And " +
                                      "taskTime = " + session.database.DateLiteral(date) +
                                      " and tDone=0" + OnlyItemsOfPlan(session, taskId));
}

// While the question stood the plan may have changed or gone, or the item may have come.
std::int16_t AddConfirmed(Session& session, std::int16_t taskId, DateTime date) {
    session.database.EnsureConnection();
    const std::string id = std::to_string(taskId);
    const auto plan = FindPlanOrTell(session, id);
    if (!plan) return 0;
    const std::unique_ptr<Recordset> rows = OpenUndone(session, id, date);
    if (rows->Eof()) {
        rows->AddNew();
        rows->SetField("TaskID", taskId);
        rows->SetField("taskTitle", plan->title);
        rows->SetField("tDone", kNotDone);
        rows->SetField("taskTime", date);
        SetAlertWindow(*rows, date, plan->type, plan->width);
        rows->Update();
    }
    rows->Close();
    return 1;
}

}  // namespace

void GenerateTaskList(Session& session, const std::string& taskId,
                      const GenerationProgress& progress) {
    session.database.EnsureConnection();
    // The user that started the run, whoever the host names while a question stands.
    const std::string user = session.state.UserName;
    // The old items go before the plan is looked at, also those of a plan that is gone.
    const bool asked = DeleteOldItems(session, taskId);
    const auto plan = OpenForChange(session, "select * from tTaskSet where taskID=" + taskId);
    const bool found = !plan->Eof();
    if (found) WriteItems(session, *plan, progress);
    plan->Close();
    // The stamp overwrites the executor that was entered; whoever generates the items takes them.
    if (store::BreaksLiteral(user)) {
        session.database.SetFields("select * from tTaskSet where taskID=" + taskId,
                                   {{"DoneMan", store::Value(user)}});
    } else {
        session.database.Execute("Update tTaskSet Set DoneMan='" + user +
                                 "' where taskID=" + taskId);
    }
    // Somebody may have deleted the plan while the question stood: nothing was generated then.
    if (asked && !found) return TellThatPlanIsGone(session, taskId);
    session.windows.ShowMessage("[" + session.LoadText(text_id::kGenerate) + "]" +
                                    session.LoadText(text_id::kCompleted) + "!",
                                forms::box::kInformation);
}

std::int16_t AddTaskInstance(Session& session, std::int16_t taskId, DateTime date) {
    session.database.EnsureConnection();
    const std::string id = std::to_string(taskId);
    const auto plan = FindPlanOrTell(session, id);
    if (!plan) return 0;
    const std::unique_ptr<Recordset> present = OpenUndone(session, id, date);
    const bool exists = !present->Eof();
    present->Close();
    if (exists) return 1;
    const forms::BoxText question = forms::BoxText(session.LoadText(text_id::kConfirmInstance)) +
                                    " [" + forms::Inserted{id + " - " + plan->title} + "] ?";
    if (session.windows.ShowMessage(question, forms::box::kOkCancel + forms::box::kQuestion) ==
        forms::Answer::Cancel) {
        return 0;
    }
    return AddConfirmed(session, taskId, date);
}

}  // namespace zv::scheduling
