// Rows for reading, in one pass.
#pragma once

#include <memory>
#include <vector>

#include "store/odbc/session.h"

namespace zv::store::odbc {

/// Holds all rows from the beginning, so that neither connection nor server is kept busy.
class ReadingRecordset final : public Recordset, private OpenRecordset {
 public:
    ReadingRecordset(std::shared_ptr<Session> session, Result result);
    ~ReadingRecordset() override;

    bool Eof() const override;
    void MoveNext() override;
    int FieldCount() const override;
    const std::string& FieldName(int column) const override;
    int FieldIndex(std::string_view name) const override;
    using Recordset::Field;
    const Value& Field(int column) const override;
    void AddNew() override;
    void SetField(std::string_view name, Value value) override;
    void Update() override;
    void Close() override;

 private:
    void Abandon() noexcept override;
    void CheckOpen() const;
    void Advance();

    std::shared_ptr<Session> session_;
    Columns columns_;
    RowStore rows_;
    bool open_ = true;
    bool hasRow_ = false;
    std::size_t row_ = 0;  ///< number of the current row
    // Fields of the current row, filled when asked for; `readAt_` tells for which row.
    mutable std::vector<Value> fields_;
    mutable std::vector<std::size_t> readAt_;
};

}  // namespace zv::store::odbc
