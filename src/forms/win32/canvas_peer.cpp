#include "forms/win32/canvas_peer.h"

#include "forms/win32/common_controls.h"
#include "forms/win32/form_window.h"

namespace zv::forms::win32 {
namespace {

constexpr wchar_t kCanvasClass[] = L"zv.Canvas";
constexpr int kLineStep = 32;

}  // namespace

void NativeCanvas::Create(HWND parent, int id) {
    class_ = WindowClass::Get(Owner().Module(), kCanvasClass, &DefWindowProcW);
    Area().SetScrollBarSize(GetScale().ToUnits(GetSystemMetrics(SM_CXVSCROLL)));
    CreateNative(parent, id, kCanvasClass, WS_TABSTOP | WS_VSCROLL | WS_HSCROLL);
    ShowScroll();
}

void NativeCanvas::ResolutionChanged() {
    NativeControl::ResolutionChanged();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void NativeCanvas::ApplyBounds() {
    NativeControl::ApplyBounds();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void NativeCanvas::Mirror(Aspect aspect) {
    if (aspect == Aspect::Value) ShowScroll();
    if (aspect == Aspect::Image || aspect == Aspect::Value) {
        InvalidateRect(Handle(), nullptr, FALSE);
    }
}

// Bars that come and go would change the area that they belong to.
void NativeCanvas::ShowScroll() {
    const auto show = [&](int bar, const Canvas::Scroll& scroll) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_ALL | SIF_DISABLENOSCROLL;
        info.nMax = scroll.extent > 0 ? scroll.extent - 1 : 0;
        info.nPage = static_cast<UINT>(scroll.visible > 0 ? scroll.visible : 1);
        info.nPos = scroll.position;
        SetScrollInfo(Handle(), bar, &info, TRUE);
    };
    show(SB_HORZ, Area().Horizontal());
    show(SB_VERT, Area().Vertical());
}

std::optional<LRESULT> NativeCanvas::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint();
            return 0;
        case WM_HSCROLL:
            OnScroll(SB_HORZ, LOWORD(wParam));
            return 0;
        case WM_VSCROLL:
            OnScroll(SB_VERT, LOWORD(wParam));
            return 0;
        case WM_MOUSEWHEEL:
            OnWheel(wParam);
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        default:
            return std::nullopt;
    }
}

// Into memory first, so that nothing flickers.
void NativeCanvas::Paint() {
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(Handle(), &paint);
    RECT client{};
    GetClientRect(Handle(), &client);
    const int width = static_cast<int>(client.right);
    const int height = static_cast<int>(client.bottom);
    if (width > 0 && height > 0) {
        const MemoryDc memory(CreateCompatibleDC(dc));
        const Bitmap bitmap(CreateCompatibleBitmap(dc, width, height));
        const Selected selected(memory.get(), bitmap.get());
        FillRect(memory.get(), &client, GetSysColorBrush(COLOR_APPWORKSPACE));
        Area().UserPaint({memory.get(), width, height, GetScale().Dpi()});
        BitBlt(dc, 0, 0, width, height, memory.get(), 0, 0, SRCCOPY);
    }
    EndPaint(Handle(), &paint);
}

void NativeCanvas::OnScroll(int bar, UINT action) {
    const Canvas::Scroll& scroll = bar == SB_HORZ ? Area().Horizontal() : Area().Vertical();
    int position = scroll.position;
    switch (action) {
        case SB_LINEUP:
            position -= kLineStep;
            break;
        case SB_LINEDOWN:
            position += kLineStep;
            break;
        case SB_PAGEUP:
            position -= scroll.visible;
            break;
        case SB_PAGEDOWN:
            position += scroll.visible;
            break;
        case SB_TOP:
            position = 0;
            break;
        case SB_BOTTOM:
            position = scroll.Last();
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: {
            SCROLLINFO info{};
            info.cbSize = sizeof info;
            info.fMask = SIF_TRACKPOS;
            GetScrollInfo(Handle(), bar, &info);
            position = info.nTrackPos;
            break;
        }
        default:
            return;
    }
    Area().UserScroll(bar == SB_HORZ ? position : Area().Horizontal().position,
                      bar == SB_VERT ? position : Area().Vertical().position);
}

void NativeCanvas::OnWheel(WPARAM wParam) {
    wheel_ += GET_WHEEL_DELTA_WPARAM(wParam);
    const int notches = wheel_ / WHEEL_DELTA;
    wheel_ -= notches * WHEEL_DELTA;
    if (notches != 0) Area().UserWheel(notches, (GET_KEYSTATE_WPARAM(wParam) & MK_CONTROL) != 0);
}

}  // namespace zv::forms::win32
