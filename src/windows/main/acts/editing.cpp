#include "windows/main/acts/editing.h"

#include <array>
#include <utility>
#include <variant>

#include "forms/form.h"
#include "plans/plan_store.h"
#include "resources/fixed_texts.h"
#include "resources/text_ids.h"
#include "windows/main/acts/conflict_question.h"
#include "windows/main/acts/rights.h"

namespace zv::windows {
namespace {

using items::ItemKind;
namespace field = items::field;

std::string WordFor(EditMode mode) {
    switch (mode) {
        case EditMode::Adding:
            return resources::fixed::kAdded;
        case EditMode::Deleting:
            return resources::fixed::kDeleted;
        default:
            return resources::fixed::kChanged;
    }
}

}  // namespace

Editing::Editing(forms::Form& form, Session& session, MainModel& model, const Panels& panels,
                 const Acts& acts)
    : form_(form), session_(session), model_(model), panels_(panels), acts_(acts) {
    Wire();
}

void Editing::Wire() {
    struct KindMenu {
        ItemKind kind;
        forms::MenuItem& add;
        forms::MenuItem& change;
        forms::MenuItem& erase;
    };
    MainMenus& m = panels_.commands.menus;
    for (const KindMenu& menu :
         {KindMenu{ItemKind::Task, m.mnuTaskAdd, m.mnuTaskChg, m.mnuTaskDel},
          KindMenu{ItemKind::Guest, m.mnuGuestAdd, m.mnuGuestChg, m.mnuGuestDel},
          KindMenu{ItemKind::Diary, m.mnuDailyAdd, m.mnuDailyChg, m.mnuDailyDel}}) {
        menu.add.onClick = [this, kind = menu.kind] { StartAddItem(kind); };
        menu.change.onClick = [this, kind = menu.kind] { StartChangeItem(kind); };
        menu.erase.onClick = [this] { DeleteItem(); };
    }
    m.mnuEventDel.onClick = [this] { DeletePlan(); };
    m.mnuGuestConnect.onClick = [this] { mnuGuestConnect_Click(); };
    const auto actions = static_cast<std::int16_t>(panels_.commands.cmdAction.Count());
    for (std::int16_t i = 0; i < actions; i++) {
        panels_.commands.cmdAction[i].onClick = [this, i] { cmdAction_Click(i); };
    }
    panels_.status.onShow = [this] { cmdShowSaved_Click(); };
    panels_.commands.cmdSave.onClick = [this] { cmdSave_Click(); };
    panels_.cards.onLeftWithCompany = [this](const std::string& company) { ProposeTitle(company); };
    panels_.cards.onEntered = [this] { panels_.head.FocusTitle(); };
}

void Editing::cmdAction_Click(std::int16_t index) {
    const ItemRef item = model_.Current();
    const NodeKind kind = model_.currentKind;
    if (!HasRightToItems(session_, model_, index) || !form_.IsLoaded()) return;
    const auto mode = static_cast<EditMode>(index);
    const bool needsItem = mode == EditMode::Changing || mode == EditMode::Deleting;
    if (needsItem && !acts_.selection.MakeCurrent(item)) return;
    // A plan, and a change without an item, open no edit; what is open goes on.
    struct GoOn {
        MainModel& model;
        ~GoOn() {
            if (model.editMode != EditMode::Deleting) model.editMode = model.openedFor;
        }
    } const goOn{model_};
    model_.editMode = mode;
    Dispatch(mode, kind);
}

void Editing::Dispatch(EditMode mode, NodeKind node) {
    const auto kind = ItemKindOf(node);
    switch (mode) {
        case EditMode::Adding:
            return kind ? StartAddItem(*kind) : acts_.plans.mnuEventAdd_Click();
        case EditMode::Changing:
            return kind ? StartChangeItem(*kind) : acts_.plans.mnuEventChg_Click();
        case EditMode::Deleting:
            return kind ? DeleteItem() : DeletePlan();
        default:
            return cmdCancel_Click();
    }
}

void Editing::StartAddItem(ItemKind kind) {
    acts_.view.DropInput();
    const bool visit = kind == ItemKind::Guest;
    const bool keepsCard = visit && model_.startMode == kCardMode;
    const int card = keepsCard ? panels_.cards.Selection() : -1;
    // Outside the card mode the list holds whatever was shown or searched for last.
    if (visit && !keepsCard) panels_.cards.LoadCardList(panels_.cards.BoxCondition());
    acts_.view.Clear();
    session_.state.cardId = 0;
    panels_.head.cboType2.SetListIndex(Number(kind));
    model_.OpenEditor(kind, EditMode::Adding);
    acts_.view.ShowFor(false);
    panels_.tabs.SetTab(visit ? kCardTab : kItemTab);
    // The cards that the host opened the window for: the visit is to the one that is picked.
    if (card >= 0) panels_.cards.Select(card);
    acts_.view.BeginNew(kind, session_.state.cardId);
    if (visit)
        panels_.cards.FocusFirst(card >= 0);
    else
        panels_.head.FocusTitle();
}

void Editing::StartChangeItem(ItemKind kind) {
    // What was typed for a new item must not end up in this one, nor what was shown before a save
    // whose fill failed: others may have changed the row since.
    const bool stale = model_.openedFor == EditMode::Adding || !acts_.view.RowAsRead();
    if (stale && model_.currentId != 0 && !model_.ShowsPlans()) acts_.view.ShowItem();
    if (kind == ItemKind::Guest && model_.currentId == 0) return;
    const bool begins = model_.openedFor == EditMode::None;
    if (begins) panels_.cards.ForgetPick();
    model_.OpenEditor(kind, EditMode::Changing);
    if (begins) acts_.view.NoteBegin();
    panels_.head.BeginTitle();
    acts_.view.ReportCard();
}

void Editing::cmdCancel_Click() {
    acts_.view.DropInput();
    model_.editMode = EditMode::None;
    model_.LockEditor();
    if (const int node = panels_.tree.Selected(); node != TreePanel::kNone)
        acts_.selection.tvwTask_NodeClick(node);
    else
        acts_.view.Clear();
}

void Editing::cmdSave_Click() {
    if (model_.openedFor == EditMode::None) return;
    // A delete that was called off meanwhile has left its own mode.
    model_.editMode = model_.openedFor;
    const auto saved = SaveItem();
    // A host that closed the window meanwhile wants no list any more.
    if (!saved || !form_.IsLoaded()) return;
    panels_.tree.FocusTree();
    model_.editMode = EditMode::None;
    model_.LockEditor();
    if (acts_.listing.Refill()) ReportWhenNotListed(*saved);
}

void Editing::ReportWhenNotListed(const items::SavedItem& saved) {
    if (panels_.tree.Find(saved) != TreePanel::kNone) return;
    saved_ = saved;
    panels_.status.Notify(NoticeOf(saved, resources::DesignText::NotListed), true);
}

template <class Id>
std::string Editing::NoticeOf(const items::SavedItem& saved, Id id) const {
    return "[" + saved.title + "]: " + session_.LoadText(id);
}

void Editing::cmdShowSaved_Click() {
    if (model_.Editing() || !saved_) return;
    const items::SavedItem saved = *saved_;
    const bool shown = acts_.listing.Reveal(saved);
    if (shown || !form_.IsLoaded()) return;
    // What limits the list by right is not the user's to change.
    panels_.status.Notify(NoticeOf(saved, resources::StatusText::ListedByRight), false);
}

bool Editing::HasCustomer() {
    if (acts_.view.Values().Row(field::kKind) != Number(ItemKind::Guest) ||
        session_.state.cardId >= 1) {
        return true;
    }
    session_.windows.ShowMessage(resources::fixed::kVisitNeedsACard, forms::box::kExclamation);
    panels_.tabs.SetTab(kCardTab);
    panels_.cards.FocusSearch();
    return false;
}

std::optional<items::SavedItem> Editing::SaveItem() {
    session_.state.cardId = acts_.view.NumberToStore();
    if (!HasCustomer()) return std::nullopt;
    const items::ItemEntry entry = acts_.view.Entry();
    const bool adds = model_.editMode == EditMode::Adding;
    const std::string word = WordFor(model_.editMode);
    // The number of a plan that is shown is not an item's.
    const std::int32_t id = model_.ShowsPlans() ? 0 : model_.currentId;
    if (!MayJoinPlan()) return std::nullopt;
    auto saved = adds ? items::Add(session_.database, id, entry) : Change(id, entry);
    if (!saved) return saved;
    session_.Announce([item = saved->id, adds](HostEvents& host) { host.ItemSaved(item, adds); });
    session_.acts.Done(
        {.kind = adds ? changes::Act::Add : changes::Act::Change,
         .notice = adds ? resources::ChangeText::Added : resources::ChangeText::Changed,
         .title = saved->title,
         .rows = {saved->change}});
    acts_.view.ForgetRow();
    panels_.head.txtUser2.SetText(session_.state.UserName);
    session_.windows.ShowMessage("[" + saved->title + "]: " + word + resources::fixed::kFinished,
                                 forms::box::kOkOnly);
    return saved;
}

std::optional<items::SavedItem> Editing::Change(std::int32_t id, const items::ItemEntry& entry) {
    items::ItemChange change(session_.database, id, entry, acts_.view.RowAsRead(),
                             acts_.view.EntryAsShown());
    for (;;) {
        const items::ItemChange::Outcome outcome = change.Save();
        if (const auto* saved = std::get_if<items::SavedItem>(&outcome)) return *saved;
        if (std::holds_alternative<items::ItemChange::Gone>(outcome)) {
            session_.windows.ShowMessage(resources::fixed::kItemIsGone, forms::box::kExclamation);
            return std::nullopt;
        }
        const auto& conflict = std::get<items::ItemChange::Conflict>(outcome);
        if (!Settle(change.Merge(), conflict.stored)) return std::nullopt;
    }
}

bool Editing::Settle(store::RowMerge& merge, const items::ItemRow& stored) const {
    const ConflictQuestion question(session_, acts_.labels, stored, merge.Own());
    for (const std::size_t group : merge.Conflicts(stored)) {
        const auto version = question.Ask(merge.Differences(group, stored));
        if (!version) return false;
        merge.Decide(group, *version, stored);
    }
    return true;
}

bool Editing::MayJoinPlan() const {
    const std::optional<std::int32_t> pick = panels_.cards.Pick();
    if (!pick || acts_.view.Values().Row(field::kKind) != Number(ItemKind::Task)) return true;
    const auto plan = plans::Load(session_.database, *pick);
    if (!plan) return true;
    const std::string title = (*plan)[plans::PlanFieldIndex("taskTitle")].ToText();
    const auto text = [this](resources::ItemText id) { return session_.LoadText(id); };
    return session_.windows.ShowMessage(
               panels_.tree.chkEvent.Caption() + " [" + std::to_string(*pick) + " - " + title +
                   "]: " + text(resources::ItemText::BelongsToPlan) + "\r\n\r\n" +
                   text(resources::ItemText::SaveAnyway),
               forms::box::kOkCancel + forms::box::kExclamation) != forms::Answer::Cancel;
}

void Editing::DeleteItem() {
    Delete(false);
}

void Editing::DeletePlan() {
    Delete(true);
}

void Editing::Delete(bool plan) {
    const ItemRef item = model_.Current();
    // The number of a plan is not an item's, nor the other way round.
    if (item.number == 0 || plan != item.plan) return;
    const forms::Answer answer = session_.windows.AskCarefully(
        DeleteQuestion(plan), forms::box::kOkCancel + forms::box::kExclamation);
    if (answer == forms::Answer::Cancel) return;
    DoneAct act{.kind = changes::Act::Delete,
                .notice = resources::ChangeText::Deleted,
                .title = TitleToDelete(),
                .rows = WhatGoes(item)};
    if (plan)
        plans::Delete(session_.database, item.number);
    else
        items::Delete(session_.database, item.number);
    // Unless somebody else was quicker.
    if (!session_.database.ChangedNothing()) {
        AnnounceDeleted(item);
        session_.acts.Done(std::move(act));
    }
    if (form_.IsLoaded()) ShowAsDeleted(item);
}

std::vector<changes::RowChange> Editing::WhatGoes(const ItemRef& item) {
    if (item.plan) {
        // Without a history nothing is read that deleting does not need.
        if (!session_.acts.KeepsHistory()) return {};
        return plans::WhatDeleteTakes(session_.database, item.number);
    }
    std::optional<changes::Fields> shown;
    if (acts_.selection.ShowsStoredItem() && acts_.view.RowAsRead()) {
        shown = changes::Known(*acts_.view.RowAsRead());
    }
    const changes::Table& table = items::ItemTable();
    return {{&table, item.number, session_.acts.RowBefore(table, item.number, std::move(shown)),
             std::nullopt}};
}

void Editing::AnnounceDeleted(const ItemRef& item) {
    session_.Announce([item](HostEvents& host) {
        if (item.plan)
            host.PlanGenerated(item.number, 0);
        else
            host.ItemDeleted(item.number);
    });
}

std::string Editing::TitleToDelete() const {
    // The title being typed for a new item is not that of the one to be deleted.
    const bool adds = model_.openedFor == EditMode::Adding && !acts_.view.RowAsRead();
    return adds ? acts_.view.StoredTitle() : acts_.view.Values().Text(field::kTitle);
}

std::string Editing::DeleteQuestion(bool plan) const {
    const std::string title = "[" + TitleToDelete() + "]";
    if (!plan) return title + ": " + session_.LoadText(text_id::kConfirmDelete) + " ?";
    return session_.LoadText(text_id::kConfirmDelete) + panels_.tree.chkEvent.Caption() + ": " +
           title + "\r" + session_.LoadText(text_id::kDeletesItemsToo);
}

void Editing::ShowAsDeleted(const ItemRef& item) {
    const bool current = acts_.selection.IsCurrent(item);
    if (const int node = panels_.tree.Find(item); node != TreePanel::kNone)
        panels_.tree.Remove(node);
    // What the tree was filled with while the question stood is not the item's.
    if (!current) return;
    // What was typed belonged to an item that is gone.
    if (model_.editMode == EditMode::Deleting && model_.openedFor != EditMode::None) {
        model_.LockEditor();
    }
    if (panels_.tree.Selected() != TreePanel::kNone) {
        acts_.selection.tvwTask_NodeClick(panels_.tree.Selected());
    } else {
        model_.currentId = 0;
        acts_.view.Clear();
    }
}

void Editing::mnuGuestConnect_Click() {
    if (model_.currentKind != NodeKind::Guest || model_.currentId == 0) return;
    panels_.tabs.SetTab(kCardTab);
    // A card that is being picked for the visit stays.
    if (!model_.Editing()) acts_.view.ShowCardAgain();
}

void Editing::ProposeTitle(const std::string& company) {
    // Not the edit mode, which a delete that was called off leaves behind.
    if (model_.openedFor != EditMode::None)
        panels_.head.txtTitle2.SetText(company + resources::fixed::kVisitTitleEnd);
}

}  // namespace zv::windows
