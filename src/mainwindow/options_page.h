// The options page: database kind and path, staff source.
#pragma once

#include <cstdint>
#include <functional>

namespace zv::mainwindow {

class frmTaskMain;

class OptionsPage {
 public:
    explicit OptionsPage(frmTaskMain& window) : window_(window) {}

    /// Shows the database kind and the data path of the control. A server's is not shown: it may be
    /// a whole connection string.
    void LoadDatabase();
    /// Shows the stored staff source and hands it to the staff lists; throws error 13 when it is
    /// not a number.
    void LoadStaffSource();
    /// Stores the data path of this workstation: the one that was accepted here, or the one shown
    /// on this page when it is in use. Never one that was refused, and none of a server.
    void SavePath();

    void optAccess_Click();
    void optSQL_Click();
    void cmdAccess_Click();
    void txtAccess_GotFocus();
    void txtAccess_LostFocus();
    void optJBR_Click(std::int16_t index);

 private:
    /// Accepts what `choose` makes of the control's store when it can be opened, and fills the
    /// window from it. Otherwise the user is told and everything goes on with the store that it
    /// had; so it does while an edit is under way.
    void Accept(const std::function<void()>& choose);
    void AcceptKind(std::int16_t kind);
    void AcceptPath();
    void EnablePath(bool file);
    bool IsServer() const;

    frmTaskMain& window_;
    bool showing_ = false;  ///< what is, which is no choice of the user's
};

}  // namespace zv::mainwindow
