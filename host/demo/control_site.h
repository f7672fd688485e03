// What a container offers to the control that it embeds.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <oleidl.h>

#include <atomic>
#include <functional>
#include <string>

#include "base/win32/com_ptr.h"

namespace zv::demo {

/// Client site, in-place site and frame, control site, ambient properties and event sink of one
/// control that lives in a rectangle of `window`.
class ControlSite final : public IOleClientSite,
                          public IOleInPlaceSite,
                          public IOleInPlaceFrame,
                          public IOleControlSite,
                          public IDispatch {
 public:
    using Log = std::function<void(const std::string&)>;
    ControlSite(HWND window, RECT place, Log log);
    ControlSite(const ControlSite&) = delete;
    ControlSite& operator=(const ControlSite&) = delete;

    /// From here on nothing reaches the window or the log any more.
    void Detach();
    /// Events with this interface reach the log; call before connecting the sink.
    void ListenTo(REFIID eventInterface) { eventInterface_ = eventInterface; }
    /// The object that is active in place; null when none is.
    IOleInPlaceActiveObject* ActiveObject() const { return activeObject_.Get(); }

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
    // Not inline: the optimisation across files takes its thunks twice otherwise.
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    // IOleClientSite
    STDMETHODIMP SaveObject() override { return S_OK; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT place, LPRECT clip,
                                  LPOLEINPLACEFRAMEINFO frameInfo) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() override;
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

    // IOleInPlaceUIWindow and IOleInPlaceFrame: no tools, no menus
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch** control) override;
    STDMETHODIMP TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) override;
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
    STDMETHODIMP OnFocus(BOOL) override { return S_OK; }
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

    // IDispatch: ambient properties, and events under the event interface
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT*) override;

 private:
    ~ControlSite() = default;
    void Note(const char* what) noexcept;
    HRESULT AmbientFont(VARIANT* result) const;

    std::atomic<long> references_{1};
    HWND window_;
    RECT place_;
    Log log_;
    IID eventInterface_ = GUID_NULL;
    win32::ComPtr<IOleInPlaceActiveObject> activeObject_;
};

}  // namespace zv::demo
