#include "recordset_object.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>
#include <vector>

#include "ado_errors.h"
#include "automation/variant_readers.h"
#include "fields_object.h"
#include "store/ado/value_conversion.h"

namespace zv::host {
namespace {

using automation::Offers;
using win32::ComPtr;
using win32::Variant;

std::int32_t AssignedInt(const Arguments& arguments, std::int32_t lowest, std::int32_t highest) {
    const std::int32_t number =
        automation::ToNumber(arguments.Assigned(), automation::Misfit::TypeMismatch);
    if (number < lowest || number > highest) {
        throw MakeAdoError(AdoError::InvalidArgument, "The value is out of range.");
    }
    return number;
}

bool IsTableName(std::string_view source) {
    return !source.empty() && std::ranges::all_of(source, [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte >= 0x80 || std::isalnum(byte) || c == '_';
    });
}

/// The elements of an array argument; a value that is none is the only element.
std::vector<Variant> Elements(const Variant& value) {
    std::vector<Variant> elements;
    if (!(value.Type() & VT_ARRAY)) {
        elements.push_back(Variant::Copy(value.Get()));
        return elements;
    }
    SAFEARRAY* array = value.Get().parray;
    LONG lower = 0;
    LONG upper = -1;
    if ((value.Type() & VT_TYPEMASK) != VT_VARIANT || SafeArrayGetDim(array) != 1 ||
        FAILED(SafeArrayGetLBound(array, 1, &lower)) ||
        FAILED(SafeArrayGetUBound(array, 1, &upper))) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    for (LONG i = lower; i <= upper; ++i) {
        Variant element;
        if (FAILED(SafeArrayGetElement(array, &i, element.Put()))) throw std::bad_alloc();
        elements.push_back(std::move(element));
    }
    return elements;
}

}  // namespace

std::span<const MemberEntry<RecordsetObject>> RecordsetObject::Members() {
    using R = RecordsetObject;
    // Fields is also the default member, so that rs("name") works.
    static constexpr std::array<MemberEntry<R>, 19> kMembers{{
        Offers<&R::Fields, &R::AssignField>(L"Fields", DISPID_VALUE),
        Offers<&R::Eof>(L"EOF", 1),
        Offers<&R::Bof>(L"BOF", 2),
        Offers<&R::MoveNext>(L"MoveNext", 3),
        Offers<&R::GetRows>(L"GetRows", 4),
        Offers<&R::Open>(L"Open", 5),
        Offers<&R::Close>(L"Close", 6),
        Offers<&R::State>(L"State", 7),
        Offers<&R::AddNew>(L"AddNew", 8),
        Offers<&R::Update>(L"Update", 9),
        Offers<&R::MoveFirst>(L"MoveFirst", 10),
        Offers<&R::RecordCount>(L"RecordCount", 11),
        Offers<&R::Requery>(L"Requery", 12),
        Offers<&R::Source, &R::AssignSource>(L"Source", 13),
        Offers<&R::ActiveConnection, &R::AssignActiveConnection>(L"ActiveConnection", 14),
        Offers<&R::CursorType, &R::AssignCursorType>(L"CursorType", 15),
        Offers<&R::LockType, &R::AssignLockType>(L"LockType", 16),
        Offers<&R::CursorLocation, &R::AssignCursorLocation>(L"CursorLocation", 17),
        Offers<&R::Fields, &R::AssignField>(L"Collect", 18),
    }};
    return kMembers;
}

RecordsetObject::~RecordsetObject() {
    CloseRows();
}

void RecordsetObject::OpenRows(ComPtr<ConnectionObject> connection, std::string sql,
                               store::CursorType cursor, store::LockType lock) {
    RequireClosed();
    connection_ = std::move(connection);
    sql_ = std::move(sql);
    cursor_ = cursor;
    lock_ = lock;
    StartRows();
}

void RecordsetObject::StartRows() {
    if (!connection_) {
        throw MakeAdoError(AdoError::InvalidArgument,
                           "The recordset has no connection that it can use.");
    }
    rows_ = connection_->Port().Open(sql_, cursor_, lock_);
    connection_->Attach(*this);
    ++opening_;
    recordCount_ = -1;
    hasHadRow_ = !rows_->Eof();
    isAtFirst_ = true;
}

void RecordsetObject::ConnectionClosed() {
    rows_.reset();
}

void RecordsetObject::CloseRows() {
    if (!rows_) return;
    connection_->Detach(*this);
    rows_.reset();
}

store::Recordset& RecordsetObject::Rows() const {
    if (!rows_) throw ClosedError();
    return *rows_;
}

store::Recordset& RecordsetObject::WritableRows() const {
    store::Recordset& rows = Rows();
    if (lock_ == store::LockType::ReadOnly) {
        throw MakeAdoError(AdoError::FeatureNotAvailable,
                           "Current Recordset does not support updating.");
    }
    return rows;
}

int RecordsetObject::Column(const Variant& nameOrNumber) const {
    const store::Recordset& rows = Rows();
    if (nameOrNumber.Type() == VT_BSTR) {
        const std::string name = win32::ToUtf8(nameOrNumber.Get().bstrVal);
        try {
            return rows.FieldIndex(name);
        } catch (const RuntimeError& error) {
            if (error.Number() != ErrorNumber::DatabaseColumn) throw;
        }
    } else {
        const int column = automation::ToNumber(Variant::Copy(nameOrNumber.Get()),
                                                automation::Misfit::TypeMismatch);
        if (column >= 0 && column < rows.FieldCount()) return column;
    }
    throw MakeAdoError(AdoError::ItemNotFound,
                       "Item cannot be found in the collection corresponding to the requested "
                       "name or ordinal.");
}

Variant RecordsetObject::ReadField(int column) const {
    return store::ado::ToVariant(Rows().Field(column));
}

void RecordsetObject::WriteField(int column, const Variant& value) {
    store::Recordset& rows = WritableRows();
    rows.SetField(rows.FieldName(column), store::ado::FromVariant(value.Get()));
}

void RecordsetObject::RequireClosed() const {
    if (rows_) {
        throw MakeAdoError(AdoError::ObjectOpen,
                           "Operation is not allowed when the object is open.");
    }
}

Variant RecordsetObject::Open(const Arguments& arguments) {
    constexpr std::int32_t kCommandTable = 2;
    RequireClosed();
    if (arguments.IsGiven(1)) {
        connection_ = ConnectionObject::From(arguments.At(1));
        if (!connection_) {
            throw MakeAdoError(AdoError::InvalidArgument,
                               "The connection is none that this recordset can use.");
        }
    }
    std::string source = arguments.IsGiven(0) ? arguments.Text(0) : sql_;
    const std::int32_t cursor = arguments.Int(2, static_cast<std::int32_t>(cursor_));
    const std::int32_t lock = arguments.Int(3, static_cast<std::int32_t>(lock_));
    if (cursor < 0 || cursor > 3 || lock < 1 || lock > 4) {
        throw MakeAdoError(AdoError::InvalidArgument, "The cursor or lock type is out of range.");
    }
    if ((arguments.Int(4, 0) & kCommandTable) || IsTableName(source)) {
        source = "select * from " + source;
    }
    OpenRows(std::move(connection_), std::move(source), static_cast<store::CursorType>(cursor),
             static_cast<store::LockType>(lock));
    return {};
}

Variant RecordsetObject::Close(const Arguments&) {
    store::Recordset& rows = Rows();
    rows.Close();
    CloseRows();
    return {};
}

Variant RecordsetObject::Requery(const Arguments&) {
    Rows();
    CloseRows();
    StartRows();
    return {};
}

Variant RecordsetObject::State(const Arguments&) {
    return Variant(
        std::int32_t{rows_ ? store::Connection::kStateOpen : store::Connection::kStateClosed});
}

Variant RecordsetObject::Eof(const Arguments&) {
    return Variant(Rows().Eof());
}

Variant RecordsetObject::Bof(const Arguments&) {
    // Rows only run forward: nothing but an empty answer stands before its first row.
    return Variant(Rows().Eof() && !hasHadRow_);
}

Variant RecordsetObject::Fields(const Arguments& arguments) {
    auto fields = win32::MakeCom<FieldsObject>(ComPtr<RecordsetObject>(this));
    if (!arguments.IsGiven(0)) return Variant(static_cast<IDispatch*>(fields.Get()));
    return fields->Item(arguments);
}

void RecordsetObject::AssignField(const Arguments& arguments) {
    WriteField(Column(arguments.At(0)), arguments.Assigned());
}

void RecordsetObject::WriteFields(const Arguments& arguments) {
    const auto names = Elements(arguments.At(0));
    const auto values = Elements(arguments.At(1));
    if (names.size() != values.size()) {
        throw MakeAdoError(AdoError::InvalidArgument, "There is not one value for each field.");
    }
    for (std::size_t i = 0; i < names.size(); ++i) WriteField(Column(names[i]), values[i]);
}

Variant RecordsetObject::AddNew(const Arguments& arguments) {
    WritableRows().AddNew();
    hasHadRow_ = true;
    recordCount_ = -1;
    if (arguments.IsGiven(0)) {
        WriteFields(arguments);
        WritableRows().Update();
    }
    return {};
}

Variant RecordsetObject::Update(const Arguments& arguments) {
    store::Recordset& rows = WritableRows();
    if (arguments.IsGiven(0)) WriteFields(arguments);
    rows.Update();
    return {};
}

Variant RecordsetObject::MoveNext(const Arguments&) {
    store::Recordset& rows = Rows();
    if (rows.Eof()) throw NoRecordError();
    rows.MoveNext();
    isAtFirst_ = false;
    return {};
}

Variant RecordsetObject::MoveFirst(const Arguments&) {
    store::Recordset& rows = Rows();
    if (!hasHadRow_) throw NoRecordError();
    if (isAtFirst_ && !rows.Eof()) return {};
    // The statement is run again, as ADO does it for rows that only run forward.
    CloseRows();
    StartRows();
    return {};
}

Variant RecordsetObject::GetRows(const Arguments& arguments) {
    store::Recordset& rows = Rows();
    if (arguments.IsGiven(1) || arguments.IsGiven(2)) {
        throw MakeAdoError(AdoError::FeatureNotAvailable,
                           "GetRows reads all fields from the current row on.");
    }
    const std::int32_t asked = arguments.Int(0, -1);
    if (rows.Eof()) throw NoRecordError();
    const auto columns = static_cast<std::size_t>(rows.FieldCount());
    std::vector<Variant> cells;
    std::int32_t count = 0;
    for (; (asked < 0 || count < asked) && !rows.Eof(); ++count) {
        for (std::size_t column = 0; column < columns; ++column) {
            cells.push_back(store::ado::ToVariant(rows.Field(static_cast<int>(column))));
        }
        rows.MoveNext();
    }
    isAtFirst_ = isAtFirst_ && count == 0;

    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(columns), 0}, {static_cast<ULONG>(count), 0}};
    Variant block;
    block.Ref().parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    if (!block.Get().parray) throw std::bad_alloc();
    block.Ref().vt = VT_ARRAY | VT_VARIANT;
    // The first dimension lies closest together, which is the order of the cells.
    auto* target = static_cast<VARIANT*>(block.Get().parray->pvData);
    for (Variant& cell : cells) *target++ = cell.Detach();
    return block;
}

Variant RecordsetObject::RecordCount(const Arguments&) {
    Rows();
    // As in ADO, rows that only run forward are not counted.
    if (cursor_ == store::CursorType::ForwardOnly) return Variant(std::int32_t{-1});
    if (recordCount_ < 0) {
        std::int32_t count = 0;
        const auto counted = connection_->Port().Open(sql_, store::CursorType::ForwardOnly,
                                                      store::LockType::ReadOnly);
        for (; !counted->Eof(); counted->MoveNext()) ++count;
        recordCount_ = count;
    }
    return Variant(recordCount_);
}

Variant RecordsetObject::Source(const Arguments&) {
    return Variant(std::string_view(sql_));
}

void RecordsetObject::AssignSource(const Arguments& arguments) {
    RequireClosed();
    sql_ = automation::ToText(arguments.Assigned(), automation::Misfit::TypeMismatch);
}

Variant RecordsetObject::ActiveConnection(const Arguments&) {
    return Variant(static_cast<IDispatch*>(connection_.Get()));
}

void RecordsetObject::AssignActiveConnection(const Arguments& arguments) {
    RequireClosed();
    connection_ = ConnectionObject::From(arguments.Assigned());
}

Variant RecordsetObject::CursorType(const Arguments&) {
    return Variant(static_cast<std::int32_t>(cursor_));
}

void RecordsetObject::AssignCursorType(const Arguments& arguments) {
    RequireClosed();
    cursor_ = static_cast<store::CursorType>(AssignedInt(arguments, 0, 3));
}

Variant RecordsetObject::LockType(const Arguments&) {
    return Variant(static_cast<std::int32_t>(lock_));
}

void RecordsetObject::AssignLockType(const Arguments& arguments) {
    RequireClosed();
    lock_ = static_cast<store::LockType>(AssignedInt(arguments, 1, 4));
}

Variant RecordsetObject::CursorLocation(const Arguments&) {
    return Variant(cursorLocation_);
}

void RecordsetObject::AssignCursorLocation(const Arguments& arguments) {
    RequireClosed();
    cursorLocation_ = AssignedInt(arguments, 1, 3);
}

}  // namespace zv::host
