#include "access_rows_file.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "base/text.h"
#include "zvdb/engine.h"
#include "zvdb/import/system_tables.h"

namespace zv::zvdb {
namespace {

/// Reads the little of JSON that the list uses: objects of texts, whole numbers and null.
class LineReader {
 public:
    explicit LineReader(const std::string& line) : line_(line) {}

    /// {"row":{...},"table":"..."}
    void Read(std::map<std::string, std::string>& row, std::string& table) {
        Expect("{\"row\":{");
        while (line_[at_] != '}') {
            const std::string column = Text();
            Expect(":");
            row[column] = Value();
            if (line_[at_] == ',') ++at_;
        }
        Expect("},\"table\":");
        table = Text();
        Expect("}");
    }

 private:
    void Expect(const std::string& text) {
        if (line_.compare(at_, text.size(), text) != 0) {
            throw std::runtime_error("unexpected: " + line_.substr(at_, 40));
        }
        at_ += text.size();
    }
    std::string Value() {
        if (line_[at_] == '"') return "'" + WithBlank(Text()) + "'";
        if (line_.compare(at_, 4, "null") == 0) {
            at_ += 4;
            return "NULL";
        }
        const std::size_t from = at_;
        while (line_[at_] == '-' || (line_[at_] >= '0' && line_[at_] <= '9')) ++at_;
        if (from == at_) throw std::runtime_error("no value: " + line_.substr(at_, 40));
        return line_.substr(from, at_ - from);
    }
    std::string Text() {
        Expect("\"");
        std::string text;
        while (line_[at_] != '"') {
            if (line_[at_] != '\\') {
                text += line_[at_++];
                continue;
            }
            Escaped(text);
        }
        ++at_;
        return text;
    }
    void Escaped(std::string& text) {
        const char kind = line_[at_ + 1];
        at_ += 2;
        switch (kind) {
            case 'n':
                text += '\n';
                return;
            case 'r':
                text += '\r';
                return;
            case 't':
                text += '\t';
                return;
            case 'u':
                text::AppendCodePoint(
                    text, static_cast<char32_t>(std::stoul(line_.substr(at_, 4), nullptr, 16)));
                at_ += 4;
                return;
            default:
                text += kind;
        }
    }
    /// The list has "T" in its dates, the embedded engine a blank.
    static std::string WithBlank(std::string text) {
        if (text.size() == 19 && text[10] == 'T' && text[4] == '-' && text[13] == ':') {
            text[10] = ' ';
        }
        return text;
    }

    const std::string& line_;
    std::size_t at_ = 0;
};

std::string Line(const std::map<std::string, std::string>& row) {
    std::string line;
    for (const auto& [column, value] : row) line += column + "=" + value + "|";
    return line;
}

void Sort(RowsByTable& rows) {
    for (auto& [table, lines] : rows) std::sort(lines.begin(), lines.end());
}

}  // namespace

std::string AccessFixture(const std::string& name) {
    return std::string(ZV_ACCESS_FIXTURES "/") + name;
}

RowsByTable ExpectedRows() {
    RowsByTable rows;
    std::ifstream in(AccessFixture("taskAlert.jsonl"));
    for (std::string line; std::getline(in, line);) {
        std::map<std::string, std::string> row;
        std::string table;
        LineReader(line).Read(row, table);
        rows[table].push_back(Line(row));
    }
    Sort(rows);
    return rows;
}

RowsByTable StoredRows(const std::string& path) {
    RowsByTable rows;
    Engine engine(path);
    for (const TableRule& table : SystemTables()) {
        Statement all(engine, "select * from " + table.name);
        while (all.Step()) {
            std::map<std::string, std::string> row;
            for (int i = 0; i < all.ColumnCount(); ++i) {
                const bool isNumber = sqlite3_column_type(all.Handle(), i) == SQLITE_INTEGER;
                row[sqlite3_column_name(all.Handle(), i)] = all.IsNull(i) ? "NULL"
                                                            : isNumber    ? all.Text(i)
                                                                          : "'" + all.Text(i) + "'";
            }
            rows[table.name].push_back(Line(row));
        }
    }
    Sort(rows);
    return rows;
}

}  // namespace zv::zvdb
