// The control as a host sees it, without the component technology around it: properties,
// persistence and refresh. src/com puts the automation object in front of it.
#pragma once

#include <cstdint>
#include <memory>

#include "control/property_bag.h"
#include "items/item_store.h"
#include "session/session.h"

namespace zv {

namespace windows {
class frmTaskMain;
}

class ZvTask {
 public:
    /// Several controls of one process share the session and with it the windows.
    explicit ZvTask(Session& session);

    /// Opens a window by mode (0 alert pass, 1 manager, 2 plan editor, 3 staff list, 4 to 7 task
    /// completion, 9 cards; any other only reads the settings and connects). Returns when a modal
    /// window closes. Throws RuntimeError.
    void refresh(std::int32_t mode, std::int16_t modal);

    /// Reminds the user of what is due, with the properties as they are, until StopReminders or
    /// the end of the session, and hands them over to the alerter. Fails for no store that is away.
    void StartReminders();
    /// The same without handing anything over: for a program that was handed it.
    void Remind();
    void StopReminders();
    bool Reminding() const;

    void UserControl_InitProperties();
    void UserControl_ReadProperties(PropertyBag& bag);
    void UserControl_WriteProperties(PropertyBag& bag);

    void SetUserPath(store::ConnectionText path);
    /// Sets SQLData and the copy that the options page falls back to.
    void SetSQLData(std::int16_t kind);
    /// The stored text is never handed out: always empty.
    std::string Zorvan() const { return {}; }

    ControlState& State() { return session_.state; }
    Session& GetSession() { return session_; }

 private:
    /// The connection follows the properties, unless an edit is under way or something modal
    /// stands: then a mode that would act on the store fails. A store that cannot be opened is
    /// shown to the user once and is an error for the host; the connection that is open stays.
    void Connect(std::int32_t mode);
    using frmTaskMain = windows::frmTaskMain;

    void Act(std::int32_t mode, bool modal);
    /// Loads the main window unseen and shows it when something is due. A window that exists is
    /// filled anew instead.
    void RunAlertPass();
    void AnnounceAlert(const frmTaskMain& window);
    /// Shows the main window in a start mode; one that exists comes to the front.
    void OpenMainWindow(std::int16_t mode, bool modal);
    /// Shows an item in the task manager, as the user's own act.
    void ShowItem(const items::SavedItem& item);
    /// Marks the item myTaskID with the flag myDate; false when there is no item.
    bool MarkDirectly();
    /// Adds the item of plan myTaskID for myDate; false when there is no plan or the user cancels.
    bool AddInstance();

    Session& session_;
};

}  // namespace zv
