// The options page: database kind and path, staff source.
#pragma once

#include <cstdint>

namespace zv::mainwindow {

class frmTaskMain;

class OptionsPage {
 public:
    explicit OptionsPage(frmTaskMain& window) : window_(window) {}

    /// Shows the database kind and the data path of the control.
    void LoadDatabase();
    /// Shows the stored staff source and hands it to the staff lists; throws error 13 when it is
    /// not a number.
    void LoadStaffSource();

    void optAccess_Click();
    void optSQL_Click();
    void cmdAccess_Click();
    void txtAccess_GotFocus();
    void txtAccess_LostFocus();
    void optJBR_Click(std::int16_t index);

 private:
    /// Opens the store at the path in the box, then refills the staff lists and the tree. When
    /// that fails the user is told and the window goes on with the store that it had.
    void Reopen();

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow
