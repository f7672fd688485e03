// The native window of one control: mirrors the control's state and reports to it what the user
// does.
//
// A handler may unload the window whose message it answers. So native windows die only when no
// message to any of them is on the stack; until then they are "gone" and touch their controls no
// more.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <optional>
#include <string>

#include "forms/control.h"
#include "forms/win32/display.h"
#include "forms/win32/handles.h"

namespace zv::forms::win32 {

/// The property of a window that holds its name. Macro tools and tests in other processes read it,
/// so its value is an atom and not a pointer.
inline constexpr wchar_t kNameProperty[] = L"zv.Name";

class FormWindow;

class NativeControl {
 public:
    NativeControl(FormWindow& window, Control& control);
    virtual ~NativeControl();
    NativeControl(const NativeControl&) = delete;
    NativeControl& operator=(const NativeControl&) = delete;

    /// Makes the native window and gives it the control's state.
    virtual void Create(HWND parent, int id) = 0;

    HWND Handle() const { return handle_.get(); }
    /// The window that has the focus when the control has.
    virtual HWND FocusHandle() const { return Handle(); }
    /// Where the windows of contained controls go.
    virtual HWND ContainerHandle() const { return Handle(); }
    Control& Logical() const { return control_; }
    FormWindow& Owner() const { return window_; }

    /// The control's state changed.
    void Changed(Aspect aspect);
    void TakeFocus();
    /// The control has let go of its native window, which dies with the form's.
    void Abandon() { gone_ = true; }
    bool Gone() const { return gone_; }

    /// Notifications that the native window sent to its parent.
    virtual void OnCommand(UINT) {}
    virtual LRESULT OnNotify(NMHDR&) { return 0; }
    /// A list or a calendar that drops down from it is open.
    virtual bool ListOpen() const { return false; }
    virtual void CloseList() {}
    /// Fonts and images for the window's present resolution.
    virtual void ResolutionChanged();
    /// The native window is being destroyed; what the system keeps of it can still be found.
    virtual void OnDestroy() noexcept {}

 protected:
    /// State set by the program must not come back as an act of the user.
    class Quiet {
     public:
        explicit Quiet(NativeControl& control) : control_(control) { control_.quiet_++; }
        ~Quiet() { control_.quiet_--; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

     private:
        NativeControl& control_;
    };
    bool IsQuiet() const { return quiet_ > 0 || gone_; }

    /// Bounds, visibility, enabling and name are cared for; `Mirror` does the rest.
    void CreateNative(HWND parent, int id, const wchar_t* windowClass, DWORD style,
                      DWORD extendedStyle = 0, const std::wstring& text = {});
    virtual void Mirror(Aspect) {}
    virtual void ApplyBounds();
    /// Of a container that has moved: where a child's edges are rounded to follows it.
    void PlaceChildren();
    /// In the native parent.
    RECT PixelBounds() const;
    virtual bool ShownByItself() const;
    /// Before the native window sees a message; a value ends its handling.
    virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    /// The native window, or part of it, whose message is being handled.
    HWND Target() const { return target_; }
    /// What the native window does with the message by itself.
    LRESULT Native(UINT message, WPARAM wParam, LPARAM lParam) const;
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(Handle(), message, wParam, lParam);
    }
    /// Past this class, for messages in great number that it has nothing to do with.
    LRESULT Direct(UINT message, WPARAM wParam, LPARAM lParam) const {
        return CallWindowProcW(original_, Handle(), message, wParam, lParam);
    }
    /// Also watches a window that the native one is made of.
    void Watch(HWND part);
    const Scale& GetScale() const;
    MouseEvent MouseAt(MouseButton button, LPARAM lParam) const;

 private:
    static LRESULT CALLBACK Procedure(NativeControl& self, HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) noexcept;
    LRESULT Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool PressMovesFocus(UINT message);
    void ReportMouse(UINT message, LPARAM lParam);
    void SetAccessibleName();
    void ShowToolTip();

    FormWindow& window_;
    Control& control_;
    Window handle_;
    Atom name_;
    WNDPROC original_ = nullptr;
    HWND target_ = nullptr;  ///< of the message being handled
    int quiet_ = 0;
    bool gone_ = false;
};

/// What the control holds: lets the native control go when it dies.
template <typename Port, typename Native>
class PeerOf : public Port {
 public:
    explicit PeerOf(std::shared_ptr<Native> native) : native_(std::move(native)) {}
    ~PeerOf() override { native_->Abandon(); }
    void Changed(Aspect aspect) override { native_->Changed(aspect); }
    void TakeFocus() override { native_->TakeFocus(); }

 protected:
    Native& GetNative() const { return *native_; }

 private:
    std::shared_ptr<Native> native_;
};

}  // namespace zv::forms::win32
