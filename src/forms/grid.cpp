#include "forms/grid.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <optional>

#include "base/errors.h"
#include "base/number.h"
#include "base/spreadsheet_text.h"
#include "forms/form.h"

namespace zv::forms {
namespace {

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

struct SortKey {
    std::optional<double> number;
    std::string_view text;

    bool operator<(const SortKey& other) const {
        if (number && other.number) return *number < *other.number;
        if (number || other.number) return number.has_value();
        return std::lexicographical_compare(
            text.begin(), text.end(), other.text.begin(), other.text.end(), [](char a, char b) {
                return static_cast<unsigned char>(Lower(a)) < static_cast<unsigned char>(Lower(b));
            });
    }
};

// Only what begins like a number is worth reading as one: dates and names are most of a list.
SortKey KeyOf(std::string_view text) {
    constexpr std::size_t kLongestNumber = 30;
    constexpr std::string_view kNumber = "0123456789+-.";
    const bool number = !text.empty() && text.size() <= kLongestNumber &&
                        text.find_first_not_of(kNumber) == std::string_view::npos;
    return {number ? number::Parse(text) : std::nullopt, text};
}

void AppendForSpreadsheets(std::string& target, std::string_view text) {
    const bool quoted =
        text.starts_with('"') || text.find_first_of("\t\r\n") != std::string_view::npos;
    if (quoted) target += '"';
    if (WouldBeComputed(text)) target += '\'';
    if (!quoted) {
        target += text;
        return;
    }
    for (const char c : text) {
        if (c == '"') target += '"';
        target += c;
    }
    target += '"';
}

}  // namespace

void Grid::CheckColumn(int column) const {
    if (column < 1 || column > ColumnCount()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

const Grid::Column& Grid::GetColumn(int column) const {
    CheckColumn(column);
    return columns_[static_cast<std::size_t>(column - 1)];
}

void Grid::SetColumns(std::vector<Column> columns) {
    columns_ = std::move(columns);
    rows_.SetColumns(columns_.size());
    if (sortColumn_ > ColumnCount()) sortColumn_ = 0;
    Notify(Aspect::Items);
}

void Grid::SetDataRowCount(int rows) {
    if (rows < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    if (rows == 0) rows_.Clear();
    rows_.Resize(static_cast<std::size_t>(rows));
    selected_.resize(std::min(selected_.size(), static_cast<std::size_t>(rows)));
    selectedCount_ = static_cast<int>(std::count(selected_.begin(), selected_.end(), true));
    if (selectedRow_ > rows) selectedRow_ = 0;
    sortColumn_ = 0;
    descending_ = false;
    Notify(Aspect::Items);
}

void Grid::Check(int row, int column) const {
    CheckColumn(column);
    if (row < 1 || row > DataRowCount()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
}

std::string_view Grid::Cell(int row, int column) const {
    Check(row, column);
    return rows_.Get(static_cast<std::size_t>(row - 1), static_cast<std::size_t>(column - 1));
}

void Grid::SetCell(int row, int column, std::string_view text) {
    Check(row, column);
    rows_.Set(static_cast<std::size_t>(row - 1), static_cast<std::size_t>(column - 1), text);
    Notify(Aspect::Text);
}

void Grid::Filling::Append(std::span<const std::string_view> texts) {
    grid_.rows_.Append(texts);
}

bool Grid::IsSelected(int row) const {
    return row >= 1 && static_cast<std::size_t>(row) <= selected_.size() &&
           selected_[static_cast<std::size_t>(row - 1)];
}

void Grid::SelectOnly(int row) {
    selected_.assign(static_cast<std::size_t>(row), false);
    selected_.back() = true;
    selectedCount_ = 1;
    selectedRow_ = row;
}

void Grid::SelectAll() {
    selected_.assign(rows_.Count(), true);
    selectedCount_ = DataRowCount();
    Notify(Aspect::Selection);
}

void Grid::SelectRows(const std::vector<int>& rows) {
    selected_.assign(rows_.Count(), false);
    selectedCount_ = 0;
    for (const int row : rows) UserChangedSelection(row, row, true);
    selectedRow_ = rows.empty() ? 0 : rows.back();
    Notify(Aspect::Selection);
}

void Grid::UserSelect(int row) {
    SelectOnly(row);
    Notify(Aspect::Selection);
    UserWentTo(row);
}

void Grid::UserChangedSelection(int from, int to, bool selected) {
    from = std::max(from, 1);
    to = std::min(to, DataRowCount());
    if (selected_.size() < rows_.Count()) selected_.resize(rows_.Count(), false);
    for (int row = from; row <= to; row++) {
        const auto at = static_cast<std::size_t>(row - 1);
        if (selected_[at] == selected) continue;
        selected_[at] = selected;
        selectedCount_ += selected ? 1 : -1;
    }
    if (selectedCount_ == 0) selectedRow_ = 0;
}

void Grid::UserWentTo(int row) {
    selectedRow_ = row;
    if (onSelect) FromUser([this] { onSelect(); });
}

void Grid::Sort(int column, bool descending) {
    CheckColumn(column);
    const std::size_t count = rows_.Count();
    std::vector<SortKey> keys(count);
    for (std::size_t row = 0; row < count; row++) {
        keys[row] = KeyOf(rows_.Get(row, static_cast<std::size_t>(column - 1)));
    }
    std::vector<std::size_t> order(count);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return descending ? keys[b] < keys[a] : keys[a] < keys[b];
    });
    rows_.Permute(order);
    if (selectedCount_ > 0) {
        selected_.resize(count, false);
        std::vector<bool> selected(count, false);
        int current = 0;
        for (std::size_t row = 0; row < count; row++) {
            selected[row] = selected_[order[row]];
            if (order[row] + 1 == static_cast<std::size_t>(selectedRow_)) {
                current = static_cast<int>(row + 1);
            }
        }
        selected_ = std::move(selected);
        selectedRow_ = current;
    }
    sortColumn_ = column;
    descending_ = descending;
    Notify(Aspect::Items);
    Notify(Aspect::Selection);
}

void Grid::UserPressedHeading(int column) {
    FromUser([&] { Sort(column, column == sortColumn_ && !descending_); });
}

void Grid::UserResizedColumn(int column, int width) {
    CheckColumn(column);
    columns_[static_cast<std::size_t>(column - 1)].width = width;
}

std::string Grid::SelectedText() const {
    std::string text;
    for (int row = 1; row <= DataRowCount(); row++) {
        if (!IsSelected(row)) continue;
        bool first = true;
        for (int column = 1; column <= ColumnCount(); column++) {
            if (!GetColumn(column).visible) continue;
            if (!first) text += '\t';
            first = false;
            AppendForSpreadsheets(text, Cell(row, column));
        }
        text += "\r\n";
    }
    return text;
}

void Grid::CopySelected() const {
    if (selectedCount_ == 0) return;
    Owner().Windows().GetBackend().SetClipboardText(SelectedText());
}

void Grid::OwnKey(KeyEvent& event) {
    if (!event.control) return;
    if (event.code == key::kA) {
        SelectAll();
    } else if (event.code == key::kC) {
        CopySelected();
    } else {
        return;
    }
    event.code = 0;
}

std::function<void()> Grid::Remember() {
    return [this, base = Control::Remember(), columns = columns_,
            rows = std::make_shared<PackedRows>(rows_.Copy()), selected = selected_,
            selectedCount = selectedCount_, selectedRow = selectedRow_, sortColumn = sortColumn_,
            descending = descending_] {
        columns_ = columns;
        rows_ = rows->Copy();
        selected_ = selected;
        selectedCount_ = selectedCount;
        selectedRow_ = selectedRow;
        sortColumn_ = sortColumn;
        descending_ = descending;
        Notify(Aspect::Items);
        Notify(Aspect::Selection);
        base();
    };
}

}  // namespace zv::forms
