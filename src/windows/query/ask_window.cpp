#include "windows/query/ask_window.h"

#include <algorithm>

#include "items/asked_words.h"
#include "items/urgency.h"
#include "reports/grid_export.h"
#include "reports/print_grid.h"
#include "resources/ask_texts.h"
#include "resources/text_ids.h"
#include "session/key_list.h"
#include "session/long_work.h"
#include "session/text_checks.h"

namespace zv::windows {
namespace {

using resources::AskText;

// Columns of the grid.
constexpr int kDateColumn = 1;
constexpr int kStateColumn = 7;

class Reading : public progress::LongWork {
 public:
    Reading(AskRows& rows, forms::Grid& grid, std::int16_t language)
        : rows_(rows), grid_(grid), language_(language) {}
    bool Continue() override { return rows_.Fill(grid_, kRowsInPiece); }
    std::string State() const override {
        return LoadText(AskText::RowsSoFar, language_, std::to_string(grid_.DataRowCount()));
    }

 private:
    AskRows& rows_;
    forms::Grid& grid_;
    std::int16_t language_;
};

}  // namespace

frmAsk::frmAsk(forms::WindowSystem& windows, Session& session)
    : Form(windows, std::string(kName)), session_(session) {
    Wire();
    SetSizable(true);
    defaultButton = &cmdAsk;
    cancelButton = &cmdQuit;
}

void frmAsk::Wire() {
    chkUser.onClick = [this] { chkUser_Click(); };
    chkType.onClick = [this] { chkType_Click(); };
    chkDoneMan.onClick = [this] { chkDoneMan_Click(); };
    for (int index = kTitleCheck; index <= kStateCheck; index++) {
        Check1[index].onClick = [this, index] { Check1_Click(index); };
    }
    Text1[kTitleCheck].onLostFocus = [this] { Text1_LostFocus(); };
    cmdAsk.onClick = [this] { cmdAsk_Click(); };
    cmdPrint.onClick = [this] { cmdPrint_Click(); };
    cmdExport.onClick = [this] { cmdExport_Click(); };
    cmdQuit.onClick = [this] { cmdQuit_Click(); };
    Grid1.sign = [this](int row) { return SignOf(row); };
    WireShortcuts();
}

void frmAsk::WireShortcuts() {
    using resources::KeyText;
    static constexpr forms::KeyChord kAsk{forms::key::kF5};
    static constexpr forms::KeyChord kAskToo{forms::key::kEnter, true};
    static constexpr forms::KeyChord kPrint{'P', true};
    static constexpr forms::KeyChord kExport{'S', true};
    static constexpr forms::KeyChord kThisList{forms::key::kF1};
    shortcuts.Press(kAsk, cmdAsk);
    shortcuts.Press(kAskToo, cmdAsk);
    shortcuts.Press(kPrint, cmdPrint);
    shortcuts.Press(kExport, cmdExport);
    shortcuts.Do(kThisList, [this] {
        ShowKeyList(session_, {{{kAsk, kAskToo}, KeyText::Query},
                               {{kPrint}, KeyText::Print},
                               {{kExport}, KeyText::Export},
                               {{{forms::key::kEscape}}, KeyText::Leave},
                               {{kThisList}, KeyText::ThisList}});
    });
}

void frmAsk::Form_Load() {
    SetCaptions();
    SetColumns();
    const DateTime today = session_.machine.clock.Today();
    DTPicker1.SetValue(today);
    DTPicker2.SetValue(today);
    Combo1.SetListIndex(0);
    for (forms::Control* input :
         {static_cast<forms::Control*>(&txtUser), static_cast<forms::Control*>(&cboType2),
          static_cast<forms::Control*>(&Text1[kTitleCheck]),
          static_cast<forms::Control*>(&DTPicker1), static_cast<forms::Control*>(&DTPicker2),
          static_cast<forms::Control*>(&Combo1), static_cast<forms::Control*>(&txtDoneMan)}) {
        input->SetEnabled(false);
    }
    SetWindowSize(*this);
    Center();
}

void frmAsk::Form_Rescale() {
    SetSmallestSize(*this);
}

void frmAsk::Form_Resize() {
    PlaceControls(*this);
}

void frmAsk::chkUser_Click() {
    txtUser.SetEnabled(chkUser.Checked());
    MoveFocus(+1);
}

void frmAsk::chkDoneMan_Click() {
    txtDoneMan.SetEnabled(chkDoneMan.Checked());
    MoveFocus(+1);
}

void frmAsk::chkType_Click() {
    cboType2.SetEnabled(chkType.Checked());
    if (chkType.Checked()) cboType2.SetFocus();
}

void frmAsk::Check1_Click(int index) {
    const bool on = Check1[index].Checked();
    switch (index) {
        case kTitleCheck:
            Text1[kTitleCheck].SetEnabled(on);
            if (on) Text1[kTitleCheck].SetFocus();
            break;
        case kDateCheck:
            DTPicker1.SetEnabled(on);
            DTPicker2.SetEnabled(on);
            break;
        default:
            Combo1.SetEnabled(on);
            break;
    }
}

void frmAsk::Text1_LostFocus() {
    CheckFieldText(session_, txtDoneMan, false);
    CheckFieldText(session_, Text1[kTitleCheck], false);
}

items::AskCriteria frmAsk::Criteria() const {
    items::AskCriteria criteria;
    if (chkUser.Checked()) criteria.user = txtUser.Text();
    if (chkType.Checked()) criteria.type = cboType2.ListIndex();
    if (Check1[kTitleCheck].Checked()) criteria.title = Text1[kTitleCheck].Text();
    if (Check1[kDateCheck].Checked()) {
        criteria.dates = {DTPicker1.Value().value(), DTPicker2.Value().value()};
    }
    if (Check1[kStateCheck].Checked()) criteria.state = Combo1.ListIndex();
    if (chkDoneMan.Checked()) criteria.doneMan = txtDoneMan.Text();
    return criteria;
}

AskTexts frmAsk::Texts() const {
    return {cboType2.Items(), Combo1.Items()};
}

std::optional<forms::Sign> frmAsk::SignOf(int row) const {
    const std::vector<std::string>& states = Combo1.Items();
    const auto name = std::find(states.begin(), states.end(), Grid1.Cell(row, kStateColumn));
    const auto state = items::StateOf(static_cast<std::int32_t>(name - states.begin()));
    if (!state) return std::nullopt;
    const DateTime today = session_.machine.clock.Today();
    const auto day = DateTime::Parse(Grid1.Cell(row, kDateColumn));
    return forms::Sign{
        items::SignOf(day, *state, today, resources::SpokenLanguage(session_.state.Language)),
        items::ColorOf(items::UrgencyOf(day, *state, today))};
}

void frmAsk::Clear() {
    Grid1.SetDataRowCount(0);
    lblCount.SetCaption({});
    asked_.clear();
}

void frmAsk::ShowFieldCaptions(const std::vector<suite::FieldCaption>& captions) {
    Clear();
    fieldCaptions = captions;
    SetColumns();
}

void frmAsk::cmdAsk_Click() {
    Clear();
    const char delimiter = session_.Settings().kind >= 1 ? '\'' : '#';
    // What the user changes while the rows come in concerns the next query.
    const items::AskCriteria criteria = Criteria();
    const std::string asked = AskedText(criteria);
    progress::WorkEnd end = progress::WorkEnd::Cancelled;
    try {
        AskRows rows(session_, items::AskStatement(criteria, delimiter), Texts());
        Reading reading(rows, Grid1, session_.state.Language);
        end = RunLongWork(session_, Caption(), reading);
    } catch (...) {
        // Half a list would pass for a whole one.
        Grid1.SetDataRowCount(0);
        throw;
    }
    if (!IsLoaded()) return;
    const bool cancelled = end == progress::WorkEnd::Cancelled;
    lblCount.SetCaption(FoundText(cancelled));
    items::AskedWords words(session_.state.Language);
    words.Add(asked);
    if (cancelled) words.Add(lblCount.Caption());
    asked_ = words.Text();
    if (cancelled) session_.windows.ShowMessage(lblCount.Caption(), forms::box::kInformation);
}

std::string frmAsk::AskedText(const items::AskCriteria& criteria) const {
    const auto headingOf = [this](std::string_view field) {
        int column = 0;
        for (const items::Field* shown : AskFields()) {
            column++;
            if (shown->column == field) return Grid1.GetColumn(column).heading;
        }
        return std::string(field);
    };
    return items::DescribeCriteria(criteria, headingOf, session_.state.Language);
}

std::string frmAsk::FoundText(bool cancelled) const {
    const std::int16_t language = session_.state.Language;
    const int count = Grid1.DataRowCount();
    if (cancelled) return LoadText(AskText::QueryCancelled, language, std::to_string(count));
    if (count > 0) return LoadText(AskText::RowsFound, language, std::to_string(count));
    const items::AskCriteria criteria = Criteria();
    if (criteria.dates && criteria.dates->first > criteria.dates->second) {
        return session_.LoadText(text_id::kBeginAfterEnd);
    }
    return LoadText(AskText::NothingFound, language);
}

void frmAsk::cmdPrint_Click() {
    const std::string title =
        DTPicker1.Value().value().IsoDate() + " -- " + DTPicker2.Value().value().IsoDate();
    reports::PrintGrid(session_, Grid1, title, {}, asked_);
}

void frmAsk::cmdExport_Click() {
    reports::ExportGrid(session_, Grid1, Caption() + ".csv");
}

void frmAsk::cmdQuit_Click() {
    Unload();
}

void ShowAsk(Session& session, bool modal, const std::vector<suite::FieldCaption>& fieldCaptions) {
    auto* window = session.windows.Find<frmAsk>(frmAsk::kName);
    // A window that stands open beside the others gives way to a modal one.
    if (window && modal && window->IsShown() && !window->IsModal()) {
        window->Unload();
        window = nullptr;
    }
    const bool shown = window && window->IsShown();
    session.windows.Open<frmAsk>(
        modal && !shown,
        [&](frmAsk& asked) {
            if (!shown) asked.fieldCaptions = fieldCaptions;
        },
        session);
}

}  // namespace zv::windows
