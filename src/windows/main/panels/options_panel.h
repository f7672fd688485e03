// The options page: database kind and path, what happens at the start, where the staff comes from.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/date_time.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "session/session.h"
#include "windows/main/panels/number_field.h"

namespace zv::windows {

class OptionsPanel {
 public:
    /// What the page needs of the window that it stands in.
    struct Ports {
        /// The user is about to write something to the present store.
        std::function<bool()> editUnderWay;
        /// Another store was opened: everything that came from the former one is to be filled anew.
        std::function<void()> storeChanged;
        /// The staff comes from another source: 0 the personnel table, 1 the employees; any other
        /// offers nobody.
        std::function<void(int source, bool byUser)> staffSourceChanged;
        /// How many days ahead the birthday reminder looks, as it is typed.
        std::function<std::string()> daysAhead;
        std::function<void(const std::string& days)> showDaysAhead;
    };

    /// All must outlive the panel.
    OptionsPanel(forms::Form& form, forms::TabPage page, Session& session, Ports ports);

    void SetCaptions();
    /// The captions that are set last, when the window starts in a mode.
    void SetStartCaptions();
    void Place(const forms::Rect& page);

    /// Shows the database kind and the data path of the control. A server's is not shown: it may be
    /// a whole connection string.
    void LoadDatabase();
    /// Puts the stored start-up switches and the reading interval into the controls; throws error
    /// 13 for one that is not a number.
    void LoadStartup();
    /// Shows the stored staff source and hands it on; throws error 13 when it is not a number.
    void LoadStaffSource();
    /// Stores the data path of this workstation: the one that was accepted here, or the one shown
    /// on this page when it is in use. Never one that was refused, and none of a server.
    void SavePath();
    /// The birthday reminder is wanted at the start.
    bool WantsBirthdays() const { return chkBirthDay.Checked(); }
    /// When the reading interval was looked at last.
    DateTime LastRead() const { return lastRead_; }

    void optAccess_Click();
    void optSQL_Click();
    void cmdAccess_Click();
    void txtAccess_GotFocus();
    void txtAccess_LostFocus();
    void optJBR_Click(std::int16_t index);
    void chkStartup_Click();
    void chkBirthDay_Click();
    void chkTimeSet_Click();
    void txtTimeSet_LostFocus();
    void Timer1_Timer();

 private:
    forms::Form& form_;
    forms::TabPage page_;
    Session& session_;
    Ports ports_;

 public:
    // Order of creation is tab order.
    forms::Timer Timer1;
    forms::Frame fraData;
    forms::OptionButton optAccess;
    forms::TextBox txtAccess;
    forms::CommandButton cmdAccess;
    forms::OptionButton optSQL;
    forms::Frame fraAlert;
    forms::CheckBox chkStartup;
    forms::CheckBox chkBirthDay;
    forms::CheckBox chkTimeSet;
    forms::TextBox txtTimeSet;
    forms::Label lblTimeSet;
    NumberField remindInterval;
    NumberField historyDays;
    forms::Frame fraStaff;
    forms::ControlArray<forms::OptionButton> optJBR;

 private:
    void Wire();
    /// Accepts what `choose` makes of the control's store when it can be opened, and fills the
    /// window from it. Otherwise the user sees a message and everything goes on with the store that
    /// it had; so it does while an edit is under way.
    void Accept(const std::function<void()>& choose);
    void AcceptKind(std::int16_t kind);
    void AcceptPath();
    void NoteAccess(const std::string& text);
    void EnablePath(bool file);
    bool IsServer() const;

    bool showing_ = false;      ///< what is, which is no choice of the user's
    std::string accessBefore_;  ///< the text of the path box as it was loaded or focused
    DateTime lastRead_;
};

}  // namespace zv::windows
