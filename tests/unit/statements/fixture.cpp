#include "fixture.h"

#include <fstream>
#include <stdexcept>

#include "base/text.h"
#include "store/dialect/lexer.h"

namespace zv::store {
namespace {

std::vector<std::string> Lines(const char* file) {
    std::ifstream stream(file);
    if (!stream) throw std::runtime_error(std::string(file) + " cannot be read");
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsNameCharacter(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

}  // namespace

bool NamedStatement::IsSelect() const {
    return text::ToLower(sql).starts_with("select");
}

std::vector<NamedStatement> ReadStatements() {
    constexpr std::string_view kBetween = " :: ";
    std::vector<NamedStatement> statements;
    for (const std::string& line : Lines(ZV_FIXTURES "/statements.txt")) {
        if (line.empty() || line.front() == '#') continue;
        const std::size_t end = line.find(kBetween);
        if (end == std::string::npos || end == 0) {
            throw std::runtime_error("a statement without a name: " + line);
        }
        statements.push_back({line.substr(0, end), line.substr(end + kBetween.size())});
    }
    return statements;
}

std::vector<std::string> ReadDataStatements() {
    return Lines(ZV_FIXTURES "/statement_data.sql");
}

std::string FormOf(std::string_view sql) {
    std::string form;
    for (std::size_t at = 0; at < sql.size();) {
        const char c = sql[at];
        if (c == '#' || c == '\'') {
            const std::size_t end = sql.find(c, at + 1);
            if (end == std::string_view::npos) return form.append(sql.substr(at));
            const std::string_view inner = sql.substr(at + 1, end - at - 1);
            const bool date =
                inner.find('/') != std::string_view::npos && !dialect::StoredDate(inner).empty();
            form += c == '#' || date ? 'D' : 'T';
            at = end + 1;
        } else if (IsDigit(c) && (at == 0 || !IsNameCharacter(sql[at - 1]))) {
            while (at < sql.size() && (IsDigit(sql[at]) || sql[at] == '.')) at++;
            form += 'N';
        } else {
            form += c;
            at++;
        }
    }
    return form;
}

}  // namespace zv::store
