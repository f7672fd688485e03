#include "forms/win32/list_box_peer.h"

#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {

void NativeListBox::Create(HWND parent, int id) {
    CreateNative(parent, id, WC_LISTBOXW,
                 WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS,
                 WS_EX_CLIENTEDGE);
    ShowItems();
}

void NativeListBox::ShowItems() {
    const std::vector<std::string>& items = Box().Items();
    std::size_t same = 0;
    while (same < shown_.size() && same < items.size() && shown_[same] == items[same]) same++;
    Send(WM_SETREDRAW, FALSE);
    for (std::size_t i = shown_.size(); i > same; i--) Send(LB_DELETESTRING, i - 1);
    for (std::size_t i = same; i < items.size(); i++) {
        Send(LB_INSERTSTRING, i, reinterpret_cast<LPARAM>(ToWide(items[i]).c_str()));
    }
    Send(WM_SETREDRAW, TRUE);
    InvalidateRect(Handle(), nullptr, TRUE);
    shown_ = items;
    Mirror(Aspect::Selection);
}

void NativeListBox::Mirror(Aspect aspect) {
    if (aspect == Aspect::Items) ShowItems();
    if (aspect == Aspect::Selection) {
        Send(LB_SETCURSEL, static_cast<WPARAM>(static_cast<INT_PTR>(Box().ListIndex())));
    }
}

void NativeListBox::OnCommand(UINT code) {
    if (IsQuiet()) return;
    if (code == LBN_SELCHANGE) Box().UserPick(static_cast<int>(Send(LB_GETCURSEL)));
    if (code == LBN_DBLCLK) Box().UserDoubleClick();
}

}  // namespace zv::forms::win32
