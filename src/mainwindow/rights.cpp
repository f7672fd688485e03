#include "mainwindow/rights.h"

#include "mainwindow/frm_task_main.h"
#include "session/module_gate.h"

namespace zv::mainwindow {

bool HasRight(frmTaskMain& window, const std::string& module, std::int16_t level) {
    if (CheckModule(window.session, module, level, 0) > 0) return true;
    window.session.windows.ShowMessage("您无权进行操作 ！", forms::box::kExclamation);
    return false;
}

bool HasRightToItems(frmTaskMain& window, std::int16_t level) {
    return HasRight(window, window.state.startMode == kCardMode ? "mnuCardPlan" : "mnuToolTask",
                    level);
}

}  // namespace zv::mainwindow
