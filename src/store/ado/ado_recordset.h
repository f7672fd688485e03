// Rows of an automation object with the members of ADO's Recordset.
#pragma once

#include <cstddef>
#include <vector>

#include "base/win32/com_ptr.h"
#include "base/win32/variant.h"
#include "store/ado/calls.h"
#include "store/connection.h"

namespace zv::store::ado {

/// Rows that are only read, from the first to the last, come in blocks (GetRows) where the object
/// offers it: the object's own position is then behind the block. A recordset that may be written,
/// or that may move back, is read row by row.
class AdoRecordset final : public Recordset {
 public:
    /// `recordset` is open, or closed when the statement yields no rows.
    /// `connection` lists what its provider says of errors; let go at Close.
    AdoRecordset(win32::ComPtr<IDispatch> connection, win32::ComPtr<IDispatch> recordset,
                 CursorType cursor, LockType lock);
    ~AdoRecordset() override;

    bool Eof() const override;
    void MoveNext() override;
    int FieldCount() const override;
    const std::string& FieldName(int column) const override;
    int FieldIndex(std::string_view name) const override;
    const Value& Field(int column) const override;
    void AddNew() override;
    void SetField(std::string_view name, Value value) override;
    void Update() override;
    void Close() override;

    const win32::ComPtr<IDispatch>& Object() const { return recordset_; }

 private:
    struct Column {
        win32::ComPtr<IDispatch> field;
        std::string name;
        Value value;
        bool isRead = false;  // value holds the current row's
    };

    void RequireOpen() const;
    void LoadColumns() const;
    void ForgetValues() const;
    Column& ColumnAt(int column) const;
    void LoadBlock();
    void ReleaseBlock();
    Value ReadFromBlock(int column) const;

    win32::ComPtr<IDispatch> connection_;
    win32::ComPtr<IDispatch> recordset_;
    bool isOpen_ = false;
    bool inBlocks_ = false;
    bool isEof_ = false;  // in blocks only

    // One block: a two-dimensional array, the column first. `rows_` locked data of it.
    win32::Variant block_;
    const VARIANT* rows_ = nullptr;
    std::size_t columnsInBlock_ = 0;
    std::size_t rowsInBlock_ = 0;
    std::size_t row_ = 0;
    std::int32_t blockSize_ = 0;
    bool isLastBlock_ = false;

    mutable std::vector<Column> columns_;
    mutable Member eof_{L"EOF"}, fields_{L"Fields"}, count_{L"Count"}, item_{L"Item"};
    // All fields of a recordset are objects of one class.
    mutable Member name_{L"Name"}, value_{L"Value"};
    Member state_{L"State"}, moveNext_{L"MoveNext"}, addNew_{L"AddNew"}, update_{L"Update"},
        close_{L"Close"}, getRows_{L"GetRows"};
};

/// The automation object behind an open recordset, for handing it to another component: it stands
/// on the current row unless the recordset was opened forward-only and read-only. Null for rows of
/// another engine.
win32::ComPtr<IDispatch> ObjectOf(const Recordset& recordset);

}  // namespace zv::store::ado
