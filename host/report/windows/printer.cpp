#include "report/windows/printer.h"

#include <winspool.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "base/errors.h"
#include "base/win32/com_error.h"
#include "base/win32/wide.h"
#include "forms/win32/handles.h"
#include "report/paper_fit.h"
#include "report/report_texts.h"
#include "report/saving.h"
#include "report/windows/gdi_painter.h"

namespace zv::report {
namespace {

[[noreturn]] void Fail(DWORD error, std::int16_t language) {
    const std::string reason =
        error == 0 ? std::string("?") : zv::win32::SystemMessage(HRESULT_FROM_WIN32(error));
    throw RuntimeError(ErrorNumber::PrinterError,
                       FormatReportText(ReportText::PrinterFailed, language, reason));
}

struct PrinterPolicy {
    using Handle = HANDLE;
    static void Close(HANDLE handle) { ClosePrinter(handle); }
};
using OpenedPrinter = forms::win32::UniqueHandle<PrinterPolicy>;

OpenedPrinter Open(const PrinterChoice& printer, std::int16_t language) {
    HANDLE handle = nullptr;
    if (!OpenPrinterW(const_cast<wchar_t*>(printer.name.c_str()), &handle, nullptr)) {
        throw RuntimeError(ErrorNumber::PrinterError,
                           FormatReportText(ReportText::UnknownPrinter, language,
                                            zv::win32::ToUtf8(printer.name)));
    }
    return OpenedPrinter(handle);
}

bool IsThere(const PrinterChoice& printer) {
    HANDLE handle = nullptr;
    const BOOL isThere = OpenPrinterW(const_cast<wchar_t*>(printer.name.c_str()), &handle, nullptr);
    return OpenedPrinter(isThere ? handle : nullptr).get() != nullptr;
}

short PaperCode(Paper paper) {
    switch (paper) {
        case Paper::A3:
            return DMPAPER_A3;
        case Paper::A5:
            return DMPAPER_A5;
        case Paper::B5:
            return DMPAPER_B5;
        case Paper::Letter:
            return DMPAPER_LETTER;
        case Paper::Legal:
            return DMPAPER_LEGAL;
        default:
            return DMPAPER_A4;
    }
}

// A driver that was replaced since may keep settings of another length.
bool IsWhole(const std::vector<unsigned char>& settings, std::size_t most) {
    if (settings.size() < sizeof(DEVMODEW) || settings.size() > most) return false;
    const auto* mode = reinterpret_cast<const DEVMODEW*>(settings.data());
    return std::size_t{mode->dmSize} + mode->dmDriverExtra <= settings.size();
}

// Empty when the driver reports no settings.
std::vector<unsigned char> SettingsFor(const PrinterChoice& printer, const Layout& layout,
                                       const KeptPrinter& kept) {
    const OpenedPrinter opened = Open(printer, layout.Source().language);
    const HANDLE handle = opened.get();
    auto* name = const_cast<wchar_t*>(printer.name.c_str());
    const LONG size = DocumentPropertiesW(nullptr, handle, name, nullptr, nullptr, 0);
    if (size < static_cast<LONG>(sizeof(DEVMODEW))) return {};
    std::vector<unsigned char> bytes(static_cast<std::size_t>(size));
    auto* settings = reinterpret_cast<DEVMODEW*>(bytes.data());
    const bool isKept = IsWhole(kept.settings, bytes.size());
    if (isKept) {
        std::copy(kept.settings.begin(), kept.settings.end(), bytes.begin());
    } else if (DocumentPropertiesW(nullptr, handle, name, settings, nullptr, DM_OUT_BUFFER) < 0) {
        return {};
    }
    if (!isKept || !kept.HoldsPaperFor(layout.PageWidth(), layout.PageHeight())) {
        const bool isLandscape = layout.PageWidth() > layout.PageHeight();
        settings->dmFields |= DM_ORIENTATION | DM_PAPERSIZE;
        settings->dmOrientation = isLandscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
        settings->dmPaperSize = PaperCode(layout.Setup().paper);
    }
    settings->dmFields |= DM_COPIES | DM_COLLATE;
    settings->dmCopies = static_cast<short>(std::clamp(printer.copies, 1, 999));
    settings->dmCollate = DMCOLLATE_TRUE;
    // A driver that does not know the paper says so by keeping its own.
    DocumentPropertiesW(nullptr, handle, name, settings, settings, DM_IN_BUFFER | DM_OUT_BUFFER);
    return bytes;
}

// Some printers ask something when the document begins.
bool IsCancelled(int result, DWORD error) {
    return result == SP_USERABORT || result == SP_APPABORT || error == ERROR_CANCELLED ||
           error == ERROR_PRINT_CANCELLED;
}

// Ends the job on every way out: as printed when it was finished, else without a page.
class Job {
 public:
    explicit Job(HDC dc) : dc_(dc) {}
    ~Job() {
        if (begun_) AbortDoc(dc_);
    }
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    /// False when the user cancels.
    bool Begin(const std::wstring& title, const std::wstring& file, std::int16_t language) {
        DOCINFOW info{};
        info.cbSize = sizeof info;
        info.lpszDocName = title.c_str();
        info.lpszOutput = file.empty() ? nullptr : file.c_str();
        SetLastError(0);
        const int result = StartDocW(dc_, &info);
        begun_ = result > 0;
        if (begun_) return true;
        const DWORD error = GetLastError();
        if (IsCancelled(result, error)) return false;
        Fail(error, language);
    }
    void Finish(std::int16_t language) {
        begun_ = false;
        SetLastError(0);
        if (EndDoc(dc_) <= 0) Fail(GetLastError(), language);
    }

 private:
    HDC dc_;
    bool begun_ = false;
};

Sheet SheetOf(HDC dc) {
    const auto capability = [dc](int what) { return GetDeviceCaps(dc, what); };
    return {capability(LOGPIXELSX),     capability(LOGPIXELSY),      capability(PHYSICALWIDTH),
            capability(PHYSICALHEIGHT), capability(PHYSICALOFFSETX), capability(PHYSICALOFFSETY)};
}

}  // namespace

std::wstring DefaultPrinter(std::int16_t language) {
    DWORD length = 0;
    GetDefaultPrinterW(nullptr, &length);
    std::wstring name(length, L'\0');
    if (length == 0 || !GetDefaultPrinterW(name.data(), &length)) {
        throw RuntimeError(ErrorNumber::PrinterError,
                           GetReportText(ReportText::NoPrinter, language));
    }
    name.resize(wcsnlen(name.c_str(), name.size()));
    return name;
}

bool PrintsToFile(const PrinterChoice& printer, std::int16_t language) {
    const OpenedPrinter opened = Open(printer, language);
    DWORD size = 0;
    GetPrinterW(opened.get(), 5, nullptr, 0, &size);
    std::vector<unsigned char> bytes(std::max<std::size_t>(size, sizeof(PRINTER_INFO_5W)));
    if (!GetPrinterW(opened.get(), 5, bytes.data(), static_cast<DWORD>(bytes.size()), &size)) {
        return false;
    }
    const auto* facts = reinterpret_cast<const PRINTER_INFO_5W*>(bytes.data());
    return facts->pPortName && lstrcmpiW(facts->pPortName, L"FILE:") == 0;
}

PrinterChoice ProposePrinter(const KeptPrinter& kept, const Layout& layout, int copies) {
    PrinterChoice printer;
    printer.copies = copies;
    printer.name = zv::win32::ToWide(kept.name);
    if (!kept.name.empty() && IsThere(printer)) {
        printer.settings = SettingsFor(printer, layout, kept);
        return printer;
    }
    printer.name = DefaultPrinter(layout.Source().language);
    printer.settings = SettingsFor(printer, layout, {});
    return printer;
}

struct PrintJob::Paper {
    explicit Paper(HDC device) : dc(device), job(device) {}

    forms::win32::MemoryDc dc;
    Job job;
};

std::unique_ptr<PrintJob> PrintJob::Begin(const Layout& layout, const PrinterChoice& printer,
                                          const std::string& outputFile) {
    const std::int16_t language = layout.Source().language;
    Open(printer, language);
    const std::vector<unsigned char> settings =
        printer.settings.empty() ? SettingsFor(printer, layout, {}) : printer.settings;
    const HDC dc =
        CreateDCW(L"WINSPOOL", printer.name.c_str(), nullptr,
                  settings.empty() ? nullptr : reinterpret_cast<const DEVMODEW*>(settings.data()));
    if (!dc) Fail(GetLastError(), language);
    auto paper = std::make_unique<Paper>(dc);
    if (!paper->job.Begin(zv::win32::ToWide(layout.Source().title), zv::win32::ToWide(outputFile),
                          language)) {
        return nullptr;
    }
    return std::unique_ptr<PrintJob>(new PrintJob(layout, printer, std::move(paper)));
}

PrintJob::PrintJob(const Layout& layout, const PrinterChoice& printer, std::unique_ptr<Paper> paper)
    : layout_(layout), paper_(std::move(paper)) {
    last_ =
        printer.lastPage > 0 ? std::min(printer.lastPage, layout.PageCount()) : layout.PageCount();
    first_ = std::clamp(printer.firstPage, 1, last_);
    next_ = first_;
}

PrintJob::~PrintJob() = default;

bool PrintJob::Continue() {
    const std::int16_t language = layout_.Source().language;
    const HDC dc = paper_->dc.get();
    SetLastError(0);
    if (StartPage(dc) <= 0) Fail(GetLastError(), language);
    GdiPainter painter(dc, layout_.Fonts(),
                       FitPage(layout_.PageWidth(), layout_.PageHeight(), SheetOf(dc)));
    painter.Draw(layout_.MakePage(next_));
    if (EndPage(dc) <= 0) Fail(GetLastError(), language);
    if (next_++ < last_) return true;
    paper_->job.Finish(language);
    return false;
}

std::optional<int> PrintJob::Percent() const {
    return PercentOf(next_ - first_, last_ - first_ + 1);
}

std::string PrintJob::State() const {
    return PagesDone(layout_, next_ - first_, last_ - first_ + 1);
}

}  // namespace zv::report
