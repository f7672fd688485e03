#include "forms/win32/native_control.h"

#include "base/errors.h"
#include "forms/form.h"
#include "forms/win32/accessibility.h"
#include "forms/win32/form_window.h"
#include "forms/win32/subclass.h"
#include "forms/win32/wide_text.h"
#include "forms/win32/win32_backend.h"

namespace zv::forms::win32 {

NativeControl::NativeControl(FormWindow& window, Control& control)
    : window_(window), control_(control) {}

NativeControl::~NativeControl() = default;

void NativeControl::CreateNative(HWND parent, int id, const wchar_t* windowClass, DWORD style,
                                 DWORD extendedStyle, const std::wstring& text) {
    const RECT bounds = PixelBounds();
    if (ShownByItself()) style |= WS_VISIBLE;
    if (!control_.Enabled()) style |= WS_DISABLED;
    handle_.reset(CreateWindowExW(
        extendedStyle, windowClass, text.c_str(), style | WS_CHILD | WS_CLIPSIBLINGS, bounds.left,
        bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top, parent,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), window_.Module(), nullptr));
    if (!handle_) {
        throw RuntimeError(ErrorNumber::InternalError,
                           "No native window for " + control_.DisplayName());
    }
    original_ = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(Handle(), GWLP_WNDPROC));
    Watch(Handle());
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(window_.UiFont()), FALSE);
    name_.reset(GlobalAddAtomW(ToWide(control_.DisplayName()).c_str()));
    SetPropW(Handle(), kNameProperty, reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(name_.get())));
    SetAccessibleName();
    if (!control_.ToolTip().empty()) ShowToolTip();
    if (control_.InFront()) Changed(Aspect::ZOrder);
}

void NativeControl::Watch(HWND part) {
    window_.Register(part, *this);
    Subclass(part, *this, &NativeControl::Procedure);
}

const Scale& NativeControl::GetScale() const {
    return window_.GetScale();
}

void NativeControl::Changed(Aspect aspect) {
    if (gone_ || !handle_) return;
    const Quiet quiet(*this);
    switch (aspect) {
        case Aspect::Bounds:
            ApplyBounds();
            break;
        case Aspect::Visible:
            ShowWindow(Handle(), ShownByItself() ? SW_SHOWNA : SW_HIDE);
            break;
        case Aspect::Enabled:
            EnableWindow(Handle(), control_.Enabled());
            break;
        case Aspect::ZOrder:
            SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
            break;
        case Aspect::Caption:
            SetAccessibleName();
            Mirror(aspect);
            break;
        case Aspect::ToolTip:
            ShowToolTip();
            break;
        default:
            Mirror(aspect);
            break;
    }
}

bool NativeControl::ShownByItself() const {
    return control_.OwnVisible();
}

RECT NativeControl::PixelBounds() const {
    // Rounded where they lie in the window, so that what ends with its container does so in pixels.
    RECT bounds = GetScale().ToPixels(control_.PlaceInWindow());
    if (const Control* parent = control_.Parent()) {
        const RECT container = GetScale().ToPixels(parent->PlaceInWindow());
        OffsetRect(&bounds, -static_cast<int>(container.left), -static_cast<int>(container.top));
        return bounds;
    }
    const Position scrolled = window_.ScrolledPixels();
    OffsetRect(&bounds, -scrolled.x, -scrolled.y);
    return bounds;
}

void NativeControl::ApplyBounds() {
    const RECT bounds = PixelBounds();
    RECT present{};
    GetWindowRect(Handle(), &present);
    MapWindowPoints(nullptr, GetParent(Handle()), reinterpret_cast<POINT*>(&present), 2);
    // A move that changes nothing has its price, and windows are laid out often.
    if (EqualRect(&present, &bounds)) return;
    // Controls that change places may cover each other on the way: what stood at the old place is
    // not to be carried to the new one.
    SetWindowPos(Handle(), nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                 bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
}

void NativeControl::PlaceChildren() {
    // A whole multiple rounds nothing.
    if (GetScale().Dpi() % USER_DEFAULT_SCREEN_DPI == 0) return;
    for (const Control* child : control_.Owner().Controls()) {
        if (child->Parent() != &control_) continue;
        if (NativeControl* native = window_.Find(*child)) native->Changed(Aspect::Bounds);
    }
}

void NativeControl::ResolutionChanged() {
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(window_.UiFont()), FALSE);
    ApplyBounds();
}

void NativeControl::TakeFocus() {
    if (gone_ || !handle_) return;
    const Quiet quiet(*this);
    window_.GiveFocus(*this);
}

void NativeControl::SetAccessibleName() {
    if (!control_.AccessibleName().empty()) {
        NameForScreenReaders(window_.Backend().ScreenReaders(), Handle(),
                             ToWide(control_.AccessibleName()));
    }
}

void NativeControl::ShowToolTip() {
    const std::wstring text = ToWide(control_.ToolTip());
    window_.ToolTips().Set(Handle(), text);
    // The entry of a list with free text lies over it.
    if (FocusHandle() != Handle()) window_.ToolTips().Set(FocusHandle(), text);
}

LRESULT CALLBACK NativeControl::Procedure(NativeControl& self, HWND window, UINT message,
                                          WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCDESTROY) {
        self.window_.Unregister(window);
        if (window == self.Handle()) {
            RemovePropW(window, kNameProperty);
            static_cast<void>(self.handle_.release());
        }
        return CallSubclassed(window, message, wParam, lParam);
    }
    if (message == WM_DESTROY && window == self.Handle()) self.OnDestroy();
    if (self.window_.Gone()) return CallSubclassed(window, message, wParam, lParam);
    return self.window_.AtBoundary([&] { return self.Handle(window, message, wParam, lParam); });
}

LRESULT NativeControl::Native(UINT message, WPARAM wParam, LPARAM lParam) const {
    return CallSubclassed(target_, message, wParam, lParam);
}

LRESULT NativeControl::Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (gone_) return CallSubclassed(window, message, wParam, lParam);
    switch (message) {
        case WM_SETFOCUS: {
            LRESULT result = 0;
            {
                // A native option button takes the focus for a click.
                const Quiet quiet(*this);
                result = CallSubclassed(window, message, wParam, lParam);
            }
            if (!gone_) window_.FocusArrived(*this);
            return result;
        }
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
            if (!PressMovesFocus(message)) return 0;
            break;
        case WM_MOUSEMOVE:
            ReportMouse(message, lParam);
            break;
        case WM_IME_STARTCOMPOSITION:
            window_.SetComposing(true);
            break;
        case WM_IME_ENDCOMPOSITION:
            window_.SetComposing(false);
            break;
        default:
            break;
    }
    if (gone_) return CallSubclassed(window, message, wParam, lParam);
    const HWND former = std::exchange(target_, window);
    const std::optional<LRESULT> result = OnMessage(message, wParam, lParam);
    target_ = former;
    if (message == WM_RBUTTONDOWN) ReportMouse(message, lParam);
    return result ? *result : CallSubclassed(window, message, wParam, lParam);
}

std::optional<LRESULT> NativeControl::OnMessage(UINT, WPARAM, LPARAM) {
    return std::nullopt;
}

// The field being left is validated before the press does anything.
bool NativeControl::PressMovesFocus(UINT message) {
    if (message == WM_RBUTTONDOWN && control_.Kind() == ControlKind::CommandButton) return true;
    if (!control_.CanFocus() || control_.HasFocus()) return true;
    const bool moved = control_.Owner().UserFocused(control_);
    return moved && !gone_;
}

MouseEvent NativeControl::MouseAt(MouseButton button, LPARAM lParam) const {
    const Scale& scale = GetScale();
    return {button, scale.ToTwips(static_cast<short>(LOWORD(lParam))),
            scale.ToTwips(static_cast<short>(HIWORD(lParam)))};
}

void NativeControl::ReportMouse(UINT message, LPARAM lParam) {
    if (gone_) return;
    if (message == WM_MOUSEMOVE) {
        if (control_.onMouseMove) control_.UserMouseMove(MouseAt(MouseButton::None, lParam));
    } else if (control_.Kind() != ControlKind::TreeView) {
        // A tree reports the press together with the node under it.
        if (control_.onMouseDown) control_.UserMouseDown(MouseAt(MouseButton::Right, lParam));
    }
}

}  // namespace zv::forms::win32
