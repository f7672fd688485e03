// Rows of one table for reading and writing.
#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "store/sqlite/columns.h"

namespace zv::store::sqlite {

/// Keeps the keys of the result and reads each row when it becomes current, so that no statement
/// stays half-read between two calls. The keys are taken at the first look at a row: a recordset
/// that is only added to reads nothing.
class KeysetRecordset final : public Recordset, private OpenRecordset {
 public:
    KeysetRecordset(std::shared_ptr<Session> session,
                    std::shared_ptr<const dialect::Translation> translation, std::string source);
    ~KeysetRecordset() override;

    bool Eof() const override;
    /// A changed row is written first.
    void MoveNext() override;
    int FieldCount() const override;
    const std::string& FieldName(int column) const override;
    int FieldIndex(std::string_view name) const override;
    using Recordset::Field;
    const Value& Field(int column) const override;
    void AddNew() override;
    void SetField(std::string_view name, Value value) override;
    void Update() override;
    /// Changes that were not written are dropped.
    void Close() override;

 private:
    void Detach() override {}
    void Abandon() noexcept override;
    void CheckOpen() const;
    void CheckRow() const;
    void TakeKeys() const;
    void ReadRow() const;
    void Insert();
    void Write();
    [[noreturn]] void ThrowLost();

    std::shared_ptr<Session> session_;
    std::shared_ptr<const dialect::Translation> translation_;
    std::string source_;
    Columns columns_;
    bool open_ = true;
    bool adding_ = false;
    std::map<int, Value> changes_;  ///< by column, not yet written

    mutable bool keysTaken_ = false;
    mutable std::vector<std::int64_t> keys_;
    mutable std::size_t at_ = 0;
    mutable bool rowRead_ = false;
    mutable std::vector<Value> stored_;  ///< the current row as it stands in the table
    mutable std::vector<Value> fields_;  ///< the same, dates as dates
};

}  // namespace zv::store::sqlite
