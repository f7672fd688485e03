#include "windows/main/acts/item_view.h"

#include <utility>

#include "cards/card_store.h"
#include "items/item_store.h"
#include "plans/plan_store.h"
#include "resources/fixed_texts.h"

namespace zv::windows {

using items::ItemKind;
namespace field = items::field;

std::vector<FieldBox> AllBoxes(ItemPanel& head, ContentPanel& content, CardPanel& cards) {
    std::vector<FieldBox> all = head.Boxes();
    for (const auto& boxes : {content.Boxes(), cards.Boxes()}) {
        all.insert(all.end(), boxes.begin(), boxes.end());
    }
    return all;
}

ItemView::ItemView(Session& session, MainModel& model, ItemPanel& head, ContentPanel& content,
                   CardPanel& cards)
    : session_(session),
      model_(model),
      head_(head),
      content_(content),
      cards_(cards),
      values_(session, AllBoxes(head, content, cards)) {
    head_.onKind = [this] { KindChosen(); };
    model_.OnEdit([this] {
        const bool locked = model_.openedFor == EditMode::None;
        head_.SetLocked(locked);
        content_.SetLocked(locked);
        cards_.SetLocked(locked);
    });
}

bool ItemView::IsVisit() const {
    return values_.Row(field::kKind) == Number(ItemKind::Guest);
}

void ItemView::ShowItem() {
    ShowOrClear([this] { return LoadItem(); });
}

void ItemView::ShowPlan() {
    ShowOrClear([this] { return LoadPlan(); });
}

void ItemView::ShowFor(bool plans) {
    head_.ShowFor(plans);
    content_.ShowFor(plans);
}

void ItemView::ShowOrClear(const std::function<bool()>& load) {
    DropInput();
    asRead_.reset();
    cardNotice_.clear();
    bool shown = false;
    const auto clear = [this] {
        model_.currentId = 0;
        Clear();
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
    if (!shown) return clear();
    NoteBegin();
    if (onShown) onShown();
}

void ItemView::NoteBegin() {
    began_.reset();
    if (model_.openedFor != EditMode::None) began_ = {model_, Entry()};
}

bool ItemView::HoldsInput() const {
    return began_ && model_.openedFor != EditMode::None && Entry() != began_->entry;
}

void ItemView::DropInput() {
    const bool holds = HoldsInput();
    if (holds && onInputDropped) onInputDropped();
    began_.reset();
}

bool ItemView::LoadItem() {
    const auto item = items::Load(session_.database, model_.currentId);
    if (!item) return false;
    session_.state.cardId = (*item)[field::kNumber].ToInt32();
    cards_.ShowWay((*item)[field::kWay].ToText());
    for (std::size_t i = 0; i < items::kFields.size(); i++) {
        // Shown with the card, whose own contact it may not be.
        if (i != field::kWay && i != field::kGuest) values_.Show(i, (*item)[i]);
    }
    asRead_ = item;
    title_ = values_.Text(field::kTitle);
    if (IsVisit()) ShowGuestCard(session_.state.cardId);
    values_.Show(field::kGuest, (*item)[field::kGuest]);
    beganAsVisit_ = (*item)[field::kKind].ToInt32() == Number(ItemKind::Guest);
    // None for a visit whose card is gone: a save asks for another one.
    firstNumber_ = session_.state.cardId;
    cards_.ForgetPick();
    asShown_ = Entry();
    return true;
}

void ItemView::ShowGuestCard(std::int32_t card) {
    if (card < 1) {
        cardNotice_ = resources::fixed::kNoCard;
        // With the selection goes what is shown of the card before: it would be dialed for this
        // visit.
        cards_.ClearCardDetail();
    } else if (!cards_.LoadCardList(cards::IsCard(card))) {
        cardNotice_ = resources::fixed::kCardIsGone;
    }
}

void ItemView::ReportCard() {
    const std::string notice = std::exchange(cardNotice_, {});
    if (notice.empty()) return;
    session_.windows.ShowMessage(notice, forms::box::kExclamation);
}

void ItemView::ShowCardAgain() {
    if (!asRead_) return;
    const std::int32_t card = (*asRead_)[field::kNumber].ToInt32();
    if (card == session_.state.cardId && card > 0) return;
    ShowGuestCard(card);
    values_.Show(field::kGuest, (*asRead_)[field::kGuest]);
    ReportCard();
}

void ItemView::NoteStored(std::size_t field, const store::Value& value) {
    if (!asRead_) return;
    // A control that shows the act was not touched by it.
    const std::optional<store::Value> entered = Entry()[field];
    if (entered && entered->ToText() == value.ToText()) {
        asShown_[field] = value;
        if (began_) began_->entry[field] = entered;
    }
    asRead_->at(field) = value;
}

void ItemView::FocusInput(bool onCardPage) {
    const bool picks = onCardPage && cards_.ShowsPicker() && model_.editMode != EditMode::None &&
                       model_.currentKind == NodeKind::Guest;
    if (picks)
        cards_.FocusPicker();
    else
        head_.FocusTitle();
}

void ItemView::BeginNew(ItemKind kind, std::int32_t card) {
    beganAsVisit_ = kind == ItemKind::Guest;
    firstNumber_ = card;
    cards_.ForgetPick();
    NoteBegin();
}

std::int32_t ItemView::NumberToStore() const {
    if (const auto pick = cards_.Pick()) return *pick;
    const bool visit = IsVisit();
    // A visit is to the customer that is shown; a task need not show what it belongs to.
    if (visit != beganAsVisit_ || (visit && cards_.LeftEmpty())) return 0;
    return firstNumber_;
}

void ItemView::KindChosen() {
    if (loading_ || model_.openedFor == EditMode::None) return;
    const std::int32_t number = NumberToStore();
    session_.state.cardId = number;
    if (!IsVisit() || cards_.SelectedCard() == number || number > 0) return;
    // The card that is left over from another visit is not this one's, but the guest stays.
    const std::string guest = values_.Text(field::kGuest);
    cards_.ClearCardDetail();
    values_.Show(field::kGuest, guest);
}

bool ItemView::LoadPlan() {
    const auto plan = plans::LoadSummary(session_.database, model_.currentId);
    if (!plan) return false;
    values_.Show(field::kContent, plan->content);
    values_.Show(field::kTitle, plan->title);
    values_.Show(field::kDoer, plan->doneMan);
    values_.Show(field::kUser, plan->setMan);
    title_ = values_.Text(field::kTitle);
    return true;
}

void ItemView::Clear() {
    DropInput();
    asRead_.reset();
    for (std::size_t i = 0; i < items::kFields.size(); i++) {
        if (i == field::kKind || i == field::kWay || i == field::kUser) continue;
        values_.Show(i, store::Value());
    }
    cards_.ResetWay();
    if (const auto kind = ItemKindOf(model_.currentKind)) {
        values_.Show(field::kKind, Number(*kind));
    }
    cards_.ClearCardDetail();
    values_.Show(field::kUser, session_.state.UserName);
    NoteBegin();
    if (onShown) onShown();
}

std::function<void()> ItemView::Remember() {
    return [this, row = asRead_, shown = asShown_, title = title_, visit = beganAsVisit_,
            number = firstNumber_, began = began_] {
        began_ = began;
        asRead_ = row;
        asShown_ = shown;
        title_ = title;
        beganAsVisit_ = visit;
        firstNumber_ = number;
    };
}

}  // namespace zv::windows
