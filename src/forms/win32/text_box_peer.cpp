#include "forms/win32/text_box_peer.h"

#include <imm.h>

#include <algorithm>

#include "forms/win32/form_window.h"
#include "forms/win32/wide_text.h"
#include "resources/glyph_samples.h"

namespace zv::forms::win32 {

void NativeTextBox::Create(HWND parent, int id) {
    DWORD style = WS_TABSTOP;
    style |= Box().MultiLine() ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL
                               : ES_AUTOHSCROLL;
    // The native control draws tabs only where it could have several lines.
    if (Box().ShowsTabs()) style |= ES_MULTILINE;
    if (Box().Locked()) style |= ES_READONLY;
    CreateNative(parent, id, WC_EDITW, style, WS_EX_CLIENTEDGE);
    // Digits need no input method, and would be held back by one.
    if (Box().NumericKeyboard()) ImmAssociateContext(Handle(), nullptr);
    PlaceLine();
    const Quiet quiet(*this);
    Mirror(Aspect::MaxLength);
    ShowText();
    Mirror(Aspect::Selection);
}

void NativeTextBox::ShowText() {
    if (WindowText(Handle()) != Box().Text()) {
        SetWindowTextW(Handle(), ToWide(Box().Text()).c_str());
    }
}

void NativeTextBox::Mirror(Aspect aspect) {
    switch (aspect) {
        case Aspect::Text:
            ShowText();
            if (Box().Vacant()) InvalidateRect(Handle(), nullptr, TRUE);
            break;
        case Aspect::Locked:
            Send(EM_SETREADONLY, Box().Locked());
            InvalidateRect(Handle(), nullptr, TRUE);
            break;
        case Aspect::MaxLength:
            Send(EM_SETLIMITTEXT, static_cast<WPARAM>(Box().MaxLength()));
            break;
        case Aspect::Selection:
            Send(EM_SETSEL, static_cast<WPARAM>(Box().SelStart()),
                 LPARAM{Box().SelStart()} + Box().SelLength());
            Send(EM_SCROLLCARET);
            break;
        default:
            break;
    }
}

void NativeTextBox::OnCommand(UINT code) {
    if (code != EN_CHANGE || IsQuiet()) return;
    ReportSelection();
    const bool looked = Box().LooksLocked();
    Box().UserText(WindowText(Handle()));
    if (!Gone() && looked != Box().LooksLocked()) InvalidateRect(Handle(), nullptr, TRUE);
}

void NativeTextBox::ResolutionChanged() {
    NativeControl::ResolutionChanged();
    PlaceLine();
}

// The frame is reckoned anew, with the line in its middle.
void NativeTextBox::PlaceLine() {
    if (Box().MultiLine()) return;
    SetWindowPos(Handle(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

// A native entry of one line has it at the top, however high it is; beside a label, and beside
// lists and dates, it belongs into the middle.
void NativeTextBox::CenterLine(RECT& client) const {
    const auto line = win32::MeasureText(Owner().UiFont(), resources::kTallLetters).cy;
    const LONG rest = std::max<LONG>((client.bottom - client.top - line) / 2, 0);
    client.top += rest;
    client.bottom -= rest;
}

// What lies between the frame and the line is painted as the line is.
void NativeTextBox::PaintAroundLine() const {
    RECT outer{};
    RECT line{};
    GetWindowRect(Handle(), &outer);
    GetClientRect(Handle(), &line);
    MapWindowPoints(Handle(), nullptr, reinterpret_cast<POINT*>(&line), 2);
    OffsetRect(&line, -static_cast<int>(outer.left), -static_cast<int>(outer.top));
    const int edge = GetSystemMetrics(SM_CYEDGE);
    const RECT above{line.left, edge, line.right, line.top};
    const RECT below{line.left, line.bottom, line.right, outer.bottom - outer.top - edge};
    HDC dc = GetWindowDC(Handle());
    const bool reads = Box().Locked() || !IsWindowEnabled(Handle());
    auto* brush = reinterpret_cast<HBRUSH>(
        SendMessageW(GetParent(Handle()), reads ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT,
                     reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(Handle())));
    for (const RECT& band : {above, below}) {
        if (brush && band.bottom > band.top) FillRect(dc, &band, brush);
    }
    ReleaseDC(Handle(), dc);
}

std::optional<LRESULT> NativeTextBox::OnLineMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCALCSIZE: {
            const LRESULT result = Native(message, wParam, lParam);
            CenterLine(wParam ? reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0]
                              : *reinterpret_cast<RECT*>(lParam));
            return result;
        }
        case WM_NCHITTEST:
            // A press beside the line is meant for it.
            return HTCLIENT;
        case WM_NCPAINT:
        case WM_PAINT: {
            const LRESULT result = Native(message, wParam, lParam);
            PaintAroundLine();
            return result;
        }
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> NativeTextBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!Box().MultiLine()) {
        if (const auto result = OnLineMessage(message, wParam, lParam)) return result;
    }
    if (message != WM_KEYUP && message != WM_LBUTTONUP) return std::nullopt;
    const LRESULT result = Native(message, wParam, lParam);
    ReportSelection();
    return result;
}

void NativeTextBox::ReportSelection() {
    DWORD start = 0;
    DWORD end = 0;
    Send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    Box().UserSelection(static_cast<int>(start), static_cast<int>(end - start));
}

}  // namespace zv::forms::win32
