#include "base/errors.h"
#include "platform/scripted/scripted_machine.h"

namespace zv::platform::scripted {

void ScriptedReports::Prepare() {
    if (isThere_) return;
    if (missing) throw RuntimeError(ErrorNumber::CannotCreateObject);
    isThere_ = true;
    created++;
}

void ScriptedReports::Print(const ReportJob& job) {
    Prepare();
    if (!failing.empty()) throw RuntimeError(ErrorNumber::InternalError, failing);
    Printed& kept = printed.emplace_back();
    kept.job = job;
    kept.hadRecordset = job.recordset != nullptr;
    kept.job.recordset = nullptr;
    kept.job.grid = nullptr;
    if (!job.grid) return;
    const ReportTable& table = *job.grid;
    for (int column = 1; column <= table.ColumnCount(); column++) {
        kept.headings.push_back(table.Heading(column));
    }
    for (int row = 1; row <= table.RowCount(); row++) {
        kept.signs.push_back(table.Sign(row));
        std::vector<std::string>& cells = kept.cells.emplace_back();
        for (int column = 1; column <= table.ColumnCount(); column++) {
            cells.push_back(table.Text(row, column));
        }
    }
}

}  // namespace zv::platform::scripted
