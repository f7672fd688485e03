#include "reports/csv_writer.h"

#include "base/spreadsheet_text.h"

namespace zv::reports {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kPiece = std::size_t{64} * 1024;

}  // namespace

CsvWriter::CsvWriter(platform::OutputFile& file) : file_(file), kept_(kByteOrderMark) {}

void CsvWriter::Field(std::string_view text) {
    if (rowBegun_) kept_ += ',';
    rowBegun_ = true;
    const bool quoted = text.find_first_of(",\"\r\n") != std::string_view::npos;
    if (quoted) kept_ += '"';
    if (WouldBeComputed(text)) kept_ += '\'';
    for (std::size_t quote; (quote = text.find('"')) != std::string_view::npos;) {
        kept_ += text.substr(0, quote + 1);
        kept_ += '"';
        text.remove_prefix(quote + 1);
    }
    kept_ += text;
    if (quoted) kept_ += '"';
}

void CsvWriter::EndRow() {
    kept_ += "\r\n";
    rowBegun_ = false;
    FlushWhenLarge();
}

void CsvWriter::FlushWhenLarge() {
    if (kept_.size() >= kPiece) Flush();
}

void CsvWriter::Flush() {
    file_.Write(kept_);
    kept_.clear();
}

}  // namespace zv::reports
