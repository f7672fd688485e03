// The editor that shows one item of the list, or a plan.
#pragma once

namespace zv::mainwindow {

class frmTaskMain;

class ItemEditor {
 public:
    explicit ItemEditor(frmTaskMain& window) : window_(window) {}

    void Wire();
    /// Shows the item whose fID is the current item id; without such an item empties the editor
    /// and sets the id to 0.
    void ShowItem();
    /// Shows the plan whose TaskID is the current item id.
    void ShowEventPlan();
    void ClearItemEditor();
    /// Locks the fields against typing, or opens them.
    void SetLocked(bool locked);

 private:
    void ShowGuestCard();

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow
