// Where a window stands and how large it is, at the resolution that it has.
#include <algorithm>

#include "forms/win32/form_window.h"
#include "forms/win32/win32_backend.h"

namespace zv::forms::win32 {

void FormWindow::OnMinimumSize(MINMAXINFO& info) const {
    const Size largest = backend_.GetScreens().Largest();
    info.ptMaxTrackSize.x = std::max<LONG>(info.ptMaxTrackSize.x, largest.width);
    info.ptMaxTrackSize.y = std::max<LONG>(info.ptMaxTrackSize.y, largest.height);
    if (const auto place = backend_.GetScreens().MaximisedAt(Handle())) {
        info.ptMaxPosition = {place->left, place->top};
        info.ptMaxSize = {place->width, place->height};
    }
    if (!form_.Sizable()) return;
    const Size least = form_.SmallestInside();
    const RECT outer = OuterOf(least);
    if (least.width > 0) info.ptMinTrackSize.x = outer.right - outer.left;
    if (least.height > 0) info.ptMinTrackSize.y = outer.bottom - outer.top;
}

RECT FormWindow::OuterOf(Size inside) const {
    const RECT client{0, 0, scale_.ToPixels(inside.width), scale_.ToPixels(inside.height)};
    return OuterRect(client, Style(), ExtendedStyle(), GetMenu(Handle()) != nullptr,
                     backend_.GetScreens().FrameDpi(scale_.Dpi()));
}

void FormWindow::OnResolution(int dpi, const RECT& suggested) {
    scale_ = Scale(dpi);
    backend_.Meets(dpi);
    Font former = std::exchange(font_, CreateUiFont(dpi));
    placing_++;
    // The same part of the content, which has other pixels now.
    scrolled_ = ScrolledPixels();
    toolTips_.ResolutionChanged();
    CloseLists();
    for (const auto& control : controls_) control->ResolutionChanged();
    if (IsZoomed(Handle()))
        MoveTo(FromNative(suggested));  // its frame lies outside of the monitor
    else if (!IsIconic(Handle()))
        PlaceWhole(suggested);
    rescaledOnTheWay_ = beingMoved_;
    placing_--;
    InvalidateRect(Handle(), nullptr, TRUE);
    LayOutAgain();
}

void FormWindow::MoveTo(const Rect& place) {
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.width, place.height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

// On the monitor where the window lies already: one that grows with its scale may have most of its
// new size on the next one.
void FormWindow::PlaceWhole(const RECT& suggested) {
    const Rect area = FromNative(backend_.GetScreens().WorkAreaAt(Handle()));
    Rect wanted = FromNative(suggested);
    MoveTo(FitInto(wanted, area));
    // What the system suggests may have been cut by another monitor, and knows of no scroll bars.
    const Size missing = scale_.ToPixels(form_.WantedInside());
    const Size inside = InsidePixels();
    if (inside == missing) return;
    RECT outer{};
    GetWindowRect(Handle(), &outer);
    wanted.width = static_cast<int>(outer.right - outer.left) + missing.width - inside.width;
    wanted.height = static_cast<int>(outer.bottom - outer.top) + missing.height - inside.height;
    MoveTo(FitInto(wanted, area));
}

// They would stay where they dropped down.
void FormWindow::CloseLists() {
    for (const auto& control : controls_) control->CloseList();
}

void FormWindow::FollowMonitor() {
    // Where a maximised one lies is the system's to say.
    if (gone_ || IsZoomed(Handle()) || IsIconic(Handle())) return;
    CloseLists();
    RECT outer{};
    GetWindowRect(Handle(), &outer);
    placing_++;
    PlaceWhole(outer);
    placing_--;
    AcceptPlace();
}

// The frame does not grow as its content does: the content keeps its size in units.
LRESULT FormWindow::OnScaledSize(int dpi, SIZE& size) const {
    if (IsZoomed(Handle()) || IsIconic(Handle())) return FALSE;
    const Size inside = Scale(dpi).ToPixels(form_.WantedInside());
    const RECT client{0, 0, inside.width, inside.height};
    const RECT outer = OuterRect(client, Style(), ExtendedStyle(), GetMenu(Handle()) != nullptr,
                                 backend_.GetScreens().FrameDpi(dpi));
    size = {outer.right - outer.left, outer.bottom - outer.top};
    return TRUE;
}

// Texts have other widths at each resolution.
void FormWindow::LayOutAgain() {
    if (placing_ == 0 && !gone_) form_.WasRescaled(OuterUnits(), InsideUnits());
}

Size FormWindow::InsidePixels() const {
    RECT client{};
    GetClientRect(Handle(), &client);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(Handle(), GWL_STYLE));
    const int bar = BarThickness(backend_.GetScreens().FrameDpi(scale_.Dpi()));
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
    // The place comes before the word that the window is maximised, or is not any more.
    if ((IsZoomed(Handle()) != 0) != (form_.State() == WindowState::Maximised)) return;
    form_.UserResized(OuterUnits(), InsideUnits());
}

void FormWindow::AcceptPlace() {
    if (placing_ > 0 || gone_ || IsIconic(Handle())) return;
    form_.WasPlaced(OuterUnits(), InsideUnits());
}

void FormWindow::PlaceByClient() {
    const RECT outer = OuterOf(form_.View().Inside());
    const int left = scale_.ToPixels(form_.Bounds().left);
    const int top = scale_.ToPixels(form_.Bounds().top);
    const RECT wanted{left, top, left + outer.right - outer.left, top + outer.bottom - outer.top};
    // One that grows may have most of its new size on the next monitor, where it does not go.
    RECT present{};
    GetWindowRect(Handle(), &present);
    OffsetRect(&present, left - static_cast<int>(present.left),
               top - static_cast<int>(present.top));
    MoveTo(FitInto(FromNative(wanted), FromNative(backend_.GetScreens().WorkAreaAround(present))));
}

void FormWindow::BoundsChanged() {
    if (gone_) return;
    placing_++;
    if (form_.View().Inside() != InsideUnits()) {
        PlaceByClient();
    } else {
        MoveTo(FromNative(scale_.ToPixels(form_.Bounds())));
    }
    placing_--;
    AcceptPlace();
}

}  // namespace zv::forms::win32
