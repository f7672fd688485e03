// A driver in the place of the platform's, for what no driver at hand does: it serves rows as it is
// told, and notes what it is asked for.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "store/odbc/odbc_api.h"

namespace zv::store::odbc {

using Cell =
    std::variant<std::monostate, std::int64_t, double, SQL_TIMESTAMP_STRUCT, std::u16string>;

struct ScriptedDriver {
    std::vector<std::vector<Cell>> rows;
    bool tellsWhatIsLeft = true;        ///< of a long text
    bool cutsPairs = true;              ///< a piece of a text may end within a surrogate pair
    bool endsPiecesWithNoData = false;  ///< a text is over only when there is no more of it
    bool refusesToBind = false;
    std::size_t failsAtRow = SIZE_MAX;
    int failsAtField = 0;  ///< when it is asked for one by itself

    struct Bound {
        SQLSMALLINT type = 0;
        void* data = nullptr;
        SQLLEN size = 0;
        SQLLEN* length = nullptr;
        // Of parameters only.
        SQLSMALLINT sqlType = 0;
        SQLULEN columnSize = 0;
    };
    std::map<int, Bound> columns;
    std::vector<Bound> parameters;
    /// What is said of an error, and the drivers that are installed.
    struct Record {
        std::u16string state;
        SQLINTEGER native = 0;
        std::u16string words;
    };
    std::vector<Record> records;
    std::vector<std::u16string> installed;
    std::size_t installedGiven = 0;
    /// Fields that were asked for by themselves, and for how many units of a text.
    std::vector<std::pair<int, std::size_t>> asked;

    SQLRETURN Fetch();
    SQLRETURN GetData(int column, SQLSMALLINT type, void* data, SQLLEN size, SQLLEN* length);

 private:
    SQLRETURN Serve(const Cell& cell, const Bound& bound, std::size_t& offset) const;

    std::size_t next_ = 0;
    std::map<int, std::size_t> offsets_;
};

/// The one that the calls reach.
ScriptedDriver& TheDriver();

}  // namespace zv::store::odbc
