#include "mainwindow/task_tree.h"

#include <string_view>

#include "base/number.h"
#include "mainwindow/frm_task_main.h"

namespace zv::mainwindow {
namespace {

constexpr char kItemLetter = 'Z';

char LastCharacter(std::string_view text) {
    return text.empty() ? '\0' : text.back();
}

}  // namespace

std::uint8_t KindFromKeyLetter(char letter, std::uint8_t present) {
    switch (letter) {
        case 'A':
            return kTask;
        case 'B':
            return kGuest;
        case 'C':
            return kDiary;
        case 'E':
            return kPlan;
        default:
            return present;
    }
}

void TaskTree::chkEvent_Click() {
    if (!puttingBack_) Refill();
}

bool TaskTree::Refill() {
    if (!window_.filter.TextsAreFit()) {
        PutSwitchBack();
        return false;
    }
    try {
        Fill();
    } catch (...) {
        PutSwitchBack();
        throw;
    }
    return true;
}

void TaskTree::PutSwitchBack() {
    if (!window_.IsLoaded()) return;
    // The switch says what the tree shows.
    puttingBack_ = true;
    window_.chkEvent.SetValue(window_.state.currentType == kPlan ? 1 : 0);
    puttingBack_ = false;
}

void TaskTree::FillForHost() {
    if (!window_.filter.UnfitText()) Fill();
}

void TaskTree::Fill() {
    window_.filter.FollowTheDay();
    if (window_.chkEvent.Checked()) {
        window_.list.LoadTaskPlanList();
    } else {
        window_.list.LoadItemList(window_.filter.BuildItemFilter());
    }
    if (!window_.IsLoaded()) return;
    // A box of the fill may have stood while the host changed what the tree shows.
    window_.state.currentType = window_.chkEvent.Checked() ? kPlan : kTask;
    ShowFilterFor(window_.chkEvent.Checked());
    ShowItemControls(!window_.chkEvent.Checked());
    window_.cmdTaskOK.SetEnabled(false);
    window_.printing.UpdateButton();
}

void TaskTree::FillItems() {
    // What is shown belongs to another database: it must not stay when the fill is refused.
    if (window_.filter.UnfitText()) window_.list.Empty();
    // Unticking fills the tree with items by itself.
    if (window_.chkEvent.Checked())
        window_.chkEvent.SetValue(0);
    else
        chkEvent_Click();
}

void TaskTree::FillAgain() {
    const forms::TreeView& tree = window_.tvwTask;
    const int before = tree.Selected();
    const std::string key(before == forms::TreeView::kNone ? std::string_view() : tree.Key(before));
    if (!Refill()) return;
    const int node = tree.Find(key);
    if (node == forms::TreeView::kNone) return;
    window_.tvwTask.Select(node);
    tvwTask_NodeClick(node);
}

void TaskTree::ShowFilterFor(bool plans) {
    window_.fraB3.SetVisible(!plans);
    window_.lblNoFilter.SetVisible(plans);
    for (int kind = 0; kind < kItemKinds; kind++) window_.chkType[kind].SetEnabled(!plans);
}

void TaskTree::chkType_Click(int index) {
    if (window_.state.starting) return;
    if (window_.chkType[index].Visible() && window_.SSTab1.Tab() == kFilterTab) chkEvent_Click();
}

void TaskTree::cboOrder_Click() {
    if (!window_.state.starting) chkEvent_Click();
}

void TaskTree::cmdSeek_Click() {
    Refill();
}

void TaskTree::tvwTask_NodeClick(int node) {
    const forms::TreeView& tree = window_.tvwTask;
    const std::string key(tree.Key(node));
    const char stateDigit = LastCharacter(tree.Image(node));
    MainState& state = window_.state;
    if (key.starts_with(kItemLetter)) {
        state.currentItemId = number::ToInt32(number::Val(std::string_view(key).substr(1)));
        if (state.currentItemId == 0) return;
        const int parent = tree.Parent(node);
        if (parent != forms::TreeView::kNone) {
            state.currentType = KindFromKeyLetter(tree.Key(parent).front(), state.currentType);
        }
        ShowNodeItem();
        window_.tvwTask.tag = key;
    } else {
        if (!key.empty()) state.currentType = KindFromKeyLetter(key.front(), state.currentType);
        ShowItemControls(state.currentType < kPlan);
        state.currentItemId = 0;
        window_.editor.ClearItemEditor();
    }
    EnableCommands(stateDigit);
    // At the end, because the tree may be filled anew while the box stands.
    window_.editor.TellAboutCard();
}

bool TaskTree::MayRightClick(int node) const {
    const MainState& state = window_.state;
    if (!state.Editing()) return true;
    return state.openedFor == kChanging &&
           window_.tvwTask.Key(node) == kItemLetter + std::to_string(state.currentItemId);
}

void TaskTree::ShowNodeItem() {
    ShowItemControls(window_.state.currentType < kPlan);
    if (window_.state.currentType == kPlan) {
        window_.editor.ShowEventPlan();
        return;
    }
    window_.SSTab1.SetTab(window_.state.currentType == kGuest ? kCardTab : kItemTab);
    window_.editor.ShowItem();
}

void TaskTree::ShowItemControls(bool item) {
    window_.cboType2.SetVisible(item);
    window_.cboDone2.SetVisible(item);
    // The label of the kind, of the state, and the heading of the fields that a plan lacks.
    for (const int label : {3, 10, 13}) window_.lblList2[label].SetVisible(item);
}

void TaskTree::EnableCommands(char stateDigit) {
    const bool notDone = stateDigit == '2';
    const bool inHand = stateDigit == '3';
    const bool item = notDone || inHand || stateDigit == '4';
    window_.printing.UpdateButton();
    window_.cmdTaskOK.SetEnabled(notDone || inHand);
    if (!item) return;
    window_.menus.mnuTaskDoing.SetEnabled(notDone);
    window_.menus.mnuTaskDoneOk.SetEnabled(notDone || inHand);
}

void TaskTree::tvwTask_KeyDown(forms::KeyEvent& event) {
    if (event.code != forms::key::kEnter) return;
    const MainState& state = window_.state;
    if (window_.cboComp2.Visible() && state.editMode != 0 && state.currentType == kGuest &&
        window_.SSTab1.Tab() == kCardTab) {
        window_.cboComp2.SetFocus();
    } else if (window_.txtTitle2.Visible() && window_.txtTitle2.Enabled()) {
        window_.txtTitle2.SetFocus();
    }
    event.code = 0;
}

void TaskTree::tvwTask_MouseDown(const forms::MouseEvent& event) {
    if (event.button != forms::MouseButton::Right) return;
    PopupContextMenu(event.x / forms::kTwipsPerUnit + window_.tvwTask.Bounds().left,
                     event.y / forms::kTwipsPerUnit + window_.tvwTask.Bounds().top);
}

void TaskTree::PopupContextMenu(int x, int y) {
    const forms::TreeView& tree = window_.tvwTask;
    const int node = tree.Selected();
    if (node == forms::TreeView::kNone || !tree.Key(node).starts_with(kItemLetter)) return;
    const int parent = tree.Parent(node);
    if (parent == forms::TreeView::kNone) return;
    if (!MayRightClick(node)) return;
    const char letter = tree.Key(parent).front();
    // The press selects the node but does not click it: without this the menu would act on the
    // item clicked before.
    const auto id = number::ToInt32(number::Val(tree.Key(node).substr(1)));
    if (id != window_.state.currentItemId) tvwTask_NodeClick(node);
    // While a box about the item stood the host may have closed the window.
    if (!window_.IsLoaded()) return;
    const NamedItem item(id, KindFromKeyLetter(letter, kTask) == kPlan);
    const auto popup = [&](forms::MenuItem& menu) {
        window_.PopupMenu(menu, x, y, [&] { return item.MakeCurrent(window_); });
    };

    switch (letter) {
        case 'A':
            return popup(window_.menus.mnuTask);
        case 'B':
            return popup(window_.menus.mnuGuest);
        case 'C':
            return popup(window_.menus.mnuDaily);
        case 'E':
            return popup(window_.menus.mnuEvent);
        default:
            return;
    }
}

}  // namespace zv::mainwindow
