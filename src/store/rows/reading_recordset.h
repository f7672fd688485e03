// Rows for reading, in one pass.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "store/rows/row_source.h"
#include "store/rows/session_recordset.h"

namespace zv::store::rows {

/// Takes a field from its source when it is asked for, once a row.
class ReadingRecordset final : public SessionRecordset {
 public:
    /// Goes to the first row.
    ReadingRecordset(std::shared_ptr<OpenRecordsets> all, std::unique_ptr<RowSource> source);

    bool Eof() const override;
    void MoveNext() override;
    const Value& Field(int column) const override;
    /// These throw DatabaseFailure.
    void AddNew() override;
    void SetField(std::string_view name, Value value) override;
    void Update() override;

    void Detach() override;

 private:
    const FieldList& Fields() const override { return source_->Fields(); }
    void Release() noexcept override;
    [[noreturn]] void ThrowNoRow() const;
    void Advance();

    std::unique_ptr<RowSource> source_;
    bool hasRow_ = false;   ///< never when closed
    std::int64_t row_ = 0;  ///< number of the current row
    // Fields of the current row, filled when asked for; `readAt_` says for which row.
    mutable std::vector<Value> values_;
    mutable std::vector<std::int64_t> readAt_;
};

}  // namespace zv::store::rows
