// A database connection as an automation object with the members of ADO's Connection.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "automation/dispatch.h"
#include "store/connection.h"

namespace zv::host {

using automation::Arguments;
using automation::DispatchObject;
using automation::MemberEntry;

class RecordsetObject;

class ConnectionObject final : public DispatchObject<ConnectionObject> {
 public:
    // {FEBB94A6-D825-477D-8379-5AC5D9A7F179}
    static constexpr IID kInterfaceId = {
        0xFEBB94A6, 0xD825, 0x477D, {0x83, 0x79, 0x5A, 0xC5, 0xD9, 0xA7, 0xF1, 0x79}};
    static constexpr std::string_view kSourceName = "zv_Host.Connection";
    static std::span<const MemberEntry<ConnectionObject>> Members();

    using Factory = std::function<std::unique_ptr<store::Connection>()>;
    /// Opens at once with what `open` answers; it is asked again by the member Open after a
    /// Close. `description` is what the property ConnectionString shows.
    ConnectionObject(Factory open, std::string description);

    /// The object behind an automation value; null when it is none of this class.
    static win32::ComPtr<ConnectionObject> From(const win32::Variant& value);

    bool IsOpen() const;
    /// Throws ObjectClosed.
    store::Connection& Port();
    void Attach(RecordsetObject& recordset) { recordsets_.push_back(&recordset); }
    void Detach(RecordsetObject& recordset) { std::erase(recordsets_, &recordset); }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;

 private:
    ~ConnectionObject() override;

    win32::Variant Execute(const Arguments& arguments);
    win32::Variant State(const Arguments& arguments);
    win32::Variant Open(const Arguments& arguments);
    win32::Variant Close(const Arguments& arguments);
    win32::Variant CreateRecordset(const Arguments& arguments);
    win32::Variant ConnectionString(const Arguments& arguments);
    win32::Variant ReadCursorLocation(const Arguments& arguments);
    void AssignCursorLocation(const Arguments& arguments);

    Factory open_;
    std::string description_;
    std::unique_ptr<store::Connection> port_;
    std::vector<RecordsetObject*> recordsets_;  // the open ones; each holds this object
    std::int32_t cursorLocation_ = 2;           // at the server
};

}  // namespace zv::host
