#include "store/odbc/columns.h"

#include <charconv>

#include "base/errors.h"
#include "base/text.h"
#include "store/odbc/odbc_connection.h"

namespace zv::store::odbc {
namespace {

template <class Number>
bool TakeNumber(Value& value, std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return false;
    value = Value(number);
    return true;
}

}  // namespace

ColumnType TypeOf(SQLSMALLINT sqlType) {
    switch (sqlType) {
        case SQL_BIT:
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return ColumnType::Integer;
        case SQL_REAL:
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return ColumnType::Real;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            return ColumnType::Decimal;
        case SQL_DATE:
        case SQL_TIMESTAMP:
        case SQL_TYPE_DATE:
        case SQL_TYPE_TIMESTAMP:
            return ColumnType::Date;
        default:
            return ColumnType::Text;
    }
}

bool IsLongType(SQLSMALLINT sqlType) {
    return sqlType == SQL_LONGVARCHAR || sqlType == SQL_WLONGVARCHAR ||
           sqlType == SQL_LONGVARBINARY;
}

void Columns::Check(int column) const {
    if (column >= 0 && column < Count()) return;
    throw RuntimeError(ErrorNumber::DatabaseColumn, "no field number " + std::to_string(column),
                       kErrorSource);
}

int Columns::Index(std::string_view name) const {
    for (int column = 0; column < Count(); column++) {
        if (text::EqualsIgnoreCase(At(column).name, name)) return column;
    }
    throw RuntimeError(ErrorNumber::DatabaseColumn, "no such field: " + std::string(name),
                       kErrorSource);
}

const Column* Table::Find(std::string_view column) const {
    for (const Column& own : columns) {
        if (text::EqualsIgnoreCase(own.name, column)) return &own;
    }
    return nullptr;
}

void TakeStoredText(Value& value, std::string_view text, const Column& column) {
    constexpr std::size_t kStoredLength = 19;  // "YYYY-MM-DD HH:MM:SS"
    const bool tryDate =
        column.type == ColumnType::Date ||
        (column.isComputed && text.size() == kStoredLength && text[4] == '-' && text[10] == ' ');
    if (tryDate) {
        if (const auto date = DateTime::Parse(text)) {
            value = *date;
            return;
        }
    }
    const bool number = column.type == ColumnType::Integer || column.type == ColumnType::Real ||
                        column.type == ColumnType::Decimal;
    if (number && column.type != ColumnType::Real) {
        TakeDecimal(value, text);
    } else if (!number || !TakeNumber<double>(value, text)) {
        value.AssignText(text);
    }
}

void TakeDecimal(Value& value, std::string_view text) {
    std::string_view whole = text;
    // ".00" behind a whole number says nothing.
    if (const std::size_t point = text.find('.');
        point != std::string_view::npos && point > 0 &&
        text.find_first_not_of('0', point + 1) == std::string_view::npos) {
        whole = text.substr(0, point);
    }
    if (TakeNumber<std::int64_t>(value, whole) || TakeNumber<double>(value, text)) return;
    value.AssignText(text);
}

}  // namespace zv::store::odbc
