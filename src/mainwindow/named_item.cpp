#include "mainwindow/named_item.h"

#include <string>

#include "mainwindow/frm_task_main.h"
#include "resources/text_ids.h"

namespace zv::mainwindow {

NamedItem::NamedItem(const frmTaskMain& window)
    : number_(window.state.currentItemId), plan_(window.state.currentType == kPlan) {}

bool NamedItem::IsCurrent(const frmTaskMain& window) const {
    return window.IsLoaded() && window.state.currentItemId == number_ &&
           (window.state.currentType == kPlan) == plan_;
}

int NamedItem::Node(const frmTaskMain& window) const {
    const forms::TreeView& tree = window.tvwTask;
    const int node = tree.Find("Z" + std::to_string(number_));
    if (node == forms::TreeView::kNone) return node;
    const int parent = tree.Parent(node);
    // Items and plans have numbers of their own, which may be the same.
    const bool ofPlan = parent != forms::TreeView::kNone &&
                        KindFromKeyLetter(tree.Key(parent).front(), kTask) == kPlan;
    return ofPlan == plan_ ? node : forms::TreeView::kNone;
}

bool NamedItem::MakeCurrent(frmTaskMain& window) const {
    if (number_ == 0 || IsCurrent(window)) return true;
    if (SelectAgain(window)) return true;
    const Session& session = window.session;
    session.windows.ShowMessage(
        session.LoadText(plan_ ? text_id::kNoSuchPlan : text_id::kItemNotFound),
        forms::box::kExclamation);
    return false;
}

bool NamedItem::SelectAgain(frmTaskMain& window) const {
    // An edit that was begun meanwhile is not thrown away for it.
    if (!window.IsLoaded() || window.state.Editing()) return false;
    const int node = Node(window);
    if (node == forms::TreeView::kNone) return false;
    window.tvwTask.Select(node);
    window.tree.tvwTask_NodeClick(node);
    return IsCurrent(window);
}

}  // namespace zv::mainwindow
