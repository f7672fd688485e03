// Captions of the query window and of long work that the message catalogue does not hold.
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
    Last = Working,
};

}  // namespace zv::resources
