#include "plans/generation.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "items/comparisons.h"
#include "items/fields.h"
#include "items/item_store.h"
#include "plans/occurrences.h"
#include "plans/plan_items.h"
#include "plans/plan_row.h"
#include "store/sql_text.h"

namespace zv::plans {
namespace {

using items::IsInState;
using items::ItemState;
using items::kColumns;
using store::CursorType;
using store::Database;
using store::LockType;
using store::Recordset;
namespace field = items::field;

std::unique_ptr<Recordset> OpenForChange(Database& database, const std::string& sql) {
    return database.Open(sql, CursorType::Keyset, LockType::Optimistic);
}

bool HasDoneItems(Database& database, const std::string& taskId, const std::string& own) {
    const auto rows = OpenForChange(database, "select * from tTaskList where taskID =" + taskId +
                                                  " And " + IsInState(ItemState::Done) + own);
    const bool found = !rows->Eof();
    rows->Close();
    return found;
}

/// Answers whether the user was asked.
bool DeleteOldItems(Database& database, const GenerationRequest& request) {
    std::string condition = "taskID =" + request.taskId;
    std::string own = OnlyItemsOfPlan(database, request.taskId);
    const bool asks = HasDoneItems(database, request.taskId, own);
    if (asks) {
        if (!request.deletesDone()) condition += " And " + IsInState(ItemState::NotDone);
        // The question may have stood for long enough for a visit to be entered.
        database.EnsureConnection();
        own = OnlyItemsOfPlan(database, request.taskId);
    }
    condition += own;
    std::vector<changes::RowChange> taken;
    if (request.record) taken = ItemsThatGo(database, condition);
    database.Execute("delete from tTaskList where " + condition);
    if (request.record) *request.record = std::move(taken);
    return asks;
}

// The part of the plan's time that lies before a date.
double PartBefore(const Plan& plan, DateTime date) {
    const auto whole = static_cast<double>(plan.end.Seconds() - plan.begin.Seconds());
    if (whole <= 0) return 0;
    return std::clamp(static_cast<double>(date.Seconds() - plan.begin.Seconds()) / whole, 0.0, 1.0);
}

/// A row of tTaskList that is added.
class NewItem {
 public:
    /// What is written is kept for Change where `keeps` says so.
    NewItem(Recordset& rows, bool keeps) : rows_(rows) {
        if (keeps) fields_.resize(kColumns.size());
        rows_.AddNew();
    }

    void Set(std::size_t field, store::Value value) {
        rows_.SetField(kColumns[field], value);
        if (!fields_.empty()) fields_[field] = std::move(value);
    }
    void SetAlertWindow(DateTime date, int type, int width) {
        const AlertWindow window = AlertWindowOf(date, type, width);
        if (window.first) Set(field::kAlertFrom, *window.first);
        if (window.last) Set(field::kAlertUntil, *window.last);
    }
    void Write() { rows_.Update(); }
    /// What was written; the number is 0 when the database does not give it.
    changes::RowChange Change() {
        const changes::Table& table = items::ItemTable();
        return {&table, store::NumberOfNewRow(rows_, table.numberedBy), std::nullopt,
                std::move(fields_)};
    }

 private:
    Recordset& rows_;
    changes::Fields fields_;
};

/// Answers how many were written.
int WriteItems(Database& database, const Recordset& planRow, const GenerationRequest& request) {
    const Plan plan = ReadPlan(planRow);
    const auto target = OpenForChange(database, "select * from tTasklist");
    Occurrences occurrences(plan);
    int rows = 0;
    for (; const auto date = occurrences.Next(); rows++) {
        if (request.progress) request.progress(rows, PartBefore(plan, *date));
        NewItem item(*target, request.record != nullptr);
        item.Set(field::kNumber, plan.taskId);
        item.Set(field::kTitle, planRow.Field("taskTitle"));
        item.Set(field::kContent, planRow.Field("Content"));
        item.Set(field::kState, Number(ItemState::NotDone));
        item.Set(field::kTime, *date);
        item.SetAlertWindow(*date, plan.type, plan.typeValue);
        item.Write();
        if (request.record) request.record->push_back(item.Change());
    }
    target->Close();
    return rows;
}

changes::RowChange StampOf(const Recordset& planRow, const std::string& user) {
    const std::size_t doer = PlanFieldIndex("DoneMan");
    changes::RowChange stamp{.table = &PlanTable(), .row = planRow.Field("TaskID").ToInt32()};
    stamp.before.emplace(kPlanFields.size())[doer] = planRow.Field("DoneMan");
    stamp.after.emplace(kPlanFields.size())[doer] = store::Value(user);
    return stamp;
}

// The stamp overwrites the executor that was entered: the user who generates the items takes them.
void Stamp(Database& database, const GenerationRequest& request) {
    if (store::BreaksLiteral(request.user)) {
        database.SetFields("select * from tTaskSet where taskID=" + request.taskId,
                           {{"DoneMan", store::Value(request.user)}});
    } else {
        database.Execute("Update tTaskSet Set DoneMan='" + request.user +
                         "' where taskID=" + request.taskId);
    }
}

struct PlanOfInstance {
    int type = 0;
    int width = 0;
    std::string title;
};

std::optional<PlanOfInstance> FindPlan(Database& database, const std::string& taskId) {
    const auto row = OpenForChange(database, "select * from tTaskSet where taskID =" + taskId);
    std::optional<PlanOfInstance> plan;
    if (!row->Eof()) {
        plan = PlanOfInstance{row->Field("Type").ToInt16(), row->Field("TypeValue").ToInt16(),
                              row->Field("taskTitle").ToText()};
    }
    row->Close();
    return plan;
}

std::unique_ptr<Recordset> OpenUndone(Database& database, const std::string& taskId,
                                      DateTime date) {
    return OpenForChange(
        database, "select * from tTasklist where taskID =" + taskId + " And " +
                      std::string(kColumns[field::kTime]) + " = " + database.DateLiteral(date) +
                      " and " + IsInState(ItemState::NotDone) + OnlyItemsOfPlan(database, taskId));
}

// While the question stood the plan may have changed or gone, or the item may have come.
InstanceResult AddConfirmed(Database& database, std::int16_t taskId, DateTime date) {
    database.EnsureConnection();
    const std::string id = std::to_string(taskId);
    const auto plan = FindPlan(database, id);
    if (!plan) return {Instance::PlanIsGone, {}};
    std::optional<changes::RowChange> added;
    const std::unique_ptr<Recordset> rows = OpenUndone(database, id, date);
    if (rows->Eof()) {
        NewItem item(*rows, true);
        item.Set(field::kNumber, taskId);
        item.Set(field::kTitle, plan->title);
        item.Set(field::kState, Number(ItemState::NotDone));
        item.Set(field::kTime, date);
        item.SetAlertWindow(date, plan->type, plan->width);
        item.Write();
        added = item.Change();
    }
    rows->Close();
    return {Instance::IsThere, added};
}

}  // namespace

GenerationResult GenerateTaskList(Database& database, const GenerationRequest& request) {
    database.EnsureConnection();
    // The old items go before the plan is looked at, also those of a plan that is gone.
    const bool asked = DeleteOldItems(database, request);
    const auto plan =
        OpenForChange(database, "select * from tTaskSet where taskID=" + request.taskId);
    const bool found = !plan->Eof();
    const int rows = found ? WriteItems(database, *plan, request) : 0;
    std::optional<changes::RowChange> stamp;
    if (found && request.record) stamp = StampOf(*plan, request.user);
    plan->Close();
    Stamp(database, request);
    if (stamp) request.record->push_back(std::move(*stamp));
    return {asked && !found ? Generation::PlanIsGone : Generation::Finished, rows};
}

InstanceResult AddTaskInstance(Database& database, std::int16_t taskId, DateTime date,
                               const std::function<bool(const std::string& title)>& confirms) {
    database.EnsureConnection();
    const std::string id = std::to_string(taskId);
    const auto plan = FindPlan(database, id);
    if (!plan) return {Instance::PlanIsGone, {}};
    const std::unique_ptr<Recordset> present = OpenUndone(database, id, date);
    const bool exists = !present->Eof();
    present->Close();
    if (exists) return {Instance::IsThere, {}};
    if (!confirms(plan->title)) return {Instance::CalledOff, {}};
    return AddConfirmed(database, taskId, date);
}

}  // namespace zv::plans
