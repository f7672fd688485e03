// The columns of a result, and the facts of the tables behind it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/odbc/odbc_api.h"
#include "store/rows/field_list.h"
#include "store/value.h"

namespace zv::store::odbc {

/// How a column's values travel.
enum class ColumnType { Integer, Real, Decimal, Date, Text };

struct Column {
    std::string name;
    ColumnType type = ColumnType::Text;
    SQLSMALLINT sqlType = SQL_WVARCHAR;
    SQLULEN size = 0;         ///< as the driver reports it, 0 when it does not know
    bool isLong = false;      ///< without a limit that a buffer could be made for
    bool isComputed = false;  ///< of no table, as far as the driver knows
};

ColumnType TypeOf(SQLSMALLINT sqlType);
bool IsLongType(SQLSMALLINT sqlType);

rows::FieldUse UseOf(const Column& column);
rows::FieldList FieldsOf(const std::vector<Column>& columns);

/// What must be known of a table to write its rows.
struct Table {
    std::string name;  ///< as the server writes it
    std::vector<Column> columns;
    std::vector<std::string> typeNames;  ///< of the columns
    std::vector<std::string> key;        ///< columns of the primary key

    const Column* Find(std::string_view column) const;
};

/// A text that a database without dates of its own keeps for a value of `column`: a date in stored
/// form becomes a date, digits in a column of numbers a number. `value` is assigned in place.
void TakeStoredText(Value& value, std::string_view text, const Column& column);
/// "12", "12.50": a whole number while it fits, a real number otherwise, the text when it is none.
void TakeDecimal(Value& value, std::string_view text);

}  // namespace zv::store::odbc
