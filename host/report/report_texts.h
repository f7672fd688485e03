// What the reports and their windows say, in the language of the job.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "resources/texts.h"

namespace zv::report {

using ReportText = resources::PrintText;

/// Throws like resources::LoadText; a job's language is always one that has texts.
inline std::string GetReportText(ReportText id, std::int16_t language) {
    return resources::LoadText(id, language);
}
/// The same with {0} and {1} filled in.
inline std::string FormatReportText(ReportText id, std::int16_t language, std::string_view first,
                                    std::string_view second = {}) {
    return resources::LoadText(id, language, first, second);
}

}  // namespace zv::report
