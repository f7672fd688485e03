#include "site.h"

namespace zv::ring::com {

IUnknown* Site::Find(REFIID iid) {
    if (iid == IID_IUnknown || iid == IID_IOleClientSite) return static_cast<IOleClientSite*>(this);
    if (iid == IID_IOleInPlaceSite || iid == IID_IOleWindow) {
        return static_cast<IOleInPlaceSite*>(this);
    }
    if (iid == IID_IDispatch) return static_cast<IDispatch*>(this);
    const bool isFrame = iid == IID_IOleInPlaceFrame || iid == IID_IOleInPlaceUIWindow;
    return isFrame ? static_cast<IOleInPlaceFrame*>(this) : nullptr;
}

STDMETHODIMP Site::SaveObject() {
    ZV_TROUBLE("SaveObject");
    return S_OK;
}

STDMETHODIMP Site::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    *moniker = nullptr;
    ZV_TROUBLE("GetMoniker");
    return E_NOTIMPL;
}

STDMETHODIMP Site::GetContainer(IOleContainer** container) {
    *container = nullptr;
    ZV_TROUBLE("GetContainer");
    return E_NOINTERFACE;
}

STDMETHODIMP Site::ShowObject() {
    ZV_TROUBLE("ShowObject");
    return S_OK;
}

STDMETHODIMP Site::GetWindow(HWND* result) {
    *result = nullptr;
    ZV_TROUBLE("GetWindow");
    *result = window;
    return window ? S_OK : E_FAIL;
}

STDMETHODIMP Site::CanInPlaceActivate() {
    ZV_TROUBLE("CanInPlaceActivate");
    return S_OK;
}

STDMETHODIMP Site::OnInPlaceActivate() {
    if (const auto answer = trouble_.Enter("OnInPlaceActivate")) {
        if (SUCCEEDED(*answer)) activations++;
        return *answer;
    }
    activations++;
    return S_OK;
}

STDMETHODIMP Site::OnUIActivate() {
    if (const auto answer = trouble_.Enter("OnUIActivate")) {
        if (SUCCEEDED(*answer)) uiActivations++;
        return *answer;
    }
    uiActivations++;
    return S_OK;
}

STDMETHODIMP Site::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                    LPRECT place, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
    *frame = nullptr;
    *document = nullptr;
    ZV_TROUBLE("GetWindowContext");
    *frame = this;
    Add();
    *document = this;
    Add();
    *place = position;
    *clip = RECT{0, 0, 1000, 1000};
    info->fMDIApp = FALSE;
    info->hwndFrame = window;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP Site::OnUIDeactivate(BOOL) {
    uiActivations--;
    ZV_TROUBLE("OnUIDeactivate");
    return S_OK;
}

STDMETHODIMP Site::OnInPlaceDeactivate() {
    activations--;
    ZV_TROUBLE("OnInPlaceDeactivate");
    return S_OK;
}

STDMETHODIMP Site::SetBorderSpace(LPCBORDERWIDTHS) {
    ZV_TROUBLE("SetBorderSpace");
    return S_OK;
}

STDMETHODIMP Site::SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) {
    ZV_TROUBLE("SetActiveObject");
    return S_OK;
}

STDMETHODIMP Site::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                          UINT*) {
    ZV_TROUBLE("Invoke");
    if (id != DISPID_AMBIENT_USERMODE) return DISP_E_MEMBERNOTFOUND;
    result->vt = VT_BOOL;
    result->boolVal = userMode ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

}  // namespace zv::ring::com
