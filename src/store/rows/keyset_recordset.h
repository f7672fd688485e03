// Rows of one table for reading and writing.
#pragma once

#include <memory>

#include "store/rows/row_table.h"
#include "store/rows/session_recordset.h"

namespace zv::store::rows {

/// Finds the rows at the first look - a recordset that is only added to reads nothing - and reads
/// each when it becomes current. A changed row is written only if nobody changed the same fields
/// since they were read.
class KeysetRecordset final : public SessionRecordset {
 public:
    KeysetRecordset(std::shared_ptr<OpenRecordsets> all, std::unique_ptr<RowTable> table);

    bool Eof() const override;
    /// A changed row is written first.
    void MoveNext() override;
    const Value& Field(int column) const override;
    /// A changed row is written first.
    void AddNew() override;
    void SetField(std::string_view name, Value value) override;
    /// Throws DatabaseConflict, and keeps the changes, when the row was changed or deleted
    /// meanwhile.
    void Update() override;

 private:
    const FieldList& Fields() const override { return table_->Fields(); }
    void Release() noexcept override;
    void CheckRow() const;
    void ReadRow() const;
    void WriteIfChanged();
    [[noreturn]] void ThrowConflict(const char* text) const;

    std::unique_ptr<RowTable> table_;
    bool adding_ = false;
    Changes changes_;  ///< not yet written

    mutable bool found_ = false;
    mutable bool hasRow_ = false;
    mutable bool rowRead_ = false;
    mutable Row stored_;  ///< the current row as it stood in the table when it was read
    mutable Row shown_;   ///< the same as its reader sees it
};

}  // namespace zv::store::rows
