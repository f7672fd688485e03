#include "store/odbc/row_reader.h"

#include <algorithm>

#include "base/text.h"

namespace zv::store::odbc {
namespace {

constexpr std::size_t kBoundUnits = 256;
// Columns with a limit above this are read in pieces where drivers cannot read a bound one again.
constexpr SQLULEN kWidestBound = 4000;
constexpr std::size_t kFirstPiece = 4096;
constexpr std::size_t kLargestPiece = std::size_t{1} << 20;
constexpr std::size_t kUnit = sizeof(char16_t);

std::string OutOfRange(const SQL_TIMESTAMP_STRUCT& date) {
    const auto digits = [](int number, std::size_t count) {
        std::string text = std::to_string(number);
        return text.size() < count ? std::string(count - text.size(), '0') + text : text;
    };
    return digits(date.year, 4) + "-" + digits(date.month, 2) + "-" + digits(date.day, 2) + " " +
           digits(date.hour, 2) + ":" + digits(date.minute, 2) + ":" + digits(date.second, 2);
}

}  // namespace

RowReader::RowReader(SQLHSTMT statement, const std::vector<Column>& columns,
                     const ReadingFacts& facts)
    : statement_(statement), columns_(columns), facts_(facts), buffers_(columns.size()) {}

bool RowReader::Bind() {
    bool sawLong = false;
    for (std::size_t i = 0; i < columns_.size(); i++) {
        const Column& column = columns_[i];
        Buffer& buffer = buffers_[i];
        buffer.asText = facts_.readsTexts || column.type == ColumnType::Text ||
                        column.type == ColumnType::Decimal;
        const bool hasLimit = !column.isLong && column.size > 0 && column.size <= kWidestBound;
        sawLong = sawLong || (buffer.asText && !hasLimit);
        // Where bound and unbound columns cannot be mixed freely, all behind a long one are read
        // one by one.
        if (!facts_.mixesBound && sawLong) continue;
        if (!BindColumn(static_cast<SQLUSMALLINT>(i + 1), column, buffer)) return false;
    }
    return true;
}

bool RowReader::BindColumn(SQLUSMALLINT number, const Column& column, Buffer& buffer) {
    buffer.bound = true;
    const auto bind = [&](SQLSMALLINT type, SQLPOINTER data, std::size_t size) {
        return SQL_SUCCEEDED(
            SQLBindCol(statement_, number, type, data, static_cast<SQLLEN>(size), &buffer.length));
    };
    if (buffer.asText) {
        const std::size_t units =
            facts_.mixesBound ? kBoundUnits : static_cast<std::size_t>(column.size);
        buffer.text.resize(std::max(units, std::size_t{64}) + 1);
        return bind(SQL_C_WCHAR, buffer.text.data(), buffer.text.size() * kUnit);
    }
    switch (column.type) {
        case ColumnType::Real:
            return bind(SQL_C_DOUBLE, &buffer.real, sizeof buffer.real);
        case ColumnType::Date:
            return bind(SQL_C_TYPE_TIMESTAMP, &buffer.date, sizeof buffer.date);
        default:
            return bind(SQL_C_SBIGINT, &buffer.number, sizeof buffer.number);
    }
}

bool RowReader::ReadAll(RowStore& rows) {
    while (true) {
        const SQLRETURN code = SQLFetch(statement_);
        if (code == SQL_NO_DATA) return true;
        if (!SQL_SUCCEEDED(code)) return false;
        rows.BeginRow();
        for (std::size_t i = 0; i < columns_.size(); i++) {
            if (!ReadField(static_cast<SQLUSMALLINT>(i + 1), columns_[i], buffers_[i], rows)) {
                return false;
            }
        }
        rows.EndRow();
    }
}

bool RowReader::ReadField(SQLUSMALLINT number, const Column& column, Buffer& buffer,
                          RowStore& rows) {
    if (buffer.asText) {
        const auto room =
            static_cast<SQLLEN>((buffer.text.size() - (buffer.bound ? 1 : 0)) * kUnit);
        if (buffer.bound && buffer.length == SQL_NULL_DATA) {
            rows.AddNull();
        } else if (buffer.bound && buffer.length >= 0 && buffer.length <= room) {
            AddText(buffer.text, static_cast<std::size_t>(buffer.length) / kUnit, column, rows);
        } else {
            bool isNull = false;
            if (!ReadText(number, longText_, isNull)) return false;
            if (isNull)
                rows.AddNull();
            else
                AddText(longText_, longText_.size(), column, rows);
        }
        return true;
    }
    if (!buffer.bound) {
        SQLRETURN code = SQL_SUCCESS;
        if (column.type == ColumnType::Real) {
            code = SQLGetData(statement_, number, SQL_C_DOUBLE, &buffer.real, 0, &buffer.length);
        } else if (column.type == ColumnType::Date) {
            code = SQLGetData(statement_, number, SQL_C_TYPE_TIMESTAMP, &buffer.date, 0,
                              &buffer.length);
        } else {
            code = SQLGetData(statement_, number, SQL_C_SBIGINT, &buffer.number, 0, &buffer.length);
        }
        if (!SQL_SUCCEEDED(code)) return false;
    }
    if (buffer.length == SQL_NULL_DATA) {
        rows.AddNull();
    } else if (column.type == ColumnType::Real) {
        rows.AddReal(buffer.real);
    } else if (column.type == ColumnType::Date) {
        const SQL_TIMESTAMP_STRUCT& date = buffer.date;
        if (DateTime::IsValidDate(date.year, date.month, date.day) && date.hour < 24 &&
            date.minute < 60 && date.second < 60) {
            rows.AddDate(
                DateTime(date.year, date.month, date.day, date.hour, date.minute, date.second));
        } else {
            rows.AddText(OutOfRange(date));
        }
    } else {
        rows.AddNumber(buffer.number);
    }
    return true;
}

bool RowReader::ReadText(SQLUSMALLINT number, std::u16string& text, bool& isNull) {
    text.clear();
    isNull = false;
    std::size_t piece = kFirstPiece;
    SQLLEN leftBefore = SQL_NO_TOTAL;
    while (true) {
        std::size_t start = text.size();
        text.resize(start + piece + 1);
        SQLLEN left = 0;
        const SQLRETURN code = SQLGetData(statement_, number, SQL_C_WCHAR, text.data() + start,
                                          static_cast<SQLLEN>((piece + 1) * kUnit), &left);
        if (code == SQL_NO_DATA) {
            text.resize(start);
            return true;
        }
        if (!SQL_SUCCEEDED(code)) return false;
        if (left == SQL_NULL_DATA) {
            text.clear();
            isNull = true;
            return true;
        }
        // A driver that will not end a piece within a surrogate pair gave less than there was room
        // for; what is left now says how much.
        if (leftBefore != SQL_NO_TOTAL && left > leftBefore) {
            const std::size_t surplus =
                std::min(start, static_cast<std::size_t>(left - leftBefore) / kUnit);
            text.erase(start - surplus, surplus);
            start -= surplus;
        }
        if (left != SQL_NO_TOTAL && static_cast<std::size_t>(left) <= piece * kUnit) {
            text.resize(start + static_cast<std::size_t>(left) / kUnit);
            return true;
        }
        text.resize(start + piece);
        leftBefore = SQL_NO_TOTAL;
        if (left != SQL_NO_TOTAL) {
            leftBefore = left - static_cast<SQLLEN>(piece * kUnit);
            piece = std::clamp(static_cast<std::size_t>(leftBefore) / kUnit, kFirstPiece,
                               kLargestPiece);
        }
    }
}

void RowReader::AddText(const std::u16string& text, std::size_t units, const Column& column,
                        RowStore& rows) {
    const bool plain = column.type == ColumnType::Text && !(facts_.readsTexts && column.isComputed);
    if (plain) {
        rows.AddText(text.data(), units);
        return;
    }
    const std::string utf8 = text::FromUtf16(std::u16string_view(text).substr(0, units));
    if (facts_.readsTexts)
        TakeStoredText(converted_, utf8, column);
    else
        TakeDecimal(converted_, utf8);
    if (const auto* whole = std::get_if<std::int64_t>(&converted_.Data())) {
        rows.AddNumber(*whole);
    } else if (const auto* real = std::get_if<double>(&converted_.Data())) {
        rows.AddReal(*real);
    } else if (const auto* date = std::get_if<DateTime>(&converted_.Data())) {
        rows.AddDate(*date);
    } else {
        rows.AddText(*converted_.TextIf());
    }
}

}  // namespace zv::store::odbc
