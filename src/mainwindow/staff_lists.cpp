#include "mainwindow/staff_lists.h"

#include "mainwindow/frm_task_main.h"

namespace zv::mainwindow {

void StaffLists::SetSource(int source) {
    stale_ = stale_ || source != source_;
    source_ = source;
}

void StaffLists::FillIfNeeded() {
    if (stale_) Fill();
}

void StaffLists::Fill() {
    stale_ = false;
    const std::string shown = window_.cboJbr2.Text();
    window_.cboJbr2.SetItems(Names());
    window_.cboJbr2.SetText(shown);
}

std::vector<std::string> StaffLists::Names() const {
    if (source_ != 0 && source_ != 1) return {};
    const char* const sql = source_ == 0 ? "select fCode,fName from tRsBasic Order By fName"
                                         : "select * from employees order by employcode";
    const char* const field = source_ == 0 ? "fName" : "employee";
    std::vector<std::string> names;
    try {
        window_.session.EnsureConnection();
        const auto rows = window_.session.database.Open(sql);
        for (; !rows->Eof(); rows->MoveNext()) names.push_back(rows->Field(field).ToText());
        rows->Close();
    } catch (const RuntimeError& error) {
        if (error.Number() != ErrorNumber::DatabaseTable) throw;
    }
    return names;
}

}  // namespace zv::mainwindow
