#include "forms/win32/entry_line.h"

#include <algorithm>

#include "forms/win32/display.h"
#include "resources/glyph_samples.h"

namespace zv::forms::win32 {

namespace {

void CenterLine(HFONT font, RECT& client) {
    const LONG line = MeasureText(font, resources::kTallLetters).cy;
    const LONG rest = std::max<LONG>((client.bottom - client.top - line) / 2, 0);
    client.top += rest;
    client.bottom -= rest;
}

// What lies between the frame and the line is painted as the line is.
void PaintAroundLine(HWND entry, bool reads) {
    RECT outer{};
    RECT line{};
    GetWindowRect(entry, &outer);
    GetClientRect(entry, &line);
    MapWindowPoints(entry, nullptr, reinterpret_cast<POINT*>(&line), 2);
    OffsetRect(&line, -static_cast<int>(outer.left), -static_cast<int>(outer.top));
    const bool framed = (GetWindowLongPtrW(entry, GWL_EXSTYLE) & WS_EX_CLIENTEDGE) != 0;
    const LONG edge = framed ? GetSystemMetrics(SM_CYEDGE) : 0;
    const RECT above{line.left, edge, line.right, line.top};
    const RECT below{line.left, line.bottom, line.right, outer.bottom - outer.top - edge};
    HDC dc = GetWindowDC(entry);
    const UINT colour = reads ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT;
    auto* brush = reinterpret_cast<HBRUSH>(SendMessageW(
        GetParent(entry), colour, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(entry)));
    for (const RECT& band : {above, below}) {
        if (brush && band.bottom > band.top) FillRect(dc, &band, brush);
    }
    ReleaseDC(entry, dc);
}

}  // namespace

void PlaceEntryLine(HWND entry) {
    SetWindowPos(entry, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

std::optional<LRESULT> AnswerForEntryLine(HWND entry, HFONT font, bool reads, UINT message,
                                          WPARAM wParam, LPARAM lParam,
                                          const std::function<LRESULT()>& native) {
    switch (message) {
        case WM_NCCALCSIZE: {
            const LRESULT result = native();
            CenterLine(font, wParam ? reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0]
                                    : *reinterpret_cast<RECT*>(lParam));
            return result;
        }
        case WM_NCHITTEST:
            // A press beside the line is meant for it.
            return HTCLIENT;
        case WM_NCPAINT:
        case WM_PAINT: {
            const LRESULT result = native();
            PaintAroundLine(entry, reads);
            return result;
        }
        default:
            return std::nullopt;
    }
}

}  // namespace zv::forms::win32
