// Captions of the query window and of long work that the message catalogue does not hold.
#pragma once

#include <cstdint>
#include <string>

namespace zv::resources {

enum class AskText {
    WrittenBy,
    ButtonExport,
    NothingFound,
    RowsFound,       ///< "{n}" is the number of rows
    RowsSoFar,       ///< likewise
    QueryCancelled,  ///< likewise
    ExportTitle,
    CsvFilter,
    RowsExported,  ///< likewise
    ExportCancelled,
    Working,
};

/// The text in the control's language: 1 Traditional, any other Simplified.
std::string GetAskText(AskText id, std::int16_t language);
/// With the number in the place of "{n}".
std::string GetAskText(AskText id, std::int16_t language, int number);

}  // namespace zv::resources
