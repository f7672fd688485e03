#include "report/windows/print_request.h"

#include "base/errors.h"
#include "base/text.h"
#include "opener_object.h"
#include "report/list_rows.h"
#include "report/report_texts.h"
#include "report/windows/automation_lists.h"
#include "store/ado/ado_connection.h"

namespace zv::report {
namespace {

std::vector<Heading> ReadColumns(const PrintRequest& request) {
    std::vector<Heading> columns;
    for (const std::string& entry : ReadTexts(request.columns)) {
        columns.push_back(ReadHeading(entry));
    }
    return columns;
}

Table ReadFromDatabase(const PrintRequest& request, DateTime today) {
    const auto connection = store::ado::WrapConnection(
        host::OpenDatabase({request.sqlData, request.userPath, request.password, request.userId,
                            request.defaultDatabase}));
    Table table;
    {
        const auto rows =
            connection->Open(ListStatement(request.filter, request.order),
                             store::CursorType::ForwardOnly, store::LockType::ReadOnly);
        table = ReadRows(*rows, ReadColumns(request), today, request.Script());
    }
    connection->Close();
    return table;
}

Table ReadList(const PrintRequest& request, DateTime today) {
    if (request.HasConnection()) return ReadFromDatabase(request, today);
    const auto recordset = request.recordset.Object();
    if (!recordset) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                           GetReportText(ReportText::NothingToPrint, request.Script()));
    }
    return ReadRecordset(*recordset, ReadColumns(request), today, request.Script());
}

}  // namespace

Document MakeDocument(const PrintRequest& request, DateTime now) {
    Document document;
    document.company = request.company;
    document.title = request.title;
    document.subtitle = request.subtitle;
    document.asked = request.criteria;
    document.user = request.userName;
    document.printed = now;
    document.language = request.Script();
    if (const auto grid = request.grid.Object()) {
        document.table = ReadGrid(*grid);
    } else if (text::EqualsIgnoreCase(request.reportName, kItemReport)) {
        document.kind = DocumentKind::Item;
        document.fields = ReadFields(ReadTexts(request.parameters));
    } else if (text::EqualsIgnoreCase(request.reportName, kListReport)) {
        document.table = ReadList(request, now);
    } else {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                           GetReportText(ReportText::NothingToPrint, request.Script()) +
                               (request.reportName.empty() ? "" : "\r\n" + request.reportName));
    }
    return document;
}

}  // namespace zv::report
