#include "windows/main/acts/selection.h"

#include "forms/form.h"
#include "resources/text_ids.h"

namespace zv::windows {

Selection::Selection(forms::Form& form, Session& session, MainModel& model, forms::TabPanel& tabs,
                     TreePanel& tree, CommandPanel& commands, BirthdayPanel& reminder,
                     ItemView& view)
    : form_(form),
      session_(session),
      model_(model),
      tabs_(tabs),
      tree_(tree),
      commands_(commands),
      reminder_(reminder),
      view_(view) {
    tree_.onNodeClick = [this](int node) { tvwTask_NodeClick(node); };
    tree_.onEnter = [this] { EnterInput(); };
    tree_.onContextMenu = [this](int x, int y) { PopupContextMenu(x, y); };
    tree_.tvwTask.mayRightClick = [this](int node) { return MayRightClick(node); };
}

void Selection::tvwTask_NodeClick(int node) {
    const std::string key = tree_.KeyOf(node);
    const auto state = tree_.StateOf(node);
    const auto kind = tree_.GroupKindOf(node);
    if (const auto number = tree_.NumberOf(node)) {
        model_.currentId = *number;
        if (model_.currentId == 0) return;
        model_.currentKind = kind.value_or(model_.currentKind);
        ShowCurrent();
        clicked_ = *number;
        tree_.tvwTask.tag = key;
    } else {
        model_.currentKind = kind.value_or(model_.currentKind);
        view_.ShowFor(model_.ShowsPlans());
        model_.currentId = 0;
        view_.Clear();
    }
    UpdatePrint();
    commands_.EnableFor(state);
    // At the end, because the tree may be filled anew while the box stands.
    view_.ReportCard();
}

void Selection::ShowCurrent() {
    view_.ShowFor(model_.ShowsPlans());
    if (model_.ShowsPlans()) return view_.ShowPlan();
    tabs_.SetTab(model_.currentKind == NodeKind::Guest ? kCardTab : kItemTab);
    view_.ShowItem();
}

void Selection::UpdatePrint() {
    const int node = tree_.Selected();
    const bool item = node != TreePanel::kNone && tree_.StateOf(node);
    commands_.EnablePrint(item || reminder_.ShowsGrid());
    commands_.EnableActs(node != TreePanel::kNone);
}

void Selection::EnterInput() {
    view_.FocusInput(tabs_.Tab() == kCardTab);
}

bool Selection::MayRightClick(int node) const {
    if (!model_.Editing()) return true;
    return model_.openedFor == EditMode::Changing && tree_.NumberOf(node) == model_.currentId;
}

bool Selection::IsCurrent(const ItemRef& item) const {
    return form_.IsLoaded() && model_.Current() == item;
}

bool Selection::ShowsStoredItem() const {
    const bool shown = model_.currentId == 0 || clicked_ == model_.currentId;
    return shown && !model_.ShowsPlans() && model_.editMode != EditMode::Adding &&
           model_.openedFor != EditMode::Adding;
}

bool Selection::MakeCurrent(const ItemRef& item) {
    if (item.number == 0 || Show(item)) return true;
    session_.windows.ShowMessage(
        session_.LoadText(item.plan ? text_id::kNoSuchPlan : text_id::kItemNotFound),
        forms::box::kExclamation);
    return false;
}

bool Selection::SelectAgain(const ItemRef& item) {
    // An edit that was begun meanwhile is not thrown away for it.
    if (!form_.IsLoaded() || model_.Editing()) return false;
    const int node = tree_.Find(item);
    if (node == TreePanel::kNone) return false;
    tree_.Select(node);
    tvwTask_NodeClick(node);
    return IsCurrent(item);
}

void Selection::Mark(const ItemRef& item) {
    clicked_ = item.number;
    const int node = tree_.Find(item);
    if (node != TreePanel::kNone) {
        tree_.Select(node);
        tree_.tvwTask.tag = tree_.KeyOf(node);
        commands_.EnableFor(tree_.StateOf(node));
    }
    UpdatePrint();
}

void Selection::PopupContextMenu(int x, int y) {
    const int node = tree_.Selected();
    if (node == TreePanel::kNone || !tree_.NumberOf(node)) return;
    const auto kind = tree_.GroupKindOf(node);
    if (!kind || !MayRightClick(node)) return;
    const ItemRef item{*tree_.NumberOf(node), *kind == NodeKind::Plan};
    // The press selects the node but does not click it: without this the menu would act on the
    // item clicked before.
    if (item.number != model_.currentId) tvwTask_NodeClick(node);
    // While a box about the item stood the host may have closed the window.
    if (!form_.IsLoaded()) return;
    form_.PopupMenu(commands_.menus.ContextMenu(*kind), x, y, [&] { return MakeCurrent(item); });
}

}  // namespace zv::windows
