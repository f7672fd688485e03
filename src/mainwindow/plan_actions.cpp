#include "mainwindow/plan_actions.h"

#include "base/number.h"
#include "mainwindow/frm_task_main.h"
#include "scheduling/plan_editor.h"

namespace zv::mainwindow {

void PlanActions::Wire() {
    window_.menus.mnuEventAdd.onClick = [this] { mnuEventAdd_Click(); };
    window_.menus.mnuEventChg.onClick = [this] { mnuEventChg_Click(); };
}

void PlanActions::mnuEventAdd_Click() {
    Edit(0);
}

void PlanActions::mnuEventChg_Click() {
    // While items are shown the current number is not a plan's.
    if (window_.state.currentType != kPlan) return;
    Edit(number::ToInt16(static_cast<double>(window_.state.currentItemId)));
}

void PlanActions::Edit(std::int16_t taskId) {
    // Modal, so that the tree can show the change; one that the host opened comes forward as it is.
    // Where a modal window keeps the user from it, it becomes modal itself with what it holds.
    forms::WindowSystem& windows = window_.Windows();
    forms::Form* editor = windows.Find(scheduling::frmTaskSet::kName);
    const bool open = editor && editor->IsShown();
    const bool blocked = open && windows.ModalForm() && windows.ModalForm() != editor;
    if (blocked) editor->Hide();
    scheduling::ShowPlanEditor(window_.session, taskId, !open || blocked);
    // The host may have closed everything meanwhile. Input of an item is not dropped for a plan.
    if (window_.IsLoaded() && window_.state.openedFor == kNoEdit) window_.tree.FillAgain();
}

}  // namespace zv::mainwindow
