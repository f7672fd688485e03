#include "scripted_driver.h"

#include <algorithm>
#include <cstring>

namespace zv::store::odbc {

ScriptedDriver& TheDriver() {
    static ScriptedDriver driver;
    return driver;
}

SQLRETURN ScriptedDriver::Fetch() {
    if (next_ == failsAtRow) return SQL_ERROR;
    if (next_ == rows.size()) return SQL_NO_DATA;
    const std::vector<Cell>& row = rows[next_++];
    offsets_.clear();
    for (const auto& [number, bound] : columns) {
        std::size_t offset = 0;
        Serve(row.at(static_cast<std::size_t>(number - 1)), bound, offset);
    }
    return SQL_SUCCESS;
}

SQLRETURN ScriptedDriver::GetData(int column, SQLSMALLINT type, void* data, SQLLEN size,
                                  SQLLEN* length) {
    asked.emplace_back(column, static_cast<std::size_t>(size) / sizeof(char16_t));
    if (column == failsAtField) return SQL_ERROR;
    return Serve(rows.at(next_ - 1).at(static_cast<std::size_t>(column - 1)),
                 {type, data, size, length}, offsets_[column]);
}

SQLRETURN ScriptedDriver::Serve(const Cell& cell, const Bound& bound, std::size_t& offset) const {
    *bound.length = SQL_NULL_DATA;
    if (const auto* number = std::get_if<std::int64_t>(&cell)) {
        if (bound.type != SQL_C_SBIGINT) return SQL_ERROR;
        *static_cast<SQLBIGINT*>(bound.data) = *number;
        *bound.length = sizeof *number;
    } else if (const auto* real = std::get_if<double>(&cell)) {
        if (bound.type != SQL_C_DOUBLE) return SQL_ERROR;
        *static_cast<double*>(bound.data) = *real;
        *bound.length = sizeof *real;
    } else if (const auto* date = std::get_if<SQL_TIMESTAMP_STRUCT>(&cell)) {
        if (bound.type != SQL_C_TYPE_TIMESTAMP) return SQL_ERROR;
        *static_cast<SQL_TIMESTAMP_STRUCT*>(bound.data) = *date;
        *bound.length = sizeof *date;
    } else if (const auto* text = std::get_if<std::u16string>(&cell)) {
        if (bound.type != SQL_C_WCHAR) return SQL_ERROR;
        const std::size_t left = text->size() - offset;
        if (endsPiecesWithNoData && offset > 0 && left == 0) return SQL_NO_DATA;
        const std::size_t room = static_cast<std::size_t>(bound.size) / sizeof(char16_t) - 1;
        std::size_t given = std::min(left, room);
        const auto isFirstOfPair = [&](char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
        if (!cutsPairs && given < left && isFirstOfPair((*text)[offset + given - 1])) given--;
        auto* to = static_cast<char16_t*>(bound.data);
        std::memcpy(to, text->data() + offset, given * sizeof(char16_t));
        to[given] = u'\0';
        const bool tells = tellsWhatIsLeft || (given == left && !endsPiecesWithNoData);
        *bound.length = tells ? static_cast<SQLLEN>(left * sizeof(char16_t)) : SQL_NO_TOTAL;
        offset += given;
        return given < left ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
    }
    return SQL_SUCCESS;
}

}  // namespace zv::store::odbc

// In the program itself these stand before those of the driver manager.
extern "C" {

SQLRETURN SQL_API SQLBindCol(SQLHSTMT, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER data,
                             SQLLEN size, SQLLEN* length) {
    auto& driver = zv::store::odbc::TheDriver();
    if (driver.refusesToBind) return SQL_ERROR;
    driver.columns[column] = {type, data, size, length};
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLFetch(SQLHSTMT) {
    return zv::store::odbc::TheDriver().Fetch();
}

SQLRETURN SQL_API SQLGetData(SQLHSTMT, SQLUSMALLINT column, SQLSMALLINT type, SQLPOINTER data,
                             SQLLEN size, SQLLEN* length) {
    return zv::store::odbc::TheDriver().GetData(column, type, data, size, length);
}

SQLRETURN SQL_API SQLBindParameter(SQLHSTMT, SQLUSMALLINT number, SQLSMALLINT, SQLSMALLINT type,
                                   SQLSMALLINT sqlType, SQLULEN columnSize, SQLSMALLINT,
                                   SQLPOINTER data, SQLLEN size, SQLLEN* length) {
    auto& driver = zv::store::odbc::TheDriver();
    if (driver.refusesToBind) return SQL_ERROR;
    driver.parameters.resize(number);
    driver.parameters.back() = {type, data, size, length, sqlType, columnSize};
    return SQL_SUCCESS;
}

SQLRETURN SQL_API SQLGetDiagRecW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT record, SQLWCHAR* state,
                                 SQLINTEGER* native, SQLWCHAR* words, SQLSMALLINT size,
                                 SQLSMALLINT* length) {
    const auto& records = zv::store::odbc::TheDriver().records;
    if (record > static_cast<int>(records.size())) return SQL_NO_DATA;
    const auto& given = records[static_cast<std::size_t>(record - 1)];
    std::memcpy(state, given.state.c_str(), 6 * sizeof(SQLWCHAR));
    *native = given.native;
    *length = static_cast<SQLSMALLINT>(given.words.size());
    const std::size_t room = static_cast<std::size_t>(size) - 1;
    const std::u16string part = given.words.substr(0, room);
    std::memcpy(words, part.c_str(), (part.size() + 1) * sizeof(SQLWCHAR));
    return given.words.size() > room ? SQL_SUCCESS_WITH_INFO : SQL_SUCCESS;
}

SQLRETURN SQL_API SQLDriversW(SQLHENV, SQLUSMALLINT direction, SQLWCHAR* name, SQLSMALLINT,
                              SQLSMALLINT*, SQLWCHAR*, SQLSMALLINT, SQLSMALLINT*) {
    auto& driver = zv::store::odbc::TheDriver();
    if (direction == SQL_FETCH_FIRST) driver.installedGiven = 0;
    if (driver.installedGiven == driver.installed.size()) return SQL_NO_DATA;
    const std::u16string& given = driver.installed[driver.installedGiven++];
    std::memcpy(name, given.c_str(), (given.size() + 1) * sizeof(SQLWCHAR));
    return SQL_SUCCESS;
}
}
