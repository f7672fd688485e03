// What every part of the plan editor is called, in the language at hand.
#include "resources/plan_texts.h"
#include "scheduling/plan_editor.h"

namespace zv::scheduling {
namespace {

using resources::PlanText;

constexpr std::int16_t kTitleText = 7;
constexpr std::int16_t kTaskNumberText = 8;
constexpr std::int16_t kExecutorText = 10;
constexpr std::int16_t kSetterText = 11;
constexpr std::int16_t kListText = 19;
constexpr std::int16_t kLeaveText = 22;
constexpr std::int16_t kAddText = 24;
constexpr std::int16_t kChangeText = 25;
constexpr std::int16_t kOkText = 28;
constexpr std::int16_t kGenerateText = 31;
constexpr std::int16_t kContentText = 32;
constexpr std::int16_t kAlertRangeText = 33;
constexpr std::int16_t kScheduleText = 34;
constexpr std::int16_t kBeginText = 35;
constexpr std::int16_t kEndText = 36;
constexpr std::int16_t kDayText = 37;
constexpr std::int16_t kDaysText = 38;
constexpr std::int16_t kMonthText = 39;
constexpr std::int16_t kEveryText = 40;
constexpr std::int16_t kAheadText = 41;
constexpr std::int16_t kAfterText = 42;
constexpr std::int16_t kBothText = 43;
constexpr std::int16_t kStaffText = 46;
constexpr std::int16_t kEditorText = 107;

}  // namespace

void frmTaskSet::SetCaptions() {
    const auto text = [this](std::int16_t id) { return session_.LoadText(id); };
    const auto planText = [this](PlanText id) {
        return resources::GetPlanText(id, session_.state.Language);
    };
    SetModeCaption();
    lblTaskID.SetCaption(text(kTaskNumberText));
    lblTaskTitle.SetCaption(text(kTitleText));
    lblBegin.SetCaption(text(kBeginText));
    lblEnd.SetCaption(text(kEndText));
    fraSchedule.SetCaption(text(kScheduleText));
    lblEvery.SetCaption(text(kEveryText));
    lblDE.SetCaption(planText(PlanText::On));
    lblMonth.SetCaption(text(kMonthText));
    lblDay.SetCaption(text(kDayText));
    fraAlert.SetCaption(text(kAlertRangeText));
    optEarlyCall.SetCaption(text(kAheadText));
    optLastCall.SetCaption(text(kAfterText));
    optBothCall.SetCaption(text(kBothText));
    lblDays.SetCaption(text(kDaysText));
    lblSetMan.SetCaption(text(kSetterText));
    lblDoneMan.SetCaption(text(kExecutorText));
    lblTaskCon.SetCaption(text(kContentText));
    chkTaskSet.SetCaption(text(kGenerateText));
    cmdSetMan.SetCaption("...");
    cmdSetMan.SetAccessibleName(planText(PlanText::PickSetter));
    cmdDoneMan.SetCaption("...");
    cmdDoneMan.SetAccessibleName(planText(PlanText::PickExecutor));
    cmdOnlySeeMan.SetCaption(text(kStaffText) + text(kListText));
    cmdOK.SetCaption(text(kOkText));
    cmdExit.SetCaption(text(kLeaveText));

    txtTaskID.SetAccessibleName(text(kTaskNumberText));
    txtTaskTitle.SetAccessibleName(text(kTitleText));
    dateBegin.SetAccessibleName(text(kBeginText));
    dateEnd.SetAccessibleName(text(kEndText));
    txtCircleValue.SetAccessibleName(text(kEveryText));
    cobCircleType.SetAccessibleName(text(kScheduleText));
    txtMonth.SetAccessibleName(text(kMonthText));
    txtDay.SetAccessibleName(text(kDayText));
    cobWeek.SetAccessibleName(text(kScheduleText));
    txtUpDown.SetAccessibleName(text(kAlertRangeText));
    UpDown1.SetAccessibleName(text(kAlertRangeText));
    txtSetMan.SetAccessibleName(text(kSetterText));
    txtDoneMan.SetAccessibleName(text(kExecutorText));
    txtTaskCon.SetAccessibleName(text(kContentText));

    cobCircleType.SetItems({planText(PlanText::KindYear), planText(PlanText::KindMonth),
                            planText(PlanText::KindDay), planText(PlanText::KindWeek)});
    cobWeek.SetItems({planText(PlanText::Sunday), planText(PlanText::Monday),
                      planText(PlanText::Tuesday), planText(PlanText::Wednesday),
                      planText(PlanText::Thursday), planText(PlanText::Friday),
                      planText(PlanText::Saturday)});
}

void frmTaskSet::SetModeCaption() {
    SetCaption(session_.LoadText(edited_.taskId != 0 ? kChangeText : kAddText) +
               resources::GetPlanText(PlanText::CaptionSeparator, session_.state.Language) +
               session_.LoadText(kEditorText));
}

}  // namespace zv::scheduling
