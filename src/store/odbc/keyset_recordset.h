// Rows of one table for reading and writing.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "store/odbc/session.h"

namespace zv::store::odbc {

/// Takes the rows at the first look - a recordset that is only added to reads nothing - and reads
/// each again by its key when it becomes current. A row is written by a statement that names its
/// key and the values that its changed fields had.
class KeysetRecordset final : public Recordset, private OpenRecordset {
 public:
    /// `table` is the one table of the select, without quotes.
    KeysetRecordset(std::shared_ptr<Session> session, std::string sql, const std::string& table);
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
    using Row = std::vector<Value>;

    void Abandon() noexcept override;
    void CheckOpen() const;
    void CheckRow() const;
    void TakeRows() const;
    void Advance() const;
    void ReadRow() const;
    /// False when there is no row with the current key.
    bool ReadByKey() const;
    void TakeFields() const;
    Parameter ParameterFor(int column, Value value) const;
    void AddKey(std::string& condition, std::vector<Parameter>& parameters) const;
    void AddUnchanged(int column, std::string& condition, std::vector<Parameter>& parameters) const;
    void Insert();
    void Write();
    [[noreturn]] void ThrowLost();

    std::shared_ptr<Session> session_;
    std::string sql_;
    std::string table_;  ///< in quotes
    Columns columns_;
    std::vector<Column> targets_;  ///< the table's column behind each of these
    std::vector<int> key_;         ///< columns that make the key; empty when it is not among them
    std::string rowSql_;           ///< the columns of any row; empty when some are computed
    bool open_ = true;
    bool adding_ = false;
    std::map<int, Value> changes_;  ///< by column, not yet written

    mutable bool rowsTaken_ = false;
    mutable RowStore rows_;
    mutable bool hasRow_ = false;
    mutable bool rowRead_ = false;
    mutable bool isFirst_ = true;  ///< the current row was read together with its key
    mutable Row keyValues_;        ///< of the current row
    mutable Row stored_;           ///< the current row as it stands in the table
    mutable Row fields_;           ///< the same, dates as dates
};

}  // namespace zv::store::odbc
