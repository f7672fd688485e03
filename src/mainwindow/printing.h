// The prints of the main window: the item shown, the item list, the birthday grid.
#pragma once

#include <string>

namespace zv::mainwindow {

class frmTaskMain;

class Printing {
 public:
    explicit Printing(frmTaskMain& window) : window_(window) {}

    void Wire();
    /// Prints what the editor shows. The mode is the report component's.
    void PrintItem(int printMode);
    /// Shows the preview of the items that the tree showed last, in its order, with the columns
    /// that the user chose.
    void PrintItemList();
    /// Lets the user choose the columns of the printed list, then prints it. Where lists may not
    /// be printed the choice is only kept.
    void cmdItemSet_Click();
    /// Prints the birthday grid while the user sees it, else the item.
    void cmdPrint_Click();
    /// The button works for an item or a plan, and while the birthday grid is seen.
    void UpdateButton();

 private:
    void FillParameters();
    bool ItemIsSelected() const;

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow
