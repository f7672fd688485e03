#include "mainwindow/item_editor.h"

#include <array>
#include <utility>

#include "forms/field_keys.h"
#include "mainwindow/frm_task_main.h"

namespace zv::mainwindow {
namespace {

/// As the columns are wide.
constexpr int kLongText = 255;
constexpr int kShortText = 100;

// A stored row number that the list does not have selects nothing.
void SelectRow(forms::ComboBox& list, std::int32_t row) {
    list.SetListIndex(row >= 0 && row < list.ListCount() ? row : -1);
}

void EnterMovesOn(forms::Control& control) {
    control.onKeyDown = [&control](forms::KeyEvent& event) {
        forms::MoveOnEnter(control.Owner(), event);
    };
}

}  // namespace

void ItemEditor::Wire() {
    EnterMovesOn(window_.cboJbr2);
    EnterMovesOn(window_.txtName2);
    EnterMovesOn(window_.txtTitle2);
    for (int i = 0; i < kOtherFields; i++) EnterMovesOn(window_.txtOther[i]);
    window_.txtTitle2.onGotFocus = [this] { window_.txtTitle2.SelectAll(); };
    window_.cboType2.onClick = [this] { cboType2_Click(); };

    window_.txtTitle2.SetMaxLength(kLongText);
    for (int i = 0; i < kOtherFields; i++) window_.txtOther[i].SetMaxLength(kLongText);
    window_.txtName2.SetMaxLength(kShortText);
    window_.cboJbr2.SetMaxLength(kShortText);
    window_.cboWay.SetMaxLength(kShortText);
}

void ItemEditor::ShowItem() {
    ShowOrClear([this] { return LoadItem(); });
}

void ItemEditor::ShowEventPlan() {
    ShowOrClear([this] { return LoadPlan(); });
}

void ItemEditor::ShowOrClear(const std::function<bool()>& load) {
    asRead_.reset();
    cardNotice_.clear();
    bool shown = false;
    const auto clear = [this] {
        window_.state.currentItemId = 0;
        ClearItemEditor();
    };
    loading_ = true;
    try {
        shown = load();
    } catch (...) {
        // Neither half an item nor the one before, which could be acted on under this one's number.
        loading_ = false;
        clear();
        throw;
    }
    loading_ = false;
    if (!shown) clear();
}

bool ItemEditor::LoadItem() {
    window_.session.EnsureConnection();
    const auto row = window_.session.database.Open("select * from tTaskList where fID=" +
                                                   std::to_string(window_.state.currentItemId));
    if (row->Eof()) {
        row->Close();
        return false;
    }
    const store::RowValues item = ReadItem(*row);
    row->Close();
    const auto field = [&item](std::string_view name) -> const store::Value& {
        return item[ItemFieldIndex(name)];
    };
    window_.session.state.cardId = field("TaskID").ToInt32();
    ShowWay(field("fWay").ToText());
    window_.txtTitle2.SetText(field("taskTitle").ToText());
    window_.cboJbr2.SetText(field("tDoneMan").ToText());
    const store::Value& time = field("taskTime");
    window_.DTPicker2.SetValue(time.IsNull() ? window_.session.machine.clock.Now() : time.ToDate());
    window_.txtTaskCon.SetText(field("fContent").ToText());
    for (int i = 0; i < kOtherFields; i++) {
        window_.txtOther[i].SetText(field("fOther" + std::to_string(i)).ToText());
    }
    SelectRow(window_.cboDone2, field("tDone").ToInt32());
    window_.txtUser2.SetText(field("fUser").ToText());
    SelectRow(window_.cboType2, field("fType").ToInt32());
    asRead_ = item;
    title_ = window_.txtTitle2.Text();
    if (window_.cboType2.ListIndex() == kGuest) ShowGuestCard(window_.session.state.cardId);
    window_.txtName2.SetText(field("fGuest").ToText());
    beganAsVisit_ = field("fType").ToInt32() == kGuest;
    // None for a visit whose card is gone: a save asks for another one.
    firstNumber_ = window_.session.state.cardId;
    window_.cards.ForgetPick();
    asShown_ = window_.saving.Entry();
    return true;
}

void ItemEditor::ShowWay(const std::string& way) {
    window_.cboWay.SetText(way);
    for (int i = 0; i < window_.cboWay.ListCount(); i++) {
        if (window_.cboWay.List(i) != way) continue;
        window_.cboWay.SetListIndex(i);
        return;
    }
    // A text of its own selects no row and so raises no click.
    window_.cards.cboWay_Click();
}

void ItemEditor::ShowGuestCard(std::int32_t card) {
    if (card < 1) {
        cardNotice_ = "该客户资料不存在！";
        // With the selection goes what is shown of the card before: it would be dialed for this
        // visit.
        window_.cards.ClearCardDetail();
    } else if (!window_.cards.LoadCardList("fid=" + std::to_string(card))) {
        cardNotice_ = "该客户资料已不存在！";
    }
}

void ItemEditor::TellAboutCard() {
    const std::string notice = std::exchange(cardNotice_, {});
    if (notice.empty()) return;
    window_.session.windows.ShowMessage(notice, forms::box::kExclamation);
}

void ItemEditor::ShowCardAgain() {
    if (!asRead_) return;
    const std::int32_t card = (*asRead_)[ItemFieldIndex("TaskID")].ToInt32();
    if (card == window_.session.state.cardId && card > 0) return;
    ShowGuestCard(card);
    window_.txtName2.SetText((*asRead_)[ItemFieldIndex("fGuest")].ToText());
    TellAboutCard();
}

void ItemEditor::NoteStored(std::string_view field, store::Value value) {
    if (!asRead_) return;
    const std::size_t index = ItemFieldIndex(field);
    // A control that shows the act was not touched by it.
    const std::optional<store::Value> entered = window_.saving.Entry()[index];
    if (entered && entered->ToText() == value.ToText()) asShown_[index] = value;
    asRead_->at(index) = std::move(value);
}

void ItemEditor::BeginNew(std::uint8_t kind, std::int32_t card) {
    beganAsVisit_ = kind == kGuest;
    firstNumber_ = card;
    window_.cards.ForgetPick();
}

std::int32_t ItemEditor::NumberToStore() const {
    if (const auto pick = window_.cards.Pick()) return *pick;
    const bool visit = window_.cboType2.ListIndex() == kGuest;
    // A visit is to the customer that is shown; a task need not show what it belongs to.
    if (visit != beganAsVisit_ || (visit && window_.cards.LeftEmpty())) return 0;
    return firstNumber_;
}

void ItemEditor::cboType2_Click() {
    if (loading_ || window_.state.openedFor == kNoEdit) return;
    const std::int32_t number = NumberToStore();
    window_.session.state.cardId = number;
    const bool visit = window_.cboType2.ListIndex() == kGuest;
    if (!visit || window_.cards.SelectedCard() == number || number > 0) return;
    // The card that is left over from another visit is not this one's, but the guest stays.
    const std::string guest = window_.txtName2.Text();
    window_.cards.ClearCardDetail();
    window_.txtName2.SetText(guest);
}

bool ItemEditor::LoadPlan() {
    window_.session.EnsureConnection();
    const auto row = window_.session.database.Open(
        "select taskTitle,Content,DoneMan,SetMan from tTaskSet where taskID=" +
        std::to_string(window_.state.currentItemId));
    const bool found = !row->Eof();
    if (found) {
        window_.txtTaskCon.SetText(row->Field("Content").ToText());
        window_.txtTitle2.SetText(row->Field("taskTitle").ToText());
        window_.cboJbr2.SetText(row->Field("DoneMan").ToText());
        window_.txtUser2.SetText(row->Field("SetMan").ToText());
        title_ = window_.txtTitle2.Text();
    }
    row->Close();
    return found;
}

void ItemEditor::ClearItemEditor() {
    asRead_.reset();
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
}

std::function<void()> ItemEditor::Remember() {
    return [this, row = asRead_, shown = asShown_, title = title_, visit = beganAsVisit_,
            number = firstNumber_] {
        asRead_ = row;
        asShown_ = shown;
        title_ = title;
        beganAsVisit_ = visit;
        firstNumber_ = number;
    };
}

}  // namespace zv::mainwindow
