#include "alerter/windows/alerter_window.h"

#include <wtsapi32.h>

#include "base/errors.h"
#include "base/win32/com_error.h"

namespace zv::alerter {
namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kMillisecondsAMinute = 60'000;

bool ShowsUser(WPARAM change) {
    return change == WTS_SESSION_UNLOCK || change == WTS_CONSOLE_CONNECT ||
           change == WTS_REMOTE_CONNECT || change == WTS_SESSION_LOGON;
}

}  // namespace

AlerterWindow::AlerterWindow(Session& session)
    : session_(session), taskbarCreated_(RegisterWindowMessageW(L"TaskbarCreated")) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = &AlerterWindow::Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kAlerterClass;
    RegisterClassExW(&windowClass);
    // A window of its own rather than one for messages only: those hear nothing that the system
    // sends to all.
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW, kAlerterClass, L"zvAlert", WS_POPUP, 0, 0, 0, 0,
                              nullptr, nullptr, windowClass.hInstance, this);
    if (!window_) throw RuntimeError(ErrorNumber::OutOfMemory);
    icon_.emplace(window_);
    alerter_.emplace(session_, *icon_);
    alerter_->onEnd = [] { PostQuitMessage(0); };
    WTSRegisterSessionNotification(window_, NOTIFY_FOR_THIS_SESSION);
}

AlerterWindow::~AlerterWindow() {
    WTSUnRegisterSessionNotification(window_);
    KillTimer(window_, kTimer);
    alerter_.reset();
    icon_.reset();
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

bool AlerterWindow::Start() {
    bool wanted = false;
    session_.windows.FromTimer([&] { wanted = alerter_->Start(); });
    if (wanted) Sleep();
    return wanted;
}

void AlerterWindow::Sleep() {
    SetTimer(window_, kTimer, static_cast<UINT>(alerter_->Minutes()) * kMillisecondsAMinute,
             nullptr);
}

LRESULT CALLBACK AlerterWindow::Procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
    if (message == WM_NCCREATE) {
        const auto* create = reinterpret_cast<CREATESTRUCTW*>(l);
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(create->lpCreateParams));
    }
    auto* self = reinterpret_cast<AlerterWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self || !self->alerter_) return DefWindowProcW(window, message, w, l);
    LRESULT answer = 0;
    const HRESULT hr = win32::Guarded("zvAlert", [&] {
        answer = self->Handle(message, w, l);
        return S_OK;
    });
    return SUCCEEDED(hr) ? answer : 0;
}

LRESULT AlerterWindow::Handle(UINT message, WPARAM w, LPARAM l) {
    if (message == taskbarCreated_) {
        icon_->PutBack();
        return 0;
    }
    // The window of reminders hears of the clock by itself.
    const auto tick = [this] {
        session_.windows.FromTimer([this] { alerter_->Tick(); });
        Sleep();
    };
    switch (message) {
        case TrayIcon::kMessage:
            OnIcon(LOWORD(l));
            return 0;
        case WM_TIMER:
        case WM_TIMECHANGE:
            tick();
            return 0;
        case WM_POWERBROADCAST:
            if (w == PBT_APMRESUMEAUTOMATIC) tick();
            return TRUE;
        case WM_WTSSESSION_CHANGE:
            if (ShowsUser(w)) session_.windows.FromTimer([this] { alerter_->LookAgain(); });
            return 0;
        case WM_CLOSE:
            alerter_->Do(Act::Exit);
            return 0;
        case WM_ENDSESSION:
            if (w) alerter_->Do(Act::Exit);
            return 0;
        default:
            return DefWindowProcW(window_, message, w, l);
    }
}

void AlerterWindow::OnIcon(UINT what) {
    switch (what) {
        case WM_LBUTTONDBLCLK:
        case NIN_SELECT:
        case NIN_BALLOONUSERCLICK:
            return alerter_->Do(Act::Open);
        case WM_RBUTTONUP:
        case WM_CONTEXTMENU:
            return alerter_->OpenMenu();
        default:
            return;
    }
}

}  // namespace zv::alerter
