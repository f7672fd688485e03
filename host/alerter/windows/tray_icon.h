// The icon in the notification area of Windows.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include "alerter/tray.h"

namespace zv::alerter {

class TrayIcon final : public Tray {
 public:
    /// The message that reports the user to `window`, which must outlive this.
    static constexpr UINT kMessage = WM_APP + 1;

    explicit TrayIcon(HWND window) : window_(window) {}
    ~TrayIcon() override;
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;

    void Show(const Face& face) override;
    void Announce(const std::string& title, const std::string& text) override;
    std::optional<Act> Choose(const std::vector<MenuEntry>& entries) override;
    /// The task bar was made anew and knows no icon any more.
    void PutBack();

 private:
    NOTIFYICONDATAW Data(UINT flags) const;
    void Send();

    HWND window_;
    HICON icon_ = nullptr;
    Face face_;
    bool isThere_ = false;
};

}  // namespace zv::alerter
