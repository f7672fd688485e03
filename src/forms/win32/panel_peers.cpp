#include "forms/win32/panel_peers.h"

#include <vsstyle.h>

#include <algorithm>

#include "forms/win32/wide_text.h"

namespace zv::forms::win32 {
namespace {

constexpr wchar_t kPanelClass[] = L"zv.Panel";

// The nearest page of tabs that the window is or lies in.
NativePanel* PageOf(const FormWindow& form, HWND window) {
    for (HWND at = window; at && at != form.Handle(); at = GetParent(at)) {
        auto* panel = dynamic_cast<NativePanel*>(form.Find(at));
        if (panel && panel->IsPage()) return panel;
    }
    return nullptr;
}

}  // namespace

HBRUSH BackgroundOf(const FormWindow& form, HDC dc, HWND child) {
    NativePanel* page = PageOf(form, child);
    const HBRUSH brush = page ? page->PageBrush() : nullptr;
    if (!brush) return GetSysColorBrush(COLOR_BTNFACE);
    POINT origin{0, 0};
    MapWindowPoints(child, page->Handle(), &origin, 1);
    SetBrushOrgEx(dc, -origin.x, -origin.y, nullptr);
    return brush;
}

NativePanel::NativePanel(FormWindow& window, Control& control) : NativeControl(window, control) {}

NativePanel::~NativePanel() = default;

void NativePanel::Create(HWND parent, int id) {
    class_ = WindowClass::Get(Owner().Module(), kPanelClass, &DefWindowProcW);
    CreateNative(parent, id, kPanelClass, WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT);
    ApplyBounds();
    Mirror(Aspect::Caption);
}

bool NativePanel::IsPage() const {
    return Logical().Parent() && Logical().Parent()->Kind() == ControlKind::TabPanel;
}

bool NativePanel::ShownByItself() const {
    if (!Logical().OwnVisible() || !IsPage()) return Logical().OwnVisible();
    auto& tabs = static_cast<TabPanel&>(*Logical().Parent());
    return &tabs.Page(tabs.Tab()) == &Logical();
}

void NativePanel::ApplyBounds() {
    NativeControl::ApplyBounds();
    PlaceChildren();
}

HBRUSH NativePanel::PageBrush() {
    RECT client{};
    GetClientRect(Handle(), &client);
    if (client.right != pageBrushSize_.cx || client.bottom != pageBrushSize_.cy) MakePageBrush();
    return pageBrush_.get();
}

void NativePanel::MakePageBrush() {
    pageBrush_.reset();
    RECT client{};
    GetClientRect(Handle(), &client);
    pageBrushSize_ = {client.right, client.bottom};
    const Theme theme(OpenThemeData(Handle(), L"TAB"));
    if (!theme || client.right <= 0 || client.bottom <= 0) return;
    const WindowDc screen(Handle());
    const MemoryDc memory(CreateCompatibleDC(screen.get()));
    const Bitmap bitmap(CreateCompatibleBitmap(screen.get(), client.right, client.bottom));
    {
        const Selected selected(memory.get(), bitmap.get());
        DrawThemeBackground(theme.get(), memory.get(), TABP_BODY, 0, &client, nullptr);
    }
    pageBrush_.reset(CreatePatternBrush(bitmap.get()));
}

std::optional<LRESULT> NativePanel::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
        case WM_PRINTCLIENT: {
            const HDC dc = reinterpret_cast<HDC>(wParam);
            RECT client{};
            GetClientRect(Handle(), &client);
            FillRect(dc, &client, BackgroundOf(Owner(), dc, Handle()));
            Paint(dc);
            return 1;
        }
        case WM_THEMECHANGED:
            pageBrushSize_ = {};
            return std::nullopt;
        case WM_COMMAND:
        case WM_NOTIFY:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
            return Owner().FromChild(message, wParam, lParam);
        default:
            return std::nullopt;
    }
}

void NativeFrame::Mirror(Aspect aspect) {
    if (aspect != Aspect::Caption) return;
    SetWindowTextW(Handle(), ToWide(static_cast<const Frame&>(Logical()).Caption()).c_str());
    InvalidateRect(Handle(), nullptr, TRUE);
}

void NativeFrame::Paint(HDC dc) {
    RECT line{};
    GetClientRect(Handle(), &line);
    const std::wstring caption = ToWide(static_cast<const Frame&>(Logical()).Caption());
    const Selected font(dc, Owner().UiFont());
    SIZE text{};
    GetTextExtentPoint32W(dc, caption.empty() ? L"X" : caption.c_str(),
                          std::max(1, static_cast<int>(caption.size())), &text);
    line.top += text.cy / 2;
    const int indent = GetScale().ToPixels(8);
    const int gap = GetScale().ToPixels(3);
    RECT label{indent, 0, indent + text.cx, text.cy};
    const int state = SaveDC(dc);
    if (!caption.empty()) {
        ExcludeClipRect(dc, label.left - gap, label.top, label.right + gap, label.bottom);
    }
    const Theme theme(OpenThemeData(Handle(), L"BUTTON"));
    if (theme) {
        DrawThemeBackground(theme.get(), dc, BP_GROUPBOX, GBS_NORMAL, &line, nullptr);
    } else {
        DrawEdge(dc, &line, EDGE_ETCHED, BF_RECT);
    }
    RestoreDC(dc, state);
    if (caption.empty()) return;
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(Logical().Enabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    DrawTextW(dc, caption.c_str(), -1, &label, DT_SINGLELINE | DT_NOCLIP);
}

}  // namespace zv::forms::win32
