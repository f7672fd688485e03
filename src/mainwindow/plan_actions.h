// Opens the plan editor from the main window.
#pragma once

#include <cstdint>

namespace zv::mainwindow {

class frmTaskMain;

class PlanActions {
 public:
    explicit PlanActions(frmTaskMain& window) : window_(window) {}

    void Wire();
    void mnuEventAdd_Click();
    /// Throws error 6 for a plan number beyond 16 bits.
    void mnuEventChg_Click();

 private:
    void Edit(std::int16_t taskId);

    frmTaskMain& window_;
};

}  // namespace zv::mainwindow
