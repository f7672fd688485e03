// Fills the tree: the items that pass a filter, or the plans.
#pragma once

#include <functional>
#include <string>

#include "store/connection.h"

namespace zv::mainwindow {

class frmTaskMain;
struct SavedItem;

class ItemList {
 public:
    explicit ItemList(frmTaskMain& window) : window_(window) {}

    /// Rebuilds the tree with the items that pass `where` (with or without the word). A failing
    /// query reaches the caller and leaves the tree as it is. A row that the tree cannot show is
    /// left out, an error of the database or a repeated item ends the fill; the user is told of
    /// either once.
    void LoadItemList(const std::string& where);
    /// Rebuilds the tree with the plans. Failures as above.
    void LoadTaskPlanList();

    /// Takes everything out of the tree.
    void Empty();
    /// Whether the tree lists this item. One without a number is looked for by what is seen of it.
    bool Shows(const SavedItem& item) const;

    /// The condition, without the word, under which the items shown last were read: true for just
    /// these rows of "tTaskList a", without any other table. May be empty.
    const std::string& ShownCondition() const { return shownCondition_; }
    /// Their order, without the words.
    const std::string& ShownOrder() const { return shownOrder_; }
    /// As forms::Control::Remember.
    std::function<void()> Remember();

 private:
    std::string Source() const;
    std::string Order() const;
    void FillItems(store::Recordset& rows);
    void FillPlans(store::Recordset& rows);
    /// Runs a fill between clearing the tree and selecting its first node.
    void Rebuild(store::Recordset& rows, const std::function<void()>& fill);
    void Tell(const std::string& reason);

    frmTaskMain& window_;
    int rowsLeftOut_ = 0;
    std::string shownCondition_;
    std::string shownOrder_;
};

}  // namespace zv::mainwindow
