#include "zvdb/side_tables.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "store/engines/engines.h"
#include "zvdb/check.h"
#include "zvdb/import/system_tables.h"

namespace zv::zvdb {
namespace {

constexpr std::string_view kBlanks = " \n";

/// The words of a statement; names without the quotes of any engine.
std::vector<std::string> WordsOf(std::string_view statement) {
    std::vector<std::string> words;
    std::string word;
    const auto end = [&] {
        if (!word.empty()) words.push_back(std::move(word));
        word.clear();
    };
    for (const char c : statement) {
        if (c == '[' || c == ']' || c == '"' || c == '\'') continue;
        if (kBlanks.find(c) != std::string_view::npos || c == '(' || c == ')' || c == ',') {
            end();
        } else {
            word += c;
        }
    }
    end();
    return words;
}

SidePart IndexPart(const std::vector<std::string>& words, bool unique) {
    const std::size_t name = unique ? 3 : 2;
    SidePart part{
        .kind = SidePart::Kind::Index, .name = words[name], .making = {}, .statement = {}};
    const auto columns = words.begin() + static_cast<std::ptrdiff_t>(name) + 3;
    const auto condition = std::find(columns, words.end(), "where");
    part.making = (unique ? "unique " : "") + words[name + 2] + '(' +
                  text::Join({columns, condition}, ",") + ')';
    if (condition != words.end()) part.making += ' ' + text::Join({condition, words.end()}, " ");
    part.making = text::ToLower(part.making);
    return part;
}

SidePart PartOf(std::string_view statement) {
    const std::vector<std::string> words = WordsOf(statement);
    SidePart part;
    if (text::EqualsIgnoreCase(words[0], "insert")) {
        part.kind = SidePart::Kind::Version;
        part.making = words.back();
    } else if (text::EqualsIgnoreCase(words[1], "table")) {
        part.name = words[2];
    } else {
        part = IndexPart(words, text::EqualsIgnoreCase(words[1], "unique"));
    }
    part.statement = statement;
    return part;
}

/// Looks at the parts one by one.
class Search {
 public:
    explicit Search(Inspected& database) : database_(database) {}

    SideTablesFound Run() {
        const std::vector<SidePart> parts = SideParts(database_.SideTables());
        for (const SidePart& part : parts) {
            if (!Has(part)) found_.missing.push_back(part);
        }
        found_.any = found_.missing.size() < parts.size();
        // What belongs to another version is not known here.
        if (!strange_.empty()) found_ = {.missing = {}, .any = true, .faults = {strange_}};
        return found_;
    }

 private:
    bool Has(const SidePart& part) {
        switch (part.kind) {
            case SidePart::Kind::Table:
                return HasTable(part);
            case SidePart::Kind::Index:
                return HasIndex(part);
            case SidePart::Kind::Version:
                break;
        }
        return HasVersion(part);
    }

    bool HasTable(const SidePart& part) {
        const auto columns = database_.Columns(part.name);
        if (columns.empty()) return false;
        for (const ColumnRule& column : FindTable(SideTables(), part.name)->columns) {
            if (columns.contains(text::ToLower(column.name))) continue;
            found_.faults.push_back("column " + part.name + "." + column.name + " is missing");
        }
        return true;
    }

    bool HasIndex(const SidePart& part) {
        const std::string making = database_.IndexMaking(part.name);
        if (making.empty()) return false;
        if (making != part.making) {
            found_.faults.push_back("index " + part.name + " is made as " + making + ", not as " +
                                    part.making);
        }
        return true;
    }

    bool HasVersion(const SidePart& part) {
        const auto columns = database_.Columns(kMetaTable);
        if (!columns.contains("fname") || !columns.contains("fvalue")) return false;
        const auto rows = database_.Select("select fValue from zvMeta where fName='version'");
        if (!rows->Next()) return false;
        const std::string version = rows->Text(0);
        if (version == part.making) return true;
        strange_ = IsNewer(version, part.making)
                       ? "its side tables are of version " + version + ", newer than version " +
                             part.making + " of this program"
                       : "its side tables are of an unknown version: \"" + version + '"';
        return true;
    }

    static bool IsNewer(const std::string& version, const std::string& than) {
        const auto number = [](const std::string& text) {
            int value = 0;
            const auto [end, error] =
                std::from_chars(text.data(), text.data() + text.size(), value);
            return error == std::errc() && end == text.data() + text.size() ? value : 0;
        };
        return number(version) > number(than);
    }

    Inspected& database_;
    SideTablesFound found_;
    std::string strange_;
};

}  // namespace

std::string SidePart::Called() const {
    switch (kind) {
        case Kind::Table:
            return "table " + name;
        case Kind::Index:
            return "index " + name;
        case Kind::Version:
            break;
    }
    return "version " + making;
}

std::vector<SidePart> SideParts(std::string_view script) {
    std::vector<SidePart> parts;
    for (const std::string& statement : store::engines::StatementsOf(script)) {
        parts.push_back(PartOf(statement));
    }
    return parts;
}

SideTablesFound FindSideTables(Inspected& database) {
    return Search(database).Run();
}

std::vector<SidePart> MissingSideTables(Inspected& database) {
    SideTablesFound found = FindSideTables(database);
    if (!found.faults.empty()) throw FileError(found.faults.front());
    return std::move(found.missing);
}

}  // namespace zv::zvdb
