// Captions of the query window and of long work, and what lists were asked for, that the message
// catalogue does not hold.
#pragma once

namespace zv::resources {

enum class AskText {
    WrittenBy,
    ButtonExport,
    NothingFound,
    RowsFound,       ///< "{0}" is the number of rows
    RowsSoFar,       ///< likewise
    QueryCancelled,  ///< likewise
    ExportTitle,
    CsvFilter,
    RowsExported,  ///< likewise
    ExportCancelled,
    Working,
    // At the head of a printed list: what it was asked for.
    AskedPeriod,
    AskedAnyDate,
    AskedFromTo,    ///< "{0}" and "{1}" are days
    AskedOnDay,     ///< "{0}" is the day, and the only one
    AskedSince,     ///< "{0}" is the first day
    AskedUntil,     ///< "{0}" is the last day
    AskedContains,  ///< "{0}" is the text
    AskedPattern,   ///< "{0}" is a text with wildcards
    AskedAll,       ///< nothing was asked for in particular
    AskedFor,       ///< "{0}" is the field, "{1}" what was asked for
    AskedNext,      ///< between two of them
    AskedAnd,       ///< between two kinds
    Last = AskedAnd,
};

}  // namespace zv::resources
