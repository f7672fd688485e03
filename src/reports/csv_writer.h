// Tables as comma-separated text that spreadsheet programs read, Chinese included.
#pragma once

#include <string>
#include <string_view>

#include "platform/machine.h"

namespace zv::reports {

/// Writes rows as RFC 4180 has them: UTF-8 behind a byte order mark, fields separated by commas,
/// every row ended by CR LF. Fields that hold a comma, a quote or a line break stand between
/// quotes.
///
/// A field that a spreadsheet program would compute gets an apostrophe in front.
class CsvWriter {
 public:
    /// The file must outlive the writer. Nothing is written yet. Every operation throws what
    /// writing throws.
    explicit CsvWriter(platform::OutputFile& file);
    CsvWriter(const CsvWriter&) = delete;
    CsvWriter& operator=(const CsvWriter&) = delete;

    void Field(std::string_view text);
    void EndRow();
    /// Hands over what is still kept here. The commit of the file is the caller's.
    void Flush();

 private:
    void FlushWhenLarge();

    platform::OutputFile& file_;
    std::string kept_;
    bool rowBegun_ = false;
};

}  // namespace zv::reports
