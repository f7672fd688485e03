#include "reports/csv_writer.h"

#include <algorithm>

namespace zv::reports {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kPiece = 64 * 1024;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// An optional sign, digits, at most one point among them.
bool IsPlainNumber(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    if (std::count(text.begin(), text.end(), '.') > 1) return false;
    return std::any_of(text.begin(), text.end(), IsDigit) &&
           std::all_of(text.begin(), text.end(), [](char c) { return IsDigit(c) || c == '.'; });
}

bool WouldBeComputed(std::string_view text) {
    constexpr std::string_view kStarts = "=+-@\t\r";
    return !text.empty() && kStarts.find(text.front()) != std::string_view::npos &&
           !IsPlainNumber(text);
}

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
