// Writes a plan; one that is changed is joined with what somebody else stored meanwhile.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "plans/plan_row.h"
#include "plans/plan_rules.h"
#include "store/database.h"
#include "store/row_merge.h"

namespace zv::plans {

/// The plan that is being changed, as it was when it was opened or last saved.
struct EditedPlan {
    std::int32_t taskId = 0;                 ///< 0: a new one
    std::optional<store::RowValues> asRead;  ///< its row; nothing when there was none
    store::RowValues shown;                  ///< what the untouched editor would store
};

/// What a save may have to ask. No recordset is open meanwhile.
struct PlanQuestions {
    using Version = store::RowMerge::Version;
    /// Which version of these fields is to be written; nothing: the save is called off.
    std::function<std::optional<Version>(const std::vector<std::size_t>& fields,
                                         const store::RowValues& stored,
                                         const store::RowValues& own)>
        version;
    /// Whether a plan from which somebody else took the setter is saved.
    std::function<bool()> withoutSetter;
};

struct PlanSave {
    enum class Outcome { Saved, Refused, CalledOff };
    /// A plan that holds what somebody else stored, and the row into which it goes.
    struct Joined {
        store::RowValues plan;
        store::RowValues stored;
    };
    Outcome outcome = Outcome::CalledOff;
    std::optional<Refusal> refusal;  ///< why it is refused
    store::RowValues written;        ///< when it is saved
    changes::RowChange change;       ///< likewise
    std::optional<Joined> joined;    ///< to be shown in place of what was entered
};

class PlanSaving {
 public:
    /// All must outlive this.
    PlanSaving(store::Database& database, const EditedPlan& edited, const PlanQuestions& questions)
        : database_(database), edited_(edited), questions_(questions) {}

    /// Adds the plan, or joins it with the row of the one that is being changed, in one row update.
    /// A joined plan satisfies all rules of an entered one. Nothing is written unless it is saved.
    /// Database errors reach the caller.
    PlanSave Save(const Plan& plan);

 private:
    PlanSave Add(const Plan& plan, store::Recordset& row) const;
    static PlanSave Write(store::Recordset& row, store::RowValues values,
                          std::optional<changes::Fields> before);
    bool TitleOfAnother(const std::string& title) const;
    bool Settle(store::RowMerge& merge, const store::RowValues& stored) const;

    store::Database& database_;
    const EditedPlan& edited_;
    const PlanQuestions& questions_;
};

}  // namespace zv::plans
