// One call of the print operation: from the request to the preview, the printer or a file.
#pragma once

#include "report/kept_printer.h"
#include "report/windows/font_files.h"
#include "report/windows/print_request.h"

namespace zv::report {

/// `printer` keeps what the user chose for the next print. `pageCount` is set as soon as the pages
/// are made. A user who cancels a box ends the job without
/// an error. Throws RuntimeError, its text in the script of the job where it is not the system's.
void PrintOut(const PrintRequest& request, FontFiles& fonts, KeptPrinter& printer, int& pageCount);

}  // namespace zv::report
