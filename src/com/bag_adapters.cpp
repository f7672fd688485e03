#include "com/bag_adapters.h"

#include <oleauto.h>

#include "automation/variant_readers.h"
#include "base/errors.h"
#include "base/win32/com_error.h"
#include "base/win32/variant.h"
#include "base/win32/wide.h"
#include "com/boundary.h"
#include "store/ado/calls.h"

namespace zv::com {

namespace {

using win32::Variant;

Variant ToVariant(const BagValue& value) {
    return std::visit([](const auto& held) { return Variant(held); }, value);
}

VARTYPE TypeOf(const BagValue& value) {
    return ToVariant(value).Type();
}

// Bags hold what their container likes: a number may come back as text, a truth value as -1.
BagValue FromVariant(std::string_view key, Variant value, const BagValue& fallback) {
    if (value.Type() == VT_EMPTY || value.Type() == VT_NULL) return fallback;
    const HRESULT hr = value.ChangeType(TypeOf(fallback));
    if (hr == E_OUTOFMEMORY) throw std::bad_alloc();
    if (FAILED(hr)) {
        throw Naming(key, RuntimeError(hr == DISP_E_OVERFLOW ? ErrorNumber::Overflow
                                                             : ErrorNumber::TypeMismatch));
    }
    switch (value.Type()) {
        case VT_I2:
            return BagValue(static_cast<std::int16_t>(value.Get().iVal));
        case VT_BOOL:
            return BagValue(value.Get().boolVal != VARIANT_FALSE);
        default:
            return BagValue(win32::ToUtf8(value.Get().bstrVal));
    }
}

class ObjectBag final : public PropertyBag {
 public:
    explicit ObjectBag(IDispatch& object) : object_(&object) {}

    BagValue Read(std::string_view key, const BagValue& fallback) override {
        const Variant name(key);
        const Variant standard = ToVariant(fallback);
        return FromVariant(key, store::ado::Call(*object_, read_, {name.Get(), standard.Get()}),
                           fallback);
    }
    void Write(std::string_view key, const BagValue& value) override {
        const Variant name(key);
        const Variant stored = ToVariant(value);
        store::ado::Call(*object_, write_, {name.Get(), stored.Get()});
    }

 private:
    win32::ComPtr<IDispatch> object_;
    store::ado::Member read_{L"ReadProperty"};
    store::ado::Member write_{L"WriteProperty"};
};

}  // namespace

BagValue ContainerBag::Read(std::string_view key, const BagValue& fallback) {
    const std::wstring name = win32::ToWide(key);
    Variant value;
    const HRESULT hr = bag_->Read(name.c_str(), &value.Ref(), log_.Get());
    if (hr == E_OUTOFMEMORY) throw std::bad_alloc();
    if (FAILED(hr)) return fallback;
    try {
        return FromVariant(key, std::move(value), fallback);
    } catch (const RuntimeError& error) {
        if (log_) {
            const win32::Bstr source(kErrorSource);
            const win32::Bstr text(error.Text());
            EXCEPINFO info{};
            info.bstrSource = source.Get();
            info.bstrDescription = text.Get();
            info.scode = win32::ToHresult(error.Number());
            log_->AddError(name.c_str(), &info);
        }
        throw;
    }
}

void ContainerBag::Write(std::string_view key, const BagValue& value) {
    Variant stored = ToVariant(value);
    const HRESULT hr = bag_->Write(win32::ToWide(key).c_str(), &stored.Ref());
    automation::ThrowIfFailed(hr);
}

std::unique_ptr<PropertyBag> AdaptBagObject(IDispatch* object) {
    if (!object) throw RuntimeError(ErrorNumber::ObjectNotSet);
    win32::ComPtr<IPropertyBag> bag;
    if (SUCCEEDED(object->QueryInterface(IID_IPropertyBag, bag.PutVoid())) && bag) {
        return std::make_unique<ContainerBag>(*bag, nullptr);
    }
    return std::make_unique<ObjectBag>(*object);
}

}  // namespace zv::com
