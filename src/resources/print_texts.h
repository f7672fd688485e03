// What the papers of the report component and its windows say.
#pragma once

namespace zv::resources {

enum class PrintText {
    PageOf,          ///< page {0} of {1}
    PrintedOn,       ///< date and time in the footer, {0}
    PrintedBy,       ///< user in the footer, {0}
    RecordCount,     ///< {0} records, at the head of each page
    Total,           ///< {0} records, behind the last one
    NoRecords,       ///< stands in the place of the rows
    Continued,       ///< at the head of the rest of a row
    ContinuesBelow,  ///< at the foot of a row that goes on
    Preview,         ///< title of the window, {0} the report's
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
    PageSetup,      ///< the preview's button
    LeaveOutEmpty,  ///< its check box
    PageSetupWindow,
    PaperSize,
    Direction,
    DirectionAsNeeded,
    DirectionUpright,
    DirectionAcross,
    PageMargins,
    MarginLeft,
    MarginRight,
    MarginTop,
    MarginBottom,
    UsualSetup,
    BadMargin,  ///< {0}, {1}: the bounds
    Last = BadMargin,
};

}  // namespace zv::resources
