// IOleObject and IOleControl: the control in its container.
#pragma once

#include "com/core.h"
#include "com/in_place.h"

namespace zv::com {

class OleObject final : public Part<IOleObject, IOleControl> {
 public:
    OleObject(Core& core, InPlaceObject& inPlace) : Part(core), inPlace_(inPlace) {}

    STDMETHODIMP SetClientSite(IOleClientSite* site) noexcept override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) noexcept override;
    STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR document) noexcept override;
    STDMETHODIMP Close(DWORD saveOption) noexcept override;
    STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) noexcept override;
    STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) noexcept override;
    STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) noexcept override;
    STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) noexcept override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) noexcept override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
    STDMETHODIMP Update() noexcept override;
    STDMETHODIMP IsUpToDate() noexcept override;
    STDMETHODIMP GetUserClassID(CLSID* id) noexcept override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) noexcept override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) noexcept override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) noexcept override;
    STDMETHODIMP Unadvise(DWORD connection) noexcept override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** connections) noexcept override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    STDMETHODIMP SetColorScheme(LOGPALETTE* palette) noexcept override;

    STDMETHODIMP GetControlInfo(CONTROLINFO* info) noexcept override;
    STDMETHODIMP OnMnemonic(MSG* message) noexcept override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) noexcept override;
    STDMETHODIMP FreezeEvents(BOOL freeze) noexcept override;

    /// Notifies those who advised that the control was saved.
    void NotifySaved() noexcept;

 private:
    InPlaceObject& inPlace_;
    win32::ComPtr<IOleAdviseHolder> advises_;
};

}  // namespace zv::com
