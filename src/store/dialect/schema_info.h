// What the translation must know of the database that it translates for.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace zv::store::dialect {

enum class ColumnKind { Unknown, Text, Number, Date };

/// An index that finds the rows of a table whose window meets a span of days: the window of a row
/// begins at the moment in one column and ends with the one in another.
struct WindowIndex {
    std::string table;
    std::string start;
    std::string end;
    std::string key;
    /// In lower case: what can be read from the index without touching the table.
    std::set<std::string, std::less<>> columns;

    /// In any letter case.
    bool Holds(std::string_view column) const;
};

/// Kinds of columns by name alone: the tables use one name for one kind of value.
class SchemaInfo {
 public:
    /// The kind follows from the declared type; a name with two kinds becomes Unknown.
    void AddColumn(std::string_view name, std::string_view declaredType);
    /// Compared without regard to case. The date columns of the system's own tables are known,
    /// however their types were declared.
    ColumnKind KindOf(std::string_view column) const;

    /// `column` alone is the key of `table`. Compared without regard to case.
    void AddKey(std::string_view table, std::string_view column);
    bool IsKey(std::string_view table, std::string_view column) const;

    /// The index over windows that the database has; null without one.
    const WindowIndex* windowIndex = nullptr;

 private:
    std::map<std::string, ColumnKind, std::less<>> kinds_;
    std::set<std::pair<std::string, std::string>> keys_;
};

/// The kind that a declared type stands for.
ColumnKind KindOfType(std::string_view declaredType);
/// Whether this is a date column of the system's own tables.
bool IsKnownDateColumn(std::string_view column);

}  // namespace zv::store::dialect
