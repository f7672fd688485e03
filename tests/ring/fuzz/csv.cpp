#include "csv.h"

#include <algorithm>
#include <array>

#include "doubles/memory_file.h"
#include "pieces.h"
#include "reports/csv_writer.h"
#include "target.h"

namespace zv::fuzz {
namespace {

constexpr char kEndOfCell = '\xFE';
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class Reader {
 public:
    explicit Reader(std::string_view text) : text_(text) {}

    Rows Read() {
        Hold(text_.starts_with(kByteOrderMark), "there is no byte order mark");
        text_.remove_prefix(kByteOrderMark.size());
        Rows rows;
        while (!text_.empty()) {
            rows.emplace_back();
            do {
                rows.back().push_back(text_.starts_with('"') ? Quoted() : Plain());
            } while (Skip(","));
            Hold(Skip("\r\n"), "a row does not end behind a cell");
        }
        return rows;
    }

 private:
    bool Skip(std::string_view mark) {
        if (!text_.starts_with(mark)) return false;
        text_.remove_prefix(mark.size());
        return true;
    }
    std::string Plain() {
        const std::size_t end = std::min(text_.find_first_of(",\"\r\n"), text_.size());
        std::string cell(text_.substr(0, end));
        text_.remove_prefix(end);
        return cell;
    }
    std::string Quoted() {
        std::string cell;
        text_.remove_prefix(1);
        for (;;) {
            const std::size_t quote = text_.find('"');
            Hold(quote != std::string_view::npos, "a quote is not closed");
            cell += text_.substr(0, quote);
            text_.remove_prefix(quote + 1);
            if (!Skip("\"")) return cell;
            cell += '"';
        }
    }

    std::string_view text_;
};

bool BeginsLikeAFormula(std::string_view text) {
    static constexpr auto kSigns = std::to_array<std::string_view>(
        {"=", "+", "-", "@", "\t", "\r", "\n", "\uFF1D", "\uFF0B", "\uFF0D", "\uFF20"});
    return std::any_of(kSigns.begin(), kSigns.end(),
                       [&](std::string_view sign) { return text.starts_with(sign); });
}

bool IsNumber(std::string_view text) {
    if (text.starts_with('+') || text.starts_with('-')) text.remove_prefix(1);
    const auto points = std::count(text.begin(), text.end(), '.');
    return points <= 1 && text.size() > static_cast<std::size_t>(points) &&
           text.find_first_not_of("0123456789.") == std::string_view::npos;
}

void HoldCell(const std::string& given, const std::string& read) {
    const bool formula = BeginsLikeAFormula(given) && !IsNumber(given);
    if (read != (formula ? "'" + given : given)) {
        throw Finding("\"" + given + "\" is read as \"" + read + "\"");
    }
}

}  // namespace

std::string WriteCsv(const Rows& rows) {
    doubles::MemoryFile file;
    reports::CsvWriter writer(file);
    for (const auto& row : rows) {
        for (const std::string& cell : row) writer.Field(cell);
        writer.EndRow();
    }
    writer.Flush();
    return file.bytes;
}

Rows ReadCsv(std::string_view text) {
    return Reader(text).Read();
}

void PlayCsv(std::string_view input, const std::function<std::string(const Rows&)>& write) {
    Rows given;
    for (const std::string_view row : PiecesOf(input)) {
        const auto cells = PiecesOf(row, kEndOfCell);
        given.emplace_back(cells.begin(), cells.end());
    }
    const Rows read = ReadCsv(write(given));
    Hold(read.size() == given.size(), "there are " + std::to_string(read.size()) + " rows");
    for (std::size_t row = 0; row < given.size(); row++) {
        Hold(read[row].size() == given[row].size(), "a row has other cells");
        for (std::size_t cell = 0; cell < given[row].size(); cell++) {
            HoldCell(given[row][cell], read[row][cell]);
        }
    }
}

std::vector<std::string> CsvSeeds() {
    return {
        "No.\xFESubject\xFF"
        "1\xFE\"visit\", then call\xFF"
        "2\xFEline\r\nbreak\xFF\xFE",
        "=1+1\xFE-1.5\xFE+\xFE@x\xFE\t=2\xFE'=3",
        "\xEF\xBC\x9D"
        "1\xFE\xE4\xBB\xBB\xE5\x8A\xA1",
        ""};
}

}  // namespace zv::fuzz
