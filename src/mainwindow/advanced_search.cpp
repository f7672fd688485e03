#include "mainwindow/advanced_search.h"

#include <string>

#include "mainwindow/frm_task_main.h"
#include "reports/query_builder.h"

namespace zv::mainwindow {

void AdvancedSearch::Wire() {
    window_.menus.mnuSeek2.onClick = [this] { mnuSeek2_Click(); };
}

void AdvancedSearch::mnuSeek2_Click() {
    std::string where = reports::AskForConditions(window_.session, conditions_);
    // The host may have closed everything meanwhile.
    if (where.empty() || !window_.IsLoaded()) return;
    // Meanwhile the host may have shown the window to a user whose search is limited.
    if (!window_.menus.mnuSeek2.Enabled()) {
        window_.session.windows.ShowMessage("您无权进行操作 ！", forms::box::kExclamation);
        return;
    }
    if (window_.state.startMode == kCardMode) {
        where = where == "1=1" ? "fType=1" : where + " And fType=1";
    }
    // A tree that shows plans becomes one of items first, with all that depends on it.
    if (window_.chkEvent.Checked()) window_.chkEvent.SetValue(0);
    window_.list.LoadItemList(where);
    window_.state.currentType = kTask;
    window_.fraB3.SetVisible(true);
    window_.cmdTaskOK.SetEnabled(false);
    window_.printing.UpdateButton();
}

}  // namespace zv::mainwindow
