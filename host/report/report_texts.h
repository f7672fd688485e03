// What the reports and their windows say, in both scripts.
#pragma once

#include <cstdint>
#include <string>

namespace zv::report {

enum class ReportText {
    PageOf,          ///< page {0} of {1}
    PrintedOn,       ///< date in the footer, {0}
    PrintedBy,       ///< user in the footer, {0}
    RecordCount,     ///< {0} records
    NoRecords,       ///< stands in the place of the rows
    Continued,       ///< at the head of the rest of a row
    ContinuesBelow,  ///< at the foot of a row that goes on
    KindTask,
    KindGuest,
    KindDiary,
    StateNotDone,
    StateDone,
    StateInHand,
    Preview,  ///< title of the window, {0} the report's
    FirstPage,
    PreviousPage,
    NextPage,
    LastPage,
    PageNumber,  ///< what a screen reader says of the box
    OfPages,     ///< behind that box, {0}
    ZoomOut,
    ZoomIn,
    Zoom,
    FitWidth,
    WholePage,
    Print,
    SavePdf,
    SaveCsv,
    Close,
    PageArea,  ///< what a screen reader says of the page
    PdfFilter,
    CsvFilter,
    SavePdfTitle,
    SaveCsvTitle,
    PrinterFileFilter,
    PrinterFileTitle,
    NoPrinter,
    UnknownPrinter,  ///< {0}
    PrinterFailed,   ///< {0}: the system's reason
    PrintCancelled,
    NoFont,
    BadMode,
    NothingToPrint,  ///< neither grid, parameters, recordset nor connection
    FileNotWritten,  ///< {0}
    SavingCancelled,
    Printing,  ///< heading of the progress window
    Saving,
};

/// The text in the language of the job: 1 Traditional, any other Simplified.
std::string GetReportText(ReportText id, std::int16_t language);
/// The same with {0} and {1} filled in.
std::string FormatReportText(ReportText id, std::int16_t language, const std::string& first,
                             const std::string& second = {});

}  // namespace zv::report
