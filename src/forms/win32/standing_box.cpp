#include "forms/win32/standing_box.h"

#include "forms/viewport.h"
#include "forms/win32/display.h"

namespace zv::forms::win32 {
namespace {

// All windows of the module belong to one thread.
StandingBox* innermost = nullptr;

// A loop that waits looks again whether it is to end only when a message arrives.
void WakeThread() {
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

}  // namespace

StandingBox::StandingBox(Kind kind, HWND owner, const Screens& screens)
    : kind_(kind),
      owner_(owner),
      screens_(screens),
      wasEnabled_(owner && IsWindowEnabled(owner)),
      outer_(innermost),
      windows_(SetWindowsHookExW(WH_CBT, &OnWindow, nullptr, GetCurrentThreadId())),
      sent_(SetWindowsHookExW(WH_CALLWNDPROC, &OnSent, nullptr, GetCurrentThreadId())),
      handled_(SetWindowsHookExW(WH_CALLWNDPROCRET, &OnHandled, nullptr, GetCurrentThreadId())) {
    innermost = this;
}

StandingBox::~StandingBox() {
    innermost = outer_;
    if (wasEnabled_ && IsWindow(owner_) && !IsWindowEnabled(owner_)) EnableWindow(owner_, TRUE);
}

void StandingBox::End() {
    ended_ = true;
    if (!box_) return;
    if (kind_ == Kind::FileDialog)
        PostMessageW(box_, WM_COMMAND, IDCANCEL, 0);
    else
        EndDialog(box_, 0);
    WakeThread();
}

void StandingBox::EndAll() {
    for (StandingBox* at = innermost; at; at = at->outer_) at->End();
}

void StandingBox::ForgetAll() {
    innermost = nullptr;
}

LRESULT CALLBACK StandingBox::OnWindow(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_CREATEWND && innermost && !innermost->box_) {
        const auto* made = reinterpret_cast<const CBT_CREATEWNDW*>(lParam);
        if (!(made->lpcs->style & WS_CHILD) && GetClassLongPtrW(window, GCW_ATOM) == kDialogClass)
            innermost->box_ = window;
    }
    if (code == HCBT_DESTROYWND) {
        for (StandingBox* at = innermost; at; at = at->outer_) {
            if (at->box_ != window) continue;
            at->box_ = nullptr;
            WakeThread();
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK StandingBox::OnSent(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent.message == WM_ENDSESSION && sent.wParam) EndAll();
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// The box has taken the scale of its monitor by then, where it takes it.
LRESULT CALLBACK StandingBox::OnHandled(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto& handled = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    const bool isOther = handled.message == WM_DISPLAYCHANGE || handled.message == WM_DPICHANGED ||
                         (handled.message == WM_SETTINGCHANGE && handled.wParam == SPI_SETWORKAREA);
    if (code == HC_ACTION && isOther) {
        for (const StandingBox* at = innermost; at; at = at->outer_) {
            if (at->box_ && at->box_ == handled.hwnd) at->BringIntoView();
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void StandingBox::BringIntoView() const noexcept {
    RECT place{};
    if (!GetWindowRect(box_, &place)) return;
    const Rect present = FromNative(place);
    const Rect whole = FitInto(present, FromNative(screens_.WorkAreaAround(place)));
    // Cut, it would lose its buttons: one that is larger shows its upper left corner.
    SetWindowPos(box_, nullptr, whole.left, whole.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace zv::forms::win32
