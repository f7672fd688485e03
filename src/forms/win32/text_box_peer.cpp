#include "forms/win32/text_box_peer.h"

#include <imm.h>

#include "forms/win32/entry_line.h"
#include "forms/win32/form_window.h"
#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {

void NativeTextBox::Create(HWND parent, int id) {
    DWORD style = WS_TABSTOP;
    style |= Box().MultiLine() ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL
                               : ES_AUTOHSCROLL;
    // The native control draws tabs only where it could have several lines.
    if (Box().ShowsTabs()) style |= ES_MULTILINE;
    if (Box().Locked()) style |= ES_READONLY;
    CreateNative(parent, id, WC_EDITW, style, WS_EX_CLIENTEDGE);
    if (Box().NumericKeyboard()) Mirror(Aspect::Keyboard);
    if (!Box().MultiLine()) PlaceEntryLine(Handle());
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
        case Aspect::Keyboard:
            // Digits need no input method, and would be held back by one.
            if (Box().NumericKeyboard()) {
                ImmAssociateContext(Handle(), nullptr);
            } else {
                ImmAssociateContextEx(Handle(), nullptr, IACE_DEFAULT);
            }
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
    if (!Box().MultiLine()) PlaceEntryLine(Handle());
}

std::optional<LRESULT> NativeTextBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!Box().MultiLine()) {
        const bool reads = Box().Locked() || !IsWindowEnabled(Handle());
        const auto result =
            AnswerForEntryLine(Handle(), Owner().UiFont(), reads, message, wParam, lParam,
                               [&] { return Native(message, wParam, lParam); });
        if (result) return result;
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
