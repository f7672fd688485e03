#include "changes/row_change.h"

#include <utility>

#include "store/database.h"

namespace zv::changes {
namespace {

std::string TitleIn(const Table& table, const std::optional<Fields>& fields) {
    if (!fields) return {};
    for (std::size_t i = 0; i < table.columns.size(); i++) {
        if (table.columns[i].name == table.title && (*fields)[i]) return (*fields)[i]->ToText();
    }
    return {};
}

}  // namespace

RowChange Reversed(RowChange change) {
    std::swap(change.before, change.after);
    return change;
}

std::vector<std::size_t> ChangedFields(const RowChange& change) {
    std::vector<std::size_t> changed;
    if (!change.before || !change.after) return changed;
    for (std::size_t i = 0; i < change.after->size(); i++) {
        const auto& before = (*change.before)[i];
        const auto& after = (*change.after)[i];
        if (before && after && before->ToText() != after->ToText()) changed.push_back(i);
    }
    return changed;
}

std::string TitleOf(const RowChange& change) {
    std::string title = TitleIn(*change.table, change.before);
    return title.empty() ? TitleIn(*change.table, change.after) : title;
}

Fields Known(const store::RowValues& values) {
    return {values.begin(), values.end()};
}

std::optional<Fields> Read(const store::Recordset& row, const Table& table) {
    if (row.Eof()) return std::nullopt;
    std::vector<std::string_view> names;
    for (const store::Column& column : table.columns) names.push_back(column.name);
    return Known(store::ReadRow(row, names));
}

std::optional<Fields> Load(store::Database& database, const Table& table, std::int32_t row) {
    database.EnsureConnection();
    const auto found = database.Open(std::string(table.select) + std::to_string(row));
    auto fields = Read(*found, table);
    found->Close();
    return fields;
}

}  // namespace zv::changes
