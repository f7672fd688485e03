// The unseen window of the alerter: what the system reports of the icon, the clock, the power
// and the session.
#pragma once

#include <windows.h>

#include <optional>

#include "alerter/alerter.h"
#include "alerter/windows/tray_icon.h"

namespace zv::alerter {

inline constexpr wchar_t kAlerterClass[] = L"zvAlertWindow";

/// Ends the message loop when the alerter ends or the session does.
class AlerterWindow {
 public:
    /// The session must outlive this. Throws RuntimeError when there are no windows to be had.
    explicit AlerterWindow(Session& session);
    ~AlerterWindow();
    AlerterWindow(const AlerterWindow&) = delete;
    AlerterWindow& operator=(const AlerterWindow&) = delete;

    /// False when the workstation wants no alerter.
    bool Start();

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
    LRESULT Handle(UINT message, WPARAM w, LPARAM l);
    void OnIcon(UINT what);
    void Sleep();

    Session& session_;
    HWND window_ = nullptr;
    UINT taskbarCreated_ = 0;
    std::optional<TrayIcon> icon_;
    std::optional<Alerter> alerter_;
};

}  // namespace zv::alerter
