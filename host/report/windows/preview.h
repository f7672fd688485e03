// The preview window with the system's drawing, printers and file dialogs behind it.
#pragma once

#include "forms/dialogs.h"
#include "report/windows/prepared_report.h"
#include "report/windows/print_request.h"

namespace zv::report {

/// Returns when the user has closed the window; the thread's other windows wait meanwhile.
void ShowPreview(const PrintRequest& request, const PreparedReport& report);

/// The path to write to, asked from the user; empty when cancelled.
std::string AskForFile(forms::Dialogs& dialogs, const Document& document, PrintMode mode,
                       forms::Form* owner);

}  // namespace zv::report
