// Start, activation and end of the main window.
#pragma once

#include <cstdint>

namespace zv::mainwindow {

class frmTaskMain;

class Lifecycle {
 public:
    explicit Lifecycle(frmTaskMain& window) : window_(window) {}

    void Form_Load();
    void Form_Activate();
    void Form_Unload();
    /// Closes the connection unless another window is left, which may be working with it.
    void CloseStoreIfLast();
    void cmdExit_Click();
    /// Sets the window up for its start mode and fills the tree.
    void Start();
    /// Moves what stands on the day of the last look to the present day; true when the tree is to
    /// be filled again.
    bool FollowTheDay();

 private:
    void StartIn(std::int16_t mode);
    void LoadLists();
    void LoadGrid();
    void LoadOwnFilters();
    void LimitSearch();
    void StartCards();

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow
