// The tree of items or plans, and the controls below it that say what it shows and in which order.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/buttons.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/picture.h"
#include "forms/tree_view.h"
#include "items/due.h"
#include "items/filter.h"
#include "items/item_store.h"
#include "session/session.h"
#include "store/connection.h"
#include "windows/main/main_model.h"

namespace zv::windows {

/// The kind that a key letter stands for: "A" tasks, "B" visits, "C" diary, "E" plans; any other
/// answers `present`.
NodeKind KindFromKeyLetter(char letter, NodeKind present);

class TreePanel {
 public:
    /// Between the tree and what stands beside it; the picture that watches the mouse lies there.
    static constexpr int kDivider = 8;
    static constexpr int kNone = forms::TreeView::kNone;

    /// All must outlive the panel.
    TreePanel(forms::Form& form, Session& session);

    std::function<void(int node)> onNodeClick;
    /// Enter on a node.
    std::function<void()> onEnter;
    /// The context menu is asked for at a position of the window.
    std::function<void(int x, int y)> onContextMenu;
    /// Plans are to be shown, or items again.
    std::function<void()> onSwitch;
    std::function<void()> onOrder;
    /// An item is shown in another state, or no longer.
    std::function<void()> onItemsChanged;
    /// The mouse found the spot of the picture's menu, at a position of the window.
    std::function<void(int x, int y)> onPictureMenu;

    void LoadLists();
    void SetCaptions();
    /// The caption that is set last, when the window starts in a mode.
    void SetStartCaption();
    void Place(const forms::Rect& area);

    /// The user wants to see plans.
    bool WantsPlans() const { return chkEvent.Checked(); }
    void Want(bool plans) { chkEvent.SetValue(plans ? 1 : 0); }
    int OrderRow() const { return cboOrder.ListIndex(); }

    /// What a fill could not show.
    struct FillResult {
        int rowsLeftOut = 0;
        std::array<bool, items::kItemKinds.size()> any{};  ///< kinds that have an item
    };
    /// Adds the items with a group for each kind; a kind that `filter` takes has one in any case. A
    /// row that the tree cannot show is left out. Throws for a repeated item and errors of the
    /// database.
    void FillItems(store::Recordset& rows, const items::Filter& filter, FillResult& result);
    void FillPlans(store::Recordset& rows);
    void Clear() { tvwTask.Clear(); }

    int Count() const { return tvwTask.Count(); }
    /// The nodes without those of the groups.
    int ItemsShown() const;
    void FocusTree() { tvwTask.SetFocus(); }
    int Selected() const { return tvwTask.Selected(); }
    void Select(int node) { tvwTask.Select(node); }
    void SelectFirst() {
        if (tvwTask.Count() > 0) tvwTask.Select(tvwTask.First());
    }
    std::string KeyOf(int node) const;
    int Find(std::string_view key) const { return tvwTask.Find(key); }
    /// The node of an item or plan; kNone when it is not shown.
    int Find(const ItemRef& item) const;
    /// The number of an item or plan; nothing for a group.
    std::optional<std::int32_t> NumberOf(int node) const;
    /// What stands below the group that a node is in, or is.
    std::optional<NodeKind> GroupKindOf(int node) const;
    /// The state of an item; a plan counts as done. Nothing for a group.
    std::optional<items::ItemState> StateOf(int node) const;
    void ShowState(int node, items::ItemState state);
    /// What a screen reader says of a node beside its text; nothing for a group or a plan, which
    /// have no state.
    std::string Describe(int node) const;
    /// What a node shows beside its text: how pressing the item is. Nothing for a group or a plan.
    std::optional<forms::Sign> SignOf(int node) const;
    /// How many of the items listed are due.
    items::DueCount CountItems() const;
    void Remove(int node);
    /// The node of an item that was just saved, kNone when it is not listed. One without a number
    /// is looked for by what is seen of it.
    int Find(const items::SavedItem& item) const;

    void tvwTask_KeyDown(forms::KeyEvent& event);
    void tvwTask_MouseDown(const forms::MouseEvent& event);
    void picImage_MouseMove(const forms::MouseEvent& event);

 private:
    /// Nothing for a group or a plan.
    std::optional<items::ItemState> ItemStateOf(int node) const;

    forms::Form& form_;
    Session& session_;

 public:
    // Order of creation is tab order.
    forms::TreeView tvwTask;
    forms::Label lblOrder;
    forms::ComboBox cboOrder;
    forms::CheckBox chkEvent;
    forms::Picture picImage;
};

}  // namespace zv::windows
