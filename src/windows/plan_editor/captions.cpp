// What every part of the plan editor is called, in the language at hand.
#include <initializer_list>
#include <utility>

#include "resources/plan_texts.h"
#include "resources/text_ids.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::windows {
namespace {

using resources::PlanText;

}  // namespace

void frmTaskSet::SetCaptions() {
    const auto text = [this](std::int16_t id) { return session_.LoadText(id); };
    const auto planText = [this](PlanText id) { return session_.LoadText(id); };
    SetModeCaption();
    lblTaskID.SetCaption(text(text_id::kTaskNumber));
    lblTaskTitle.SetCaption(text(text_id::kTitle));
    lblBegin.SetCaption(text(text_id::kBegin));
    lblEnd.SetCaption(text(text_id::kEnd));
    fraSchedule.SetCaption(text(text_id::kSchedule));
    lblEvery.SetCaption(text(text_id::kEvery));
    lblDE.SetCaption(planText(PlanText::On));
    lblMonth.SetCaption(text(text_id::kMonth));
    lblDay.SetCaption(text(text_id::kDayOfMonth));
    fraAlert.SetCaption(text(text_id::kAlertRange));
    optEarlyCall.SetCaption(text(text_id::kAhead));
    optLastCall.SetCaption(text(text_id::kAfter));
    optBothCall.SetCaption(text(text_id::kBoth));
    lblDays.SetCaption(text(text_id::kDays));
    lblSetMan.SetCaption(text(text_id::kSetter));
    lblDoneMan.SetCaption(text(text_id::kExecutor));
    lblTaskCon.SetCaption(text(text_id::kContent));
    chkTaskSet.SetCaption(text(text_id::kGenerate));
    cmdSetMan.SetCaption("...");
    cmdSetMan.SetAccessibleName(planText(PlanText::PickSetter));
    cmdDoneMan.SetCaption("...");
    cmdDoneMan.SetAccessibleName(planText(PlanText::PickExecutor));
    cmdOnlySeeMan.SetCaption(text(text_id::kStaff) + text(text_id::kList));
    cmdOK.SetCaption(text(text_id::kOk));
    cmdExit.SetCaption(text(text_id::kLeave));

    txtTaskID.SetAccessibleName(text(text_id::kTaskNumber));
    txtTaskTitle.SetAccessibleName(text(text_id::kTitle));
    dateBegin.SetAccessibleName(text(text_id::kBegin));
    dateEnd.SetAccessibleName(text(text_id::kEnd));
    txtCircleValue.SetAccessibleName(text(text_id::kEvery));
    cobCircleType.SetAccessibleName(text(text_id::kSchedule));
    txtMonth.SetAccessibleName(text(text_id::kMonth));
    txtDay.SetAccessibleName(text(text_id::kDayOfMonth));
    cobWeek.SetAccessibleName(text(text_id::kSchedule));
    txtUpDown.SetAccessibleName(text(text_id::kAlertRange));
    UpDown1.SetAccessibleName(text(text_id::kAlertRange));
    txtSetMan.SetAccessibleName(text(text_id::kSetter));
    txtDoneMan.SetAccessibleName(text(text_id::kExecutor));
    txtTaskCon.SetAccessibleName(text(text_id::kContent));

    // Behind the captions, which the catalogue says and others may show.
    const std::initializer_list<std::pair<forms::Control*, char>> letters{
        {&lblTaskID, 'I'}, {&lblTaskTitle, 'T'}, {&lblBegin, 'B'},     {&lblEnd, 'E'},
        {&lblEvery, 'V'},  {&optEarlyCall, 'Q'}, {&optLastCall, 'A'},  {&optBothCall, 'R'},
        {&lblSetMan, 'M'}, {&lblDoneMan, 'D'},   {&lblTaskCon, 'C'},   {&chkTaskSet, 'G'},
        {&cmdOK, 'O'},     {&cmdExit, 'X'},      {&cmdOnlySeeMan, 'L'}};
    for (const auto& [control, letter] : letters) control->SetAccessKey(letter);

    cobCircleType.SetItems({planText(PlanText::KindYear), planText(PlanText::KindMonth),
                            planText(PlanText::KindDay), planText(PlanText::KindWeek)});
    cobWeek.SetItems({planText(PlanText::Sunday), planText(PlanText::Monday),
                      planText(PlanText::Tuesday), planText(PlanText::Wednesday),
                      planText(PlanText::Thursday), planText(PlanText::Friday),
                      planText(PlanText::Saturday)});
}

void frmTaskSet::SetModeCaption() {
    SetCaption(session_.LoadText(edited_.taskId != 0 ? text_id::kChange : text_id::kAdd) +
               session_.LoadText(PlanText::CaptionSeparator) +
               session_.LoadText(text_id::kPlanEditor));
}

}  // namespace zv::windows
