#include "report/saving.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "report/report_texts.h"

namespace zv::report {
namespace {

constexpr int kPagesAPiece = 8;
constexpr std::size_t kRowsAPiece = 5000;

}  // namespace

std::string PagesDone(const Layout& layout, int done, int pages) {
    return FormatReportText(ReportText::PageOf, layout.Source().language, std::to_string(done),
                            std::to_string(pages));
}

int PercentOf(int done, int total) {
    return static_cast<int>(std::int64_t{100} * done / std::max(total, 1));
}

PdfSaving::PdfSaving(const Layout& layout, std::unique_ptr<platform::OutputFile> file)
    : layout_(layout), file_(std::move(file)), pdf_(layout, *file_) {}

bool PdfSaving::Continue() {
    const int end = std::min(done_ + kPagesAPiece, layout_.PageCount());
    while (done_ < end) pdf_.WritePage(++done_);
    if (done_ < layout_.PageCount()) return true;
    pdf_.End();
    file_->Commit();
    return false;
}

std::optional<int> PdfSaving::Percent() const {
    return PercentOf(done_, layout_.PageCount());
}

std::string PdfSaving::State() const {
    return PagesDone(layout_, done_, layout_.PageCount());
}

CsvSaving::CsvSaving(const Document& document, std::unique_ptr<platform::OutputFile> file)
    : file_(std::move(file)), csv_(document, *file_) {}

bool CsvSaving::Continue() {
    if (csv_.WriteRows(kRowsAPiece)) return true;
    file_->Commit();
    return false;
}

std::optional<int> CsvSaving::Percent() const {
    return PercentOf(static_cast<int>(csv_.Done()), static_cast<int>(csv_.RowCount()));
}

}  // namespace zv::report
