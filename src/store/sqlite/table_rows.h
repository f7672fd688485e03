// The rows of one table, for reading and writing.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "store/rows/row_table.h"
#include "store/sqlite/session.h"

namespace zv::store::sqlite {

/// Keeps the row numbers of the result and reads each row by its number, so that no statement stays
/// half-read between two calls.
class TableRows final : public rows::RowTable {
 public:
    /// `translation` is of a select on one table, `source` the same as the caller wrote it.
    TableRows(std::shared_ptr<Session> session,
              std::shared_ptr<const dialect::Translation> translation, std::string source);

    void Find() override;
    bool Advance() override;
    bool Read(rows::Row& stored) override;
    void Present(const rows::Row& stored, rows::Row& shown) const override;
    void PrepareToWrite() override;
    void Insert(const rows::Changes& changes) override;
    bool Write(const rows::Changes& changes, const rows::Row& stored) override;

 private:
    std::vector<std::string> Names(const rows::Changes& changes) const;

    std::shared_ptr<Session> session_;
    std::shared_ptr<const dialect::Translation> translation_;
    std::string source_;
    std::vector<std::int64_t> keys_;
    std::size_t next_ = 0;      ///< number of rows passed, the current one among them
    std::int64_t current_ = 0;  ///< key of the current row
};

}  // namespace zv::store::sqlite
