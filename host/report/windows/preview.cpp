#include "report/windows/preview.h"

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <cstring>
#include <new>

#include "automation/module.h"
#include "base/errors.h"
#include "base/win32/wide.h"
#include "forms/win32/standing_box.h"
#include "forms/win32/thread_windows.h"
#include "forms/win32/win32_backend.h"
#include "forms/window_system.h"
#include "platform/win32/machine.h"
#include "report/preview/preview_form.h"
#include "report/report_texts.h"
#include "report/saving.h"
#include "report/windows/gdi_painter.h"
#include "report/windows/printer.h"
#include "resources/error_texts.h"

namespace zv::report {
namespace {

void PaintOn(const forms::CanvasSurface& surface, const FontSet& fonts, const Page& page,
             double scale, double left, double top) {
    if (!surface.device) return;
    const HDC dc = static_cast<HDC>(surface.device);
    RECT paper{static_cast<LONG>(left), static_cast<LONG>(top),
               static_cast<LONG>(left + page.width * scale),
               static_cast<LONG>(top + page.height * scale)};
    RECT frame{paper.left - 1, paper.top - 1, paper.right + 1, paper.bottom + 1};
    FillRect(dc, &frame, GetSysColorBrush(COLOR_3DDKSHADOW));
    FillRect(dc, &paper, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    GdiPainter(dc, fonts, {scale, scale, left, top}).Draw(page);
}

class GlobalBytes {
 public:
    explicit GlobalBytes(HGLOBAL handle) : handle_(handle), bytes_(GlobalLock(handle)) {}
    ~GlobalBytes() {
        GlobalUnlock(handle_);
        GlobalFree(handle_);
    }
    GlobalBytes(const GlobalBytes&) = delete;
    GlobalBytes& operator=(const GlobalBytes&) = delete;
    template <typename T>
    const T* As() const {
        return static_cast<const T*>(bytes_);
    }

 private:
    HGLOBAL handle_;
    void* bytes_;
};

HGLOBAL Copied(const std::vector<unsigned char>& bytes) {
    if (bytes.empty()) return nullptr;
    const HGLOBAL handle = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    void* target = handle ? GlobalLock(handle) : nullptr;
    if (!target) throw std::bad_alloc();
    std::copy(bytes.begin(), bytes.end(), static_cast<unsigned char*>(target));
    GlobalUnlock(handle);
    return handle;
}

// Names the printer, which may be called longer than its settings can say.
HGLOBAL Named(const std::wstring& printer) {
    constexpr std::wstring_view kDriver = L"winspool";
    DEVNAMES offsets{};
    const std::size_t head = sizeof offsets / sizeof(wchar_t);
    offsets.wDriverOffset = static_cast<WORD>(head);
    offsets.wDeviceOffset = static_cast<WORD>(head + kDriver.size() + 1);
    offsets.wOutputOffset = static_cast<WORD>(offsets.wDeviceOffset + printer.size() + 1);
    std::wstring names(kDriver);
    names += L'\0' + printer + L'\0' + L'\0';
    std::vector<unsigned char> bytes(sizeof offsets + names.size() * sizeof(wchar_t));
    std::memcpy(bytes.data(), &offsets, sizeof offsets);
    std::memcpy(bytes.data() + sizeof offsets, names.data(), names.size() * sizeof(wchar_t));
    return Copied(bytes);
}

// The system's printer dialog, which proposes `printer` as it is; what the user chooses instead
// holds. False when the user cancels it.
bool ChoosePrinter(HWND owner, const Layout& layout, PrinterChoice& printer) {
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.Flags =
        PD_ALLPAGES | PD_NOSELECTION | PD_USEDEVMODECOPIESANDCOLLATE | PD_HIDEPRINTTOFILE;
    if (layout.PageCount() == 1) dialog.Flags |= PD_NOPAGENUMS;
    dialog.nCopies = static_cast<WORD>(printer.copies);
    dialog.nMinPage = dialog.nFromPage = 1;
    dialog.nMaxPage = dialog.nToPage = static_cast<WORD>(std::min(layout.PageCount(), 0xFFFE));
    dialog.hDevMode = Copied(printer.settings);
    dialog.hDevNames = Named(printer.name);
    const BOOL chosen = PrintDlgW(&dialog);
    const DWORD failure = chosen ? 0 : CommDlgExtendedError();
    if (dialog.hDevMode) {
        const GlobalBytes mode(dialog.hDevMode);
        if (const auto* settings = mode.As<DEVMODEW>(); chosen && settings) {
            const auto* bytes = mode.As<unsigned char>();
            printer.settings.assign(bytes, bytes + settings->dmSize + settings->dmDriverExtra);
        }
    }
    if (dialog.hDevNames) {
        const GlobalBytes names(dialog.hDevNames);
        if (const auto* offsets = names.As<DEVNAMES>(); chosen && offsets) {
            printer.name = names.As<wchar_t>() + offsets->wDeviceOffset;
        }
    }
    if (failure != 0) {
        const std::int16_t language = layout.Source().language;
        if (failure == PDERR_NODEFAULTPRN || failure == PDERR_NODEVICES) {
            throw RuntimeError(ErrorNumber::PrinterError,
                               GetReportText(ReportText::NoPrinter, language));
        }
        throw RuntimeError(ErrorNumber::PrinterError,
                           FormatReportText(ReportText::PrinterFailed, language,
                                            "PrintDlg " + std::to_string(failure)));
    }
    if (chosen && (dialog.Flags & PD_PAGENUMS)) {
        printer.firstPage = dialog.nFromPage;
        printer.lastPage = dialog.nToPage;
    }
    return chosen != FALSE;
}

}  // namespace

std::string AskForFile(forms::Dialogs& dialogs, const Document& document, PrintMode mode,
                       forms::Form* owner) {
    struct Kind {
        const char* extension;
        ReportText filter;
        ReportText title;
    };
    const auto kind = [mode]() -> Kind {
        switch (mode) {
            case PrintMode::Pdf:
                return {"pdf", ReportText::PdfFilter, ReportText::SavePdfTitle};
            case PrintMode::Csv:
                return {"csv", ReportText::CsvFilter, ReportText::SaveCsvTitle};
            default:
                return {"prn", ReportText::PrinterFileFilter, ReportText::PrinterFileTitle};
        }
    }();
    forms::FileRequest file;
    file.forSaving = true;
    file.extension = kind.extension;
    file.filter = GetReportText(kind.filter, document.language);
    file.title = GetReportText(kind.title, document.language);
    file.initialFile = FileNameOf(document) + "." + file.extension;
    return dialogs.ChooseFile(owner, file).value_or(std::string());
}

std::unique_ptr<PrintJob> BeginPrint(forms::Dialogs& dialogs, const Layout& layout,
                                     const PrinterChoice& printer, std::string outputFile,
                                     forms::Form* owner) {
    if (outputFile.empty() && PrintsToFile(printer, layout.Source().language)) {
        outputFile = AskForFile(dialogs, layout.Source(), PrintMode::Printer, owner);
        if (outputFile.empty()) return nullptr;
    }
    return PrintJob::Begin(layout, printer, outputFile);
}

void ShowPreview(const PrintRequest& request, PreparedReport& report, KeptPrinter& kept,
                 resources::SettingsStore& settings) {
    forms::win32::Win32Backend backend(automation::module::Handle());
    forms::WindowSystem windows(backend);
    windows.title = report.Source().title;
    windows.describeError = [&](const RuntimeError& error) {
        return resources::DescribeError(error, request.Script());
    };
    platform::win32::SystemFiles files;
    const platform::win32::SystemClock clock;
    forms::Form* window = nullptr;
    const auto run = [&](ReportText caption, ReportText cancelled, progress::LongWork& work) {
        const auto text = [&](ReportText id) { return GetReportText(id, request.Script()); };
        const progress::WorkEnd end =
            progress::RunLongWork(windows, clock, request.Script(), text(caption), work);
        if (end == progress::WorkEnd::Cancelled) {
            windows.ShowMessage(text(cancelled), forms::box::kInformation);
        }
    };
    PreviewActions actions;
    actions.print = [&] {
        PrinterChoice printer = ProposePrinter(kept, report.Pages(), request.copies);
        const HWND owner = backend.Handle(*window);
        bool chosen = false;
        {
            const forms::win32::OtherWindowsDisabled others(owner);
            const forms::win32::StandingBox standing(forms::win32::StandingBox::Kind::FileDialog,
                                                     owner, backend.GetScreens());
            chosen = ChoosePrinter(owner, report.Pages(), printer) && !standing.Died();
        }
        if (!chosen) return;
        kept = {zv::win32::ToUtf8(printer.name), printer.settings, report.Pages().PageWidth(),
                report.Pages().PageHeight()};
        if (const auto job =
                BeginPrint(backend.GetDialogs(), report.Pages(), printer, {}, window)) {
            run(ReportText::Printing, ReportText::PrintCancelled, *job);
        }
    };
    actions.savePdf = [&] {
        const std::string path =
            AskForFile(backend.GetDialogs(), report.Source(), PrintMode::Pdf, window);
        if (path.empty()) return;
        PdfSaving saving(report.Pages(), files.Create(path));
        run(ReportText::Saving, ReportText::SavingCancelled, saving);
    };
    actions.saveCsv = [&] {
        const std::string path =
            AskForFile(backend.GetDialogs(), report.Source(), PrintMode::Csv, window);
        if (path.empty()) return;
        CsvSaving saving(report.Source(), files.Create(path));
        run(ReportText::Saving, ReportText::SavingCancelled, saving);
    };
    actions.keepSetup = [&](const PageSetup& setup) { SavePageSetup(settings, setup); };
    actions.paint = [&](const forms::CanvasSurface& surface, const Page& page, double scale,
                        double left, double top) {
        PaintOn(surface, report.Pages().Fonts(), page, scale, left, top);
    };
    windows.FromHost([&] {
        windows.OpenNew<PreviewForm>(
            true, [&](PreviewForm& preview) { window = &preview; }, report.Arranged(),
            std::move(actions));
    });
}

}  // namespace zv::report
