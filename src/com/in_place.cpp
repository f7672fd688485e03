#include "com/in_place.h"

#include "automation/module.h"
#include "com/boundary.h"
#include "com/design_view.h"
#include "forms/win32/system_dpi.h"

namespace zv::com {

namespace {

constexpr wchar_t kWindowClass[] = L"zvTask.DesignView";

int g_windows = 0;

// Some failures of the system leave no number.
HRESULT LastResult() {
    const DWORD error = GetLastError();
    return error == ERROR_SUCCESS ? E_FAIL : HRESULT_FROM_WIN32(error);
}

// A class that outlived an earlier load of this file has a procedure that is gone.
bool RegisterWindowClass(WNDPROC procedure) {
    if (g_windows == 0) InPlaceObject::ForgetWindowClass();
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = automation::module::Handle();
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kWindowClass;
    return RegisterClassExW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

}  // namespace

InPlaceObject::~InPlaceObject() {
    DestroyInPlaceWindow();
}

void InPlaceObject::ForgetWindowClass() noexcept {
    UnregisterClassW(kWindowClass, automation::module::Handle());
}

// While a window is being destroyed its class cannot be taken back yet.
void InPlaceObject::DestroyInPlaceWindow() noexcept {
    if (window_) DestroyWindow(window_);
    if (g_windows == 0) ForgetWindowClass();
}

int InPlaceObject::OpenWindows() noexcept {
    return g_windows;
}

STDMETHODIMP InPlaceObject::GetWindow(HWND* window) noexcept {
    if (!window) return E_POINTER;
    *window = window_;
    return window_ ? S_OK : E_FAIL;
}

STDMETHODIMP InPlaceObject::ContextSensitiveHelp(BOOL) noexcept {
    return E_NOTIMPL;
}

STDMETHODIMP InPlaceObject::InPlaceDeactivate() noexcept {
    if (activation_ == Activation::UnderWay) activation_ = Activation::TakenBack;
    if (!IsActive()) return S_OK;
    return Boundary([&] {
        UIDeactivate();
        // A container may have closed the control while it was notified.
        const auto site = std::exchange(inPlaceSite_, {});
        if (!site) return;
        DestroyInPlaceWindow();
        frame_.Reset();
        document_.Reset();
        site->OnInPlaceDeactivate();
    });
}

STDMETHODIMP InPlaceObject::UIDeactivate() noexcept {
    if (!isUiActive_) return S_OK;
    return Boundary([&] {
        // Each of these may close the control.
        const auto document = document_;
        const auto frame = frame_;
        const auto site = inPlaceSite_;
        isUiActive_ = false;
        if (document) document->SetActiveObject(nullptr, nullptr);
        if (frame) frame->SetActiveObject(nullptr, nullptr);
        if (site) site->OnUIDeactivate(FALSE);
    });
}

STDMETHODIMP InPlaceObject::SetObjectRects(LPCRECT position, LPCRECT clip) noexcept {
    if (!position) return E_INVALIDARG;
    if (!window_) return S_OK;
    RECT visible = *position;
    const bool isClipped =
        clip && IntersectRect(&visible, position, clip) && !EqualRect(&visible, position);
    HRGN region = nullptr;
    if (isClipped) {
        OffsetRect(&visible, -position->left, -position->top);
        region = CreateRectRgnIndirect(&visible);
    }
    SetWindowRgn(window_, region, TRUE);
    SetWindowPos(window_, nullptr, position->left, position->top, position->right - position->left,
                 position->bottom - position->top, SWP_NOZORDER | SWP_NOACTIVATE);
    return S_OK;
}

STDMETHODIMP InPlaceObject::ReactivateAndUndo() noexcept {
    return INPLACE_E_NOTUNDOABLE;
}

STDMETHODIMP InPlaceObject::TranslateAccelerator(LPMSG) noexcept {
    return S_FALSE;
}

STDMETHODIMP InPlaceObject::OnFrameWindowActivate(BOOL) noexcept {
    return S_OK;
}

STDMETHODIMP InPlaceObject::OnDocWindowActivate(BOOL) noexcept {
    return S_OK;
}

STDMETHODIMP InPlaceObject::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept {
    return S_OK;
}

STDMETHODIMP InPlaceObject::EnableModeless(BOOL) noexcept {
    return S_OK;
}

HRESULT InPlaceObject::Activate(LONG verb) {
    const win32::ComPtr<IUnknown> alive(&core_.outer);
    if (!core_.site) return OLE_E_NOTRUNNING;
    if (core_.IsUserMode()) return S_OK;
    HRESULT hr = ActivateInPlace();
    if (SUCCEEDED(hr) && window_) ShowWindow(window_, SW_SHOWNA);
    if (SUCCEEDED(hr) && verb == OLEIVERB_UIACTIVATE) hr = ActivateUi();
    return hr;
}

HRESULT InPlaceObject::ActivateInPlace() {
    if (IsActive()) return S_OK;
    // What the container is asked meanwhile may ask for the same again.
    if (activation_ != Activation::None) return OLE_E_NOT_INPLACEACTIVE;
    activation_ = Activation::UnderWay;
    const HRESULT hr = EnterContainer();
    activation_ = Activation::None;
    return hr;
}

bool InPlaceObject::IsWantedBy(const win32::ComPtr<IOleClientSite>& client) const {
    return activation_ == Activation::UnderWay && core_.site == client;
}

HRESULT InPlaceObject::EnterContainer() {
    const auto client = core_.site;
    const auto site = client.As<IOleInPlaceSite>();
    if (!site) return E_FAIL;
    if (site->CanInPlaceActivate() != S_OK) return OLE_E_NOT_INPLACEACTIVE;

    HWND parent = nullptr;
    RECT position{};
    RECT clip{};
    OLEINPLACEFRAMEINFO frameInfo{};
    frameInfo.cb = sizeof frameInfo;
    win32::ComPtr<IOleInPlaceFrame> frame;
    win32::ComPtr<IOleInPlaceUIWindow> document;
    HRESULT hr = site->GetWindow(&parent);
    if (FAILED(hr)) return hr;
    hr = site->GetWindowContext(frame.Put(), document.Put(), &position, &clip, &frameInfo);
    if (FAILED(hr)) return hr;
    hr = site->OnInPlaceActivate();
    if (FAILED(hr)) return hr;
    // Taken away from its site meanwhile, there is nothing to be active in.
    hr = IsWantedBy(client) ? CreateInPlaceWindow(parent, position, clip) : OLE_E_NOT_INPLACEACTIVE;
    // The parent hears of a new child.
    if (SUCCEEDED(hr) && !(window_ && IsWantedBy(client))) hr = OLE_E_NOT_INPLACEACTIVE;
    if (FAILED(hr)) {
        DestroyInPlaceWindow();
        site->OnInPlaceDeactivate();
        return hr;
    }
    inPlaceSite_ = site;
    frame_ = frame;
    document_ = document;
    client->ShowObject();
    return S_OK;
}

HRESULT InPlaceObject::ActivateUi() {
    if (isUiActive_) return S_OK;
    const auto site = inPlaceSite_;
    const auto frame = frame_;
    const auto document = document_;
    if (!site) return OLE_E_NOT_INPLACEACTIVE;
    const HRESULT hr = site->OnUIActivate();
    if (FAILED(hr)) return hr;
    if (!IsActive()) return OLE_E_NOT_INPLACEACTIVE;
    isUiActive_ = true;
    if (frame) frame->SetActiveObject(this, nullptr);
    if (document && isUiActive_) document->SetActiveObject(this, nullptr);
    // No tools of its own: the container's borders go back to it.
    if (frame && isUiActive_) frame->SetBorderSpace(nullptr);
    if (document && isUiActive_) document->SetBorderSpace(nullptr);
    return isUiActive_ ? S_OK : OLE_E_NOT_INPLACEACTIVE;
}

HRESULT InPlaceObject::CreateInPlaceWindow(HWND parent, const RECT& position, const RECT& clip) {
    if (!RegisterWindowClass(&WindowProcedure)) return LastResult();
    // A child lives in its parent's context, whatever the thread has at this moment.
    forms::win32::SystemDpiThread thread;
    const forms::DpiScope parents(thread, forms::win32::DpiContextOf(parent));
    window_ = CreateWindowExW(0, kWindowClass, L"zvTask", WS_CHILD | WS_CLIPSIBLINGS, position.left,
                              position.top, position.right - position.left,
                              position.bottom - position.top, parent, nullptr,
                              automation::module::Handle(), this);
    if (!window_) return LastResult();
    return SetObjectRects(&position, &clip);
}

void InPlaceObject::Hide() noexcept {
    const win32::ComPtr<IUnknown> alive(&core_.outer);
    UIDeactivate();
    if (window_) ShowWindow(window_, SW_HIDE);
}

void InPlaceObject::Redraw() noexcept {
    if (window_) InvalidateRect(window_, nullptr, TRUE);
}

LRESULT CALLBACK InPlaceObject::WindowProcedure(HWND window, UINT message, WPARAM wParam,
                                                LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(create->lpCreateParams));
        g_windows++;
    }
    auto* self = reinterpret_cast<InPlaceObject*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->window_ = nullptr;
        const LRESULT result = DefWindowProcW(window, message, wParam, lParam);
        g_windows--;
        return result;
    }
    return self->Handle(window, message, wParam, lParam);
}

LRESULT InPlaceObject::Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    // What is asked of the container may end the control.
    const win32::ComPtr<IUnknown> alive(&core_.outer);
    switch (message) {
        case WM_PAINT: {
            PAINTSTRUCT paint;
            const HDC context = BeginPaint(window, &paint);
            if (!context) return 0;
            RECT client;
            GetClientRect(window, &client);
            Boundary([&] { DrawDesignView(context, client, core_.DisplayName()); });
            EndPaint(window, &paint);
            return 0;
        }
        case WM_ERASEBKGND:
            return 1;
        case WM_LBUTTONDOWN:
            Boundary([&] { return Activate(OLEIVERB_UIACTIVATE); });
            return 0;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

}  // namespace zv::com
