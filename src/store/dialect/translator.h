// Translates statements of the Access / SQL Server dialect, in which the system writes its SQL,
// into that of another engine.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "store/dialect/schema_info.h"

namespace zv::store::dialect {

class Target;

enum class StatementKind {
    Select,      ///< yields rows
    Change,      ///< insert, update, delete
    Definition,  ///< changes tables
};

struct Translation {
    StatementKind kind = StatementKind::Select;
    std::string sql;

    /// The name of the table whose rows a select shows when they can be written back: one table, no
    /// grouping, no "distinct". Empty otherwise.
    std::string table;
    /// Two statements for an engine that numbers its rows; empty for others and without a table.
    std::string keySql;  ///< the row ids of the result, in its order
    std::string rowSql;  ///< the select's columns of the row with id ?1
};

/// Throws RuntimeError (DatabaseStatement) that names the place - "… at character N" - when the
/// statement is not understood.
Translation Translate(std::string_view statement, const SchemaInfo& schema, const Target& target);

/// A statement that is sent as it is and of which nothing is known.
inline Translation Untranslated(std::string sql) {
    Translation translation;
    translation.sql = std::move(sql);
    return translation;
}

/// A statement that is sent as it is: what the parser makes out of it. One in another language than
/// the dialect is taken for a select whose rows cannot be written.
Translation SentAsItIs(const std::string& sql);

}  // namespace zv::store::dialect
