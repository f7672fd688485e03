#include "com/class_info.h"

#include "com/boundary.h"
#include "com/ids.h"
#include "com/type_info.h"

namespace zv::com {

STDMETHODIMP ClassInfo::GetClassInfo(ITypeInfo** info) noexcept {
    if (!info) return E_POINTER;
    *info = nullptr;
    return Boundary([&] { *info = LoadTypeInfo(kClassId).Detach(); });
}

STDMETHODIMP ClassInfo::GetGUID(DWORD kind, GUID* id) noexcept {
    if (!id) return E_POINTER;
    *id = GUID_NULL;
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *id = kEventsId;
    return S_OK;
}

STDMETHODIMP ErrorSupport::InterfaceSupportsErrorInfo(REFIID iid) noexcept {
    const bool reports = iid == kInterfaceId || iid == kSecondInterfaceId || iid == IID_IDispatch ||
                         iid == IID_IPersistPropertyBag || iid == IID_IPersistStreamInit ||
                         iid == IID_IPersistStorage;
    return reports ? S_OK : S_FALSE;
}

}  // namespace zv::com
