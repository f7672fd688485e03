// The birthday reminder on the card page: the cards whose birthday falls in the coming days.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/date_time.h"
#include "forms/buttons.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/text_box.h"
#include "session/session.h"

namespace zv::windows {

class BirthdayPanel {
 public:
    /// All must outlive the panel.
    BirthdayPanel(forms::Form& form, forms::Control& page, Session& session);

    /// The reminder was switched on or off, and its grid shown or hidden.
    std::function<void(bool on)> onSwitched;

    void LoadGrid();
    void SetCaptions();
    /// The grid takes the page, the switch the line at its bottom.
    void Place(const forms::Rect& page);

    /// Fills the grid with the cards whose birthday falls between today and `days` days ahead.
    /// Database errors reach the caller; the grid is empty then.
    void ListBirthdays(std::int16_t days);

    void Switch(bool on) { chkBirthDay0.SetValue(on ? 1 : 0); }
    /// Takes every card out of the grid.
    void Empty() { Grid1.SetDataRowCount(0); }
    /// Reads the cards of a reminder that is on anew.
    void FillAgain();
    bool IsOn() const { return chkBirthDay0.Checked(); }
    /// The user sees the grid.
    bool ShowsGrid() const { return Grid1.Visible(); }

    /// How many days ahead it looks, as it is typed.
    const std::string& DaysAhead() const { return txtBirthDay0.Text(); }
    void SetDaysAhead(const std::string& days) { txtBirthDay0.SetText(days); }

    /// Names the present day where the reminder stands; the window starts with this.
    void ShowDay();
    /// When the day has changed since it was named: names the present one, and a reminder that is
    /// on is filled for it. Database errors as above.
    void FollowTheDay();
    DateTime ShownDay() const { return shownDay_; }
    /// As forms::Control::Remember.
    std::function<void()> Remember();

    void chkBirthDay0_Click();
    void txtBirthDay0_GotFocus();
    void txtBirthDay0_Validate();

 private:
    forms::Form& form_;
    Session& session_;

 public:
    // Order of creation is tab order.
    forms::CheckBox chkBirthDay0;
    forms::TextBox txtBirthDay0;
    forms::Label lblDays;
    forms::Label lblBirthDay;
    forms::Grid Grid1;

 private:
    bool FillForTypedDays();
    void SetDayCaption(bool on);
    void ShowThatThereAreNone();

    DateTime shownDay_;
    std::string daysBefore_;  ///< text of the day box when it got the focus
};

}  // namespace zv::windows
