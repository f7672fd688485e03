#include "windows/completion/frm_task_done.h"

#include <algorithm>

#include "base/number.h"
#include "forms/field_keys.h"
#include "forms/layout/row.h"
#include "plans/plan_store.h"
#include "resources/glyph_samples.h"
#include "resources/text_ids.h"
#include "session/marking.h"
#include "windows/generation/boxes.h"

namespace zv::windows {
namespace {

using forms::layout::Metrics;
using forms::layout::Row;
using forms::layout::dialog::kMargin;
using forms::layout::dialog::kRowGap;

constexpr char kNumberSeparator = '\t';

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

std::int32_t ReadTaskNumber(std::string_view text) {
    text = text.substr(0, text.find(' '));
    std::string digits;
    for (const char c : text) {
        if (IsDigit(c))
            digits += c;
        else if (c != kNumberSeparator)
            break;
    }
    return digits.empty() ? 0 : number::ToInt32(digits);
}

frmTaskDone::frmTaskDone(forms::WindowSystem& windows, Session& session)
    : Form(windows, std::string(kName)),
      lblTitle(*this, "lblTitle"),
      txtTitle(*this, "txtTitle"),
      lblDate(*this, "lblDate"),
      DTPicker1(*this, "DTPicker1"),
      cmdTaskDone(*this, "cmdTaskDone"),
      cmdTaskQuit(*this, "cmdTaskQuit"),
      session_(session) {
    txtTitle.SetShowsTabs(true);
    DTPicker1.SetFormat(forms::DateFormat::LongDate);
    cmdTaskDone.onClick = [this] { cmdTaskDone_Click(); };
    cmdTaskQuit.onClick = [this] { cmdTaskQuit_Click(); };
    cancelButton = &cmdTaskQuit;
    WireKeys();
}

void frmTaskDone::WireKeys() {
    shortcuts.Press({'S', true}, cmdTaskDone);
    shortcuts.Press({forms::key::kEnter, true}, cmdTaskDone);
    txtTitle.onKeyDown = [this](forms::KeyEvent& event) {
        forms::MoveOnEnterAndArrows(*this, event);
    };
    // The arrows count in a date.
    DTPicker1.onKeyDown = [this](forms::KeyEvent& event) { forms::MoveOnEnter(*this, event); };
}

void frmTaskDone::TaskType(std::int16_t type) {
    type_ = type;
    SetCaption(session_.LoadText(text_id::kTask) +
               session_.LoadText(Completes() ? text_id::kCompleted : text_id::kAdd));
}

void frmTaskDone::Form_Load() {
    SetCaptions();
    DTPicker1.SetValue(session_.machine.clock.Today());
    ShowPlan(number::ToInt16(static_cast<double>(session_.state.myTaskID)));
    shownTitle_ = txtTitle.Text();
    shownDate_ = DTPicker1.Value();
    PlaceControls();
    Center();
}

void frmTaskDone::SetCaptions() {
    lblTitle.SetCaption(session_.LoadText(text_id::kTask));
    lblDate.SetCaption(session_.LoadText(text_id::kDate));
    cmdTaskDone.SetCaption(session_.LoadText(text_id::kOk));
    cmdTaskQuit.SetCaption(session_.LoadText(text_id::kCancel));
    txtTitle.SetAccessibleName(lblTitle.Caption());
    DTPicker1.SetAccessibleName(lblDate.Caption());
    lblTitle.SetAccessKey('T');
    lblDate.SetAccessKey('D');
    cmdTaskDone.SetAccessKey('O');
    cmdTaskQuit.SetAccessKey('C');
}

void frmTaskDone::ShowPlan(std::int16_t number) {
    if (const auto plan = plans::LoadName(session_.database, number)) {
        txtTitle.SetText(plan->number + kNumberSeparator + plan->title);
    }
    // The dialog may wait long for its user; the store is opened again when it is needed.
    session_.database.Close();
}

void frmTaskDone::PlaceControls() {
    const Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
    const int label = m.Widest({&lblTitle, &lblDate});
    const int field = m.Width("88888  " + resources::WideLetters(25)) + 14;
    int top = kMargin;
    Row title(m, kMargin, top);
    title.Label(lblTitle, label);
    title.Field(txtTitle, field);
    top += m.Field() + kRowGap;
    Row date(m, kMargin, top);
    date.Label(lblDate, label);
    date.Field(DTPicker1, m.Width("Wednesday, 30 September 2003") + 30);
    top += m.Field() + kMargin;
    const int right = txtTitle.Bounds().Right();
    PlaceFromRight(m, right, top, {&cmdTaskQuit, &cmdTaskDone});
    SetClientSize({right + kMargin, top + m.Button() + kMargin});
}

void frmTaskDone::cmdTaskDone_Click() {
    const std::int32_t number = ReadTaskNumber(txtTitle.Text());
    if (number == 0) return;
    if (Completes() ? Complete(number) : AddInstance(number)) Unload();
}

// Plans are numbered in 16 bits.
bool frmTaskDone::AddInstance(std::int32_t plan) {
    return AddTaskInstance(session_, number::ToInt16(static_cast<double>(plan)),
                           *DTPicker1.Value());
}

bool frmTaskDone::Complete(std::int32_t item) {
    const Marking marking =
        MarkItem(session_, Request(item, items::ItemState::Done, session_.state.UserName));
    if (marking == Marking::NoItem) return false;
    if (marking == Marking::Gone) {
        session_.windows.ShowMessage(session_.LoadText(text_id::kItemNotFound),
                                     forms::box::kExclamation);
    }
    return true;
}

void frmTaskDone::cmdTaskQuit_Click() {
    if (MayLeave() && IsLoaded()) Unload();
}

void ShowTaskDone(Session& session, std::int16_t taskType, bool modal) {
    auto* dialog = session.windows.Find<frmTaskDone>(frmTaskDone::kName);
    session.windows.RefuseBeside(modal, nullptr);
    // What was entered as the number of a plan must not be taken for that of an item.
    if (dialog && dialog->Completes() != (taskType == frmTaskDone::kCompleteItem)) {
        dialog->Unload();
    }
    session.windows.Open<frmTaskDone>(
        modal, [taskType](frmTaskDone& window) { window.TaskType(taskType); }, session);
}

}  // namespace zv::windows
