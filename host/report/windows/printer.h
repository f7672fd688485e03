// Paper.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "report/layout.h"
#include "report/progress.h"

namespace zv::report {

/// A printer and how it is to print; the bytes are the driver's DEVMODE, empty for its defaults.
struct PrinterChoice {
    std::wstring name;
    std::vector<unsigned char> settings;
    int copies = 1;
    int firstPage = 1;
    int lastPage = 0;  ///< 0: to the end
};

/// Name of the user's default printer. Throws 482 when there is none.
std::wstring DefaultPrinter(std::int16_t language);

/// Prints under the document's title, A4 and upright or across as its pages are. `outputFile`
/// empty: to where the printer stands, otherwise the printer's language into that file. False when
/// `progress` stopped it; nothing is printed then. Throws 482 with the reason: the printer is
/// unknown, gone, or fails.
bool PrintPages(const Layout& layout, const PrinterChoice& printer, const std::string& outputFile,
                const Progress& progress = {});

}  // namespace zv::report
