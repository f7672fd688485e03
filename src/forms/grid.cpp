#include "forms/grid.h"

#include "base/errors.h"

namespace zv::forms {

const Grid::Column& Grid::GetColumn(int column) const {
    if (column < 1 || column > ColumnCount()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    return columns_[static_cast<std::size_t>(column - 1)];
}

void Grid::SetColumns(std::vector<Column> columns) {
    columns_ = std::move(columns);
    for (auto& row : rows_) row.resize(columns_.size());
    Notify(Aspect::Items);
}

void Grid::SetDataRowCount(int rows) {
    if (rows < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    rows_.resize(static_cast<std::size_t>(rows), std::vector<std::string>(columns_.size()));
    if (selectedRow_ > rows) selectedRow_ = 0;
    Notify(Aspect::Items);
}

void Grid::Check(int row, int column) const {
    if (row < 1 || row > DataRowCount() || column < 1 || column > ColumnCount()) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
}

const std::string& Grid::Cell(int row, int column) const {
    Check(row, column);
    return rows_[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
}

void Grid::SetCell(int row, int column, std::string text) {
    Check(row, column);
    rows_[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)] =
        std::move(text);
    Notify(Aspect::Text);
}

void Grid::UserSelect(int row) {
    selectedRow_ = row;
    if (onSelect) FromUser([this] { onSelect(); });
}

}  // namespace zv::forms
