#include "store/odbc/parameters.h"

#include <algorithm>

#include "base/number.h"
#include "base/text.h"

namespace zv::store::odbc {
namespace {

constexpr SQLULEN kTimestampSize = 19;       // to the second
constexpr SQLULEN kLongestShortText = 4000;  // the widest text column with a limit of its own
constexpr SQLULEN kNumberSize = 19;
constexpr SQLULEN kRealSize = 15;

SQL_TIMESTAMP_STRUCT Timestamp(DateTime date) {
    SQL_TIMESTAMP_STRUCT result{};
    result.year = static_cast<SQLSMALLINT>(date.Year());
    result.month = static_cast<SQLUSMALLINT>(date.Month());
    result.day = static_cast<SQLUSMALLINT>(date.Day());
    result.hour = static_cast<SQLUSMALLINT>(date.Hour());
    result.minute = static_cast<SQLUSMALLINT>(date.Minute());
    result.second = static_cast<SQLUSMALLINT>(date.Second());
    return result;
}

/// The value in the form in which its column takes it: a number for a text column is a text, a text
/// that is a number goes into a column of numbers as one.
Value Fitting(const Parameter& parameter) {
    const Value& value = parameter.value;
    if (value.IsNull()) return value;
    const bool date = std::holds_alternative<DateTime>(value.Data());
    if (parameter.type == ColumnType::Text) return value.TextIf() ? value : Value(value.ToText());
    if (parameter.type == ColumnType::Date) {
        if (date) return value;
        if (const std::string* text = value.TextIf()) {
            if (const auto parsed = DateTime::Parse(*text)) return *parsed;
        }
        return value;
    }
    if (const std::string* text = value.TextIf()) {
        return number::IsNumeric(*text) ? Value(number::ToDouble(*text)) : value;
    }
    return date ? Value(std::get<DateTime>(value.Data()).ToAutomation()) : value;
}

}  // namespace

bool ParameterBuffers::Bind(SQLHSTMT statement, const std::vector<Parameter>& parameters) {
    SQLUSMALLINT number = 1;
    for (const Parameter& parameter : parameters) {
        if (!BindOne(statement, number++, parameter)) return false;
    }
    return true;
}

bool ParameterBuffers::BindText(SQLHSTMT statement, SQLUSMALLINT number, const std::string& text,
                                bool isLong) {
    Buffer& buffer = buffers_.back();
    buffer.text = text::ToUtf16(text);
    buffer.length = static_cast<SQLLEN>(buffer.text.size() * sizeof(char16_t));
    const SQLULEN size = std::max<SQLULEN>(buffer.text.size(), 1);
    const SQLSMALLINT type = isLong || size > kLongestShortText ? SQL_WLONGVARCHAR : SQL_WVARCHAR;
    return SQL_SUCCEEDED(SQLBindParameter(statement, number, SQL_PARAM_INPUT, SQL_C_WCHAR, type,
                                          size, 0, Wide(buffer.text), buffer.length,
                                          &buffer.length));
}

bool ParameterBuffers::BindOne(SQLHSTMT statement, SQLUSMALLINT number,
                               const Parameter& parameter) {
    Buffer& buffer = buffers_.emplace_back();
    const auto bind = [&](SQLSMALLINT cType, SQLSMALLINT type, SQLULEN size, SQLPOINTER data) {
        return SQL_SUCCEEDED(SQLBindParameter(statement, number, SQL_PARAM_INPUT, cType, type, size,
                                              0, data, 0, &buffer.length));
    };
    const Value value = Fitting(parameter);
    if (value.IsNull()) {
        buffer.length = SQL_NULL_DATA;
        switch (parameter.type) {
            case ColumnType::Integer:
            case ColumnType::Decimal:
                return bind(SQL_C_SBIGINT, SQL_BIGINT, kNumberSize, &buffer.number);
            case ColumnType::Real:
                return bind(SQL_C_DOUBLE, SQL_DOUBLE, kRealSize, &buffer.real);
            case ColumnType::Date:
                if (!parameter.datesAsText) {
                    return bind(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, kTimestampSize,
                                &buffer.date);
                }
                [[fallthrough]];
            case ColumnType::Text:
                return bind(SQL_C_WCHAR, parameter.isLong ? SQL_WLONGVARCHAR : SQL_WVARCHAR, 1,
                            Wide(buffer.text));
        }
    }
    if (const auto* whole = std::get_if<std::int64_t>(&value.Data())) {
        buffer.number = *whole;
        return bind(SQL_C_SBIGINT, SQL_BIGINT, kNumberSize, &buffer.number);
    }
    if (const auto* real = std::get_if<double>(&value.Data())) {
        buffer.real = *real;
        return bind(SQL_C_DOUBLE, SQL_DOUBLE, kRealSize, &buffer.real);
    }
    if (const auto* date = std::get_if<DateTime>(&value.Data()); date && !parameter.datesAsText) {
        buffer.date = Timestamp(*date);
        return bind(SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, kTimestampSize, &buffer.date);
    }
    return BindText(statement, number, value.ToText(), parameter.isLong);
}

}  // namespace zv::store::odbc
