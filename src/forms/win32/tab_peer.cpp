#include "forms/win32/tab_peer.h"

#include "forms/win32/form_window.h"
#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {

void NativeTab::Create(HWND parent, int id) {
    CreateNative(parent, id, WC_TABCONTROLW, WS_TABSTOP | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                 WS_EX_CONTROLPARENT);
    const Quiet quiet(*this);
    for (int tab = 0; tab < Tabs().Tabs(); tab++) {
        std::wstring caption = ToWide(Tabs().TabCaption(tab));
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption.data();
        Send(TCM_INSERTITEMW, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    }
    SizeTabs();
    Send(TCM_SETCURSEL, static_cast<WPARAM>(Tabs().Tab()));
}

// The pages' place is reckoned with this height.
void NativeTab::SizeTabs() {
    const int height = GetScale().ToPixels(TabPanel::kTabHeight - TabPanel::kMargin);
    Send(TCM_SETPADDING, 0, MAKELPARAM(GetScale().ToPixels(10), GetScale().ToPixels(3)));
    Send(TCM_SETITEMSIZE, 0, MAKELPARAM(0, height));
}

void NativeTab::ResolutionChanged() {
    SizeTabs();
    NativeControl::ResolutionChanged();
}

void NativeTab::ApplyBounds() {
    NativeControl::ApplyBounds();
    PlaceChildren();
}

void NativeTab::ShowCaptions() {
    for (int tab = 0; tab < Tabs().Tabs(); tab++) {
        std::wstring caption = ToWide(Tabs().TabCaption(tab));
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = caption.data();
        Send(TCM_SETITEMW, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    }
}

void NativeTab::ShowTab() {
    Send(TCM_SETCURSEL, static_cast<WPARAM>(Tabs().Tab()));
    for (int tab = 0; tab < Tabs().Tabs(); tab++) {
        if (NativeControl* page = Owner().Find(Tabs().Page(tab))) page->Changed(Aspect::Visible);
    }
}

void NativeTab::Mirror(Aspect aspect) {
    if (aspect == Aspect::Items) ShowCaptions();
    if (aspect == Aspect::Value) ShowTab();
}

LRESULT NativeTab::OnNotify(NMHDR& header) {
    if (header.code != static_cast<UINT>(TCN_SELCHANGE) || IsQuiet()) return 0;
    Tabs().UserSelect(static_cast<int>(Send(TCM_GETCURSEL)));
    return 0;
}

}  // namespace zv::forms::win32
