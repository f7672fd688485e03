// IOleInPlaceObject and IOleInPlaceActiveObject: the small window that stands for the control in a
// container that is being designed.
#pragma once

#include "com/core.h"

namespace zv::com {

class InPlaceObject final : public Part<IOleInPlaceObject, IOleInPlaceActiveObject> {
 public:
    using Part::Part;
    ~InPlaceObject();

    STDMETHODIMP GetWindow(HWND* window) noexcept override;
    STDMETHODIMP ContextSensitiveHelp(BOOL enter) noexcept override;

    STDMETHODIMP InPlaceDeactivate() noexcept override;
    STDMETHODIMP UIDeactivate() noexcept override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) noexcept override;
    STDMETHODIMP ReactivateAndUndo() noexcept override;

    STDMETHODIMP TranslateAccelerator(LPMSG message) noexcept override;
    STDMETHODIMP OnFrameWindowActivate(BOOL active) noexcept override;
    STDMETHODIMP OnDocWindowActivate(BOOL active) noexcept override;
    STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window,
                              BOOL frame) noexcept override;
    STDMETHODIMP EnableModeless(BOOL enable) noexcept override;

    /// Carries out OLEIVERB_SHOW, INPLACEACTIVATE or UIACTIVATE. While the host runs there is no
    /// window to activate: answers S_OK and does nothing.
    HRESULT Activate(LONG verb);
    void Hide() noexcept;
    bool IsActive() const { return static_cast<bool>(inPlaceSite_); }
    void Redraw() noexcept;

    /// Windows of this kind that exist.
    static int OpenWindows() noexcept;
    /// Takes the class of these windows back; only while there is none.
    static void ForgetWindowClass() noexcept;

 private:
    enum class Activation { None, UnderWay, TakenBack };

    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) noexcept;
    LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    HRESULT ActivateInPlace();
    HRESULT EnterContainer();
    bool IsWantedBy(const win32::ComPtr<IOleClientSite>& client) const;
    HRESULT ActivateUi();
    HRESULT CreateInPlaceWindow(HWND parent, const RECT& position, const RECT& clip);
    void DestroyInPlaceWindow() noexcept;

    HWND window_ = nullptr;
    win32::ComPtr<IOleInPlaceSite> inPlaceSite_;
    win32::ComPtr<IOleInPlaceFrame> frame_;
    win32::ComPtr<IOleInPlaceUIWindow> document_;
    bool isUiActive_ = false;
    Activation activation_ = Activation::None;
};

}  // namespace zv::com
