#include "fields_object.h"

#include <array>

#include "ado_errors.h"
#include "base/win32/enumerator.h"

namespace zv::host {
namespace {

using automation::Offers;
using win32::ComPtr;
using win32::Variant;

/// What goes through the fields for a loop over each of them.
class FieldItems {
 public:
    explicit FieldItems(ComPtr<RecordsetObject> recordset) : recordset_(std::move(recordset)) {}

    /// A recordset without fields to be had has one item, which cannot be had: the error says why.
    std::size_t Count() const noexcept {
        try {
            return static_cast<std::size_t>(recordset_->Rows().FieldCount());
        } catch (const std::exception&) {
            return 1;
        }
    }
    HRESULT Copy(std::size_t index, VARIANT* item) const noexcept {
        return win32::Guarded(FieldsObject::kSourceName, [&] {
            recordset_->Rows().FieldCount();
            auto field = win32::MakeCom<FieldObject>(recordset_, static_cast<int>(index));
            *item = Variant(static_cast<IDispatch*>(field.Get())).Detach();
        });
    }

 private:
    ComPtr<RecordsetObject> recordset_;
};
using FieldEnumerator = win32::Enumerator<IEnumVARIANT, VARIANT, FieldItems>;
}  // namespace

std::span<const MemberEntry<FieldsObject>> FieldsObject::Members() {
    using F = FieldsObject;
    static constexpr std::array<MemberEntry<F>, 3> kMembers{{
        Offers<&F::Item, &F::AssignItem>(L"Item", DISPID_VALUE),
        Offers<&F::Count>(L"Count", 1),
        Offers<&F::NewEnum>(L"_NewEnum", DISPID_NEWENUM),
    }};
    return kMembers;
}

FieldsObject::FieldsObject(ComPtr<RecordsetObject> recordset) : recordset_(std::move(recordset)) {}

Variant FieldsObject::Item(const Arguments& arguments) {
    const int column = recordset_->Column(arguments.At(0));
    auto field = win32::MakeCom<FieldObject>(recordset_, column);
    return Variant(static_cast<IDispatch*>(field.Get()));
}

void FieldsObject::AssignItem(const Arguments& arguments) {
    recordset_->WriteField(recordset_->Column(arguments.At(0)), arguments.Assigned());
}

Variant FieldsObject::Count(const Arguments&) {
    return Variant(std::int32_t{recordset_->Rows().FieldCount()});
}

Variant FieldsObject::NewEnum(const Arguments&) {
    auto walker = ComPtr<IUnknown>::Attach(new FieldEnumerator(FieldItems(recordset_)));
    return Variant(walker.Get());
}

std::span<const MemberEntry<FieldObject>> FieldObject::Members() {
    using F = FieldObject;
    static constexpr std::array<MemberEntry<F>, 2> kMembers{{
        Offers<&F::Value, &F::AssignValue>(L"Value", DISPID_VALUE),
        Offers<&F::Name>(L"Name", 1),
    }};
    return kMembers;
}

FieldObject::FieldObject(ComPtr<RecordsetObject> recordset, int column)
    : recordset_(std::move(recordset)), column_(column), opening_(recordset_->Opening()) {}

Variant FieldObject::Value(const Arguments&) {
    RequireSameOpening();
    return recordset_->ReadField(column_);
}

void FieldObject::AssignValue(const Arguments& arguments) {
    RequireSameOpening();
    recordset_->WriteField(column_, arguments.Assigned());
}

Variant FieldObject::Name(const Arguments&) {
    RequireSameOpening();
    return Variant(std::string_view(recordset_->Rows().FieldName(column_)));
}

void FieldObject::RequireSameOpening() const {
    recordset_->Rows();
    if (recordset_->Opening() != opening_) {
        throw MakeAdoError(AdoError::ObjectNotValid, "Object is no longer valid.");
    }
}

}  // namespace zv::host
