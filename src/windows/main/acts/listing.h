// Fills the tree: with the items that pass the filter or a search, or with the plans.
#pragma once

#include <functional>
#include <string>

#include "items/item_store.h"
#include "items/list_query.h"
#include "store/connection.h"
#include "windows/main/acts/selection.h"
#include "windows/main/panels/filter_panel.h"

namespace zv::windows {

class Listing {
 public:
    /// The tree shows something else; it was emptied.
    std::function<void()> onShown;
    std::function<void()> onEmptied;

    /// All must outlive this.
    Listing(forms::Form& form, Session& session, MainModel& model, TreePanel& tree,
            FilterPanel& filter, CommandPanel& commands, ItemView& view, Selection& selection);

    /// Fills the tree as its switch says. False when a text of the filter is not fit for a
    /// statement: the user has seen a message and the tree is as it was. Errors: the database's,
    /// with the tree as it was. In both cases the switch says what the tree shows.
    bool Refill();
    /// The same for the host: such a text leaves the tree as it is without a word.
    void FillForHost();
    /// Fills the tree anew and clicks the node that was selected, where it still exists.
    void FillAgain();
    /// Fills the tree from another store, of which a user who acts learns as by Refill.
    void FillFromNewStore();
    /// Takes everything out of the tree; nothing is current then.
    void Empty();
    /// Fills the tree with the items that meet a condition in place of the filter, which the user
    /// asked for in these words.
    void FillWith(const std::string& where, const std::string& asked);

    /// Rebuilds the tree with the items that pass `where` (with or without the word), or with the
    /// plans. A failing query reaches the caller and leaves the tree as it is. A row that the tree
    /// cannot show is left out, an error of the database or a repeated item ends the fill; the user
    /// sees either once.
    void LoadItemList(const std::string& where, const std::string& asked = {});
    void LoadTaskPlanList();

    void chkEvent_Click();
    void cmdSeek_Click();

    /// Makes the list show an item: the filter gives way where it hides it, and the item is
    /// clicked. False where it is not listed even so.
    bool Reveal(const items::SavedItem& item);

    /// The condition, as in ListQuery, of the items shown last without their dates; of a search the
    /// whole.
    const std::string& CountedCondition() const { return counted_; }
    /// A search took the place of the filter.
    bool BySearch() const { return bySearch_; }
    /// What the filter narrowed the items to, by the names of its fields; empty for nothing.
    const std::string& NarrowedBy() const { return narrowedBy_; }
    /// What the items shown last were read with.
    const items::ListQuery& Shown() const { return shown_; }
    /// As forms::Control::Remember.
    std::function<void()> Remember();

 private:
    void Fill();
    /// Runs a fill between clearing the tree and selecting its first node.
    void Rebuild(store::Recordset& rows, const std::function<void(TreePanel::FillResult&)>& fill);
    void ReportNotShown(int rows, const std::string& reason);
    void PutSwitchBack();
    /// Sets the switch without filling the tree.
    void SetSwitch(bool plans);

    forms::Form& form_;
    Session& session_;
    MainModel& model_;
    TreePanel& tree_;
    FilterPanel& filter_;
    CommandPanel& commands_;
    ItemView& view_;
    Selection& selection_;
    items::ListQuery shown_;
    std::string counted_;
    std::string narrowedBy_;
    bool bySearch_ = false;
    bool puttingBack_ = false;
};

}  // namespace zv::windows
