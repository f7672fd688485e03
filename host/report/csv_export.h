// A report's contents as comma-separated text.
#pragma once

#include "platform/machine.h"
#include "report/document.h"
#include "report/progress.h"

namespace zv::report {

/// A table: its headings and rows. An item: a row for each field, caption and value. The commit of
/// the file is the caller's; false when `progress` stopped it. Throws what the file throws.
bool WriteCsv(const Document& document, platform::OutputFile& file, const Progress& progress = {});

}  // namespace zv::report
