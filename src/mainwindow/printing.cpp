#include "mainwindow/printing.h"

#include "mainwindow/frm_task_main.h"
#include "platform/report_printer.h"
#include "reports/layout_chooser.h"
#include "reports/print_grid.h"
#include "reports/print_report.h"
#include "resources/text_ids.h"

namespace zv::mainwindow {
void Printing::Wire() {
    window_.cmdPrint.onClick = [this] { cmdPrint_Click(); };
    window_.cmdItemSet.onClick = [this] { cmdItemSet_Click(); };
    window_.menus.mnuPrintItem.onClick = [this] { PrintItem(reports::kPreview); };
    window_.menus.mnuPrintList.onClick = [this] { PrintItemList(); };
}

void Printing::PrintItem(int printMode) {
    // A window that was never shown has not read them; screen and print use the same names.
    window_.labels.FillIfNeeded();
    FillParameters();
    reports::Report report;
    report.printMode = printMode;
    report.name = "zvTask01";
    report.title = "Customer Report";
    report.order = "a.fType,a.taskTitle,a.taskTime";
    reports::PrintReport(window_.session, report);
}

void Printing::FillParameters() {
    frmTaskMain& w = window_;
    auto& parameters = w.session.state.reportParameters;
    parameters.clear();
    const auto add = [&](const forms::Label& label, const std::string& key,
                         const std::string& value) {
        parameters.push_back(platform::HeadingEntry(label.ShownText(), key));
        parameters.push_back(value);
    };
    const auto& date = w.DTPicker2.Value();
    add(w.lblList2[0], "TaskTitle", w.txtTitle2.Text());
    add(w.lblList2[1], "TaskJbr", w.cboJbr2.Text());
    add(w.lblList2[2], "TaskDate", date ? date->IsoDate() : std::string());
    add(w.lblList2[3], "TaskType", w.cboType2.Text());
    add(w.lblList2[4], "TaskContent", w.txtTaskCon.Text());
    add(w.lblList2[10], "TaskState", w.cboDone2.Text());
    for (int i = 0; i < kOtherFields; i++) {
        add(w.lblOther[i], "TaskOther" + std::to_string(i), w.txtOther[i].Text());
    }
}

void Printing::PrintItemList() {
    Session& session = window_.session;
    session.state.reportParameters.clear();
    reports::Report report;
    report.name = "zvTask02";
    report.title = session.LoadText(text_id::kTask) + session.LoadText(text_id::kList);
    report.filter = window_.list.ShownCondition();
    // Keeps the condition's end and the order apart.
    if (!report.filter.empty()) report.filter += ' ';
    report.order = window_.list.ShownOrder();
    report.columns = reports::ChosenColumns(session);
    reports::PrintReport(session, report);
}

void Printing::cmdItemSet_Click() {
    const std::string layout = reports::ChooseListLayout(window_.session);
    // The host may have closed everything meanwhile.
    if (layout.empty() || !window_.IsLoaded()) return;
    if (window_.menus.mnuPrintList.Enabled()) PrintItemList();
}

void Printing::cmdPrint_Click() {
    if (window_.Grid1.Visible()) {
        reports::PrintGrid(window_.session, window_.Grid1, "客户生日报警", "");
    } else {
        PrintItem(reports::kPreview);
    }
}

void Printing::UpdateButton() {
    window_.cmdPrint.SetEnabled(ItemIsSelected() || window_.Grid1.Visible());
}

bool Printing::ItemIsSelected() const {
    const forms::TreeView& tree = window_.tvwTask;
    if (tree.Selected() == forms::TreeView::kNone) return false;
    const std::string_view image = tree.Image(tree.Selected());
    // The last character is the state of an item or plan; "1" stands for a group.
    return !image.empty() && image.back() >= '2' && image.back() <= '4';
}

}  // namespace zv::mainwindow
