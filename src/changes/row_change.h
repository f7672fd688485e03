// What an act did to one row, so that it can be taken back and put on record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/column.h"
#include "store/row_merge.h"

namespace zv::store {
class Database;
}

namespace zv::changes {

/// The fields of a row in the order of its table's columns. One that is not known, or was not
/// touched, has no value.
using Fields = store::RowChanges;

/// A table whose rows users change.
struct Table {
    std::string_view name;
    std::span<const store::Column> columns;
    std::string_view title;   ///< the column by which users know a row
    std::string_view select;  ///< selects the row whose number stands behind it
    std::string_view erase;   ///< deletes that row
    /// The column that the engine numbers by itself, which is none of `columns`; empty where the
    /// number of a row is one of its fields.
    std::string_view numberedBy{};
};

/// `table` outlives the program's windows. Without `before` the row was added, without `after` it
/// was deleted.
struct RowChange {
    const Table* table = nullptr;
    std::int32_t row = 0;
    std::optional<Fields> before{};
    std::optional<Fields> after{};
};

/// What takes the change back.
RowChange Reversed(RowChange change);

/// The fields that the change gave another value. Values are compared as texts, so a missing one
/// equals an empty one. None of a row that was added or deleted.
std::vector<std::size_t> ChangedFields(const RowChange& change);

/// The title of the row as it was before, else as it is now; empty when neither is known.
std::string TitleOf(const RowChange& change);

/// All fields of a row as known ones.
Fields Known(const store::RowValues& values);

/// The current row of the table; nothing behind the last one.
std::optional<Fields> Read(const store::Recordset& row, const Table& table);
/// The row of a number; nothing when there is none. Opens the connection. Database errors reach the
/// caller.
std::optional<Fields> Load(store::Database& database, const Table& table, std::int32_t row);

}  // namespace zv::changes
