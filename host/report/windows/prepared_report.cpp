#include "report/windows/prepared_report.h"

#include <string_view>

#include "base/errors.h"
#include "base/text.h"
#include "report/report_texts.h"
#include "report/text_lines.h"

namespace zv::report {
namespace {

std::unique_ptr<FontSet> MakeFonts(const Document& document, FontFiles& files) {
    std::unique_ptr<FontSet> fonts;
    for (std::size_t count = 1;; count++) {
        const std::vector<FontSource> sources = files.ForLanguage(document.language, count);
        if (sources.empty()) {
            throw RuntimeError(ErrorNumber::PrinterError,
                               GetReportText(ReportText::NoFont, document.language));
        }
        const bool isLast = sources.size() < count;
        if (isLast && fonts) return fonts;
        try {
            fonts = std::make_unique<FontSet>(sources);
        } catch (const RuntimeError&) {
            // None of them may be embedded; the next one may.
            if (isLast) throw;
            continue;
        }
        if (isLast ||
            AllCharacters(document, [&](char32_t c) { return !fonts->Find(c).isReplacement; })) {
            return fonts;
        }
    }
}

}  // namespace

PreparedReport::PreparedReport(Document document, FontFiles& fonts, const PageSetup& setup)
    : document_(std::move(document)),
      fonts_(MakeFonts(document_, fonts)),
      arrangement_(std::make_unique<Arrangement>(document_, *fonts_, setup)) {}

std::string FileNameOf(const Document& document) {
    constexpr std::string_view kForbidden = "\\/:*?\"<>|\n";
    constexpr std::size_t kLongest = 60;
    std::string name;
    for (const char c : CleanText(document.title)) {
        name += kForbidden.find(c) == std::string_view::npos ? c : '_';
    }
    name = text::Left(text::Trim(name), kLongest);
    while (!name.empty() && (name.back() == '.' || name.back() == ' ')) name.pop_back();
    return name.empty() ? "report" : name;
}

}  // namespace zv::report
