#include "report/table_rows.h"

#include "report/text_lines.h"

namespace zv::report {

TableRows::TableRows(const Table& table, const FontSet& fonts, const PageSetup& setup)
    : table_(table), plan_(PlanColumns(table, fonts, setup)) {}

Row TableRows::At(std::size_t row) const {
    return Cells([&](std::size_t column) { return CleanText(table_.Printed(row, column)); }, false);
}

Row TableRows::Heading() const {
    return Cells([&](std::size_t column) { return CleanText(table_.columns[column].heading); },
                 true);
}

Row TableRows::Cells(const std::function<std::string(std::size_t)>& textOf, bool isCaption) const {
    Row cells;
    double x = 0;
    for (const PlannedColumn& column : plan_.columns) {
        cells.push_back({x, column.width, textOf(column.source),
                         column.isRightAligned ? Align::Right : Align::Left, isCaption});
        x += column.width;
    }
    return cells;
}

}  // namespace zv::report
