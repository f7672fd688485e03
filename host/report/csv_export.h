// A report's contents as comma-separated text.
#pragma once

#include <cstddef>

#include "platform/machine.h"
#include "report/document.h"
#include "reports/csv_writer.h"

namespace zv::report {

/// A table: its headings and rows. An item: a row for each field, caption and value. Throws what
/// the file throws.
class CsvExport {
 public:
    /// Both must outlive this. The commit of the file is the caller's.
    CsvExport(const Document& document, platform::OutputFile& file);

    std::size_t RowCount() const;
    std::size_t Done() const { return row_; }
    /// The next rows, at most `most`; false when none is left.
    bool WriteRows(std::size_t most);

 private:
    void WriteRow(std::size_t row);

    const Document& document_;
    reports::CsvWriter writer_;
    std::size_t row_ = 0;
};

/// All rows.
void WriteCsv(const Document& document, platform::OutputFile& file);

}  // namespace zv::report
