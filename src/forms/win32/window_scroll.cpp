// A window that is smaller than its content: its scroll bars, and what they do.
#include <utility>

#include "forms/win32/form_window.h"

namespace zv::forms::win32 {
namespace {

/// Of a line that an arrow of the bar, or a notch of the wheel three of them, moves by.
constexpr int kLine = 24;

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
    const Viewport& view = form_.View();
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    if (!GetScrollInfo(Handle(), bar, &info)) return;
    const int page = bar == SB_HORZ ? view.View().width : view.View().height;
    int at = info.nPos;
    switch (request) {
        case SB_LINEUP:
            at -= kLine;
            break;
        case SB_LINEDOWN:
            at += kLine;
            break;
        case SB_PAGEUP:
            at -= page;
            break;
        case SB_PAGEDOWN:
            at += page;
            break;
        case SB_TOP:
            at = info.nMin;
            break;
        case SB_BOTTOM:
            at = info.nMax;
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            at = info.nTrackPos;
            break;
        default:
            return;
    }
    ScrollTo(bar, at);
}

void FormWindow::ScrollTo(int bar, int at) {
    const Position offset = form_.View().Offset();
    form_.UserScrolled(bar == SB_HORZ ? Position{at, offset.y} : Position{offset.x, at});
}

// What the control under the mouse does not use scrolls the window.
void FormWindow::OnWheel(int bar, int turned) {
    const Position offset = form_.View().Offset();
    constexpr int kLinesOfANotch = 3;
    const int way = MulDiv(turned, kLine * kLinesOfANotch, WHEEL_DELTA);
    ScrollTo(bar, bar == SB_HORZ ? offset.x + way : offset.y - way);
}

}  // namespace zv::forms::win32
