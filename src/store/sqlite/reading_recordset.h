// Rows for reading, in one pass.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>

#include "store/sqlite/columns.h"

namespace zv::store::sqlite {

/// Reads each row from the engine when it becomes current, and each field when it is asked for.
/// Before the connection writes, the rest of the rows is taken into memory: a half-read statement
/// would see some of the writes and keep the write-ahead log from being emptied.
class ReadingRecordset final : public Recordset, private OpenRecordset {
 public:
    /// Runs `statement` up to its first row.
    ReadingRecordset(std::shared_ptr<Session> session, Statement statement);
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
    void Detach() override;
    void Abandon() noexcept override;
    void CheckOpen() const;
    void Advance();
    void Read(int column, Value& value) const;

    std::shared_ptr<Session> session_;
    Statement statement_;
    Columns columns_;
    bool open_ = true;
    bool hasRow_ = false;
    std::int64_t row_ = 0;  ///< number of the current row
    // Fields of the current row, filled when asked for; `readAt_` tells for which row.
    mutable std::vector<Value> fields_;
    mutable std::vector<std::int64_t> readAt_;
    std::deque<std::vector<Value>> rest_;  ///< rows after the current one, once detached
};

}  // namespace zv::store::sqlite
