// Keys in a tree.
#include "forms/tree_view.h"

namespace zv::forms {

int TreeView::NextShown(int node) const {
    if (At(node).expanded && At(node).firstChild != kNone) return At(node).firstChild;
    while (node != kNone && At(node).next == kNone) node = At(node).parent;
    return node == kNone ? kNone : At(node).next;
}

int TreeView::LastShownBelow(int node) const {
    while (At(node).expanded && At(node).lastChild != kNone) node = At(node).lastChild;
    return node;
}

int TreeView::LastShown() const {
    return lastRoot_ == kNone ? kNone : LastShownBelow(lastRoot_);
}

int TreeView::PreviousShown(int node) const {
    return At(node).previous == kNone ? At(node).parent : LastShownBelow(At(node).previous);
}

int TreeView::KeyTarget(int code) {
    if (code == key::kHome) return firstRoot_;
    if (code == key::kEnd) return LastShown();
    if (selected_ == kNone) return firstRoot_;
    if (code == key::kUp) return PreviousShown(selected_);
    if (code == key::kDown) return NextShown(selected_);
    const Node& node = At(selected_);
    const bool parent = node.firstChild != kNone;
    if (code == key::kLeft) {
        if (!parent || !node.expanded) return node.parent;
        SetExpanded(selected_, false);
    } else if (parent) {
        if (node.expanded) return node.firstChild;
        SetExpanded(selected_, true);
    }
    return kNone;
}

// The menu of the selected node opens at the node.
void TreeView::TakeMenuKey() {
    const Position at = Native() ? Native()->PlaceOf(selected_) : Position{};
    UserRightClick(selected_, at.x, at.y);
}

void TreeView::OwnKey(KeyEvent& event) {
    if (event.code == key::kMenu || (event.code == key::kF10 && event.shift)) {
        event.code = 0;
        if (selected_ != kNone) TakeMenuKey();
        return;
    }
    // Together with Ctrl they move what is in sight, which the native tree knows.
    if (event.control || event.code < key::kEnd || event.code > key::kDown) return;
    const int target = KeyTarget(event.code);
    event.code = 0;
    if (target != kNone && target != selected_) UserClick(target);
}

}  // namespace zv::forms
