// The start-up switches and the reading interval on the options page, and the timer behind them.
#pragma once

#include "forms/control.h"

namespace zv::mainwindow {

class frmTaskMain;

class AlertSettings {
 public:
    explicit AlertSettings(frmTaskMain& window) : window_(window) {}

    /// Puts the stored settings into the controls; throws error 13 for one that is not a number.
    void Load();

    void chkStartup_Click();
    void chkBirthDay_Click();
    void chkTimeSet_Click();
    void txtTimeSet_GotFocus();
    void txtTimeSet_KeyDown(forms::KeyEvent& event);
    void txtTimeSet_LostFocus();
    void Timer1_Timer();

 private:
    frmTaskMain& window_;
};

}  // namespace zv::mainwindow
