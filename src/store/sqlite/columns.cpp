#include "store/sqlite/columns.h"

#include <sqlite3.h>

#include "base/errors.h"
#include "base/text.h"
#include "store/sqlite/database_file.h"

namespace zv::store::sqlite {
namespace {

ColumnUse UseOf(const Statement& statement, int column) {
    const char* type = sqlite3_column_decltype(statement.Handle(), column);
    if (!type) return ColumnUse::Computed;
    const bool date = dialect::KindOfType(type) == dialect::ColumnKind::Date ||
                      dialect::IsKnownDateColumn(statement.ColumnName(column));
    return date ? ColumnUse::Date : ColumnUse::Plain;
}

}  // namespace

Columns::Columns(const Statement& statement, bool datesAsText) {
    for (int column = 0; column < statement.ColumnCount(); column++) {
        names_.push_back(statement.ColumnName(column));
        uses_.push_back(datesAsText ? ColumnUse::Plain : UseOf(statement, column));
    }
}

const std::string& Columns::Name(int column) const {
    Check(column);
    return names_[static_cast<std::size_t>(column)];
}

int Columns::Index(std::string_view name) const {
    for (int column = 0; column < Count(); column++) {
        if (text::EqualsIgnoreCase(names_[static_cast<std::size_t>(column)], name)) return column;
    }
    throw RuntimeError(ErrorNumber::DatabaseColumn, "no such field: " + std::string(name),
                       kErrorSource);
}

void Columns::Check(int column) const {
    if (column >= 0 && column < Count()) return;
    throw RuntimeError(ErrorNumber::DatabaseColumn, "no field number " + std::to_string(column),
                       kErrorSource);
}

void AssignText(Value& value, std::string_view text, ColumnUse use) {
    constexpr std::size_t kStoredLength = 19;  // "YYYY-MM-DD HH:MM:SS"
    const bool tryDate =
        use == ColumnUse::Date || (use == ColumnUse::Computed && text.size() == kStoredLength &&
                                   text[4] == '-' && text[10] == ' ');
    if (tryDate) {
        if (const auto date = DateTime::Parse(text)) {
            value = *date;
            return;
        }
    }
    value.AssignText(text);
}

}  // namespace zv::store::sqlite
