#include "store/row_values.h"

#include <algorithm>
#include <utility>

#include "base/errors.h"

namespace zv::store {

RowValues ReadRow(const Recordset& row, std::span<const std::string_view> fields) {
    // In the order of the columns: some providers give a long text only to who reads it in turn.
    std::vector<std::pair<int, std::size_t>> columns;
    for (std::size_t i = 0; i < fields.size(); i++) {
        columns.emplace_back(row.FieldIndex(fields[i]), i);
    }
    std::sort(columns.begin(), columns.end());
    RowValues values(fields.size());
    for (const auto& [column, field] : columns) values[field] = row.Field(column);
    return values;
}

void WriteRow(Recordset& row, std::span<const std::string_view> fields, const RowValues& values) {
    for (std::size_t i = 0; i < fields.size(); i++) row.SetField(fields[i], values[i]);
}

std::int32_t NumberOfNewRow(const Recordset& row, std::string_view column) {
    try {
        return row.Field(column).ToInt32();
    } catch (const RuntimeError&) {
        // Not every database gives the number of a row that it has just taken.
        return 0;
    }
}

}  // namespace zv::store
