// The birthday reminder on the card page: the cards whose birthday falls in the coming days.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/date_time.h"
#include "forms/control.h"

namespace zv::mainwindow {

class frmTaskMain;

/// The statement that finds the cards whose birthday falls between two days, both included, in
/// this year or, when `last` lies in a later one, in that year.
std::string BirthdayStatement(DateTime today, DateTime last);

class Birthdays {
 public:
    explicit Birthdays(frmTaskMain& window) : window_(window) {}

    void Wire();

    /// Fills the grid with the cards whose birthday falls between today and `days` days ahead.
    /// Database errors reach the caller; the grid is empty then.
    void ListBirthdays(std::int16_t days);

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
    void txtBirthDay0_KeyDown(forms::KeyEvent& event);

 private:
    bool FillForTypedDays();
    void TellDay(bool on);
    void TellThatThereAreNone();

    frmTaskMain& window_;
    DateTime shownDay_;
    std::string daysBefore_;  ///< text of the day box when it got the focus
};

}  // namespace zv::mainwindow
