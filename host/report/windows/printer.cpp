#include "report/windows/printer.h"

#include <winspool.h>

#include <algorithm>
#include <memory>

#include "base/errors.h"
#include "base/win32/com_error.h"
#include "base/win32/wide.h"
#include "forms/win32/handles.h"
#include "report/report_texts.h"
#include "report/saving.h"
#include "report/windows/gdi_painter.h"

namespace zv::report {
namespace {

constexpr double kPointsPerInch = 72;

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

// The driver's settings with what this job needs of them.
std::vector<unsigned char> SettingsFor(const PrinterChoice& printer, bool isLandscape,
                                       std::int16_t language) {
    HANDLE handle = nullptr;
    auto* name = const_cast<wchar_t*>(printer.name.c_str());
    if (!OpenPrinterW(name, &handle, nullptr)) {
        throw RuntimeError(ErrorNumber::PrinterError,
                           FormatReportText(ReportText::UnknownPrinter, language,
                                            zv::win32::ToUtf8(printer.name)));
    }
    const OpenedPrinter opened(handle);
    const LONG size = DocumentPropertiesW(nullptr, handle, name, nullptr, nullptr, 0);
    if (size < static_cast<LONG>(sizeof(DEVMODEW))) return printer.settings;
    std::vector<unsigned char> bytes(static_cast<std::size_t>(size));
    auto* settings = reinterpret_cast<DEVMODEW*>(bytes.data());
    if (!printer.settings.empty() && printer.settings.size() <= bytes.size()) {
        std::copy(printer.settings.begin(), printer.settings.end(), bytes.begin());
    } else if (DocumentPropertiesW(nullptr, handle, name, settings, nullptr, DM_OUT_BUFFER) < 0) {
        return printer.settings;
    }
    settings->dmFields |= DM_ORIENTATION | DM_PAPERSIZE | DM_COPIES | DM_COLLATE;
    settings->dmOrientation = isLandscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    settings->dmPaperSize = DMPAPER_A4;
    settings->dmCopies = static_cast<short>(std::clamp(printer.copies, 1, 999));
    settings->dmCollate = DMCOLLATE_TRUE;
    // A driver that does not know A4 says so by keeping its own paper.
    DocumentPropertiesW(nullptr, handle, name, settings, settings, DM_IN_BUFFER | DM_OUT_BUFFER);
    return bytes;
}

// Ends the job on every way out: as printed when it was finished, else without a page.
class Job {
 public:
    Job(HDC dc, const std::wstring& title, const std::wstring& file, std::int16_t language)
        : dc_(dc) {
        DOCINFOW info{};
        info.cbSize = sizeof info;
        info.lpszDocName = title.c_str();
        info.lpszOutput = file.empty() ? nullptr : file.c_str();
        SetLastError(0);
        if (StartDocW(dc_, &info) <= 0) Fail(GetLastError(), language);
    }
    ~Job() {
        if (!finished_) AbortDoc(dc_);
    }
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;
    void Finish(std::int16_t language) {
        finished_ = true;
        SetLastError(0);
        if (EndDoc(dc_) <= 0) Fail(GetLastError(), language);
    }

 private:
    HDC dc_;
    bool finished_ = false;
};

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

struct PrintJob::Paper {
    Paper(const Layout& layout, const PrinterChoice& printer, const std::string& outputFile,
          const std::vector<unsigned char>& settings)
        : dc(CreateDCW(
              L"WINSPOOL", printer.name.c_str(), nullptr,
              settings.empty() ? nullptr : reinterpret_cast<const DEVMODEW*>(settings.data()))) {
        if (!dc) Fail(GetLastError(), layout.Source().language);
        job.emplace(dc.get(), zv::win32::ToWide(layout.Source().title),
                    zv::win32::ToWide(outputFile), layout.Source().language);
    }

    forms::win32::MemoryDc dc;
    std::optional<Job> job;
};

PrintJob::PrintJob(const Layout& layout, const PrinterChoice& printer,
                   const std::string& outputFile)
    : layout_(layout) {
    const bool isLandscape = layout.PageWidth() > layout.PageHeight();
    paper_ = std::make_unique<Paper>(layout, printer, outputFile,
                                     SettingsFor(printer, isLandscape, layout.Source().language));
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
    // The driver counts from the edge of what it can print on.
    GdiPainter painter(dc, layout_.Fonts(), GetDeviceCaps(dc, LOGPIXELSX) / kPointsPerInch,
                       -GetDeviceCaps(dc, PHYSICALOFFSETX), -GetDeviceCaps(dc, PHYSICALOFFSETY));
    painter.Draw(layout_.MakePage(next_));
    if (EndPage(dc) <= 0) Fail(GetLastError(), language);
    if (next_++ < last_) return true;
    paper_->job->Finish(language);
    return false;
}

std::optional<int> PrintJob::Percent() const {
    return PercentOf(next_ - first_, last_ - first_ + 1);
}

std::string PrintJob::State() const {
    return PagesDone(layout_, next_ - first_, last_ - first_ + 1);
}

}  // namespace zv::report
