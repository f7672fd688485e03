// Paper.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "report/layout.h"
#include "reports/long_work.h"

namespace zv::report {

/// A printer and how it is to print; the bytes are the driver's DEVMODE, empty for its defaults.
struct PrinterChoice {
    std::wstring name;
    std::vector<unsigned char> settings;
    int copies = 1;
    int firstPage = 1;
    int lastPage = 0;  ///< 0: to the end
};

/// Name of the user's default printer. Throws 482 when there is none.
std::wstring DefaultPrinter(std::int16_t language);

/// Prints under the document's title, A4 and upright or across as its pages are. `outputFile`
/// empty: to where the printer stands, otherwise the printer's language into that file. What was
/// not finished is not printed. Every operation throws 482 with the reason: the printer is unknown,
/// gone, or fails. The layout must outlive the job.
class PrintJob final : public reports::LongWork {
 public:
    PrintJob(const Layout& layout, const PrinterChoice& printer, const std::string& outputFile);
    ~PrintJob() override;
    bool Continue() override;
    std::optional<int> Percent() const override;
    std::string State() const override;

 private:
    struct Paper;
    const Layout& layout_;
    int first_ = 1;
    int last_ = 0;
    int next_ = 1;
    std::unique_ptr<Paper> paper_;
};

}  // namespace zv::report
