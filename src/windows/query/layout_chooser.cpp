#include "windows/query/layout_chooser.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "forms/kept_focus.h"
#include "forms/layout/row.h"
#include "reports/list_layout.h"
#include "resources/report_texts.h"
#include "resources/text_ids.h"

namespace zv::windows {
namespace {

using resources::ReportText;

std::vector<std::string> Captions(const std::vector<items::ListField>& fields) {
    std::vector<std::string> captions;
    captions.reserve(fields.size());
    for (const items::ListField& field : fields) captions.push_back(field.caption);
    return captions;
}

}  // namespace

frmItemSet::frmItemSet(forms::WindowSystem& windows, Session& session)
    : Form(windows, std::string(kName)),
      lblAll(*this, "lblAll"),
      lstAll(*this, "lstAll"),
      cmdTake(*this, "cmdTake"),
      cmdDrop(*this, "cmdDrop"),
      lblChosen(*this, "lblChosen"),
      lstChosen(*this, "lstChosen"),
      cmdUp(*this, "cmdUp"),
      cmdDown(*this, "cmdDown"),
      cmdUsual(*this, "cmdUsual"),
      cmdOK(*this, "cmdOK"),
      cmdCancel(*this, "cmdCancel"),
      session_(session) {
    lstAll.onClick = [this] { EnableButtons(); };
    lstAll.onDoubleClick = [this] { cmdTake_Click(); };
    lstChosen.onClick = [this] { EnableButtons(); };
    lstChosen.onDoubleClick = [this] { cmdDrop_Click(); };
    cmdTake.onClick = [this] { cmdTake_Click(); };
    cmdDrop.onClick = [this] { cmdDrop_Click(); };
    cmdUp.onClick = [this] { cmdUp_Click(); };
    cmdDown.onClick = [this] { cmdDown_Click(); };
    cmdUsual.onClick = [this] { cmdUsual_Click(); };
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
    defaultButton = &cmdOK;
    cancelButton = &cmdCancel;
}

void frmItemSet::Form_Load() {
    offered_ =
        items::ListFields(suite::ReadFieldCaptions(session_.database, session_.state.Language),
                          session_.state.Language);
    SetCaptions();
    PlaceControls();
    Center();
    Choose(reports::KeptLayout(session_));
}

void frmItemSet::SetCaptions() {
    const auto text = [this](ReportText id) { return session_.LoadText(id); };
    SetCaption(text(ReportText::ListLayout));
    lblAll.SetCaption(text(ReportText::Available));
    lstAll.SetAccessibleName(text(ReportText::Available));
    lblChosen.SetCaption(text(ReportText::Chosen));
    lstChosen.SetAccessibleName(text(ReportText::Chosen));
    cmdTake.SetCaption(text(ReportText::ButtonTake));
    cmdDrop.SetCaption(text(ReportText::ButtonDrop));
    cmdUp.SetCaption(text(ReportText::ButtonUp));
    cmdDown.SetCaption(text(ReportText::ButtonDown));
    cmdUsual.SetCaption(text(ReportText::ButtonUsual));
    cmdOK.SetCaption(session_.LoadText(text_id::kOk));
    cmdCancel.SetCaption(session_.LoadText(text_id::kCancel));
}

void frmItemSet::PlaceControls() {
    using forms::layout::dialog::kGap;
    using forms::layout::dialog::kMargin;
    constexpr int kRows = 14;
    const forms::layout::Metrics m(Windows().GetBackend(), forms::layout::dialog::kSpacing);
    int listWidth = 180;
    for (const items::ListField& field : offered_) {
        listWidth = std::clamp(m.Width(field.caption) + 30, listWidth, 280);
    }
    int buttonWidth = 0;
    for (const forms::CommandButton* button : {&cmdTake, &cmdDrop, &cmdUp, &cmdDown, &cmdUsual}) {
        buttonWidth = std::max(buttonWidth, m.ButtonWidth(button->Caption()));
    }
    // List, buttons, list, buttons.
    const int left1 = kMargin + listWidth + kGap;
    const int left2 = left1 + buttonWidth + kGap;
    const int left3 = left2 + listWidth + kGap;
    const int top = kMargin + m.Text() + 4;
    lblAll.Move({kMargin, kMargin, listWidth, m.Line()});
    lblChosen.Move({left2, kMargin, listWidth, m.Line()});
    lstAll.Move({kMargin, top, listWidth, m.ListHeight(kRows)});
    lstChosen.Move({left2, top, listWidth, m.ListHeight(kRows)});
    const int bottom = lstAll.Bounds().Bottom();
    const auto stack = [&](int left, int from,
                           std::initializer_list<forms::CommandButton*> buttons) {
        for (forms::CommandButton* button : buttons) {
            button->Move({left, from, buttonWidth, m.Button()});
            from += m.Button() + kGap;
        }
    };
    const int middle = (top + bottom) / 2 - m.Button() - kGap / 2;
    stack(left1, middle, {&cmdTake, &cmdDrop});
    stack(left3, middle, {&cmdUp, &cmdDown});
    cmdUsual.Move({left3, bottom - m.Button(), buttonWidth, m.Button()});
    const int right = left3 + buttonWidth;
    const int last = bottom + kMargin;
    const int closeWidth =
        std::max(m.ButtonWidth(cmdOK.Caption()), m.ButtonWidth(cmdCancel.Caption()));
    cmdCancel.Move({right - closeWidth, last, closeWidth, m.Button()});
    cmdOK.Move({right - 2 * closeWidth - kGap, last, closeWidth, m.Button()});
    SetClientSize({right + kMargin, last + m.Button() + kMargin});
}

void frmItemSet::Choose(const std::string& layout) {
    chosen_ = reports::FieldsOfLayout(layout, offered_);
    ShowLists(0, 0);
}

void frmItemSet::ShowLists(int selectedOfAll, int selectedOfChosen) {
    left_.clear();
    for (const items::ListField& field : offered_) {
        const bool taken =
            std::any_of(chosen_.begin(), chosen_.end(),
                        [&](const items::ListField& other) { return other.field == field.field; });
        if (!taken) left_.push_back(field);
    }
    const auto show = [](forms::ListBox& list, const std::vector<items::ListField>& fields,
                         int selected) {
        list.SetItems(Captions(fields));
        list.SetListIndex(std::min(selected, list.ListCount() - 1));
    };
    show(lstAll, left_, selectedOfAll);
    show(lstChosen, chosen_, selectedOfChosen);
    EnableButtons();
}

void frmItemSet::EnableButtons() {
    const int at = lstChosen.ListIndex();
    forms::SetEnabledOrGoTo(cmdTake, lstAll.ListIndex() >= 0, lstAll);
    forms::SetEnabledOrGoTo(cmdDrop, at >= 0, lstChosen);
    forms::SetEnabledOrGoTo(cmdUp, at > 0, lstChosen);
    forms::SetEnabledOrGoTo(cmdDown, at >= 0 && at + 1 < lstChosen.ListCount(), lstChosen);
}

void frmItemSet::cmdTake_Click() {
    const int at = lstAll.ListIndex();
    if (at < 0) return;
    // Behind the selected column, where the user looks.
    const int behind = lstChosen.ListIndex() + 1;
    chosen_.insert(chosen_.begin() + behind, left_.at(static_cast<std::size_t>(at)));
    ShowLists(at, behind);
}

void frmItemSet::cmdDrop_Click() {
    const int at = lstChosen.ListIndex();
    if (at < 0) return;
    chosen_.erase(chosen_.begin() + at);
    ShowLists(lstAll.ListIndex(), at);
}

void frmItemSet::MoveChosen(int by) {
    const int at = lstChosen.ListIndex();
    const int to = at + by;
    if (at < 0 || to < 0 || to >= lstChosen.ListCount()) return;
    std::swap(chosen_.at(static_cast<std::size_t>(at)), chosen_.at(static_cast<std::size_t>(to)));
    ShowLists(lstAll.ListIndex(), to);
}

void frmItemSet::cmdUp_Click() {
    MoveChosen(-1);
}

void frmItemSet::cmdDown_Click() {
    MoveChosen(+1);
}

void frmItemSet::cmdUsual_Click() {
    Choose("");
}

void frmItemSet::cmdOK_Click() {
    if (chosen_.empty()) {
        session_.windows.ShowMessage(session_.LoadText(ReportText::NoColumns),
                                     forms::box::kExclamation);
        return;
    }
    std::vector<std::string> names;
    for (const items::ListField& field : chosen_) names.push_back(field.field);
    if (onAccepted) onAccepted(text::Join(names, ","));
    Unload();
}

void frmItemSet::cmdCancel_Click() {
    Unload();
}

std::string ChooseListLayout(Session& session) {
    std::string layout;
    session.windows.OpenNew<frmItemSet>(
        true,
        [&](frmItemSet& window) {
            window.onAccepted = [&](const std::string& accepted) {
                reports::KeepLayout(session, accepted);
                layout = accepted;
            };
        },
        session);
    return layout;
}

}  // namespace zv::windows
