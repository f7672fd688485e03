#include "scheduling/task_generation.h"

#include <algorithm>
#include <memory>

#include "resources/text_ids.h"
#include "scheduling/occurrences.h"
#include "scheduling/plan.h"
#include "scheduling/plan_items.h"

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

void DeleteOldItems(Session& session, const std::string& taskId) {
    std::string statement = "delete from tTaskList where taskID =" + taskId;
    std::string own = OnlyItemsOfPlan(session, taskId);
    if (HasDoneItems(session, taskId, own)) {
        if (session.windows.ShowMessage(session.LoadText(text_id::kDeleteDoneToo),
                                        forms::box::kYesNo + forms::box::kQuestion) !=
            forms::Answer::Yes) {
            statement += " And tDone=0";
        }
        // The question may have stood for long enough for a visit to be entered.
        session.EnsureConnection();
        own = OnlyItemsOfPlan(session, taskId);
    }
    session.database.Execute(statement + own);
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

}  // namespace

void GenerateTaskList(Session& session, const std::string& taskId,
                      const GenerationProgress& progress) {
    session.EnsureConnection();
    // The old items go before the plan is looked at, also those of a plan that is gone.
    DeleteOldItems(session, taskId);
    const auto plan = OpenForChange(session, "select * from tTaskSet where taskID=" + taskId);
    if (!plan->Eof()) WriteItems(session, *plan, progress);
    plan->Close();
    // The stamp overwrites the executor that was entered; whoever generates the items takes them.
    session.database.Execute("Update tTaskSet Set DoneMan='" + session.state.UserName +
                             "' where taskID=" + taskId);
    session.windows.ShowMessage("[" + session.LoadText(text_id::kGenerate) + "]" +
                                    session.LoadText(text_id::kCompleted) + "!",
                                forms::box::kInformation);
}

std::int16_t AddTaskInstance(Session& session, std::int16_t taskId, DateTime date) {
    session.EnsureConnection();
    const std::string id = std::to_string(taskId);
    const auto plan = OpenForChange(session, "select * from tTaskSet where taskID =" + id);
    if (plan->Eof()) {
        plan->Close();
        session.windows.ShowMessage(forms::BoxText(session.LoadText(text_id::kTaskNumber)) + " [" +
                                        forms::Inserted{id} + "] " +
                                        session.LoadText(text_id::kExistsNoMore),
                                    forms::box::kExclamation);
        return 0;
    }
    const int type = plan->Field("Type").ToInt16();
    const int width = plan->Field("TypeValue").ToInt16();
    const std::string title = plan->Field("taskTitle").ToText();
    plan->Close();

    const auto rows =
        OpenForChange(session, "select * from tTasklist where taskID =" + id + " And " +
                                   "taskTime = " + session.database.DateLiteral(date) +
                                   " and tDone=0" + OnlyItemsOfPlan(session, id));
    std::int16_t result = 1;
    if (rows->Eof()) {
        const forms::BoxText question =
            forms::BoxText(session.LoadText(text_id::kConfirmInstance)) + " [" +
            forms::Inserted{id + " - " + title} + "] ?";
        if (session.windows.ShowMessage(question, forms::box::kOkCancel + forms::box::kQuestion) ==
            forms::Answer::Cancel) {
            result = 0;
        } else {
            rows->AddNew();
            rows->SetField("TaskID", taskId);
            rows->SetField("taskTitle", title);
            rows->SetField("tDone", kNotDone);
            rows->SetField("taskTime", date);
            SetAlertWindow(*rows, date, type, width);
            rows->Update();
        }
    }
    rows->Close();
    return result;
}

}  // namespace zv::scheduling
