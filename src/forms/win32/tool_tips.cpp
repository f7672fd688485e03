#include "forms/win32/tool_tips.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "forms/win32/common_controls.h"
#include "forms/win32/form_window.h"
#include "forms/win32/win32_backend.h"

namespace zv::forms::win32 {
namespace {

constexpr std::size_t kLongestTip = 4096;

TOOLINFOW Tool(HWND owner, HWND control) {
    TOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = owner;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

}  // namespace

void ToolTips::Make() {
    const ManifestInForce manifest(owner_.Backend().Controls().Manifest());
    handle_.reset(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                  WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                  CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner_.Handle(),
                                  nullptr, owner_.Module(), nullptr));
    ResolutionChanged();
}

void ToolTips::ResolutionChanged() {
    constexpr int kWidest = 480;
    if (!handle_) return;
    SendMessageW(handle_.get(), WM_SETFONT, reinterpret_cast<WPARAM>(owner_.UiFont()), FALSE);
    // A width also makes it break lines.
    SendMessageW(handle_.get(), TTM_SETMAXTIPWIDTH, 0, owner_.GetScale().ToPixels(kWidest));
}

void ToolTips::Set(HWND control, const std::wstring& text) {
    if (!handle_) {
        if (text.empty()) return;
        Make();
        if (!handle_) return;
    }
    TOOLINFOW tool = Tool(owner_.Handle(), control);
    // A label lets the mouse through unless it is to hear of it.
    std::array<wchar_t, 16> name{};
    GetClassNameW(control, name.data(), static_cast<int>(name.size()));
    if (lstrcmpiW(name.data(), WC_STATICW) == 0) {
        SetWindowLongPtrW(control, GWL_STYLE, GetWindowLongPtrW(control, GWL_STYLE) | SS_NOTIFY);
    }
    SendMessageW(handle_.get(), TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    if (text.empty()) return;
    std::wstring shown = text;
    tool.lpszText = shown.data();
    SendMessageW(handle_.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

std::wstring ToolTips::TextOf(HWND control) const {
    if (!handle_) return {};
    std::wstring text(kLongestTip, L'\0');
    TOOLINFOW tool = Tool(owner_.Handle(), control);
    tool.lpszText = text.data();
    SendMessageW(handle_.get(), TTM_GETTEXTW, kLongestTip, reinterpret_cast<LPARAM>(&tool));
    text.resize(std::min(text.find(L'\0'), text.size()));
    return text;
}

void ToolTips::Forget() {
    if (IsWindow(handle_.get()))
        handle_.reset();
    else
        static_cast<void>(handle_.release());
}

}  // namespace zv::forms::win32
