// The rows of one table, for reading and writing.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "store/odbc/row_statements.h"
#include "store/odbc/session.h"
#include "store/rows/row_table.h"

namespace zv::store::odbc {

/// Takes all rows at once and reads each again by its key when it becomes current. Rows that cannot
/// be read again stay as they came; rows without a key cannot be written back.
class TableRows final : public rows::RowTable {
 public:
    /// `sql` is a select on `table`, whose name is without quotes.
    TableRows(const std::shared_ptr<Session>& session, const std::string& sql,
              const std::string& table);

    void Find() override;
    bool Advance() override;
    bool Read(rows::Row& stored) override;
    void Present(const rows::Row& stored, rows::Row& shown) const override;
    void PrepareToWrite() override;
    void CheckWritable() const override;
    void Insert(const rows::Changes& changes) override;
    bool Write(const rows::Changes& changes, const rows::Row& stored) override;

 private:
    TableRows(std::shared_ptr<Session> session, std::string sql, const std::string& table,
              std::vector<Column> columns);
    Result Run(RowStatement statement, bool asStored);
    void ReadFrom(const RowStore& source, rows::Row& row) const;
    rows::Row KeyOfNewRow(const rows::Changes& changes, Result& inserted);

    std::shared_ptr<Session> session_;
    std::string sql_;
    std::vector<Column> columns_;
    RowStatements statements_;
    RowStore rows_;
    bool passed_ = false;   ///< a row was current before
    bool isFresh_ = false;  ///< the current row was read just now, together with its key
    rows::Row keyValues_;   ///< of the current row; empty when it has no key
    rows::Row current_;     ///< the current row as it came
};

}  // namespace zv::store::odbc
