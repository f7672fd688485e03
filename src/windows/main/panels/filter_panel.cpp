#include "windows/main/panels/filter_panel.h"

#include <algorithm>
#include <array>

#include "forms/field_keys.h"
#include "forms/layout/metrics.h"
#include "items/names.h"
#include "resources/switch_setting.h"
#include "resources/text_ids.h"
#include "session/module_gate.h"
#include "session/text_checks.h"
#include "store/sql_text.h"

namespace zv::windows {
namespace {

using resources::DesignText;

constexpr int kFilterFields = 9;

}  // namespace

FilterPanel::FilterPanel(forms::Form& form, forms::TabPage page, Session& session,
                         const MainState& state)
    : form_(form),
      page_(page),
      session_(session),
      state_(state),
      lblNoFilter(form, "lblNoFilter", &page.Content()),
      fraB3(form, "fraB3", &page.Content()),
      chkType(form, "chkType", &fraB3, static_cast<int>(items::kItemKinds.size())),
      lblFilter(form, "lblFilter", &fraB3, kFilterFields),
      DTPicker0(form, "DTPicker0", &fraB3),
      DTPicker1(form, "DTPicker1", &fraB3),
      txtTitle0(form, "txtTitle0", &fraB3),
      txtContent0(form, "txtContent0", &fraB3),
      txtJBR0(form, "txtJBR0", &fraB3),
      chkJbr(form, "chkJbr", &fraB3),
      txtUser0(form, "txtUser0", &fraB3),
      chkUser(form, "chkUser", &fraB3),
      txtName0(form, "txtName0", &fraB3),
      txtComp(form, "txtComp", &fraB3),
      cboState(form, "cboState", &fraB3, forms::ComboStyle::ListOnly) {
    DTPicker0.SetMayBeEmpty(true);
    DTPicker1.SetMayBeEmpty(true);
    lblNoFilter.SetVisible(false);
    Wire();
}

void FilterPanel::Wire() {
    for (forms::TextBox* text : TextBoxes()) {
        text->onKeyDown = [this](forms::KeyEvent& event) {
            forms::MoveOnEnterAndArrows(form_, event);
        };
        text->onValidate = [this, text](bool& cancel) { ValidateText(*text, cancel); };
    }
    for (int kind = 0; kind < chkType.Count(); kind++) {
        chkType[kind].onClick = [this, kind] { chkType_Click(kind); };
    }
    chkJbr.onClick = [this] { chkJbr_Click(); };
    chkUser.onClick = [this] { chkUser_Click(); };
    DTPicker0.onChange = [this] { fromTouched_ = true; };
    DTPicker1.onChange = [this] { untilTouched_ = true; };
}

void FilterPanel::LoadLists() {
    std::vector<std::string> states = items::StateNames(session_.state.Language);
    states.push_back(session_.LoadText(DesignText::StateAll));
    states.push_back(session_.LoadText(DesignText::StateNotYetDone));
    cboState.SetItems(std::move(states));
}

void FilterPanel::SetCaptions() {
    const auto kinds = items::KindNames(session_.state.Language);
    for (int kind = 0; kind < chkType.Count(); kind++) {
        chkType[kind].SetCaption(kinds[static_cast<std::size_t>(kind)]);
    }
    const auto label = [this](int number, std::string caption, forms::Control& field) {
        field.SetAccessibleName(caption);
        lblFilter[number].SetCaption(std::move(caption));
    };
    label(0, session_.LoadText(text_id::kBegin), DTPicker0);
    label(1, session_.LoadText(text_id::kEnd), DTPicker1);
    label(2, session_.LoadText(text_id::kTitle), txtTitle0);
    label(3, session_.LoadText(DesignText::Content), txtContent0);
    label(4, session_.LoadText(text_id::kExecutor), txtJBR0);
    label(5, session_.LoadText(text_id::kSetter), txtUser0);
    label(6, session_.LoadText(DesignText::Contact), txtName0);
    label(7, session_.LoadText(DesignText::Company), txtComp);
    label(8, session_.LoadText(text_id::kState), cboState);
    lblNoFilter.SetCaption(session_.LoadText(DesignText::FilterNotForPlans));
    fraB3.SetCaption(session_.LoadText(DesignText::Filter));
    chkJbr.SetCaption(session_.LoadText(DesignText::OnlyMyDoing));
    chkUser.SetCaption(session_.LoadText(DesignText::OnlyMySetting));
    page_.SetCaption(session_.LoadText(DesignText::TabFilter));
}

void FilterPanel::Place(const forms::Rect& page) {
    using namespace forms::layout;
    const Metrics m(form_.Windows().GetBackend());
    const forms::Rect frame{kMargin, kMargin, page.width - 2 * kMargin, page.height - 2 * kMargin};
    fraB3.Move(frame);
    lblNoFilter.Move({kMargin, kMargin, frame.width, m.Text()});
    const int column = (frame.width - 2 * kFramePadding - kColumnGap) / 2;
    const int left = kFramePadding;
    const int right = left + column + kColumnGap;
    const int labelWidth = m.LabelWidth(lblFilter);
    int y = m.FrameTop();
    int x = left;
    for (int kind = 0; kind < chkType.Count(); kind++) {
        const int boxWidth = m.BoxWidth(chkType[kind].Caption());
        chkType[kind].Move({x, y, boxWidth, m.Field()});
        x += boxWidth + kColumnGap;
    }
    const auto place = [&](int number, forms::Control& field, int at) {
        m.PlaceLabelled(lblFilter[number], field, at, y, labelWidth, column);
    };
    y += m.Row();
    place(0, DTPicker0, left);
    place(1, DTPicker1, right);
    y += m.Row();
    place(2, txtTitle0, left);
    place(3, txtContent0, right);
    y += m.Row();
    place(4, txtJBR0, left);
    chkJbr.Move({right, y, column, m.Field()});
    y += m.Row();
    place(5, txtUser0, left);
    chkUser.Move({right, y, column, m.Field()});
    y += m.Row();
    place(6, txtName0, left);
    place(7, txtComp, right);
    y += m.Row();
    place(8, cboState, left);
}

void FilterPanel::SetStartValues() {
    const bool cards = state_.startMode == kCardMode;
    for (const items::ItemKind kind : items::kItemKinds) {
        chkType[items::Number(kind)].SetValue(!cards || kind == items::ItemKind::Guest ? 1 : 0);
    }
    fromTouched_ = untilTouched_ = false;
    FollowTheDay();
    for (forms::TextBox* text : TextBoxes()) {
        if (!text->Locked()) text->SetText("");
    }
    givenCompany_.clear();
    cboState.SetListIndex(Row(state_.startMode == kAlertMode ? items::Filter::States::NotYetDone
                                                             : items::Filter::States::All));
}

void FilterPanel::LoadOwnItems() {
    if (state_.startMode == kCardMode) {
        chkJbr.SetValue(CheckModule(session_, "mnuCardLimited", 0, 0) < 1 ? 1 : 0);
        // A limit by right is no choice of the user's, so it is not stored as one.
        NoteStored();
        return;
    }
    const std::string stored = session_.GetSetting(resources::kTaskSection, "JbrName", "0");
    chkJbr.SetValue(resources::SwitchOf(stored));
    chkUser.SetValue(0);
    NoteStored();
}

void FilterPanel::NoteStored() {
    storedJbr_ = chkJbr.Value();
    storedUser_ = chkUser.Value();
    chkJbr.tag = std::to_string(storedJbr_);
    chkUser.tag = std::to_string(storedUser_);
}

void FilterPanel::SaveOwnItems() {
    const auto save = [this](const forms::CheckBox& box, int stored, std::string_view key) {
        if (box.Value() == stored) return;
        session_.SaveSetting(resources::kTaskSection, key, std::to_string(box.Value()));
    };
    save(chkJbr, storedJbr_, "JbrName");
    save(chkUser, storedUser_, "DlrName");
}

bool FilterPanel::FollowTheDay() {
    const DateTime today = session_.machine.clock.Today();
    // An item of today with a time of day ends after midnight: the window reaches to the next one.
    std::optional<DateTime> until;
    if (state_.startMode == kManagerMode) until = today.AddDays(1);
    if (until && until->Year() > forms::DatePicker::kLastYear) until.reset();
    const bool fromFollows = Follow(DTPicker0, fromTouched_, today);
    return Follow(DTPicker1, untilTouched_, until) || fromFollows;
}

std::function<void()> FilterPanel::Remember() {
    return [this, from = fromTouched_, until = untilTouched_, company = givenCompany_,
            jbr = storedJbr_, user = storedUser_] {
        givenCompany_ = company;
        fromTouched_ = from;
        untilTouched_ = until;
        storedJbr_ = jbr;
        storedUser_ = user;
    };
}

bool FilterPanel::Follow(forms::DatePicker& picker, bool& touched, std::optional<DateTime> day) {
    if (touched || picker.Value() == day) return false;
    picker.SetValue(day);
    touched = false;
    return true;
}

items::Filter FilterPanel::Choice() const {
    items::Filter choice;
    for (const items::ItemKind kind : items::kItemKinds) {
        choice.kinds[Position(kind)] = chkType[Number(kind)].Checked();
    }
    choice.from = DTPicker0.Value();
    choice.until = DTPicker1.Value();
    choice.title = txtTitle0.Text();
    choice.content = txtContent0.Text();
    choice.doer = txtJBR0.Text();
    choice.user = txtUser0.Text();
    choice.guest = txtName0.Text();
    choice.company = txtComp.Text();
    // The list holds the states in this order; without a chosen row none is excluded.
    if (cboState.ListIndex() >= 0) {
        choice.states = static_cast<items::Filter::States>(cboState.ListIndex());
    }
    return choice;
}

std::string FilterPanel::BuildItemFilter() const {
    return FilterText(Choice(),
                      [this](DateTime date) { return session_.database.DateLiteral(date); });
}

std::string FilterPanel::BuildUndatedFilter() const {
    items::Filter undated = Choice();
    undated.from.reset();
    undated.until.reset();
    return FilterText(undated,
                      [this](DateTime date) { return session_.database.DateLiteral(date); });
}

std::string FilterPanel::Narrowing() const {
    const items::Filter filter = Choice();
    const auto takes = [&](items::ItemKind kind) { return filter.Takes(kind); };
    const std::int16_t language = resources::SpokenLanguage(session_.state.Language);
    std::vector<std::string> names;
    if (!std::all_of(items::kItemKinds.begin(), items::kItemKinds.end(), takes)) {
        names.push_back(LoadText(DesignText::Kind, language));
    }
    const bool narrows[kFilterFields] = {filter.from.has_value(),
                                         filter.until.has_value(),
                                         !filter.title.empty(),
                                         !filter.content.empty(),
                                         !filter.doer.empty(),
                                         !filter.user.empty(),
                                         !filter.guest.empty(),
                                         !filter.company.empty(),
                                         filter.states != items::Filter::States::All};
    for (int field = 0; field < kFilterFields; field++) {
        if (narrows[field]) names.push_back(lblFilter[field].ShownText());
    }
    std::string all;
    for (const std::string& name : names) {
        if (!all.empty()) all += LoadText(resources::StatusText::Listed, language);
        all += name;
    }
    return all;
}

void FilterPanel::Admit(const items::SavedItem& item) {
    admitting_ = true;
    chkType[Number(item.kind)].SetValue(1);
    const items::Filter filter = Choice();
    if (!filter.Takes(item.state)) cboState.SetListIndex(Row(items::Filter::States::All));
    if (!filter.TakesMoment(item.date)) {
        const DateTime day = item.date.Date();
        // What has a time of day ends after midnight.
        const DateTime next = day.AddDays(1);
        DTPicker0.SetValue(day);
        DTPicker1.SetValue(next.Year() > forms::DatePicker::kLastYear ? day : next);
    }
    admitting_ = false;
}

bool FilterPanel::ClearTexts() {
    bool any = false;
    for (forms::TextBox* text : TextBoxes()) {
        if (text->Locked() || text->Text().empty()) continue;
        text->SetText("");
        any = true;
    }
    return any;
}

void FilterPanel::GiveCompany(const std::string& company) {
    givenCompany_ = company;
    txtComp.SetText(company);
}

bool FilterPanel::IsGiven(const forms::TextBox& text) const {
    // A locked box holds the user's own name: who cannot change it must not be held in it.
    return text.Locked() || (&text == &txtComp && text.Text() == givenCompany_);
}

forms::TextBox* FilterPanel::UnfitText() {
    for (forms::TextBox* text : TextBoxes()) {
        if (!IsGiven(*text) && store::BreaksLiteral(text->Text())) return text;
    }
    return nullptr;
}

bool FilterPanel::TextsAreFit() {
    forms::TextBox* const unfit = UnfitText();
    if (!unfit) return true;
    // Where it can be mended.
    page_.BringToFront();
    CheckText(session_, unfit->Text());
    if (form_.IsLoaded()) unfit->SetFocus();
    return false;
}

void FilterPanel::FocusFirst() {
    page_.BringToFront();
    txtTitle0.SetFocus();
}

void FilterPanel::ShowKinds(const std::array<bool, items::kItemKinds.size()>& any) {
    for (const items::ItemKind kind : items::kItemKinds) {
        chkType[Number(kind)].tag = any[Position(kind)] ? "1" : "0";
    }
}

void FilterPanel::ShowFor(bool plans) {
    fraB3.SetVisible(!plans);
    lblNoFilter.SetVisible(plans);
    for (int kind = 0; kind < chkType.Count(); kind++) chkType[kind].SetEnabled(!plans);
}

void FilterPanel::Changed() const {
    if (!state_.starting && !admitting_ && onChanged) onChanged();
}

void FilterPanel::chkType_Click(int index) {
    if (chkType[index].Visible() && page_.InFront()) Changed();
}

void FilterPanel::chkJbr_Click() {
    FollowUser(chkJbr, txtJBR0);
}

void FilterPanel::chkUser_Click() {
    FollowUser(chkUser, txtUser0);
}

void FilterPanel::FollowUser(const forms::CheckBox& box, forms::TextBox& text) {
    text.SetText(box.Checked() ? session_.state.UserName : std::string());
    text.SetLocked(box.Checked());
    Changed();
}

void FilterPanel::ValidateText(const forms::TextBox& text, bool& cancel) {
    if (!IsGiven(text) && !CheckText(session_, text.Text())) cancel = true;
}

}  // namespace zv::windows
