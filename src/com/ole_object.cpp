#include "com/ole_object.h"

#include <cstring>

#include "com/boundary.h"
#include "com/ids.h"

namespace zv::com {

STDMETHODIMP OleObject::SetClientSite(IOleClientSite* site) noexcept {
    return Boundary([&] {
        if (!site) inPlace_.InPlaceDeactivate();
        core_.site = win32::ComPtr<IOleClientSite>(site);
    });
}

STDMETHODIMP OleObject::GetClientSite(IOleClientSite** site) noexcept {
    if (!site) return E_POINTER;
    core_.site.CopyTo(site);
    return S_OK;
}

STDMETHODIMP OleObject::SetHostNames(LPCOLESTR, LPCOLESTR) noexcept {
    return S_OK;
}

STDMETHODIMP OleObject::Close(DWORD saveOption) noexcept {
    return Boundary([&]() -> HRESULT {
        HRESULT hr = S_OK;
        // There is nothing that a user would be asked about: what changed is saved.
        const auto site = core_.site;
        if (saveOption != OLECLOSE_NOSAVE && core_.isDirty && site) hr = site->SaveObject();
        inPlace_.InPlaceDeactivate();
        const win32::ComPtr<IOleAdviseHolder> advises = advises_;
        if (advises) advises->SendOnClose();
        return hr;
    });
}

STDMETHODIMP OleObject::SetMoniker(DWORD, IMoniker*) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::InitFromData(IDataObject*, BOOL, DWORD) noexcept {
    return S_FALSE;
}

STDMETHODIMP OleObject::GetClipboardData(DWORD, IDataObject** data) noexcept {
    if (data) *data = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT) noexcept {
    return Boundary([&]() -> HRESULT {
        switch (verb) {
            case OLEIVERB_PRIMARY:
            case OLEIVERB_SHOW:
            case OLEIVERB_INPLACEACTIVATE:
            case OLEIVERB_UIACTIVATE:
                return inPlace_.Activate(verb);
            case OLEIVERB_HIDE:
                inPlace_.Hide();
                return S_OK;
            case OLEIVERB_DISCARDUNDOSTATE:
                return inPlace_.IsActive() ? S_OK : OLE_E_NOT_INPLACEACTIVE;
            default:
                // A verb that is not offered is answered by the primary one when it is positive.
                return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
        }
    });
}

STDMETHODIMP OleObject::EnumVerbs(IEnumOLEVERB** verbs) noexcept {
    if (verbs) *verbs = nullptr;
    return OLEOBJ_E_NOVERBS;
}

STDMETHODIMP OleObject::Update() noexcept {
    return S_OK;
}

STDMETHODIMP OleObject::IsUpToDate() noexcept {
    return S_OK;
}

STDMETHODIMP OleObject::GetUserClassID(CLSID* id) noexcept {
    if (!id) return E_POINTER;
    *id = kClassId;
    return S_OK;
}

STDMETHODIMP OleObject::GetUserType(DWORD form, LPOLESTR* type) noexcept {
    if (!type) return E_POINTER;
    const std::wstring_view name = form == USERCLASSTYPE_FULL ? kFriendlyName : L"zvTask";
    const std::size_t bytes = (name.size() + 1) * sizeof(wchar_t);
    *type = static_cast<LPOLESTR>(CoTaskMemAlloc(bytes));
    if (!*type) return E_OUTOFMEMORY;
    std::memcpy(*type, name.data(), bytes);
    return S_OK;
}

STDMETHODIMP OleObject::SetExtent(DWORD aspect, SIZEL* size) noexcept {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size || size->cx <= 0 || size->cy <= 0) return E_INVALIDARG;
    return Boundary([&] {
        core_.extent = *size;
        if (core_.onViewChanged) core_.onViewChanged();
    });
}

STDMETHODIMP OleObject::GetExtent(DWORD aspect, SIZEL* size) noexcept {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size) return E_POINTER;
    *size = core_.extent;
    return S_OK;
}

STDMETHODIMP OleObject::Advise(IAdviseSink* sink, DWORD* connection) noexcept {
    if (!sink || !connection) return E_POINTER;
    return Boundary([&]() -> HRESULT {
        if (!advises_) ThrowIfFailed(CreateOleAdviseHolder(advises_.Put()));
        const win32::ComPtr<IOleAdviseHolder> advises = advises_;
        return advises->Advise(sink, connection);
    });
}

STDMETHODIMP OleObject::Unadvise(DWORD connection) noexcept {
    const win32::ComPtr<IOleAdviseHolder> advises = advises_;
    return advises ? advises->Unadvise(connection) : OLE_E_NOCONNECTION;
}

STDMETHODIMP OleObject::EnumAdvise(IEnumSTATDATA** connections) noexcept {
    if (!connections) return E_POINTER;
    *connections = nullptr;
    return advises_ ? advises_->EnumAdvise(connections) : S_OK;
}

STDMETHODIMP OleObject::GetMiscStatus(DWORD aspect, DWORD* status) noexcept {
    if (!status) return E_POINTER;
    *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
    return S_OK;
}

STDMETHODIMP OleObject::SetColorScheme(LOGPALETTE*) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP OleObject::GetControlInfo(CONTROLINFO* info) noexcept {
    if (!info) return E_POINTER;
    if (info->cb != sizeof *info) return E_INVALIDARG;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return S_OK;
}

STDMETHODIMP OleObject::OnMnemonic(MSG*) noexcept {
    return S_OK;
}

STDMETHODIMP OleObject::OnAmbientPropertyChange(DISPID) noexcept {
    return Boundary([&] {
        // Run mode and the control's name are all that its picture depends on.
        if (core_.IsUserMode()) inPlace_.InPlaceDeactivate();
        if (core_.onViewChanged) core_.onViewChanged();
    });
}

STDMETHODIMP OleObject::FreezeEvents(BOOL freeze) noexcept {
    return Boundary([&] {
        if (core_.onEventsFrozen) core_.onEventsFrozen(freeze != FALSE);
    });
}

void OleObject::NotifySaved() noexcept {
    const win32::ComPtr<IOleAdviseHolder> advises = advises_;
    if (advises) advises->SendOnSave();
}

}  // namespace zv::com
