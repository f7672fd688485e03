#include "zvdb/import/embedded_rows.h"

#include <string_view>

namespace zv::zvdb {

std::string QuotedName(const std::string& name) {
    std::string quoted = "\"";
    for (const char c : name) {
        quoted += c;
        if (c == '"') quoted += '"';
    }
    return quoted + '"';
}

std::string QuotedList(const std::vector<std::string>& names) {
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : ",") + QuotedName(name);
    return list;
}

EmbeddedRows::EmbeddedRows(Engine& engine, const std::string& table,
                           const std::vector<std::string>& columns)
    : statement_(engine, "select " + QuotedList(columns) + " from " + table) {}

void EmbeddedRows::Read(int column, store::Value& value) {
    sqlite3_stmt* handle = statement_.Handle();
    switch (sqlite3_column_type(handle, column)) {
        case SQLITE_INTEGER:
            value = std::int64_t{sqlite3_column_int64(handle, column)};
            return;
        case SQLITE_FLOAT:
            value = sqlite3_column_double(handle, column);
            return;
        case SQLITE_TEXT:
            value.AssignText(
                std::string_view(reinterpret_cast<const char*>(sqlite3_column_text(handle, column)),
                                 static_cast<std::size_t>(sqlite3_column_bytes(handle, column))));
            return;
        case SQLITE_BLOB:
            remarks_.push_back({column, true, "binary values are not copied"});
            [[fallthrough]];
        default:
            value = {};
    }
}

bool EmbeddedRows::Next(std::vector<store::Value>& row) {
    remarks_.clear();
    if (!statement_.Step()) return false;
    row.resize(static_cast<std::size_t>(statement_.ColumnCount()));
    for (std::size_t i = 0; i < row.size(); ++i) Read(static_cast<int>(i), row[i]);
    return true;
}

}  // namespace zv::zvdb
