// The preview window with the system's drawing, printers and file dialogs behind it.
#pragma once

#include <memory>
#include <string>

#include "forms/dialogs.h"
#include "report/kept_printer.h"
#include "report/windows/prepared_report.h"
#include "report/windows/print_request.h"
#include "report/windows/printer.h"
#include "resources/settings.h"

namespace zv::report {

/// Returns when the user has closed the window; the thread's other windows wait meanwhile. How the
/// user sets up pages is kept in the settings, which printer was chosen in `kept`.
void ShowPreview(const PrintRequest& request, PreparedReport& report, KeptPrinter& kept,
                 resources::SettingsStore& settings);

/// The path to write to, asked from the user; empty when cancelled.
std::string AskForFile(forms::Dialogs& dialogs, const Document& document, PrintMode mode,
                       forms::Form* owner);

/// A print that has begun; one to a printer that stands at a file asks the user for that first
/// where no file is named. Null when the user cancelled. The layout must outlive the job.
std::unique_ptr<PrintJob> BeginPrint(forms::Dialogs& dialogs, const Layout& layout,
                                     const PrinterChoice& printer, std::string outputFile,
                                     forms::Form* owner);

}  // namespace zv::report
