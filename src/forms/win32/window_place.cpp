// Where a window stands and how large it is, at the resolution that it has.
#include <algorithm>

#include "forms/win32/form_window.h"
#include "forms/win32/win32_backend.h"

namespace zv::forms::win32 {

namespace {

/// What is left of a window that its user makes small: it scrolls then.
constexpr Size kSmallest{320, 240};

Rect FromRect(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.top),
            static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

}  // namespace

void FormWindow::OnMinimumSize(MINMAXINFO& info) const {
    if (!form_.Sizable()) return;
    const Size least = form_.MinimumClientSize();
    const RECT outer =
        OuterOf({std::min(least.width, kSmallest.width), std::min(least.height, kSmallest.height)});
    if (least.width > 0) info.ptMinTrackSize.x = outer.right - outer.left;
    if (least.height > 0) info.ptMinTrackSize.y = outer.bottom - outer.top;
}

RECT FormWindow::OuterOf(Size inside) const {
    const RECT client{0, 0, scale_.ToPixels(inside.width), scale_.ToPixels(inside.height)};
    return OuterRect(client, Style(), ExtendedStyle(), GetMenu(Handle()) != nullptr, scale_.Dpi());
}

void FormWindow::OnResolution(int dpi, const RECT& suggested) {
    scale_ = Scale(dpi);
    backend_.Meets(dpi);
    Font former = std::exchange(font_, CreateUiFont(dpi));
    placing_++;
    toolTips_.ResolutionChanged();
    for (const auto& control : controls_) control->ResolutionChanged();
    const Rect place = FitInto(FromRect(suggested), FromRect(backend_.WorkAreaAround(suggested)));
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    placing_--;
    InvalidateRect(Handle(), nullptr, TRUE);
    LayOutAgain();
}

// The frame does not grow as its content does: the content keeps its size in units.
LRESULT FormWindow::OnScaledSize(int dpi, SIZE& size) const {
    if (IsZoomed(Handle()) || IsIconic(Handle())) return FALSE;
    const Scale scale(dpi);
    const Size inside = form_.View().Inside();
    const RECT client{0, 0, scale.ToPixels(inside.width), scale.ToPixels(inside.height)};
    const RECT outer =
        OuterRect(client, Style(), ExtendedStyle(), GetMenu(Handle()) != nullptr, dpi);
    size = {outer.right - outer.left, outer.bottom - outer.top};
    return TRUE;
}

// Texts have other widths at each resolution.
void FormWindow::LayOutAgain() {
    if (placing_ > 0 || gone_ || IsIconic(Handle())) return;
    form_.UserRescaled(OuterUnits(), InsideUnits());
}

Size FormWindow::InsidePixels() const {
    RECT client{};
    GetClientRect(Handle(), &client);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_STYLE));
    const int bar = BarThickness(scale_.Dpi());
    return {static_cast<int>(client.right) + (style & WS_VSCROLL ? bar : 0),
            static_cast<int>(client.bottom) + (style & WS_HSCROLL ? bar : 0)};
}

Size FormWindow::InsideUnits() const {
    const Size inside = InsidePixels();
    return {scale_.ToUnits(inside.width), scale_.ToUnits(inside.height)};
}

Rect FormWindow::OuterUnits() const {
    RECT outer{};
    GetWindowRect(Handle(), &outer);
    return scale_.ToUnits(outer);
}

void FormWindow::ReportPlace() {
    if (placing_ > 0 || gone_ || IsIconic(Handle())) return;
    form_.UserResized(OuterUnits(), InsideUnits());
}

void FormWindow::PlaceByClient() {
    const RECT outer = OuterOf(form_.View().Inside());
    const int left = scale_.ToPixels(form_.Bounds().left);
    const int top = scale_.ToPixels(form_.Bounds().top);
    const RECT wanted{left, top, left + outer.right - outer.left, top + outer.bottom - outer.top};
    const Rect place = FitInto(FromRect(wanted), FromRect(backend_.WorkAreaAround(wanted)));
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::BoundsChanged() {
    if (gone_) return;
    placing_++;
    if (form_.View().Inside() != InsideUnits()) {
        PlaceByClient();
    } else {
        const RECT outer = scale_.ToPixels(form_.Bounds());
        SetWindowPos(Handle(), nullptr, outer.left, outer.top, outer.right - outer.left,
                     outer.bottom - outer.top, SWP_NOZORDER | SWP_NOACTIVATE);
    }
    placing_--;
    ReportPlace();
}

}  // namespace zv::forms::win32
