#include "report/csv_export.h"

#include <algorithm>

namespace zv::report {

CsvExport::CsvExport(const Document& document, platform::OutputFile& file)
    : document_(document), writer_(file) {
    if (document.kind == DocumentKind::Item) return;
    for (const Column& column : document.table.columns) writer_.Field(column.heading);
    writer_.EndRow();
}

std::size_t CsvExport::RowCount() const {
    return document_.kind == DocumentKind::Item ? document_.fields.size()
                                                : document_.table.rows.size();
}

void CsvExport::WriteRow(std::size_t row) {
    if (document_.kind == DocumentKind::Item) {
        writer_.Field(document_.fields[row].caption);
        writer_.Field(document_.fields[row].text);
    } else {
        const auto& cells = document_.table.rows[row];
        for (std::size_t column = 0; column < document_.table.columns.size(); column++) {
            writer_.Field(column < cells.size() ? cells[column] : std::string());
        }
    }
    writer_.EndRow();
}

bool CsvExport::WriteRows(std::size_t most) {
    const std::size_t end = std::min(RowCount(), row_ + most);
    for (; row_ < end; row_++) WriteRow(row_);
    if (row_ < RowCount()) return true;
    writer_.Flush();
    return false;
}

void WriteCsv(const Document& document, platform::OutputFile& file) {
    CsvExport csv(document, file);
    csv.WriteRows(csv.RowCount());
}

}  // namespace zv::report
