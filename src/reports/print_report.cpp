#include "reports/print_report.h"

#include <utility>

#include "items/list_query.h"
#include "reports/report_job.h"
#include "resources/fixed_texts.h"

namespace zv::reports {

void PrintReport(Session& session, const Report& report) {
    // Taken on every way out: an item's values must not get into the next report.
    std::vector<std::string> parameters = std::exchange(session.state.reportParameters, {});
    platform::ReportPrinter& printer = session.machine.reports;
    printer.Prepare();
    platform::ReportJob job = NewJob(session);
    session.database.EnsureConnection();
    // A static cursor: the component may move in it. The recordset closes at its end and not by
    // Close, which fails when the connection was closed while a preview stood.
    const auto rows = session.database.Open(items::FirstOf(report.filter, report.order),
                                            store::CursorType::Static, store::LockType::ReadOnly);
    if (rows->Eof()) {
        session.windows.ShowMessage(resources::fixed::kNothingToPrint, forms::box::kExclamation);
        return;
    }
    job.printMode = report.printMode;
    job.reportName = report.name;
    job.title = report.title;
    job.filter = report.filter;
    job.order = report.order;
    job.asked = report.asked;
    job.parameters = std::move(parameters);
    for (const ListColumn& column : report.columns) {
        job.columns.push_back(platform::HeadingEntry(column.caption, column.field));
    }
    job.recordset = rows.get();
    printer.Print(job);
}

}  // namespace zv::reports
