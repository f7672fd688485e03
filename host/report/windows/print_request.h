// What a client has asked the report component for.
#pragma once

#include <cstdint>
#include <string>

#include "base/date_time.h"
#include "base/win32/variant.h"
#include "report/document.h"
#include "resources/texts.h"
#include "store/connection_opener.h"

namespace zv::report {

enum class PrintMode { Preview = 0, Printer = 1, Pdf = 2, Csv = 3 };

struct PrintRequest {
    std::string userPath, password, userId, defaultDatabase, userName, company;
    std::string reportName, title, subtitle, filter, order, criteria, outputFile, printerName;
    std::int32_t sqlData = 0;
    std::int32_t language = 0;  ///< as the host set it
    std::int32_t printMode = 0;
    std::int32_t copies = 1;
    bool copyright = false;
    win32::Variant parameters, columns, recordset, grid;

    /// The language that the papers speak.
    std::int16_t Script() const { return resources::SpokenLanguage(language); }
    bool HasConnection() const { return !userPath.empty() || sqlData >= 1; }
};

inline constexpr char kItemReport[] = "zvTask01";
inline constexpr char kListReport[] = "zvTask02";

/// Reads everything that the request refers to. A grid comes before any report name. Throws what
/// the database or the objects report, 5 for an unknown report and a list without rows to read.
Document MakeDocument(const PrintRequest& request, DateTime now);

}  // namespace zv::report
