#include "store/odbc/columns.h"

#include <charconv>

#include "base/text.h"
#include "store/odbc/odbc_connection.h"
#include "store/rows/date_text.h"

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

rows::FieldUse UseOf(const Column& column) {
    if (column.type == ColumnType::Date) return rows::FieldUse::Date;
    return column.isComputed ? rows::FieldUse::Computed : rows::FieldUse::Plain;
}

rows::FieldList FieldsOf(const std::vector<Column>& columns) {
    std::vector<rows::FieldFacts> fields;
    fields.reserve(columns.size());
    for (const Column& column : columns) fields.push_back({column.name, UseOf(column)});
    return {kErrorSource, std::move(fields)};
}

const Column* Table::Find(std::string_view column) const {
    for (const Column& own : columns) {
        if (text::EqualsIgnoreCase(own.name, column)) return &own;
    }
    return nullptr;
}

void TakeStoredText(Value& value, std::string_view text, const Column& column) {
    if (rows::TakeStoredDate(value, text, UseOf(column))) return;
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
