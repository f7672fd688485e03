// The task tree: what a click on a node shows, and when the tree is filled anew.
#pragma once

#include <cstdint>

#include "forms/control.h"

namespace zv::mainwindow {

class frmTaskMain;

/// The item kind that a key letter stands for: "A" 0, "B" 1, "C" 2, "E" 3; any other answers
/// `present`.
std::uint8_t KindFromKeyLetter(char letter, std::uint8_t present);

class TaskTree {
 public:
    explicit TaskTree(frmTaskMain& window) : window_(window) {}

    void chkEvent_Click();
    /// Fills the tree as its switch says. False when a text of the filter is not fit for a
    /// statement: the user has been told and the tree is as it was. Errors: the database's, with
    /// the tree as it was. In both cases the switch says what the tree shows.
    bool Refill();
    /// The same for the host: such a text leaves the tree as it is without a word.
    void FillForHost();
    void chkType_Click(int index);
    void cboOrder_Click();
    void cmdSeek_Click();
    void tvwTask_NodeClick(int node);
    void tvwTask_KeyDown(forms::KeyEvent& event);
    void tvwTask_MouseDown(const forms::MouseEvent& event);
    /// During an edit only the node of the item being changed takes a right click.
    bool MayRightClick(int node) const;

    /// Fills the tree anew in its present mode and clicks the node that was selected, where it
    /// still exists.
    void FillAgain();
    /// Shows what only items have, and plans have not.
    void ShowItemControls(bool item);
    /// Fills the tree with the items that pass the filter, whatever it shows now.
    void FillItems();
    /// Opens the context menu of the selected item at a position of the window; a group has none.
    void PopupContextMenu(int x, int y);

 private:
    void Fill();
    void ShowFilterFor(bool plans);
    void ShowNodeItem();
    void EnableCommands(char stateDigit);
    void PutSwitchBack();

    frmTaskMain& window_;
    bool puttingBack_ = false;
};

}  // namespace zv::mainwindow
