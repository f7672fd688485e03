#include "store/sqlite/fields.h"

#include <sqlite3.h>

#include "store/sqlite/database_file.h"

namespace zv::store::sqlite {
namespace {

using rows::FieldUse;

FieldUse UseOf(const Statement& statement, int column) {
    const char* type = sqlite3_column_decltype(statement.Handle(), column);
    if (!type) return FieldUse::Computed;
    const bool date = dialect::KindOfType(type) == dialect::ColumnKind::Date ||
                      dialect::IsKnownDateColumn(statement.ColumnName(column));
    return date ? FieldUse::Date : FieldUse::Plain;
}

}  // namespace

rows::FieldList FieldsOf(const Statement& statement, bool datesAsText) {
    std::vector<rows::FieldFacts> fields;
    fields.reserve(static_cast<std::size_t>(statement.ColumnCount()));
    for (int column = 0; column < statement.ColumnCount(); column++) {
        fields.push_back({statement.ColumnName(column),
                          datesAsText ? FieldUse::Plain : UseOf(statement, column)});
    }
    return {kErrorSource, std::move(fields)};
}

}  // namespace zv::store::sqlite
