#include "windows/plan_editor/frm_task_set.h"

#include <algorithm>
#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "forms/field_keys.h"
#include "plans/plan_store.h"
#include "resources/text_ids.h"
#include "session/key_list.h"
#include "session/text_checks.h"
#include "windows/generation/boxes.h"
#include "windows/plan_editor/layout.h"
#include "windows/staff/frm_list.h"

namespace zv::windows {
namespace {

using plans::Plan;
using plans::PlanEntry;
using plans::PlanField;
using plans::PlanSave;
using plans::Refusal;
namespace circle = plans::circle;

// What the staff list is opened for; none of them lets a cancel clear the picked name.
constexpr std::int16_t kPickSetter = 1;
constexpr std::int16_t kPickExecutor = 2;
constexpr std::int16_t kBrowseStaff = 3;

constexpr int kDaysOfANewPlan = 365;

std::string OnOneLine(std::string_view text) {
    std::string line = text::Replace(text, "\r\n", " ");
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return line;
}

}  // namespace

frmTaskSet::frmTaskSet(forms::WindowSystem& windows, Session& session)
    : Form(windows, std::string(kName)),
      lblTaskID(*this, "lblTaskID"),
      txtTaskID(*this, "txtTaskID"),
      lblTaskTitle(*this, "lblTaskTitle"),
      txtTaskTitle(*this, "txtTaskTitle"),
      lblBegin(*this, "lblBegin"),
      dateBegin(*this, "dateBegin"),
      lblEnd(*this, "lblEnd"),
      dateEnd(*this, "dateEnd"),
      fraSchedule(*this, "fraSchedule"),
      lblEvery(*this, "lblEvery", &fraSchedule),
      txtCircleValue(*this, "txtCircleValue", &fraSchedule),
      cobCircleType(*this, "cobCircleType", &fraSchedule, forms::ComboStyle::ListOnly),
      lblDE(*this, "lblDE", &fraSchedule),
      txtMonth(*this, "txtMonth", &fraSchedule),
      lblMonth(*this, "lblMonth", &fraSchedule),
      txtDay(*this, "txtDay", &fraSchedule),
      lblDay(*this, "lblDay", &fraSchedule),
      cobWeek(*this, "cobWeek", &fraSchedule, forms::ComboStyle::ListOnly),
      fraAlert(*this, "fraAlert"),
      optEarlyCall(*this, "optEarlyCall", &fraAlert),
      optLastCall(*this, "optLastCall", &fraAlert),
      optBothCall(*this, "optBothCall", &fraAlert),
      txtUpDown(*this, "txtUpDown", &fraAlert),
      UpDown1(*this, "UpDown1", &fraAlert),
      lblDays(*this, "lblDays", &fraAlert),
      lblSetMan(*this, "lblSetMan"),
      txtSetMan(*this, "txtSetMan"),
      cmdSetMan(*this, "cmdSetMan"),
      lblDoneMan(*this, "lblDoneMan"),
      txtDoneMan(*this, "txtDoneMan"),
      cmdDoneMan(*this, "cmdDoneMan"),
      lblTaskCon(*this, "lblTaskCon"),
      txtTaskCon(*this, "txtTaskCon"),
      chkTaskSet(*this, "chkTaskSet"),
      lblProgress(*this, "lblProgress"),
      cmdOnlySeeMan(*this, "cmdOnlySeeMan"),
      cmdOK(*this, "cmdOK"),
      cmdExit(*this, "cmdExit"),
      session_(session) {
    dateBegin.SetFormat(forms::DateFormat::LongDate);
    dateEnd.SetFormat(forms::DateFormat::LongDate);
    txtTaskCon.SetMultiLine(true);
    for (forms::TextBox* box : {&txtTaskID, &txtCircleValue, &txtMonth, &txtDay, &txtUpDown}) {
        box->SetNumericKeyboard(true);
    }
    optEarlyCall.SetValue(true);
    // A user who leaves without saving need not mend the input first.
    cmdExit.causesValidation = false;
    cancelButton = &cmdExit;
    Wire();
}

void frmTaskSet::TaskID(std::int16_t number) {
    if (!IsLoaded()) edited_.taskId = number;
}

void frmTaskSet::Wire() {
    cobCircleType.onClick = [this] { cobCircleType_Click(); };
    UpDown1.onUpClick = [this] { UpDown1_UpClick(); };
    UpDown1.onDownClick = [this] { UpDown1_DownClick(); };
    cmdSetMan.onClick = [this] { cmdSetMan_Click(); };
    cmdDoneMan.onClick = [this] { cmdDoneMan_Click(); };
    cmdOnlySeeMan.onClick = [this] { cmdOnlySeeMan_Click(); };
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdExit.onClick = [this] { cmdExit_Click(); };
    WireKeys();
    WireShortcuts();
    WireChecks();
}

// In entry fields Enter and the arrows work like Tab and Shift+Tab.
void frmTaskSet::WireKeys() {
    for (forms::TextBox* box : {&txtTaskID, &txtTaskTitle, &txtCircleValue, &txtMonth, &txtDay,
                                &txtUpDown, &txtSetMan, &txtDoneMan, &txtTaskCon}) {
        box->onKeyDown = [this](forms::KeyEvent& event) {
            if (!event.control) forms::MoveOnEnterAndArrows(*this, event);
        };
    }
    const std::initializer_list<forms::Control*> choices{&dateBegin, &dateEnd, &cobCircleType,
                                                         &cobWeek};
    for (forms::Control* control : choices) {
        control->onKeyDown = [this](forms::KeyEvent& event) { forms::MoveOnEnter(*this, event); };
    }
}

void frmTaskSet::WireShortcuts() {
    using resources::KeyText;
    static constexpr forms::KeyChord kSave{'S', true};
    static constexpr forms::KeyChord kSaveToo{forms::key::kEnter, true};
    static constexpr forms::KeyChord kThisList{forms::key::kF1};
    shortcuts.Press(kSave, cmdOK);
    shortcuts.Press(kSaveToo, cmdOK);
    shortcuts.Do(kThisList, [this] {
        ShowKeyList(session_, {{{kSave, kSaveToo}, KeyText::Save},
                               {{{forms::key::kEscape}}, KeyText::Leave},
                               {{kThisList}, KeyText::ThisList}});
    });
}

void frmTaskSet::WireChecks() {
    const std::initializer_list<std::pair<PlanField, forms::TextBox*>> boxes{
        {PlanField::TaskID, &txtTaskID},
        {PlanField::Title, &txtTaskTitle},
        {PlanField::CircleValue, &txtCircleValue},
        {PlanField::Month, &txtMonth},
        {PlanField::Day, &txtDay},
        {PlanField::TypeValue, &txtUpDown},
        {PlanField::SetMan, &txtSetMan},
        {PlanField::DoneMan, &txtDoneMan}};
    for (const auto& [field, box] : boxes) {
        box->onValidate = [this, field = field, box = box](bool& cancel) {
            CheckBoxText(field, *box, cancel);
        };
    }
    dateBegin.onValidate = [this](bool& cancel) { CheckDate(PlanField::Begin, cancel); };
    dateEnd.onValidate = [this](bool& cancel) { CheckDate(PlanField::End, cancel); };
}

void frmTaskSet::CheckBoxText(PlanField field, forms::TextBox& box, bool& cancel) {
    // Names of users, of staff and of the stored plan are as they are; rows take them as values.
    const auto given = given_.find(field);
    if (given != given_.end() && given->second == box.Text()) return;
    if (field == PlanField::SetMan && box.Text() == session_.state.UserName) return;
    if (const std::int16_t message = plans::CheckFieldOnLeaving(field, box.Text())) {
        const bool named = field == PlanField::TaskID && message == text_id::kBeyondRange;
        session_.windows.ShowMessage(
            (named ? session_.LoadText(text_id::kTaskNumber) : "") + session_.LoadText(message),
            forms::box::kExclamation);
        box.SelectAll();
        cancel = true;
        return;
    }
    if (!plans::IsCutOnLeaving(field)) return;
    const std::int16_t name = field == PlanField::Title    ? text_id::kTitle
                              : field == PlanField::SetMan ? text_id::kSetter
                                                           : text_id::kExecutor;
    box.SetText(FitTextBytes(session_, OnOneLine(box.Text()), plans::kMaximumTextBytes,
                             session_.LoadText(name)));
}

void frmTaskSet::CheckDate(PlanField field, bool& cancel) {
    const std::int16_t message =
        plans::CheckDateOnLeaving(field, *dateBegin.Value(), *dateEnd.Value());
    if (message == 0) return;
    session_.windows.ShowMessage(session_.LoadText(message), forms::box::kExclamation);
    cancel = true;
}

void frmTaskSet::Form_Load() {
    SetCaptions();
    cobCircleType.SetListIndex(circle::kMonthly);
    cobWeek.SetListIndex(1);
    if (edited_.taskId != 0) {
        ShowPlan();
    } else {
        ProposePlan();
    }
    shown_ = Entry();
    PlaceControls(*this);
    Center();
}

void frmTaskSet::Form_Rescale() {
    PlaceControls(*this);
}

void frmTaskSet::Form_Activate() {
    if (!moveOnWhenShown_) return;
    moveOnWhenShown_ = false;
    MoveFocus(+1);
}

// What another program sends arrives even while items are generated; the window stays until then.
void frmTaskSet::Form_QueryUnload(bool& cancel, bool) {
    if (generating_) cancel = true;
}

void frmTaskSet::ProposePlan() {
    Give(PlanField::TaskID, txtTaskID, plans::ProposeNumber(session_.database));
    const DateTime today = session_.machine.clock.Today();
    dateBegin.SetValue(today);
    dateEnd.SetValue(std::min(today.AddDays(kDaysOfANewPlan), DateTime::LastDay()));
    if (!session_.state.UserName.empty()) {
        Give(PlanField::SetMan, txtSetMan, session_.state.UserName);
        txtDoneMan.SetText("");
    }
    cobCircleType.SetListIndex(circle::kMonthly);
    txtCircleValue.SetText("1");
    txtMonth.SetText("1");
    txtDay.SetText("1");
    txtUpDown.SetText("0");
    cobWeek.SetListIndex(1);
    moveOnWhenShown_ = true;
}

void frmTaskSet::ShowPlan() {
    if (const auto row = plans::Load(session_.database, edited_.taskId)) return ShowRow(*row);
    const DateTime today = session_.machine.clock.Today();
    dateBegin.SetValue(today);
    dateEnd.SetValue(today);
    session_.windows.ShowMessage(session_.LoadText(text_id::kNoSuchPlan), forms::box::kExclamation);
}

void frmTaskSet::cobCircleType_Click() {
    const int kind = cobCircleType.ListIndex();
    const bool month = kind == circle::kYearly;
    const bool day = kind == circle::kYearly || kind == circle::kMonthly;
    const bool week = kind == circle::kWeekly;
    txtMonth.SetVisible(month);
    lblMonth.SetVisible(month);
    txtDay.SetVisible(day);
    lblDay.SetVisible(day);
    cobWeek.SetVisible(week);
    lblDE.SetVisible(day || week);
    PlaceSchedule(*this);
}

void frmTaskSet::StepWidth(int step) {
    const double present = std::nearbyint(number::Parse(txtUpDown.Text()).value_or(0));
    const double next =
        std::clamp(present + step, 0.0, static_cast<double>(plans::kMaximumTypeValue));
    txtUpDown.SetText(std::to_string(static_cast<int>(next)));
}

void frmTaskSet::UpDown1_UpClick() {
    StepWidth(+1);
}

void frmTaskSet::UpDown1_DownClick() {
    StepWidth(-1);
}

void frmTaskSet::Give(PlanField field, forms::TextBox& box, const std::string& text) {
    given_[field] = text;
    box.SetText(text);
}

void frmTaskSet::PickInto(PlanField field, forms::TextBox& box, std::int16_t action) {
    PickStaff(session_, action, box.Text(),
              [this, field, &box](const std::string& name) { Give(field, box, name); });
    box.SetFocus();
}

void frmTaskSet::cmdSetMan_Click() {
    PickInto(PlanField::SetMan, txtSetMan, kPickSetter);
}

void frmTaskSet::cmdDoneMan_Click() {
    PickInto(PlanField::DoneMan, txtDoneMan, kPickExecutor);
}

void frmTaskSet::cmdOnlySeeMan_Click() {
    // No field of the plan takes the name; the host finds an accepted one in myName.
    PickStaff(session_, kBrowseStaff, {}, {});
}

void frmTaskSet::Refuse(const Refusal& refusal) {
    std::string message;
    for (const std::int16_t id : refusal.message) message += session_.LoadText(id);
    session_.windows.ShowMessage(message, forms::box::kExclamation);
    ControlOf(refusal.field).SetFocus();
}

bool frmTaskSet::Ask(std::int16_t question, int buttons, forms::Answer agreement) {
    return session_.windows.ShowMessage(session_.LoadText(question),
                                        buttons + forms::box::kQuestion) == agreement;
}

void frmTaskSet::cmdOK_Click() {
    if (generating_) return;
    const PlanEntry entry = Entry();
    if (const auto refusal = plans::CheckEntry(entry)) return Refuse(*refusal);
    if (plans::AsksForSetter(entry) && !AskForSetter()) {
        txtSetMan.SetFocus();
        return;
    }
    const Plan plan = plans::MakePlan(entry);
    const bool added = edited_.taskId == 0;
    const bool generates = chkTaskSet.Checked();
    const std::string number(text::Trim(txtTaskID.Text()));
    const PlanSave save = Save(plan);
    if (save.outcome != PlanSave::Outcome::Saved) return;
    session_.acts.Done(
        {.kind = added ? changes::Act::Add : changes::Act::Change,
         .notice = added ? resources::ChangeText::Added : resources::ChangeText::Changed,
         .title = plan.title,
         .rows = {save.change}});
    // From here on the plan exists: should the generation fail, a second confirmation changes it.
    if (save.joined) FillFrom(plans::PlanOf(save.written));
    edited_ = {plan.taskId, save.written, plans::ValuesOf(plans::MakePlan(Entry()))};
    shown_ = Entry();
    session_.windows.ShowMessage(session_.LoadText(text_id::kTask) +
                                     session_.LoadText(added ? text_id::kAdd : text_id::kChange) +
                                     session_.LoadText(text_id::kFinished) + "!",
                                 forms::box::kInformation);
    SetModeCaption();
    if (generates && Ask(text_id::kStartGenerating, forms::box::kYesNo, forms::Answer::Yes)) {
        Generate(number);
    }
    Unload();
}

bool frmTaskSet::AskForSetter() {
    return Ask(text_id::kNoSetter, forms::box::kOkCancel, forms::Answer::Ok);
}

PlanSave frmTaskSet::Save(const Plan& plan) {
    const plans::PlanQuestions questions{
        [this](const auto& fields, const auto& stored, const auto& own) {
            return AskAboutConflict(fields, stored, own);
        },
        [this] { return AskForSetter(); }};
    const plans::EditedPlan edited = edited_;
    PlanSave save = plans::PlanSaving(session_.database, edited, questions).Save(plan);
    if (save.outcome == PlanSave::Outcome::Saved) return save;
    if (save.joined) ShowJoined(*save.joined);
    if (save.refusal) {
        Refuse(*save.refusal);
    } else if (save.joined) {
        txtSetMan.SetFocus();
    }
    return save;
}

void frmTaskSet::Generate(const std::string& number) {
    // However the run ends, the line is empty again.
    struct Run {
        explicit Run(frmTaskSet& editor) : window(editor) { window.generating_ = true; }
        ~Run() {
            window.generating_ = false;
            window.lblProgress.SetCaption("");
        }
        frmTaskSet& window;
    } run{*this};
    int shown = -1;
    GenerateTaskList(session_, number, [&](int rows, double part) {
        const int percent = static_cast<int>(part * 100);
        if (percent == shown) return;
        shown = percent;
        lblProgress.SetCaption(std::to_string(percent) + "% (" + std::to_string(rows) + ")");
        Refresh();
    });
}

void frmTaskSet::cmdExit_Click() {
    if (MayLeave() && IsLoaded()) Unload();
}

void ShowPlanEditor(Session& session, std::int16_t taskId, bool modal) {
    session.windows.Open<frmTaskSet>(
        modal, [taskId](frmTaskSet& editor) { editor.TaskID(taskId); }, session);
}

}  // namespace zv::windows
