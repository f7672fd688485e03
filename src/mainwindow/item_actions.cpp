#include "mainwindow/item_actions.h"

#include <array>

#include "mainwindow/frm_task_main.h"
#include "mainwindow/rights.h"
#include "resources/text_ids.h"
#include "scheduling/plan_items.h"

namespace zv::mainwindow {
namespace {

struct KindMenu {
    forms::MenuItem& menu;
    forms::MenuItem& add;
    forms::MenuItem& change;
    forms::MenuItem& erase;
};

std::array<KindMenu, kItemKinds> KindMenus(MainMenus& m) {
    return {{{m.mnuTask, m.mnuTaskAdd, m.mnuTaskChg, m.mnuTaskDel},
             {m.mnuGuest, m.mnuGuestAdd, m.mnuGuestChg, m.mnuGuestDel},
             {m.mnuDaily, m.mnuDailyAdd, m.mnuDailyChg, m.mnuDailyDel}}};
}

/// "任务(&T)" without its access key.
std::string WithoutAccessKey(std::string caption) {
    if (const auto at = caption.find("(&"); at != std::string::npos) caption.erase(at);
    std::erase(caption, '&');
    return caption;
}

}  // namespace

void ItemActions::Wire() {
    const auto menus = KindMenus(window_.menus);
    for (std::uint8_t kind = 0; kind < kItemKinds; kind++) {
        menus[kind].add.onClick = [this, kind] { StartAddItem(kind); };
        menus[kind].change.onClick = [this, kind] { StartChangeItem(kind); };
        menus[kind].erase.onClick = [this, kind] { DeleteItem(kind); };
    }
    window_.menus.mnuEventDel.onClick = [this] { DeleteItem(kPlan + 1); };
    for (std::int16_t i = 0; i < window_.cmdAction.Count(); i++) {
        window_.cmdAction[i].onClick = [this, i] { cmdAction_Click(i); };
    }
    window_.cmdSave.onClick = [this] { cmdSave_Click(); };
}

void ItemActions::cmdAction_Click(std::int16_t index) {
    MainState& state = window_.state;
    const NamedItem item(window_);
    const std::uint8_t kind = state.currentType;
    if (!HasRightToItems(window_, index) || !window_.IsLoaded()) return;
    if ((index == kChanging || index == kDeleting) && !item.MakeCurrent(window_)) return;
    // A plan, and a change without an item, open no edit; what is open goes on.
    struct Settle {
        MainState& state;
        ~Settle() {
            if (state.editMode != kDeleting) state.editMode = state.openedFor;
        }
    } const settle{state};
    state.editMode = static_cast<std::uint8_t>(index);
    Dispatch(index, kind);
}

void ItemActions::Dispatch(std::int16_t index, std::uint8_t kind) {
    switch (index) {
        case kAdding:
            return kind < kPlan ? StartAddItem(kind) : window_.plans.mnuEventAdd_Click();
        case kChanging:
            return kind < kPlan ? StartChangeItem(kind) : window_.plans.mnuEventChg_Click();
        case kDeleting:
            return DeleteItem(kind);
        default:
            return cmdCancel_Click();
    }
}

void ItemActions::StartAddItem(std::uint8_t kind) {
    const bool keepsCard = kind == kGuest && window_.state.startMode == kCardMode;
    const int card = keepsCard ? window_.cboComp2.ListIndex() : -1;
    // Outside the card mode the list holds whatever was shown or searched for last.
    if (kind == kGuest && !keepsCard) window_.cards.LoadCardList(window_.cards.BoxFilter());
    window_.editor.ClearItemEditor();
    window_.session.state.cardId = 0;
    window_.cboType2.SetListIndex(kind);
    OpenEditor(kind, kAdding);
    window_.tree.ShowItemControls(true);
    window_.SSTab1.SetTab(kind == kGuest ? kCardTab : kItemTab);
    // The cards that the host opened the window for: the visit is to the one that is picked.
    if (card >= 0) window_.cards.Select(card);
    window_.editor.BeginNew(kind, window_.session.state.cardId);
    FirstEntry(kind, card >= 0).SetFocus();
}

forms::Control& ItemActions::FirstEntry(std::uint8_t kind, bool hasCard) const {
    if (kind != kGuest) return window_.txtTitle2;
    // A visit begins with its customer, whose name the title is proposed from.
    if (hasCard) return window_.cboComp2;
    return window_.txtCompSeek;
}

void ItemActions::StartChangeItem(std::uint8_t kind) {
    const MainState& state = window_.state;
    // What was typed for a new item must not end up in this one, nor what was shown before a save
    // whose fill failed: others may have changed the row since.
    const bool stale = state.openedFor == kAdding || !window_.editor.RowAsRead();
    if (stale && state.currentItemId != 0 && state.currentType < kPlan) window_.editor.ShowItem();
    if (kind == kGuest && state.currentItemId == 0) return;
    if (state.openedFor == kNoEdit) window_.cards.ForgetPick();
    OpenEditor(kind, kChanging);
    window_.editor.TellAboutCard();
}

void ItemActions::OpenEditor(std::uint8_t kind, std::uint8_t mode) {
    window_.state.editMode = mode;
    window_.state.openedFor = mode;
    window_.state.editedKind = kind;
    window_.editor.SetLocked(false);
    window_.cmdSave.SetCaption(SaveCaption(kind, mode));
}

void ItemActions::LockEditor() {
    window_.state.openedFor = kNoEdit;
    window_.editor.SetLocked(true);
    window_.cmdSave.SetCaption(window_.captions.Text(resources::DesignText::ButtonSave));
}

std::string ItemActions::SaveCaption(std::uint8_t kind, std::uint8_t mode) const {
    return WithoutAccessKey(KindMenus(window_.menus)[kind].menu.Caption()) +
           (mode == kAdding ? "新增" : "修改");
}

void ItemActions::cmdSave_Click() {
    MainState& state = window_.state;
    if (state.openedFor == kNoEdit) return;
    // A delete that was called off meanwhile has left its own mode.
    state.editMode = state.openedFor;
    // A host that closed the window meanwhile wants no list any more.
    if (!window_.saving.SaveItem() || !window_.IsLoaded()) return;
    state.editMode = kNoEdit;
    LockEditor();
    if (window_.tree.Refill()) TellWhenNotListed();
}

void ItemActions::TellWhenNotListed() {
    const SavedItem& saved = window_.saving.Saved();
    if (window_.list.Shows(saved)) return;
    window_.session.windows.ShowMessage(
        "[" + saved.title + "]: " + window_.captions.Text(resources::DesignText::NotListed),
        forms::box::kInformation);
}

void ItemActions::cmdCancel_Click() {
    window_.state.editMode = kNoEdit;
    LockEditor();
    if (const int node = window_.tvwTask.Selected(); node != forms::TreeView::kNone) {
        window_.tree.tvwTask_NodeClick(node);
    } else {
        window_.editor.ClearItemEditor();
    }
}

void ItemActions::DeleteItem(std::uint8_t kind) {
    const NamedItem item(window_);
    const bool plan = kind >= kPlan;
    // The number of a plan is not an item's, nor the other way round.
    if (item.Number() == 0 || plan != item.IsPlan()) return;
    const forms::Answer answer = window_.session.windows.ShowMessage(
        DeleteQuestion(plan), forms::box::kOkCancel + forms::box::kExclamation);
    if (answer == forms::Answer::Cancel) return;

    window_.session.EnsureConnection();
    store::Database& database = window_.session.database;
    const std::string number = std::to_string(item.Number());
    if (plan) {
        database.Execute("Delete from tTaskList where taskID =" + number +
                         scheduling::OnlyItemsOfPlan(window_.session, number));
        database.Execute("Delete from tTaskSet where taskID =" + number);
    } else {
        database.Execute("Delete from tTaskList where fID =" + number);
    }
    if (window_.IsLoaded()) ShowAsDeleted(item);
}

std::string ItemActions::DeleteQuestion(bool plan) const {
    const Session& session = window_.session;
    // The title being typed for a new item is not that of the one to be deleted.
    const bool adds = window_.state.openedFor == kAdding && !window_.editor.RowAsRead();
    const std::string title =
        "[" + (adds ? window_.editor.StoredTitle() : window_.txtTitle2.Text()) + "]";
    if (!plan) return title + ": " + session.LoadText(text_id::kConfirmDelete) + " ?";
    return session.LoadText(text_id::kConfirmDelete) + window_.chkEvent.Caption() + ": " + title +
           "\r" + session.LoadText(text_id::kDeletesItemsToo);
}

void ItemActions::ShowAsDeleted(const NamedItem& item) {
    forms::TreeView& tree = window_.tvwTask;
    const bool current = item.IsCurrent(window_);
    if (const int node = item.Node(window_); node != forms::TreeView::kNone) tree.Remove(node);
    // What the tree was filled with while the question stood is not the item's.
    if (!current) return;
    const MainState& state = window_.state;
    // What was typed belonged to an item that is gone.
    if (state.editMode == kDeleting && state.openedFor != kNoEdit) LockEditor();
    if (tree.Selected() != forms::TreeView::kNone) {
        window_.tree.tvwTask_NodeClick(tree.Selected());
    } else {
        window_.state.currentItemId = 0;
        window_.editor.ClearItemEditor();
    }
}

}  // namespace zv::mainwindow
