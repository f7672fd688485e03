#include "mainwindow/filter_panel.h"

#include <array>

#include "forms/field_keys.h"
#include "mainwindow/frm_task_main.h"
#include "session/text_checks.h"
#include "store/sql_text.h"

namespace zv::mainwindow {
namespace {

std::array<forms::TextBox*, 6> TextBoxes(frmTaskMain& w) {
    return {&w.txtTitle0, &w.txtContent0, &w.txtJBR0, &w.txtUser0, &w.txtName0, &w.txtComp};
}

}  // namespace

void FilterPanel::Wire() {
    for (forms::TextBox* text : TextBoxes(window_)) {
        text->onKeyDown = [this](forms::KeyEvent& event) { TextKeyDown(event); };
        text->onValidate = [this, text](bool& cancel) { ValidateText(*text, cancel); };
    }
    window_.chkJbr.onClick = [this] { chkJbr_Click(); };
    window_.chkUser.onClick = [this] { chkUser_Click(); };
    window_.DTPicker0.onChange = [this] { fromTouched_ = true; };
    window_.DTPicker1.onChange = [this] { untilTouched_ = true; };
}

void FilterPanel::SetStartValues() {
    const bool cards = window_.state.startMode == kCardMode;
    for (int kind = 0; kind < kItemKinds; kind++) {
        window_.chkType[kind].SetValue(!cards || kind == kGuest ? 1 : 0);
    }
    fromTouched_ = untilTouched_ = false;
    FollowTheDay();
    for (forms::TextBox* text : TextBoxes(window_)) {
        if (!text->Locked()) text->SetText("");
    }
    givenCompany_.clear();
    window_.cboState.SetListIndex(window_.state.startMode == kAlertMode ? kNotYetDone : kAllStates);
}

bool FilterPanel::FollowTheDay() {
    const DateTime today = window_.session.machine.clock.Today();
    // An item of today with a time of day ends after midnight: the window reaches to the next one.
    std::optional<DateTime> until;
    if (window_.state.startMode == kManagerMode) until = today.AddDays(1);
    if (until && until->Year() > forms::DatePicker::kLastYear) until.reset();
    const bool fromFollows = Follow(window_.DTPicker0, fromTouched_, today);
    return Follow(window_.DTPicker1, untilTouched_, until) || fromFollows;
}

std::function<void()> FilterPanel::Remember() {
    return [this, from = fromTouched_, until = untilTouched_, company = givenCompany_] {
        givenCompany_ = company;
        fromTouched_ = from;
        untilTouched_ = until;
    };
}

bool FilterPanel::Follow(forms::DatePicker& picker, bool& touched, std::optional<DateTime> day) {
    if (touched || picker.Value() == day) return false;
    picker.SetValue(day);
    touched = false;
    return true;
}

FilterChoice FilterPanel::Choice() const {
    FilterChoice choice;
    for (int kind = 0; kind < kItemKinds; kind++) {
        choice.kinds[static_cast<std::size_t>(kind)] = window_.chkType[kind].Checked();
    }
    choice.from = window_.DTPicker0.Value();
    choice.until = window_.DTPicker1.Value();
    choice.title = window_.txtTitle0.Text();
    choice.content = window_.txtContent0.Text();
    choice.doer = window_.txtJBR0.Text();
    choice.user = window_.txtUser0.Text();
    choice.guest = window_.txtName0.Text();
    choice.company = window_.txtComp.Text();
    choice.state = window_.cboState.ListIndex();
    return choice;
}

std::string FilterPanel::BuildItemFilter() const {
    return BuildFilterText(
        Choice(), [this](DateTime date) { return window_.session.database.DateLiteral(date); });
}

void FilterPanel::GiveCompany(const std::string& company) {
    givenCompany_ = company;
    window_.txtComp.SetText(company);
}

bool FilterPanel::IsGiven(const forms::TextBox& text) const {
    // A locked box holds the user's own name: who cannot change it must not be held in it.
    return text.Locked() || (&text == &window_.txtComp && text.Text() == givenCompany_);
}

forms::TextBox* FilterPanel::UnfitText() {
    for (forms::TextBox* text : TextBoxes(window_)) {
        if (!IsGiven(*text) && store::BreaksLiteral(text->Text())) return text;
    }
    return nullptr;
}

bool FilterPanel::TextsAreFit() {
    forms::TextBox* const unfit = UnfitText();
    if (!unfit) return true;
    // Where it can be mended.
    window_.SSTab1.SetTab(kFilterTab);
    CheckText(window_.session, unfit->Text());
    if (window_.IsLoaded()) unfit->SetFocus();
    return false;
}

void FilterPanel::chkJbr_Click() {
    FollowUser(window_.chkJbr, window_.txtJBR0);
}

void FilterPanel::chkUser_Click() {
    FollowUser(window_.chkUser, window_.txtUser0);
}

void FilterPanel::FollowUser(const forms::CheckBox& box, forms::TextBox& text) {
    text.SetText(box.Checked() ? window_.session.state.UserName : std::string());
    text.SetLocked(box.Checked());
    if (!window_.state.starting) window_.tree.chkEvent_Click();
}

void FilterPanel::TextKeyDown(forms::KeyEvent& event) {
    forms::MoveOnEnterAndArrows(window_, event);
}

void FilterPanel::ValidateText(const forms::TextBox& text, bool& cancel) {
    if (!IsGiven(text) && !CheckText(window_.session, text.Text())) cancel = true;
}

}  // namespace zv::mainwindow
