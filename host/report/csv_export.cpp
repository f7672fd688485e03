#include "report/csv_export.h"

#include "reports/csv_writer.h"

namespace zv::report {
namespace {

constexpr std::size_t kRowsBetweenReports = 500;

}  // namespace

bool WriteCsv(const Document& document, platform::OutputFile& file, const Progress& progress) {
    reports::CsvWriter writer(file);
    if (document.kind == DocumentKind::Item) {
        for (const Field& field : document.fields) {
            writer.Field(field.caption);
            writer.Field(field.text);
            writer.EndRow();
        }
        writer.Flush();
        return true;
    }
    for (const Column& column : document.table.columns) writer.Field(column.heading);
    writer.EndRow();
    const auto& rows = document.table.rows;
    for (std::size_t row = 0; row < rows.size(); row++) {
        if (progress && row % kRowsBetweenReports == 0 &&
            !progress(static_cast<int>(row), static_cast<int>(rows.size()))) {
            return false;
        }
        for (std::size_t column = 0; column < document.table.columns.size(); column++) {
            writer.Field(column < rows[row].size() ? rows[row][column] : std::string());
        }
        writer.EndRow();
    }
    writer.Flush();
    return true;
}

}  // namespace zv::report
