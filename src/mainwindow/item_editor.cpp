#include "mainwindow/item_editor.h"

#include <array>

#include "mainwindow/frm_task_main.h"

namespace zv::mainwindow {
namespace {

constexpr int kOtherFields = 6;

// A stored row number that the list does not have selects nothing.
void SelectRow(forms::ComboBox& list, std::int32_t row) {
    list.SetListIndex(row >= 0 && row < list.ListCount() ? row : -1);
}

void EnterMovesOn(forms::Control& control) {
    control.onKeyDown = [&control](forms::KeyEvent& event) {
        if (event.code != forms::key::kEnter) return;
        control.Owner().MoveFocus(+1);
        event.code = 0;
    };
}

}  // namespace

void ItemEditor::Wire() {
    EnterMovesOn(window_.cboJbr2);
    EnterMovesOn(window_.txtName2);
    EnterMovesOn(window_.txtTitle2);
    for (int i = 0; i < kOtherFields; i++) EnterMovesOn(window_.txtOther[i]);
    window_.txtTitle2.onGotFocus = [this] { window_.txtTitle2.SelectAll(); };
}

void ItemEditor::ShowItem() {
    MainState& state = window_.state;
    window_.session.EnsureConnection();
    const auto row = window_.session.database.Open("select * from tTaskList where fID=" +
                                                   std::to_string(state.currentItemId));
    if (row->Eof()) {
        state.currentItemId = 0;
        ClearItemEditor();
        return;
    }
    window_.session.state.cardId = row->Field("TaskID").ToInt32();
    const std::string way = row->Field("fWay").ToText();
    window_.cboWay.SetText(way);
    for (int i = 0; i < window_.cboWay.ListCount(); i++) {
        if (window_.cboWay.List(i) != way) continue;
        window_.cboWay.SetListIndex(i);
        break;
    }
    window_.txtTitle2.SetText(row->Field("taskTitle").ToText());
    window_.cboJbr2.SetText(row->Field("tDoneMan").ToText());
    const store::Value& time = row->Field("taskTime");
    if (!time.IsNull()) window_.DTPicker2.SetValue(time.ToDate());
    window_.txtTaskCon.SetText(row->Field("fContent").ToText());
    for (int i = 0; i < kOtherFields; i++) {
        window_.txtOther[i].SetText(row->Field("fOther" + std::to_string(i)).ToText());
    }
    SelectRow(window_.cboDone2, row->Field("tDone").ToInt32());
    window_.txtUser2.SetText(row->Field("fUser").ToText());
    SelectRow(window_.cboType2, row->Field("fType").ToInt32());
    const std::string guest = row->Field("fGuest").ToText();
    row->Close();

    if (window_.cboType2.ListIndex() == kGuest) ShowGuestCard();
    window_.txtName2.SetText(guest);
}

void ItemEditor::ShowGuestCard() {
    const std::int32_t card = window_.session.state.cardId;
    if (card < 1) {
        window_.session.windows.ShowMessage("该客户资料不存在！", forms::box::kExclamation);
        window_.cboComp2.SetListIndex(-1);
    } else if (!window_.cards.LoadCardList("fid=" + std::to_string(card))) {
        window_.session.windows.ShowMessage("该客户资料已不存在！", forms::box::kExclamation);
    }
}

void ItemEditor::ShowEventPlan() {
    window_.session.EnsureConnection();
    const auto row = window_.session.database.Open(
        "select taskTitle,Content,DoneMan,SetMan from tTaskSet where taskID=" +
        std::to_string(window_.state.currentItemId));
    if (!row->Eof()) {
        window_.txtTaskCon.SetText(row->Field("Content").ToText());
        window_.txtTitle2.SetText(row->Field("taskTitle").ToText());
        window_.cboJbr2.SetText(row->Field("DoneMan").ToText());
        window_.txtUser2.SetText(row->Field("SetMan").ToText());
    }
    row->Close();
}

void ItemEditor::ClearItemEditor() {
    window_.txtTitle2.SetText("");
    window_.cboJbr2.SetText("");
    window_.DTPicker2.SetValue(window_.session.machine.clock.Now());
    window_.txtTaskCon.SetText("");
    for (int i = 0; i < kOtherFields; i++) window_.txtOther[i].SetText("");
    window_.cboDone2.SetListIndex(kNotDone);
    window_.cboWay.SetListIndex(0);
    if (window_.state.currentType < kPlan) {
        window_.cboType2.SetListIndex(window_.state.currentType);
    }
    window_.cards.ClearCardDetail();
    window_.txtUser2.SetText(window_.session.state.UserName);
}

void ItemEditor::SetLocked(bool locked) {
    const std::array<forms::TextBox*, 3> texts = {&window_.txtTitle2, &window_.txtTaskCon,
                                                  &window_.txtName2};
    for (forms::TextBox* text : texts) text->SetLocked(locked);
    for (int i = 0; i < kOtherFields; i++) window_.txtOther[i].SetLocked(locked);
    window_.cboJbr2.SetLocked(locked);
    window_.DTPicker2.SetEnabled(!locked);
    window_.cboType2.SetEnabled(!locked);
    window_.cboDone2.SetEnabled(!locked);
    window_.cmdSave.SetEnabled(!locked);
    window_.cmdAction[0].SetEnabled(!locked);
}

}  // namespace zv::mainwindow
