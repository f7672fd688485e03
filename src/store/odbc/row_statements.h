// The statements that read and write single rows of a table, in the server's terms.
#pragma once

#include <string>
#include <vector>

#include "store/odbc/session.h"
#include "store/rows/row_table.h"

namespace zv::store::odbc {

struct RowStatement {
    std::string sql;
    std::vector<Parameter> parameters;
};

/// A row is named by the values of its primary key, in the order of the table's key columns.
class RowStatements {
 public:
    /// For the rows of a select with `columns` on `table`.
    RowStatements(const Session& session, const Table& table, const std::vector<Column>& columns);

    /// Rows can be read again: no column is computed.
    bool CanSelect() const { return !select_.empty(); }
    RowStatement Select(const rows::Row& key) const;
    /// A row whose key the server gives yields that key, where servers can.
    RowStatement Insert(const rows::Changes& changes) const;
    /// Changes no row unless the changed fields still hold what `stored` says.
    RowStatement Update(const rows::Changes& changes, const rows::Row& key,
                        const rows::Row& stored) const;

    /// Fields that make the key; empty when it is not wholly among them.
    const std::vector<int>& Key() const { return key_; }
    /// The key of a row with these fields; empty when it is not known.
    rows::Row KeyIn(const rows::Changes& changes) const;
    /// The server counts the key of such a row.
    bool IsCounted(const rows::Changes& changes) const;

 private:
    std::string Name(int field) const;
    std::vector<std::string> Names(const rows::Changes& changes) const;
    Parameter ParameterFor(int field, Value value) const;
    void AddKey(const rows::Row& key, RowStatement& statement) const;
    void AddUnchanged(int field, const Value& value, RowStatement& statement) const;

    const Session& session_;
    std::string table_;            ///< in quotes
    std::vector<Column> targets_;  ///< the table's column behind each field
    std::vector<int> key_;
    std::string select_;  ///< the fields of any row; empty when some are computed
};

}  // namespace zv::store::odbc
