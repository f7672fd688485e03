#include "demo/property_bag.h"

#include <cwchar>

#include "base/win32/com_error.h"

namespace zv::demo {

using win32::Variant;

STDMETHODIMP PropertyBag::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    if (iid != IID_IUnknown && iid != IID_IPropertyBag) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    *object = static_cast<IPropertyBag*>(this);
    return S_OK;
}

STDMETHODIMP_(ULONG) PropertyBag::Release() {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

Variant* PropertyBag::Find(LPCOLESTR name) {
    for (auto& [key, value] : entries_) {
        if (_wcsicmp(key.c_str(), name) == 0) return &value;
    }
    return nullptr;
}

STDMETHODIMP PropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) {
    if (!name || !value) return E_POINTER;
    const Variant* found = Find(name);
    if (!found) return E_INVALIDARG;
    return win32::Guarded("PropertyBag", [&] {
        // The caller shows the type that it wants by the one that it brings.
        const VARTYPE wanted = value->vt;
        Variant copy = Variant::Copy(found->Get());
        if (wanted != VT_EMPTY && FAILED(copy.ChangeType(wanted))) return DISP_E_TYPEMISMATCH;
        VariantClear(value);
        *value = copy.Detach();
        return S_OK;
    });
}

STDMETHODIMP PropertyBag::Write(LPCOLESTR name, VARIANT* value) {
    if (!name || !value) return E_POINTER;
    return win32::Guarded("PropertyBag", [&] {
        Variant copy = Variant::Copy(*value);
        if (Variant* found = Find(name)) {
            *found = std::move(copy);
        } else {
            entries_.emplace_back(name, std::move(copy));
        }
    });
}

}  // namespace zv::demo
