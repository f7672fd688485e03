// Where a window stands and how large it is, at the resolution that it has.
#include "forms/win32/form_window.h"
#include "forms/win32/win32_backend.h"

namespace zv::forms::win32 {

void FormWindow::OnMinimumSize(MINMAXINFO& info) const {
    const Size least = form_.MinimumClientSize();
    const RECT client{0, 0, scale_.ToPixels(least.width), scale_.ToPixels(least.height)};
    const RECT outer =
        OuterRect(client, Style(), ExtendedStyle(), GetMenu(Handle()) != nullptr, scale_.Dpi());
    if (least.width > 0) info.ptMinTrackSize.x = outer.right - outer.left;
    if (least.height > 0) info.ptMinTrackSize.y = outer.bottom - outer.top;
}

void FormWindow::OnResolution(int dpi, const RECT& suggested) {
    scale_ = Scale(dpi);
    backend_.Meets(dpi);
    Font former = std::exchange(font_, CreateUiFont(dpi));
    placing_++;
    toolTips_.ResolutionChanged();
    for (const auto& control : controls_) control->ResolutionChanged();
    SetWindowPos(Handle(), nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                 suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
    placing_--;
    InvalidateRect(Handle(), nullptr, TRUE);
    LayOutAgain();
}

// The frame does not grow as its content does: the content keeps its size in units.
LRESULT FormWindow::OnScaledSize(int dpi, SIZE& size) const {
    if (IsZoomed(Handle()) || IsIconic(Handle())) return FALSE;
    const Scale scale(dpi);
    const RECT client{0, 0, scale.ToPixels(form_.ClientSize().width),
                      scale.ToPixels(form_.ClientSize().height)};
    const RECT outer =
        OuterRect(client, Style(), ExtendedStyle(), GetMenu(Handle()) != nullptr, dpi);
    size = {outer.right - outer.left, outer.bottom - outer.top};
    return TRUE;
}

// Texts have other widths at each resolution.
void FormWindow::LayOutAgain() {
    if (placing_ > 0 || gone_ || IsIconic(Handle())) return;
    form_.UserRescaled(OuterUnits(), ClientUnits());
}

Size FormWindow::ClientUnits() const {
    RECT client{};
    GetClientRect(Handle(), &client);
    return {scale_.ToUnits(client.right), scale_.ToUnits(client.bottom)};
}

Rect FormWindow::OuterUnits() const {
    RECT outer{};
    GetWindowRect(Handle(), &outer);
    return scale_.ToUnits(outer);
}

void FormWindow::ReportPlace() {
    if (placing_ > 0 || gone_ || IsIconic(Handle())) return;
    form_.UserResized(OuterUnits(), ClientUnits());
}

void FormWindow::PlaceByClient() {
    const RECT client{0, 0, scale_.ToPixels(form_.ClientSize().width),
                      scale_.ToPixels(form_.ClientSize().height)};
    const RECT outer =
        OuterRect(client, Style(), ExtendedStyle(), GetMenu(Handle()) != nullptr, scale_.Dpi());
    SetWindowPos(Handle(), nullptr, scale_.ToPixels(form_.Bounds().left),
                 scale_.ToPixels(form_.Bounds().top), outer.right - outer.left,
                 outer.bottom - outer.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::BoundsChanged() {
    if (gone_) return;
    placing_++;
    if (form_.ClientSize() != ClientUnits()) {
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
