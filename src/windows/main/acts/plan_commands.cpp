#include "windows/main/acts/plan_commands.h"

#include "base/number.h"
#include "forms/form.h"
#include "windows/plan_editor/frm_task_set.h"

namespace zv::windows {

PlanCommands::PlanCommands(forms::Form& form, Session& session, const MainModel& model,
                           CommandPanel& commands, Listing& listing)
    : form_(form), session_(session), model_(model), listing_(listing) {
    commands.menus.mnuEventAdd.onClick = [this] { mnuEventAdd_Click(); };
    commands.menus.mnuEventChg.onClick = [this] { mnuEventChg_Click(); };
}

void PlanCommands::mnuEventAdd_Click() {
    Edit(0);
}

void PlanCommands::mnuEventChg_Click() {
    // While items are shown the current number is not a plan's.
    if (model_.ShowsPlans()) Edit(number::ToInt16(static_cast<double>(model_.currentId)));
}

void PlanCommands::Edit(std::int16_t taskId) {
    // Modal, so that the tree can show the change; one that the host opened comes forward as it is.
    // Where a modal window keeps the user from it, it becomes modal itself with what it holds.
    forms::WindowSystem& windows = session_.windows;
    forms::Form* editor = windows.Find(frmTaskSet::kName);
    const bool open = editor && editor->IsShown();
    const bool blocked = open && windows.ModalForm() && windows.ModalForm() != editor;
    if (blocked) editor->Hide();
    ShowPlanEditor(session_, taskId, !open || blocked);
    // The host may have closed everything meanwhile. Input of an item is not dropped for a plan.
    if (form_.IsLoaded() && model_.openedFor == EditMode::None) listing_.FillAgain();
}

}  // namespace zv::windows
