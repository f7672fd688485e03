// The rows of a statement as an automation object with the members of ADO's Recordset.
#pragma once

#include <memory>
#include <span>
#include <string>

#include "automation/dispatch.h"
#include "connection_object.h"
#include "store/connection.h"

namespace zv::host {

using automation::Arguments;
using automation::DispatchObject;
using automation::MemberEntry;

class RecordsetObject final : public DispatchObject<RecordsetObject> {
 public:
    // {8FCC89D2-881F-4540-9593-C39950AD0FAB}
    static constexpr IID kInterfaceId = {
        0x8FCC89D2, 0x881F, 0x4540, {0x95, 0x93, 0xC3, 0x99, 0x50, 0xAD, 0x0F, 0xAB}};
    static constexpr std::string_view kSourceName = "zv_Host.Recordset";
    static std::span<const MemberEntry<RecordsetObject>> Members();

    void OpenRows(win32::ComPtr<ConnectionObject> connection, std::string sql,
                  store::CursorType cursor, store::LockType lock);
    void ConnectionClosed();

    bool IsOpen() const { return rows_ != nullptr; }
    /// Throws ObjectClosed.
    store::Recordset& Rows() const;
    /// Rows that may be written; throws when they were opened to be read only.
    store::Recordset& WritableRows() const;
    /// Column of a field given by name or by number from 0; throws 3265 when there is none.
    int Column(const win32::Variant& nameOrNumber) const;
    win32::Variant ReadField(int column) const;
    void WriteField(int column, const win32::Variant& value);
    /// Changes with each opening, so that a field object distinguishes rows of an earlier one.
    unsigned Opening() const { return opening_; }

 private:
    ~RecordsetObject() override;

    win32::Variant Open(const Arguments& arguments);
    win32::Variant Close(const Arguments& arguments);
    win32::Variant Requery(const Arguments& arguments);
    win32::Variant State(const Arguments& arguments);
    win32::Variant Eof(const Arguments& arguments);
    win32::Variant Bof(const Arguments& arguments);
    win32::Variant Fields(const Arguments& arguments);
    void AssignField(const Arguments& arguments);
    win32::Variant AddNew(const Arguments& arguments);
    win32::Variant Update(const Arguments& arguments);
    win32::Variant MoveNext(const Arguments& arguments);
    win32::Variant MoveFirst(const Arguments& arguments);
    win32::Variant GetRows(const Arguments& arguments);
    win32::Variant RecordCount(const Arguments& arguments);
    win32::Variant Source(const Arguments& arguments);
    void AssignSource(const Arguments& arguments);
    win32::Variant ActiveConnection(const Arguments& arguments);
    void AssignActiveConnection(const Arguments& arguments);
    win32::Variant CursorType(const Arguments& arguments);
    void AssignCursorType(const Arguments& arguments);
    win32::Variant LockType(const Arguments& arguments);
    void AssignLockType(const Arguments& arguments);
    win32::Variant CursorLocation(const Arguments& arguments);
    void AssignCursorLocation(const Arguments& arguments);

    void CloseRows();
    void RequireClosed() const;
    void StartRows();
    void WriteFields(const Arguments& arguments);

    win32::ComPtr<ConnectionObject> connection_;
    std::string sql_;
    store::CursorType cursor_ = store::CursorType::ForwardOnly;
    store::LockType lock_ = store::LockType::ReadOnly;
    std::unique_ptr<store::Recordset> rows_;
    unsigned opening_ = 0;
    bool hasHadRow_ = false;  // since the opening: else the position is also before the first row
    bool isAtFirst_ = false;
    std::int32_t recordCount_ = -1;  // -1: not counted
    std::int32_t cursorLocation_ = 2;
};

}  // namespace zv::host
