#include "store/one_statement.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "base/errors.h"
#include "base/text.h"

namespace zv::store {
namespace {

// Words that begin a statement or steer its course, and that no name can be without brackets.
constexpr auto kBeginners = std::to_array<std::string_view>(
    {"alter",    "backup",    "begin",    "break",       "bulk",       "checkpoint", "close",
     "commit",   "continue",  "create",   "dbcc",        "deallocate", "declare",    "delete",
     "deny",     "drop",      "dump",     "exec",        "execute",    "fetch",      "goto",
     "grant",    "if",        "insert",   "kill",        "load",       "merge",      "open",
     "print",    "raiserror", "readtext", "reconfigure", "restore",    "return",     "revoke",
     "rollback", "save",      "set",      "shutdown",    "truncate",   "update",     "updatetext",
     "use",      "waitfor",   "while",    "writetext"});

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool Begins(std::string_view word) {
    return std::find(kBeginners.begin(), kBeginners.end(), word) != kBeginners.end();
}

bool ReadsOrChangesRows(std::string_view word) {
    return word == "select" || word == "insert" || word == "update" || word == "delete";
}

class Reader {
 public:
    Reader(std::string_view sql, std::string_view source) : sql_(sql), source_(source) {}

    void Read() {
        if (const auto zero = sql_.find('\0'); zero != std::string_view::npos) Refuse(zero);
        while (at_ < sql_.size()) Step();
        if (first_.empty()) Refuse(0);
    }

 private:
    void Step() {
        const char c = sql_[at_];
        const char next = at_ + 1 < sql_.size() ? sql_[at_ + 1] : '\0';
        if (IsBlank(c)) {
            at_++;
        } else if (c == '\'' || c == '"') {
            SkipQuoted(c);
        } else if (c == '[') {
            SkipBrackets();
        } else if ((c == '-' && next == '-') || (c == '/' && next == '*') || c == '`') {
            Refuse(at_);
        } else if (c == ';') {
            End();
        } else if (text::IsWordCharacter(c)) {
            TakeWord();
        } else {
            last_ = std::string(1, c);
            at_++;
        }
    }

    // A doubled quote stands for itself.
    void SkipQuoted(char quote) {
        const std::size_t begin = at_++;
        while (true) {
            at_ = sql_.find(quote, at_);
            if (at_ == std::string_view::npos) Refuse(begin);
            at_++;
            if (at_ >= sql_.size() || sql_[at_] != quote) break;
            at_++;
        }
        last_ = "'";
    }

    // Engines differ on what a doubled bracket means.
    void SkipBrackets() {
        const std::size_t begin = at_;
        at_ = sql_.find(']', at_);
        if (at_ == std::string_view::npos) Refuse(begin);
        at_++;
        if (at_ < sql_.size() && sql_[at_] == ']') Refuse(at_);
        last_ = "]";
    }

    void End() {
        const auto rest = sql_.substr(at_ + 1);
        if (!std::all_of(rest.begin(), rest.end(), IsBlank)) Refuse(at_);
        at_ = sql_.size();
    }

    void TakeWord() {
        const std::size_t begin = at_;
        while (at_ < sql_.size() && text::IsWordCharacter(sql_[at_])) at_++;
        const std::string word = text::ToLower(sql_.substr(begin, at_ - begin));
        if (first_.empty()) {
            first_ = word;
        } else if (ReadsOrChangesRows(first_) && last_ != "." && !MayFollow(word)) {
            Refuse(begin);
        }
        last_ = word;
    }

    bool MayFollow(const std::string& word) {
        if (word == "select") {
            if (last_ == "(" || last_ == "union" || last_ == "all" || last_ == "except" ||
                last_ == "intersect") {
                return true;
            }
            // The rows of an insert come from one select.
            return first_ == "insert" && !std::exchange(rowsSelected_, true);
        }
        if (word == "set") return first_ == "update" && !std::exchange(fieldsSet_, true);
        return !Begins(word);
    }

    [[noreturn]] void Refuse(std::size_t at) const {
        throw RuntimeError(ErrorNumber::DatabaseStatement,
                           "the text is not one statement at character " + std::to_string(at + 1),
                           std::string(source_))
            .Of(ErrorKind::Refused);
    }

    std::string_view sql_;
    std::string_view source_;
    std::size_t at_ = 0;
    std::string first_;
    std::string last_;  ///< the word or character before
    bool rowsSelected_ = false;
    bool fieldsSet_ = false;
};

}  // namespace

void RequireOneStatement(std::string_view sql, std::string_view source) {
    Reader(sql, source).Read();
}

}  // namespace zv::store
