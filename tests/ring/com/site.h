// The container's side of a control: client site, in-place site, frame, document and ambient
// properties in one double.
#pragma once

#include "doubles.h"

namespace zv::ring::com {

class Site final : public container::QuietSite<
                       Double<Site, IOleClientSite, IOleInPlaceSite, IDispatch, IOleInPlaceFrame>> {
 public:
    explicit Site(Trouble& trouble) : QuietSite("site", trouble) {}
    IUnknown* Find(REFIID iid);
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        return Double::QueryInterface(iid, object);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return Add(); }
    STDMETHODIMP_(ULONG) Release() override { return Drop(); }

    STDMETHODIMP SaveObject() override;
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** moniker) override;
    STDMETHODIMP GetContainer(IOleContainer** container) override;
    STDMETHODIMP ShowObject() override;

    STDMETHODIMP GetWindow(HWND* result) override;
    STDMETHODIMP CanInPlaceActivate() override;
    STDMETHODIMP OnInPlaceActivate() override;
    STDMETHODIMP OnUIActivate() override;
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                  LPRECT position, LPRECT clip,
                                  LPOLEINPLACEFRAMEINFO info) override;
    STDMETHODIMP OnUIDeactivate(BOOL) override;
    STDMETHODIMP OnInPlaceDeactivate() override;

    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override;
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override;

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                        UINT*) override;

    HWND window = nullptr;
    RECT position{10, 20, 110, 90};
    bool userMode = false;
    int activations = 0;    ///< granted and not yet ended
    int uiActivations = 0;  ///< the same of OnUIActivate
};

}  // namespace zv::ring::com
