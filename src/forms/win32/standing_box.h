// The boxes of the system run a message loop of their own. Here they are known while they stand, so
// that they end with the window that they belong to, with the message loop and with the session.
#pragma once

#include <windows.h>

#include "forms/win32/handles.h"
#include "forms/win32/screens.h"

namespace zv::forms::win32 {

/// The class of the system's dialogs, the answer for GCW_ATOM: the same for everyone.
inline constexpr ULONG_PTR kDialogClass = 32770;

/// Made around the call that shows a box; the box is the first dialog made while it is the
/// innermost.
class StandingBox {
 public:
    enum class Kind { Dialog, FileDialog };

    /// `owner` is enabled again afterwards if it was; the system forgets it when the box dies.
    /// `screens` say where the box may lie when monitors change while it stands.
    StandingBox(Kind kind, HWND owner, const Screens& screens);
    ~StandingBox();
    StandingBox(const StandingBox&) = delete;
    StandingBox& operator=(const StandingBox&) = delete;

    /// Whether it ended without the user: here, or with the window that it belonged to.
    bool Died() const { return ended_ || (owner_ && !IsWindow(owner_)); }
    /// Ends every box of this module, as though none had been answered.
    static void EndAll();
    /// Lets go of the boxes of a thread that has ended.
    static void ForgetAll();

 private:
    static LRESULT CALLBACK OnWindow(int code, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CALLBACK OnSent(int code, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CALLBACK OnHandled(int code, WPARAM wParam, LPARAM lParam) noexcept;
    void End();
    void BringIntoView() const noexcept;

    Kind kind_;
    HWND owner_;
    const Screens& screens_;
    bool wasEnabled_;
    HWND box_ = nullptr;
    bool ended_ = false;
    StandingBox* outer_;
    Hook windows_;
    Hook sent_;
    Hook handled_;
};

}  // namespace zv::forms::win32
