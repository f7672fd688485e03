// The native window of a form.
//
// A handler may unload the form whose message it answers: the window is hidden then, and destroyed
// when no message to it or to its controls is on the stack.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "forms/form.h"
#include "forms/win32/display.h"
#include "forms/win32/form_menu.h"
#include "forms/win32/handles.h"
#include "forms/win32/native_control.h"
#include "forms/win32/thread_windows.h"
#include "forms/win32/tool_tips.h"
#include "forms/win32/window_class.h"

namespace zv::forms::win32 {

class Win32Backend;

class FormWindow : public std::enable_shared_from_this<FormWindow> {
 public:
    FormWindow(Win32Backend& backend, Form& form);
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    /// Makes the native window and those of all controls.
    void Build();
    /// The form has let go: the native windows die now, or when their messages are done.
    void Close();

    void Show();
    void Hide();
    void CaptionChanged();
    void BoundsChanged();
    void WindowStateChanged();
    void FollowMonitor();
    void CloseMenu();
    void ViewChanged();
    void PaintNow();
    void MenuChanged();
    MenuItem* PopupMenu(MenuItem& menu, int x, int y);

    HWND Handle() const { return handle_.get(); }
    Form& Logical() const { return form_; }
    Win32Backend& Backend() const { return backend_; }
    HINSTANCE Module() const;
    const Scale& GetScale() const { return scale_; }
    HFONT UiFont() const { return font_.get(); }
    /// The room inside the frame, scroll bars included.
    Size InsidePixels() const;
    /// How far the content is scrolled out of the window's corner.
    Position ScrolledPixels() const;
    const FormMenu& Menus() const { return menu_; }
    win32::ToolTips& ToolTips() { return toolTips_; }
    bool Gone() const { return gone_; }

    /// Closes an open menu because the message loop ends with `exitCode`, which is passed to the
    /// next loop once the menu is closed.
    static void EndMenus(int exitCode);
    /// Lets go of the windows of a thread that has ended.
    static void ForgetAll();
    /// The window of ours that `window` is or lies in; null for a stranger.
    static FormWindow* Owning(HWND window);
    /// A window of ours that no modal one blocks.
    static bool CameByItself(HWND window);

    void Register(HWND window, NativeControl& control) { byHandle_[window] = &control; }
    void Unregister(HWND window) { byHandle_.erase(window); }
    /// The control whose native window, or part of it, `window` is.
    NativeControl* Find(HWND window) const;
    NativeControl* Find(const Control& control) const;

    /// Runs the handling of one message. Nothing thrown leaves it: the user sees a message. `body`
    /// is not copied, because there may be no memory for that.
    template <class Body>
    LRESULT AtBoundary(Body&& body) noexcept {
        return Guard(std::ref(body));
    }
    /// What windows report to their parent, be that this one or a container in it.
    std::optional<LRESULT> FromChild(UINT message, WPARAM wParam, LPARAM lParam);

    void GiveFocus(NativeControl& control);
    void FocusArrived(NativeControl& control);
    void SetComposing(bool composing) { composing_ = composing; }
    bool Composing() const { return composing_; }

    bool InMenu() const { return inMenu_; }
    /// Whether a key message of this window is to be handled by HandleKey.
    bool TakesKeys() const { return !gone_ && !inMenu_ && !beingMoved_; }
    /// Keeps a key message until the message loop hands over what it becomes.
    void Defer(MSG& message);
    void HandleKey(const MSG& message);
    /// False: the native control does with it what it does by itself.
    bool ReportKey(const MSG& message);

    void SetTimer(const Control& timer, int interval);
    void StopTimer(const Control& timer);
    UINT_PTR TimerId(const Control& timer) const;

 private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;
    LRESULT Guard(const std::function<LRESULT()>& body) noexcept;
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
    void OnDestroyedByOthers() noexcept;
    void OnNativeGone(HWND window) noexcept;
    void ForgetName() const;
    LRESULT OnActivate(WPARAM wParam, LPARAM lParam);
    void OnCommand(WPARAM wParam);
    void OnMinimumSize(MINMAXINFO& info) const;
    void OnResolution(int dpi, const RECT& suggested);
    LRESULT OnScaledSize(int dpi, SIZE& size) const;
    void LayOutAgain();
    void CloseLists();
    /// Lies whole on its monitor, as large as it is meant to be where that has room.
    void PlaceWhole(const RECT& suggested);
    void MoveTo(const Rect& place);
    void OnSystemChanged();
    void OnTimer(WPARAM id);
    void Build(Control& control, int id);
    void PlaceByClient();
    void OnScroll(int bar, int request);
    void OnWheel(int bar, int turned);
    void OnThumb(int bar);
    /// The user, or the system for him, has moved or sized the window.
    void ReportPlace();
    /// The window has taken the place that it was given.
    void AcceptPlace();
    void RestoreFocus();
    void BeginModal();
    void EndModal();
    void Destroy();
    /// An entry that is drawn as one that takes no typing.
    bool LooksLocked(HWND child) const;
    HBRUSH ColorOf(HDC dc, HWND child) const;
    Size InsideUnits() const;
    Rect OuterUnits() const;
    RECT OuterOf(Size inside) const;
    DWORD Style() const;
    DWORD ExtendedStyle() const;

    Win32Backend& backend_;
    Form& form_;
    WindowSystem& windows_;
    std::shared_ptr<WindowClass> class_;
    Scale scale_;
    Font font_;
    FormMenu menu_;
    std::vector<std::shared_ptr<NativeControl>> controls_;
    std::unordered_map<HWND, NativeControl*> byHandle_;
    Window handle_;
    win32::ToolTips toolTips_;
    std::unique_ptr<OtherWindowsDisabled> modal_;
    HWND formerActive_ = nullptr;  ///< what had the focus before this window was shown
    HWND formerFocus_ = nullptr;
    std::map<WPARAM, MSG> deferred_;
    WPARAM lastDeferred_ = 0;
    int depth_ = 0;
    int givingFocus_ = 0;
    int placing_ = 0;
    Position scrolled_;  ///< pixels by which the controls are moved at this moment
    bool showing_ = false;
    bool gone_ = false;
    bool dying_ = false;                 ///< the native window is being destroyed by somebody else
    std::shared_ptr<FormWindow> alive_;  ///< until a native window that dies so is gone
    bool composing_ = false;
    bool inMenu_ = false;
    bool beingMoved_ = false;
    bool rescaledOnTheWay_ = false;  ///< while it was being moved
    bool menuChanged_ = false;
};

}  // namespace zv::forms::win32
