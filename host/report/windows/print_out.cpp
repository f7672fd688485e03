#include "report/windows/print_out.h"

#include "automation/module.h"
#include "base/errors.h"
#include "base/win32/wide.h"
#include "forms/win32/win32_backend.h"
#include "forms/window_system.h"
#include "platform/win32/machine.h"
#include "report/report_texts.h"
#include "report/saving.h"
#include "report/windows/prepared_report.h"
#include "report/windows/preview.h"
#include "report/windows/printer.h"
#include "resources/win32/registry_settings.h"

namespace zv::report {
namespace {

// The path to write to, asked from the user when the client named none; empty when cancelled.
std::string TargetFile(const PrintRequest& request, const Document& document) {
    if (!request.outputFile.empty()) return request.outputFile;
    forms::win32::Win32Backend backend(automation::module::Handle());
    return AskForFile(backend.GetDialogs(), document, static_cast<PrintMode>(request.printMode),
                      nullptr);
}

// A client that names the file or the printer wants no window.
void Finish(const PrintRequest& request, const PreparedReport& report, ReportText caption,
            progress::LongWork& work) {
    if (!request.outputFile.empty() || !request.printerName.empty()) {
        while (work.Continue()) {
        }
        return;
    }
    forms::win32::Win32Backend backend(automation::module::Handle());
    forms::WindowSystem windows(backend);
    windows.title = report.Source().title;
    const platform::win32::SystemClock clock;
    windows.FromHost([&] {
        progress::RunLongWork(windows, clock, request.Script(),
                              GetReportText(caption, request.Script()), work);
    });
}

void Print(const PrintRequest& request, const PreparedReport& report, const KeptPrinter& kept) {
    PrinterChoice printer;
    if (request.printerName.empty()) {
        printer = ProposePrinter(kept, report.Pages(), request.copies);
    } else {
        printer.name = win32::ToWide(request.printerName);
        printer.copies = request.copies;
    }
    forms::win32::Win32Backend backend(automation::module::Handle());
    if (const auto job = BeginPrint(backend.GetDialogs(), report.Pages(), printer,
                                    request.outputFile, nullptr)) {
        Finish(request, report, ReportText::Printing, *job);
    }
}

}  // namespace

void PrintOut(const PrintRequest& request, FontFiles& fonts, KeptPrinter& printer, int& pageCount) {
    if (request.printMode < 0 || request.printMode > static_cast<int>(PrintMode::Csv)) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                           FormatReportText(ReportText::BadMode, request.Script(),
                                            std::to_string(request.printMode)));
    }
    const platform::win32::SystemClock clock;
    platform::win32::SystemFiles files;
    resources::win32::RegistrySettings settings;
    PreparedReport report(MakeDocument(request, clock.Now()), fonts, LoadPageSetup(settings));
    pageCount = report.Pages().PageCount();
    switch (static_cast<PrintMode>(request.printMode)) {
        case PrintMode::Preview:
            ShowPreview(request, report, printer, settings);
            // As the user left them.
            pageCount = report.Pages().PageCount();
            break;
        case PrintMode::Printer:
            Print(request, report, printer);
            break;
        case PrintMode::Pdf:
            if (const std::string path = TargetFile(request, report.Source()); !path.empty()) {
                PdfSaving saving(report.Pages(), files.Create(path));
                Finish(request, report, ReportText::Saving, saving);
            }
            break;
        case PrintMode::Csv:
            if (const std::string path = TargetFile(request, report.Source()); !path.empty()) {
                CsvSaving saving(report.Source(), files.Create(path));
                Finish(request, report, ReportText::Saving, saving);
            }
            break;
    }
}

}  // namespace zv::report
