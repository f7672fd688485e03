#include "report/table_rows.h"

#include "report/text_lines.h"

namespace zv::report {

TableRows::TableRows(const Table& table, const FontSet& fonts)
    : table_(table), plan_(PlanColumns(table, fonts)) {}

Row TableRows::At(std::size_t row) const {
    const auto& texts = table_.rows[row];
    Row cells;
    double x = 0;
    for (std::size_t i = 0; i < plan_.widths.size(); i++) {
        cells.push_back({x, plan_.widths[i], i < texts.size() ? CleanText(texts[i]) : std::string(),
                         plan_.isRightAligned[i] ? Align::Right : Align::Left, false});
        x += plan_.widths[i];
    }
    return cells;
}

Row TableRows::Heading() const {
    Row cells;
    double x = 0;
    for (std::size_t i = 0; i < plan_.widths.size(); i++) {
        cells.push_back({x, plan_.widths[i], CleanText(table_.columns[i].heading),
                         plan_.isRightAligned[i] ? Align::Right : Align::Left, true});
        x += plan_.widths[i];
    }
    return cells;
}

}  // namespace zv::report
