#include "fields_object.h"

#include <array>

#include "ado_errors.h"

namespace zv::host {
namespace {

using win32::ComPtr;
using win32::Variant;

/// Walks the fields for a loop over each of them.
class FieldEnumerator final : public IEnumVARIANT {
 public:
    FieldEnumerator(ComPtr<RecordsetObject> recordset, int position)
        : recordset_(std::move(recordset)), position_(position) {
        ++liveObjects;
    }
    FieldEnumerator(const FieldEnumerator&) = delete;
    FieldEnumerator& operator=(const FieldEnumerator&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        if (!object) return E_POINTER;
        if (iid != IID_IUnknown && iid != IID_IEnumVARIANT) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        *object = static_cast<IEnumVARIANT*>(this);
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
    STDMETHODIMP_(ULONG) Release() override {
        const long left = --references_;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }
    STDMETHODIMP Next(ULONG count, VARIANT* values, ULONG* fetched) override {
        if (!values) return E_POINTER;
        ULONG done = 0;
        const HRESULT hr = win32::Guarded(FieldsObject::kSourceName, [&] {
            for (; done < count && position_ < recordset_->Rows().FieldCount(); ++done) {
                auto field = win32::MakeCom<FieldObject>(recordset_, position_++);
                values[done] = Variant(static_cast<IDispatch*>(field.Get())).Detach();
            }
        });
        if (fetched) *fetched = done;
        if (FAILED(hr)) return hr;
        return done == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override {
        position_ += static_cast<int>(count);
        return S_OK;
    }
    STDMETHODIMP Reset() override {
        position_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** copy) override {
        if (!copy) return E_POINTER;
        return win32::Guarded(FieldsObject::kSourceName,
                              [&] { *copy = new FieldEnumerator(recordset_, position_); });
    }

 private:
    ~FieldEnumerator() { --liveObjects; }

    std::atomic<long> references_{1};
    ComPtr<RecordsetObject> recordset_;
    int position_;
};

}  // namespace

std::span<const MemberEntry<FieldsObject>> FieldsObject::Members() {
    using F = FieldsObject;
    static constexpr std::array<MemberEntry<F>, 3> kMembers{{
        {L"Item", DISPID_VALUE, &F::Item, &F::AssignItem},
        {L"Count", 1, &F::Count},
        {L"_NewEnum", DISPID_NEWENUM, &F::NewEnum},
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
    auto walker = ComPtr<IUnknown>::Attach(new FieldEnumerator(recordset_, 0));
    return Variant(walker.Get());
}

std::span<const MemberEntry<FieldObject>> FieldObject::Members() {
    using F = FieldObject;
    static constexpr std::array<MemberEntry<F>, 2> kMembers{{
        {L"Value", DISPID_VALUE, &F::Value, &F::AssignValue},
        {L"Name", 1, &F::Name},
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
