#include "plans/plan_saving.h"

#include <utility>

#include "store/sql_text.h"

namespace zv::plans {
namespace {

using store::RowValues;

store::RowChanges AsChanges(const RowValues& values) {
    return {values.begin(), values.end()};
}

PlanSave RefusedSave(Refusal refusal, std::optional<PlanSave::Joined> joined = {}) {
    PlanSave save;
    save.outcome = PlanSave::Outcome::Refused;
    save.refusal = std::move(refusal);
    save.joined = std::move(joined);
    return save;
}

}  // namespace

PlanSave PlanSaving::Save(const Plan& plan) {
    const RowValues entered = ValuesOf(plan);
    std::optional<store::RowMerge> merge;
    bool asksForSetter = !AsksForSetter(EntryOf(plan));
    for (;;) {
        // While a question stood the host may have let go of the store.
        database_.EnsureConnection();
        const auto row =
            database_.Open("select * from tTaskSet Where taskID=" + std::to_string(plan.taskId),
                           store::CursorType::Keyset, store::LockType::Optimistic);
        PlansPresent present;
        present.numberExists = !row->Eof();
        if (auto refusal = CheckUniqueness(plan.taskId, edited_.taskId, present)) {
            return RefusedSave(*refusal);
        }
        if (edited_.taskId == 0) return Add(plan, *row);

        const RowValues stored = store::ReadRow(*row, kPlanFields);
        if (!merge && edited_.asRead) {
            merge.emplace(PlanGroups(), *edited_.asRead,
                          store::ChangesOf(AsChanges(edited_.shown), AsChanges(entered)));
        } else if (!merge) {
            merge.emplace(PlanGroups(), stored, AsChanges(entered));
        }
        // The questions may stand for long: then the row is opened again, and what has changed
        // meanwhile is looked at, too.
        if (!merge->Conflicts(stored).empty()) {
            row->Close();
            if (!Settle(*merge, stored)) return {};
            continue;
        }
        RowValues merged = merge->Merged(stored);
        std::optional<PlanSave::Joined> joined;
        if (merge->TakesStored(stored)) {
            joined = PlanSave::Joined{merged, stored};
            const Plan whole = PlanOf(merged);
            if (auto refusal = CheckJoined(whole)) return RefusedSave(*refusal, joined);
            if (asksForSetter && AsksForSetter(EntryOf(whole))) {
                row->Close();
                if (!questions_.withoutSetter()) {
                    PlanSave save;
                    save.joined = std::move(joined);
                    return save;
                }
                asksForSetter = false;
                continue;
            }
        }
        present.titleOfAnother = TitleOfAnother(merged[PlanFieldIndex("taskTitle")].ToText());
        if (auto refusal = CheckUniqueness(plan.taskId, edited_.taskId, present)) {
            return RefusedSave(*refusal, joined);
        }
        PlanSave save = Write(*row, std::move(merged), changes::Known(stored));
        save.joined = std::move(joined);
        return save;
    }
}

PlanSave PlanSaving::Add(const Plan& plan, store::Recordset& row) const {
    PlansPresent present;
    present.titleOfAnother = TitleOfAnother(plan.title);
    if (auto refusal = CheckUniqueness(plan.taskId, 0, present)) return RefusedSave(*refusal);
    row.AddNew();
    return Write(row, ValuesOf(plan), std::nullopt);
}

PlanSave PlanSaving::Write(store::Recordset& row, RowValues values,
                           std::optional<changes::Fields> before) {
    store::WriteRow(row, kPlanFields, values);
    row.Update();
    row.Close();
    PlanSave save;
    save.outcome = PlanSave::Outcome::Saved;
    save.change = {&PlanTable(), values[PlanFieldIndex("TaskID")].ToInt32(), std::move(before),
                   changes::Known(values)};
    save.written = std::move(values);
    return save;
}

bool PlanSaving::TitleOfAnother(const std::string& title) const {
    // A plan that keeps its title was asked about it when it was first saved.
    if (edited_.asRead && title == (*edited_.asRead)[PlanFieldIndex("taskTitle")].ToText()) {
        return false;
    }
    // Nobody types such a title here; the program that stored it answers for it.
    if (store::BreaksLiteral(title)) return false;
    const auto rows = database_.Open("select * from tTaskSet Where taskTitle='" + title + "'");
    bool found = false;
    for (; !rows->Eof() && !found; rows->MoveNext()) {
        // Letters compare without regard to case, so a plan may find itself.
        found = edited_.taskId == 0 || rows->Field("TaskID").ToDouble() != edited_.taskId;
    }
    rows->Close();
    return found;
}

bool PlanSaving::Settle(store::RowMerge& merge, const RowValues& stored) const {
    for (const std::size_t group : merge.Conflicts(stored)) {
        const auto version =
            questions_.version(merge.Differences(group, stored), stored, merge.Own());
        if (!version) return false;
        merge.Decide(group, *version, stored);
    }
    return true;
}

}  // namespace zv::plans
