// What is selected in the tree, and what a click on a node shows.
#pragma once

#include <cstdint>

#include "forms/containers.h"
#include "windows/main/acts/item_view.h"
#include "windows/main/panels/birthday_panel.h"
#include "windows/main/panels/command_panel.h"
#include "windows/main/panels/tree_panel.h"

namespace zv::windows {

class Selection {
 public:
    /// All must outlive this.
    Selection(forms::Form& form, Session& session, MainModel& model, forms::TabPanel& tabs,
              TreePanel& tree, CommandPanel& commands, BirthdayPanel& reminder, ItemView& view);

    void tvwTask_NodeClick(int node);
    /// Enter on a node leads to the input.
    void EnterInput();
    /// During an edit only the node of the item being changed takes a right click.
    bool MayRightClick(int node) const;
    /// Opens the context menu of the selected item at a position of the window; a group has none.
    void PopupContextMenu(int x, int y);

    /// Whether the model still has this as its current item or plan.
    bool IsCurrent(const ItemRef& item) const;
    /// Selects it again where the tree was filled anew: while a question, a password or a menu
    /// stood, the host or a timer may have done so, and the answer is still about what was named.
    /// False when it cannot be current any more, which the user is shown. Database errors of
    /// showing it reach the caller.
    bool MakeCurrent(const ItemRef& item);
    /// Selects it and shows what it has; false where the tree does not show it.
    bool Show(const ItemRef& item) { return IsCurrent(item) || SelectAgain(item); }
    /// Selects the node of an item that the editor shows already. One that the tree does not show
    /// stays current all the same.
    void Mark(const ItemRef& item);
    /// The editor shows what is stored of the current item, and not a plan or a new item.
    bool ShowsStoredItem() const;
    /// The print button works for an item or a plan, and while the birthday grid is seen.
    void UpdatePrint();

 private:
    void ShowCurrent();
    bool SelectAgain(const ItemRef& item);

    forms::Form& form_;
    Session& session_;
    MainModel& model_;
    forms::TabPanel& tabs_;
    TreePanel& tree_;
    CommandPanel& commands_;
    BirthdayPanel& reminder_;
    ItemView& view_;
    std::int32_t clicked_ = 0;  ///< number of the item or plan that was clicked last
};

}  // namespace zv::windows
