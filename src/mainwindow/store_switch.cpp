#include "mainwindow/store_switch.h"

#include <string_view>

#include "mainwindow/frm_task_main.h"
#include "reports/ask_window.h"
#include "scheduling/plan_editor.h"
#include "scheduling/task_done.h"

namespace zv::mainwindow {

bool EditUnderWay(Session& session) {
    const auto* window = session.windows.Find<frmTaskMain>(frmTaskMain::kName);
    if (window && window->state.Editing()) return true;
    const auto isOpen = [&](std::string_view name) {
        const forms::Form* form = session.windows.Find(name);
        return form && form->IsShown();
    };
    return isOpen(scheduling::frmTaskSet::kName) || isOpen(scheduling::frmTaskDone::kName);
}

void ShowNewStore(Session& session) {
    // Emptied first: whatever fails below, nothing of the former store may stay there.
    auto* ask = session.windows.Find<reports::frmAsk>(reports::frmAsk::kName);
    if (ask) ask->Clear();
    auto* window = session.windows.Find<frmTaskMain>(frmTaskMain::kName);
    if (!window || !window->IsLoaded() || window->IsLoading()) return;
    window->FillFromNewStore();
    if (ask) ask->ShowFieldCaptions(window->labels.Captions());
}

}  // namespace zv::mainwindow
