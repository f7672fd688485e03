// Between the controls of the plan editor and the values of a plan.
#include "windows/plan_editor/frm_task_set.h"

namespace zv::windows {
namespace {

using plans::Plan;
using plans::PlanEntry;
using plans::PlanField;
using plans::PlanSave;
namespace side = plans::side;

}  // namespace

void frmTaskSet::FillFrom(const Plan& plan) {
    // A number that the list does not have shows as none; the confirmation asks for one.
    const auto select = [](forms::ComboBox& list, int position) {
        list.SetListIndex(position >= 0 && position < list.ListCount() ? position : -1);
    };
    txtTaskID.SetText(std::to_string(plan.taskId));
    Give(PlanField::Title, txtTaskTitle, plan.title);
    dateBegin.SetValue(plan.begin);
    dateEnd.SetValue(plan.end);
    select(cobCircleType, plan.circleType);
    txtCircleValue.SetText(std::to_string(plan.circleValue));
    txtMonth.SetText(std::to_string(plan.month));
    txtDay.SetText(std::to_string(plan.day));
    select(cobWeek, plan.week);
    if (plan.type == side::kAhead) optEarlyCall.SetValue(true);
    if (plan.type == side::kAfter) optLastCall.SetValue(true);
    if (plan.type == side::kBoth) optBothCall.SetValue(true);
    txtUpDown.SetText(std::to_string(plan.typeValue));
    Give(PlanField::SetMan, txtSetMan, plan.setMan);
    Give(PlanField::DoneMan, txtDoneMan, plan.doneMan);
    txtTaskCon.SetText(plan.content);
}

void frmTaskSet::ShowRow(const store::RowValues& row) {
    FillFrom(plans::PlanOf(row));
    edited_.asRead = row;
    edited_.shown = plans::ValuesOf(plans::MakePlan(Entry()));
}

void frmTaskSet::ShowJoined(const PlanSave::Joined& joined) {
    ShowRow(joined.stored);
    FillFrom(plans::PlanOf(joined.plan));
}

PlanEntry frmTaskSet::Entry() const {
    PlanEntry entry;
    entry.taskId = txtTaskID.Text();
    entry.title = txtTaskTitle.Text();
    entry.begin = *dateBegin.Value();
    entry.end = *dateEnd.Value();
    entry.circleType = cobCircleType.ListIndex();
    entry.circleValue = txtCircleValue.Text();
    entry.month = txtMonth.Text();
    entry.day = txtDay.Text();
    entry.week = cobWeek.ListIndex();
    entry.type = optLastCall.Value()   ? side::kAfter
                 : optBothCall.Value() ? side::kBoth
                                       : side::kAhead;
    entry.typeValue = txtUpDown.Text();
    entry.setMan = txtSetMan.Text();
    entry.doneMan = txtDoneMan.Text();
    entry.content = txtTaskCon.Text();
    return entry;
}

forms::Control& frmTaskSet::ControlOf(PlanField field) {
    switch (field) {
        case PlanField::TaskID:
            return txtTaskID;
        case PlanField::Title:
            return txtTaskTitle;
        case PlanField::Begin:
            return dateBegin;
        case PlanField::End:
            return dateEnd;
        case PlanField::CircleType:
            return cobCircleType;
        case PlanField::CircleValue:
            return txtCircleValue;
        case PlanField::Month:
            return txtMonth;
        case PlanField::Day:
            return txtDay;
        case PlanField::Week:
            return cobWeek;
        case PlanField::TypeValue:
            return txtUpDown;
        case PlanField::SetMan:
            return txtSetMan;
        case PlanField::DoneMan:
            return txtDoneMan;
        case PlanField::Content:
            break;
    }
    return txtTaskCon;
}

}  // namespace zv::windows
