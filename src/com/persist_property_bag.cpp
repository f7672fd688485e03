#include "com/bag_adapters.h"
#include "com/boundary.h"
#include "com/ids.h"
#include "com/persist.h"

namespace zv::com {

STDMETHODIMP PersistPropertyBag::GetClassID(CLSID* id) noexcept {
    if (!id) return E_POINTER;
    *id = kClassId;
    return S_OK;
}

STDMETHODIMP PersistPropertyBag::InitNew() noexcept {
    return Boundary([&] {
        core_.InitProperties();
        core_.isDirty = false;
    });
}

STDMETHODIMP PersistPropertyBag::Load(IPropertyBag* bag, IErrorLog* log) noexcept {
    if (!bag) return E_POINTER;
    return Boundary([&] {
        ContainerBag adapter(*bag, log);
        core_.ReadProperties(adapter);
        core_.isDirty = false;
    });
}

STDMETHODIMP PersistPropertyBag::Save(IPropertyBag* bag, BOOL clearDirty, BOOL) noexcept {
    if (!bag) return E_POINTER;
    // Values equal to their defaults are left out however the container asks: reading brings the
    // same defaults back.
    return Boundary([&] {
        core_.EnsureValues();
        ContainerBag adapter(*bag, nullptr);
        core_.WriteProperties(adapter);
        if (clearDirty) core_.isDirty = false;
    });
}

}  // namespace zv::com
