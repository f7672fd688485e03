#include "connection_object.h"

#include <array>
#include <utility>

#include "ado_errors.h"
#include "automation/variant_readers.h"
#include "base/text.h"
#include "recordset_object.h"
#include "store/ado/ado_connection.h"

namespace zv::host {
namespace {

using automation::Offers;
using win32::ComPtr;
using win32::Variant;

constexpr std::int32_t kOptionNoRecords = 128;

// Distinguishes the class from other objects with the same members.
// {EC2B6C69-3870-42C5-83A5-6EF57F898433}
constexpr IID kOwnClass = {
    0xEC2B6C69, 0x3870, 0x42C5, {0x83, 0xA5, 0x6E, 0xF5, 0x7F, 0x89, 0x84, 0x33}};

bool AnswersRows(std::string_view sql) {
    const std::size_t start = sql.find_first_not_of(" \t\r\n(");
    if (start == std::string_view::npos) return false;
    const std::string_view word = sql.substr(start, sql.find_first_of(" \t\r\n(*", start) - start);
    return text::EqualsIgnoreCase(word, "select");
}

}  // namespace

std::span<const MemberEntry<ConnectionObject>> ConnectionObject::Members() {
    using C = ConnectionObject;
    static constexpr std::array<MemberEntry<C>, 7> kMembers{{
        Offers<&C::ConnectionString>(L"ConnectionString", DISPID_VALUE),
        Offers<&C::Execute>(L"Execute", 1),
        Offers<&C::State>(L"State", 2),
        Offers<&C::Open>(L"Open", 3),
        Offers<&C::Close>(L"Close", 4),
        Offers<&C::CreateRecordset>(store::ado::kRecordsetFactory, 5),
        Offers<&C::ReadCursorLocation, &C::AssignCursorLocation>(L"CursorLocation", 6),
    }};
    return kMembers;
}

ConnectionObject::ConnectionObject(Factory open, std::string description)
    : open_(std::move(open)), description_(std::move(description)), port_(open_()) {}

ConnectionObject::~ConnectionObject() = default;

ComPtr<ConnectionObject> ConnectionObject::From(const Variant& value) {
    ConnectionObject* connection = nullptr;
    const auto object = value.Object();
    if (!object ||
        FAILED(object->QueryInterface(kOwnClass, reinterpret_cast<void**>(&connection)))) {
        return {};
    }
    return ComPtr<ConnectionObject>::Attach(connection);
}

STDMETHODIMP ConnectionObject::QueryInterface(REFIID iid, void** object) noexcept {
    if (object && iid == kOwnClass) {
        AddRef();
        *object = this;
        return S_OK;
    }
    return DispatchObject::QueryInterface(iid, object);
}

bool ConnectionObject::IsOpen() const {
    return port_ && port_->State() != store::Connection::kStateClosed;
}

store::Connection& ConnectionObject::Port() {
    if (!IsOpen()) throw ClosedError();
    return *port_;
}

Variant ConnectionObject::Execute(const Arguments& arguments) {
    store::Connection& port = Port();
    const std::string sql = arguments.Text(0);
    auto recordset = win32::MakeCom<RecordsetObject>();
    if (AnswersRows(sql)) {
        recordset->OpenRows(ComPtr<ConnectionObject>(this), sql, store::CursorType::ForwardOnly,
                            store::LockType::ReadOnly);
        return Variant(static_cast<IDispatch*>(recordset.Get()));
    }
    arguments.Store(1, Variant(std::int32_t{port.Execute(sql)}));
    if (arguments.Int(2, 0) & kOptionNoRecords) return Variant(static_cast<IDispatch*>(nullptr));
    return Variant(static_cast<IDispatch*>(recordset.Get()));
}

Variant ConnectionObject::State(const Arguments&) {
    return Variant(
        std::int32_t{IsOpen() ? store::Connection::kStateOpen : store::Connection::kStateClosed});
}

Variant ConnectionObject::Open(const Arguments&) {
    if (IsOpen()) {
        throw MakeAdoError(AdoError::ObjectOpen,
                           "Operation is not allowed when the object is open.");
    }
    port_ = open_();
    return {};
}

Variant ConnectionObject::Close(const Arguments&) {
    store::Connection& port = Port();
    for (RecordsetObject* recordset : std::exchange(recordsets_, {})) recordset->ConnectionClosed();
    port.Close();
    port_.reset();
    return {};
}

Variant ConnectionObject::CreateRecordset(const Arguments&) {
    return Variant(static_cast<IDispatch*>(win32::MakeCom<RecordsetObject>().Get()));
}

Variant ConnectionObject::ConnectionString(const Arguments&) {
    return Variant(std::string_view(description_));
}

Variant ConnectionObject::ReadCursorLocation(const Arguments&) {
    return Variant(cursorLocation_);
}

void ConnectionObject::AssignCursorLocation(const Arguments& arguments) {
    cursorLocation_ = automation::ToNumber(arguments.Assigned(), automation::Misfit::TypeMismatch);
}

}  // namespace zv::host
