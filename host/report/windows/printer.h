// Paper.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "progress/long_work.h"
#include "report/kept_printer.h"
#include "report/layout.h"

namespace zv::report {

/// A printer and how it is to print.
struct PrinterChoice {
    std::wstring name;
    /// The driver's DEVMODE as the user chose it, paper and direction included; empty: the
    /// driver's defaults on paper as the pages need it.
    std::vector<unsigned char> settings;
    int copies = 1;  ///< where no settings are given
    int firstPage = 1;
    int lastPage = 0;  ///< 0: to the end
};

/// Name of the user's default printer. Throws 482 when there is none.
std::wstring DefaultPrinter(std::int16_t language);

/// Whether the printer stands at no device but at a file that has to be named for each print.
/// Throws 482 when the printer is unknown.
bool PrintsToFile(const PrinterChoice& printer, std::int16_t language);

/// What a print begins with, and is proposed to a user who is going to choose: the printer that was
/// chosen last with its settings, where it is still there, else the default printer with those of
/// its driver; on paper as the pages need it, unless the paper chosen last holds for them. The
/// number of copies is each print's own. Throws 482 when there is no printer.
PrinterChoice ProposePrinter(const KeptPrinter& kept, const Layout& layout, int copies);

/// Prints under the document's title; pages that are larger than the paper are made smaller. What
/// was not finished is not printed. Every operation throws 482 with the reason: the printer is
/// unknown, gone, or fails.
class PrintJob final : public progress::LongWork {
 public:
    /// `outputFile` empty: to where the printer stands, otherwise the printer's language into that
    /// file. Null when the user was asked where to print to and cancelled. The layout must outlive
    /// the job.
    static std::unique_ptr<PrintJob> Begin(const Layout& layout, const PrinterChoice& printer,
                                           const std::string& outputFile);
    ~PrintJob() override;
    bool Continue() override;
    std::optional<int> Percent() const override;
    std::string State() const override;

 private:
    struct Paper;
    PrintJob(const Layout& layout, const PrinterChoice& printer, std::unique_ptr<Paper> paper);

    const Layout& layout_;
    int first_ = 1;
    int last_ = 0;
    int next_ = 1;
    std::unique_ptr<Paper> paper_;
};

}  // namespace zv::report
