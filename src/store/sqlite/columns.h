// The columns of a recordset.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/sqlite/session.h"

namespace zv::store::sqlite {

/// How the values of a column are to be taken.
enum class ColumnUse {
    Plain,
    Date,      ///< a column of dates
    Computed,  ///< an expression, which may yield a date in stored form
};

class Columns {
 public:
    Columns() = default;
    Columns(const Statement& statement, bool datesAsText);

    int Count() const { return static_cast<int>(names_.size()); }
    /// Both throw DatabaseColumn when there is no such column; names in any case.
    const std::string& Name(int column) const;
    int Index(std::string_view name) const;
    ColumnUse Use(int column) const { return uses_[static_cast<std::size_t>(column)]; }
    /// Throws DatabaseColumn when there is no such column.
    void Check(int column) const;

 private:
    std::vector<std::string> names_;
    std::vector<ColumnUse> uses_;
};

/// Turns a stored text into a date where the column holds dates; `value` is assigned in place.
void AssignText(Value& value, std::string_view text, ColumnUse use);

}  // namespace zv::store::sqlite
