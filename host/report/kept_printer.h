// What the user chose in the printer's dialog, for the next print of the session.
#pragma once

#include <cmath>
#include <string>
#include <vector>

namespace zv::report {

struct KeptPrinter {
    std::string name;                     ///< empty: nothing was chosen yet
    std::vector<unsigned char> settings;  ///< known to the printer's driver only
    /// Of the pages for which it was chosen, in points.
    double pageWidth = 0;
    double pageHeight = 0;

    /// Whether paper and direction hold as well: only for pages like those for which they were
    /// chosen. Other pages have paper proposed of their own; all else holds.
    bool HoldsPaperFor(double width, double height) const {
        constexpr double kTolerance = 1;
        return !name.empty() && std::abs(width - pageWidth) < kTolerance &&
               std::abs(height - pageHeight) < kTolerance;
    }
};

}  // namespace zv::report
