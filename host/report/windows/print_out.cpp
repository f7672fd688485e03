#include "report/windows/print_out.h"

#include "base/errors.h"
#include "base/win32/wide.h"
#include "forms/win32/win32_backend.h"
#include "module.h"
#include "platform/win32/machine.h"
#include "report/report_texts.h"
#include "report/windows/prepared_report.h"
#include "report/windows/preview.h"
#include "report/windows/printer.h"

namespace zv::report {
namespace {

// The path to write to, asked from the user when the client named none; empty when cancelled.
std::string TargetFile(const PrintRequest& request, const Document& document) {
    if (!request.outputFile.empty()) return request.outputFile;
    forms::win32::Win32Backend backend(host::ThisModule());
    return AskForFile(backend.GetDialogs(), document, static_cast<PrintMode>(request.printMode),
                      nullptr);
}

void Print(const PrintRequest& request, const PreparedReport& report) {
    PrinterChoice printer;
    printer.name = request.printerName.empty() ? DefaultPrinter(request.Script())
                                               : win32::ToWide(request.printerName);
    printer.copies = request.copies;
    PrintPages(report.Pages(), printer, request.outputFile);
}

}  // namespace

void PrintOut(const PrintRequest& request, FontFiles& fonts, int& pageCount) {
    if (request.printMode < 0 || request.printMode > static_cast<int>(PrintMode::Csv)) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                           FormatReportText(ReportText::BadMode, request.Script(),
                                            std::to_string(request.printMode)));
    }
    const platform::win32::SystemClock clock;
    platform::win32::SystemFiles files;
    const PreparedReport report(MakeDocument(request, clock.Now()), fonts);
    pageCount = report.Pages().PageCount();
    switch (static_cast<PrintMode>(request.printMode)) {
        case PrintMode::Preview:
            ShowPreview(request, report);
            break;
        case PrintMode::Printer:
            Print(request, report);
            break;
        case PrintMode::Pdf:
            if (const std::string path = TargetFile(request, report.Source()); !path.empty()) {
                report.SavePdf(files, path);
            }
            break;
        case PrintMode::Csv:
            if (const std::string path = TargetFile(request, report.Source()); !path.empty()) {
                report.SaveCsv(files, path);
            }
            break;
    }
}

}  // namespace zv::report
