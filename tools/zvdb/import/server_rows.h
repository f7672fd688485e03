// Rows of a table on a server, for reading from the first to the last.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "zvdb/import/server_link.h"
#include "zvdb/import/table_source.h"

namespace zv::zvdb {

/// A result is held in memory whole, so a table with a key is read in parts, by the key.
class ServerRows : public RowReader {
 public:
    /// `key` is the position of a column of whole numbers that distinguishes the rows, -1 for none.
    ServerRows(ServerLink& link, const std::string& table, const std::vector<std::string>& columns,
               int key);

    /// Throws RuntimeError.
    bool Next(std::vector<store::Value>& row) override;

 private:
    static constexpr std::size_t kRowsInPart = 5000;
    void Open(const std::string& after);

    ServerLink& link_;
    std::string table_;
    std::string columns_;
    std::string keyName_;
    int key_;
    std::size_t inPart_ = 0;
    std::unique_ptr<store::Recordset> rows_;
    std::string last_;
};

}  // namespace zv::zvdb
