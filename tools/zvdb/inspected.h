// A database that is looked over, whatever engine keeps it.
#pragma once

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "zvdb/engine.h"

namespace zv::zvdb {

class InspectedRows {
 public:
    virtual ~InspectedRows() = default;
    /// Goes to the first row, then to the next one; false behind the last.
    virtual bool Next() = 0;
    virtual bool IsNull(int column) const = 0;
    /// 0 for null.
    virtual std::int64_t Number(int column) const = 0;
    /// Empty for null, a date in stored form.
    virtual std::string Text(int column) const = 0;
};

class Inspected {
 public:
    virtual ~Inspected() = default;
    /// `sql` is what all engines understand: names without quotes, "and", "or", "coalesce",
    /// "ltrim", "rtrim", "lower", totals, and no condition in place of a value.
    virtual std::unique_ptr<InspectedRows> Select(const std::string& sql) = 0;
    /// The columns of a table in lower case, empty when there is no such table.
    virtual std::set<std::string> Columns(const std::string& table) = 0;
    /// How an index is made, in lower case: "unique table(column,column) where condition", the
    /// first word and the condition where it has them, and " otherwise" behind where there is more
    /// to it than columns that rise; a server's condition is such a thing. Empty when there is
    /// none.
    virtual std::string IndexMaking(const std::string& index) = 0;
    /// The script that makes what a database of this engine may have beside its tables.
    virtual std::string_view SideTables() const = 0;
    /// A condition that is true for rows whose column holds something that is no date.
    virtual std::string NotADate(const std::string& column) const = 0;
    /// What is wrong with the database as its engine keeps it, a sentence each.
    virtual std::vector<std::string> Damage() { return {}; }
    /// What is wrong with the numbers that the engine gives new rows; asked when all tables are
    /// there.
    virtual std::vector<std::string> CheckKeys() { return {}; }

    std::int64_t Number(const std::string& sql) {
        const auto rows = Select(sql);
        return rows->Next() ? rows->Number(0) : 0;
    }
};

/// `engine` must outlive the result.
std::unique_ptr<Inspected> InspectEmbedded(Engine& engine);

}  // namespace zv::zvdb
