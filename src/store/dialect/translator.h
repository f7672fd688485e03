// Translates statements of the Access / SQL Server dialect, in which the system writes its SQL,
// into the dialect of the embedded engine.
#pragma once

#include <string>
#include <string_view>

#include "store/dialect/schema_info.h"

namespace zv::store::dialect {

enum class StatementKind {
    Select,      ///< yields rows
    Change,      ///< insert, update, delete
    Definition,  ///< changes tables
};

struct Translation {
    StatementKind kind = StatementKind::Select;
    std::string sql;

    /// The table whose rows a select shows when they can be written back: one table, no grouping,
    /// no "distinct". Empty otherwise, and then the two statements below are empty too.
    std::string table;
    std::string keySql;  ///< the row ids of the result, in its order
    std::string rowSql;  ///< the select's columns of the row with id ?1
};

/// Throws RuntimeError (DatabaseStatement) that names the place - "… at character N" - when the
/// statement is not understood.
Translation Translate(std::string_view statement, const SchemaInfo& schema);

}  // namespace zv::store::dialect
