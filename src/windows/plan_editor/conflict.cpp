// A plan's fields in two versions, as the user is asked about them.
#include <algorithm>

#include "session/conflict_question.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::windows {
namespace {

namespace circle = plans::circle;
namespace side = plans::side;

std::string ListText(const forms::ComboBox& list, const store::Value& value) {
    const std::int32_t position = value.ToInt32();
    if (position >= 0 && position < list.ListCount()) return list.List(position);
    return "(" + value.ToText() + ")";
}

}  // namespace

std::optional<store::RowMerge::Version> frmTaskSet::AskAboutConflict(
    const std::vector<std::size_t>& fields, const store::RowValues& stored,
    const store::RowValues& own) const {
    std::vector<ConflictLine> lines;
    for (const std::size_t field : fields) {
        const std::string_view name = plans::kPlanFields[field];
        ConflictLine line{ConflictCaption(name), ShownInConflict(name, stored),
                          ShownInConflict(name, own)};
        // A recurrence is one text whichever of its fields differ.
        const bool said = std::find(lines.begin(), lines.end(), line) != lines.end();
        if (!said && line.stored != line.own) lines.push_back(std::move(line));
    }
    // Both differ in nothing but what this kind of plan does not use.
    if (lines.empty()) return store::RowMerge::Version::Own;
    return AskForVersion(session_, lines);
}

std::string frmTaskSet::ConflictCaption(std::string_view field) const {
    if (field == "taskTitle") return lblTaskTitle.Caption();
    if (field == "tbegin") return lblBegin.Caption();
    if (field == "tEnd") return lblEnd.Caption();
    if (field == "Type" || field == "TypeValue") return fraAlert.Caption();
    if (field == "SetMan") return lblSetMan.Caption();
    if (field == "DoneMan") return lblDoneMan.Caption();
    if (field == "Content") return lblTaskCon.Caption();
    return fraSchedule.Caption();
}

std::string frmTaskSet::ShownInConflict(std::string_view field, const store::RowValues& row) const {
    const auto value = [&row](std::string_view name) -> const store::Value& {
        return row[plans::PlanFieldIndex(name)];
    };
    if (field == "Type" || field == "TypeValue") {
        const std::int32_t side = value("Type").ToInt32();
        const std::string name = side == side::kAhead   ? optEarlyCall.Caption()
                                 : side == side::kAfter ? optLastCall.Caption()
                                 : side == side::kBoth  ? optBothCall.Caption()
                                                        : "(" + value("Type").ToText() + ")";
        return name + value("TypeValue").ToText() + lblDays.Caption();
    }
    if (ConflictCaption(field) != fraSchedule.Caption()) return value(field).ToText();
    std::string text = lblEvery.Caption() + value("CircleValue").ToText() +
                       ListText(cobCircleType, value("CircleType"));
    const std::int32_t kind = value("CircleType").ToInt32();
    if (kind == circle::kWeekly) {
        return text + lblDE.Caption() + ListText(cobWeek, value("TaskWeek"));
    }
    if (kind != circle::kYearly && kind != circle::kMonthly) return text;
    text += lblDE.Caption();
    if (kind == circle::kYearly) text += value("taskMonth").ToText() + lblMonth.Caption();
    return text + value("taskday").ToText() + lblDay.Caption();
}

}  // namespace zv::windows
