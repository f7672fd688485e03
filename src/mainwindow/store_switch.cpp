#include "mainwindow/store_switch.h"

#include <string_view>

#include "mainwindow/frm_task_main.h"
#include "reports/ask_window.h"
#include "scheduling/plan_editor.h"
#include "scheduling/staff_list.h"
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
    auto* staff = session.windows.Find<scheduling::frmList>(scheduling::frmList::kName);
    if (staff) staff->List1.SetItems({});
    auto* window = session.windows.Find<frmTaskMain>(frmTaskMain::kName);
    if (window && window->IsLoaded() && !window->IsLoading()) {
        window->FillFromNewStore();
        if (ask) ask->ShowFieldCaptions(window->labels.Captions());
    }
    // A box that stood meanwhile lets others close it.
    staff = session.windows.Find<scheduling::frmList>(scheduling::frmList::kName);
    if (staff && staff->IsLoaded()) staff->FillList();
}

}  // namespace zv::mainwindow
