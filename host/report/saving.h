// Saving a report in pieces, so that the user can watch and stop it.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/machine.h"
#include "progress/long_work.h"
#include "report/csv_export.h"
#include "report/layout.h"
#include "report/pdf_painter.h"

namespace zv::report {

/// Both take their file's name only when all is written.
class PdfSaving final : public progress::LongWork {
 public:
    /// The layout must outlive this. Throws what creating the file throws.
    PdfSaving(const Layout& layout, std::unique_ptr<platform::OutputFile> file);
    bool Continue() override;
    std::optional<int> Percent() const override;
    std::string State() const override;

 private:
    const Layout& layout_;
    std::unique_ptr<platform::OutputFile> file_;
    PdfFile pdf_;
    int done_ = 0;
};

class CsvSaving final : public progress::LongWork {
 public:
    /// The document must outlive this.
    CsvSaving(const Document& document, std::unique_ptr<platform::OutputFile> file);
    bool Continue() override;
    std::optional<int> Percent() const override;

 private:
    std::unique_ptr<platform::OutputFile> file_;
    CsvExport csv_;
};

/// "Page n of m" in the layout's language, for work that has done `done` of `pages`.
std::string PagesDone(const Layout& layout, int done, int pages);
int PercentOf(int done, int total);

}  // namespace zv::report
