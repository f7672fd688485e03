// Rows of a table of the embedded engine as an import reads them, in the order of storing.
#pragma once

#include <string>
#include <vector>

#include "zvdb/engine.h"
#include "zvdb/import/table_source.h"

namespace zv::zvdb {

/// "\"Name\"", for any name.
std::string QuotedName(const std::string& name);
std::string QuotedList(const std::vector<std::string>& names);

class EmbeddedRows : public RowReader {
 public:
    /// `table` with its quotes.
    EmbeddedRows(Engine& engine, const std::string& table, const std::vector<std::string>& columns);

    bool Next(std::vector<store::Value>& row) override;
    const std::vector<CellRemark>& Remarks() const override { return remarks_; }

 private:
    void Read(int column, store::Value& value);

    Statement statement_;
    std::vector<CellRemark> remarks_;
};

}  // namespace zv::zvdb
