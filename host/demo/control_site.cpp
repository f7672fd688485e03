#include "demo/control_site.h"

#include <oleauto.h>

#include "base/win32/com_error.h"
#include "base/win32/variant.h"
#include "demo/demo_texts.h"
#include "resources/texts.h"

namespace zv::demo {
namespace {

constexpr int kHimetricPerInch = 2540;

}  // namespace

ControlSite::ControlSite(HWND window, RECT place, Log log)
    : window_(window), place_(place), log_(std::move(log)) {}

void ControlSite::Detach() {
    window_ = nullptr;
    log_ = nullptr;
    activeObject_.Reset();
}

void ControlSite::Note(const char* what) noexcept {
    try {
        if (log_) log_(what);
    } catch (...) {
        // A line less in the log.
    }
}

STDMETHODIMP ControlSite::QueryInterface(REFIID iid, void** object) {
    if (!object) return E_POINTER;
    if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
        *object = static_cast<IOleClientSite*>(this);
    } else if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite) {
        *object = static_cast<IOleInPlaceSite*>(this);
    } else if (iid == IID_IOleInPlaceUIWindow || iid == IID_IOleInPlaceFrame) {
        *object = static_cast<IOleInPlaceFrame*>(this);
    } else if (iid == IID_IOleControlSite) {
        *object = static_cast<IOleControlSite*>(this);
    } else if (iid == IID_IDispatch || (iid == eventInterface_ && iid != GUID_NULL)) {
        *object = static_cast<IDispatch*>(this);
    } else {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ControlSite::AddRef() {
    return static_cast<ULONG>(++references_);
}

STDMETHODIMP_(ULONG) ControlSite::Release() {
    const long left = --references_;
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
}

STDMETHODIMP ControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
    if (moniker) *moniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::GetContainer(IOleContainer** container) {
    if (container) *container = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP ControlSite::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = window_;
    return window_ ? S_OK : E_FAIL;
}

STDMETHODIMP ControlSite::OnInPlaceActivate() {
    Note(texts::kActivated);
    return S_OK;
}

STDMETHODIMP ControlSite::OnUIActivate() {
    Note(texts::kUserInterfaceActive);
    return S_OK;
}

STDMETHODIMP ControlSite::OnInPlaceDeactivate() {
    activeObject_.Reset();
    Note(texts::kDeactivated);
    return S_OK;
}

STDMETHODIMP ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                           LPRECT place, LPRECT clip,
                                           LPOLEINPLACEFRAMEINFO frameInfo) {
    if (!frame || !document || !place || !clip || !frameInfo) return E_POINTER;
    AddRef();
    *frame = static_cast<IOleInPlaceFrame*>(this);
    *document = nullptr;
    *place = place_;
    *clip = place_;
    const UINT size = frameInfo->cb;
    *frameInfo = {};
    frameInfo->cb = size;
    frameInfo->hwndFrame = window_;
    return S_OK;
}

STDMETHODIMP ControlSite::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) {
    activeObject_ = win32::ComPtr<IOleInPlaceActiveObject>(object);
    return S_OK;
}

STDMETHODIMP ControlSite::GetExtendedControl(IDispatch** control) {
    if (control) *control = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP ControlSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) {
    if (!himetric || !container) return E_POINTER;
    const HDC screen = GetDC(nullptr);
    const auto perInchX = static_cast<float>(GetDeviceCaps(screen, LOGPIXELSX));
    const auto perInchY = static_cast<float>(GetDeviceCaps(screen, LOGPIXELSY));
    ReleaseDC(nullptr, screen);
    if (flags & XFORMCOORDS_HIMETRICTOCONTAINER) {
        container->x = static_cast<float>(himetric->x) * perInchX / kHimetricPerInch;
        container->y = static_cast<float>(himetric->y) * perInchY / kHimetricPerInch;
    } else {
        himetric->x = static_cast<LONG>(container->x * kHimetricPerInch / perInchX);
        himetric->y = static_cast<LONG>(container->y * kHimetricPerInch / perInchY);
    }
    return S_OK;
}

STDMETHODIMP ControlSite::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP ControlSite::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info) *info = nullptr;
    return DISP_E_BADINDEX;
}

STDMETHODIMP ControlSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
    return DISP_E_UNKNOWNNAME;
}

HRESULT ControlSite::AmbientFont(VARIANT* result) const {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return E_FAIL;
    const HDC screen = GetDC(nullptr);
    const int perInch = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = metrics.lfMessageFont.lfFaceName;
    // In ten-thousandths of a point.
    description.cySize.int64 =
        static_cast<LONGLONG>(MulDiv(std::abs(metrics.lfMessageFont.lfHeight), 72, perInch)) *
        10000;
    description.sWeight = static_cast<SHORT>(metrics.lfMessageFont.lfWeight);
    description.sCharset = metrics.lfMessageFont.lfCharSet;
    win32::ComPtr<IDispatch> font;
    const HRESULT hr = OleCreateFontIndirect(&description, IID_IDispatch, font.PutVoid());
    if (FAILED(hr)) return hr;
    result->vt = VT_DISPATCH;
    result->pdispVal = font.Detach();
    return S_OK;
}

STDMETHODIMP ControlSite::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS*, VARIANT* result,
                                 EXCEPINFO*, UINT*) {
    if ((kind & DISPATCH_PROPERTYGET) && result) {
        VariantInit(result);
        const auto flag = [&](bool value) {
            result->vt = VT_BOOL;
            result->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
            return S_OK;
        };
        const auto number = [&](LONG value) {
            result->vt = VT_I4;
            result->lVal = value;
            return S_OK;
        };
        switch (id) {
            case DISPID_AMBIENT_USERMODE:
            case DISPID_AMBIENT_DISPLAYASDEFAULT:
                return flag(id == DISPID_AMBIENT_USERMODE);
            case DISPID_AMBIENT_UIDEAD:
            case DISPID_AMBIENT_SHOWGRABHANDLES:
            case DISPID_AMBIENT_SHOWHATCHING:
                return flag(false);
            case DISPID_AMBIENT_SUPPORTSMNEMONICS:
                return flag(true);
            case DISPID_AMBIENT_BACKCOLOR:
                return number(static_cast<LONG>(GetSysColor(COLOR_BTNFACE)));
            case DISPID_AMBIENT_FORECOLOR:
                return number(static_cast<LONG>(GetSysColor(COLOR_BTNTEXT)));
            case DISPID_AMBIENT_LOCALEID:
                return number(static_cast<LONG>(GetUserDefaultLCID()));
            case DISPID_AMBIENT_FONT:
                return AmbientFont(result);
            case DISPID_AMBIENT_DISPLAYNAME:
                result->bstrVal = SysAllocString(L"zvTask1");
                result->vt = VT_BSTR;
                return result->bstrVal ? S_OK : E_OUTOFMEMORY;
            default:
                return DISP_E_MEMBERNOTFOUND;
        }
    }
    if ((kind & DISPATCH_METHOD) && eventInterface_ != GUID_NULL) {
        return win32::Guarded(
            "zvDemo", [&] { Note(resources::FillIn(texts::kEvent, std::to_string(id)).c_str()); });
    }
    return DISP_E_MEMBERNOTFOUND;
}

}  // namespace zv::demo
