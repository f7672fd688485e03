#include "alerter/windows/tray_icon.h"

#include <algorithm>
#include <string_view>

#include "alerter/windows/face_icon.h"
#include "base/win32/wide.h"

namespace zv::alerter {
namespace {

constexpr UINT kIcon = 1;
constexpr UINT kFirstEntry = 1;

// The system's places for texts are short; a pair of units is not torn.
template <std::size_t N>
void Put(wchar_t (&place)[N], const std::string& text) {
    const std::wstring wide = win32::ToWide(text);
    std::size_t length = std::min(wide.size(), N - 1);
    if (length < wide.size() && length > 0 && IS_HIGH_SURROGATE(wide[length - 1])) length--;
    std::copy_n(wide.begin(), length, place);
    place[length] = 0;
}

}  // namespace

TrayIcon::~TrayIcon() {
    NOTIFYICONDATAW data = Data(0);
    if (isThere_) Shell_NotifyIconW(NIM_DELETE, &data);
    if (icon_) DestroyIcon(icon_);
}

NOTIFYICONDATAW TrayIcon::Data(UINT flags) const {
    NOTIFYICONDATAW data{};
    data.cbSize = sizeof data;
    data.hWnd = window_;
    data.uID = kIcon;
    data.uFlags = flags;
    data.uCallbackMessage = kMessage;
    return data;
}

void TrayIcon::Show(const Face& face) {
    face_ = face;
    Send();
}

void TrayIcon::PutBack() {
    isThere_ = false;
    Send();
}

void TrayIcon::Send() {
    const HICON before = icon_;
    icon_ = MakeFaceIcon(face_.mood, win32::ToWide(face_.sign), GetSystemMetrics(SM_CXSMICON));
    NOTIFYICONDATAW data = Data(NIF_MESSAGE | NIF_ICON | NIF_TIP);
    data.hIcon = icon_;
    Put(data.szTip, face_.tip);
    // Without a task bar there is no icon; it is put back when there is one.
    isThere_ = Shell_NotifyIconW(isThere_ ? NIM_MODIFY : NIM_ADD, &data) != FALSE;
    if (before) DestroyIcon(before);
}

void TrayIcon::Announce(const std::string& title, const std::string& text) {
    NOTIFYICONDATAW data = Data(NIF_INFO);
    Put(data.szInfoTitle, title);
    Put(data.szInfo, text);
    data.dwInfoFlags = NIIF_INFO | NIIF_RESPECT_QUIET_TIME;
    if (isThere_) Shell_NotifyIconW(NIM_MODIFY, &data);
}

std::optional<Act> TrayIcon::Choose(const std::vector<MenuEntry>& entries) {
    const HMENU menu = CreatePopupMenu();
    if (!menu) return std::nullopt;
    for (std::size_t i = 0; i < entries.size(); i++) {
        AppendMenuW(menu, entries[i].enabled ? MF_STRING : MF_STRING | MF_GRAYED, kFirstEntry + i,
                    win32::ToWide(entries[i].caption).c_str());
    }
    POINT at{};
    GetCursorPos(&at);
    // A menu whose owner is not in the foreground does not close when the user clicks elsewhere.
    SetForegroundWindow(window_);
    const auto chosen = static_cast<UINT>(TrackPopupMenuEx(
        menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, at.x, at.y, window_, nullptr));
    PostMessageW(window_, WM_NULL, 0, 0);
    DestroyMenu(menu);
    if (chosen < kFirstEntry || chosen - kFirstEntry >= entries.size()) return std::nullopt;
    return entries[chosen - kFirstEntry].act;
}

}  // namespace zv::alerter
