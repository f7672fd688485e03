// A window that is smaller than its content: its scroll bars, and what they do.
#include <utility>

#include "forms/win32/form_window.h"

namespace zv::forms::win32 {
namespace {

static_assert(Viewport::kNotch == WHEEL_DELTA);

Viewport::Axis AxisOf(int bar) {
    return bar == SB_HORZ ? Viewport::Axis::Horizontal : Viewport::Axis::Vertical;
}

void ShowBar(HWND window, int bar, int content, int view, int offset) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_PAGE | SIF_POS | SIF_RANGE;
    info.nMax = content - 1;
    info.nPage = static_cast<UINT>(view);
    info.nPos = offset;
    SetScrollInfo(window, bar, &info, TRUE);
}

}  // namespace

Position FormWindow::ScrolledPixels() const {
    const Position offset = form_.View().Offset();
    return {scale_.ToPixels(offset.x), scale_.ToPixels(offset.y)};
}

void FormWindow::ViewChanged() {
    if (gone_ || !handle_) return;
    const Viewport& view = form_.View();
    // The bars that come or go change the room, which is not another size of the window.
    placing_++;
    ShowBar(Handle(), SB_HORZ, view.Content().width, view.View().width, view.Offset().x);
    ShowBar(Handle(), SB_VERT, view.Content().height, view.View().height, view.Offset().y);
    placing_--;
    const Position former = std::exchange(scrolled_, ScrolledPixels());
    if (former == scrolled_) return;
    ScrollWindowEx(Handle(), former.x - scrolled_.x, former.y - scrolled_.y, nullptr, nullptr,
                   nullptr, nullptr, SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
}

void FormWindow::OnScroll(int bar, int request) {
    const Viewport::Axis axis = AxisOf(bar);
    switch (request) {
        case SB_LINEUP:
            return form_.UserScrolled(axis, Viewport::Step::LineBack);
        case SB_LINEDOWN:
            return form_.UserScrolled(axis, Viewport::Step::LineOn);
        case SB_PAGEUP:
            return form_.UserScrolled(axis, Viewport::Step::PageBack);
        case SB_PAGEDOWN:
            return form_.UserScrolled(axis, Viewport::Step::PageOn);
        case SB_TOP:
            return form_.UserScrolled(axis, Viewport::Step::Start);
        case SB_BOTTOM:
            return form_.UserScrolled(axis, Viewport::Step::End);
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return OnThumb(bar);
        default:
            return;
    }
}

void FormWindow::OnThumb(int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    if (!GetScrollInfo(Handle(), bar, &info)) return;
    const Position offset = form_.View().Offset();
    form_.UserScrolled(bar == SB_HORZ ? Position{info.nTrackPos, offset.y}
                                      : Position{offset.x, info.nTrackPos});
}

// What the control under the mouse does not use scrolls the window.
void FormWindow::OnWheel(int bar, int turned) {
    form_.UserTurnedWheel(AxisOf(bar), turned);
}

}  // namespace zv::forms::win32
