// A window: its controls and menus, its lifecycle, and where the focus is.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/backend.h"
#include "forms/control.h"
#include "forms/shortcuts.h"
#include "forms/viewport.h"
#include "forms/window_system.h"

namespace zv::forms {

class CommandButton;
class MenuItem;

enum class WindowState { Normal = 0, Minimised = 1, Maximised = 2 };

class Form {
 public:
    Form(WindowSystem& windows, std::string name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    WindowSystem& Windows() const { return windows_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

    /// Runs Form_Load once. A window that cannot be loaded does not exist afterwards.
    void Load();
    bool IsLoaded() const { return loaded_; }
    /// True inside Form_Load.
    bool IsLoading() const { return loading_; }
    /// Loads the window when that has not been done, shows it and, when modal, returns after it is
    /// gone. Throws error 400 when shown already and modal is asked for, 401 when a modal window is
    /// open and this one would be modeless; whatever is thrown, the window is as hidden as before.
    /// Callers that make the window for this use WindowSystem::Open.
    void Show(bool modal);
    /// Loads a window that works while nobody sees it: its timers run from now on.
    void LoadUnseen();
    /// Shows the window without taking the keyboard from where the user works, beside a modal
    /// window too: for one that comes up by itself.
    void Surface();
    void Hide();
    /// Runs Form_Unload; unless that cancels, the window is gone and the object dies when the
    /// outermost handler returns.
    void Unload();
    bool IsShown() const { return shown_; }
    /// Whether it was ever shown. Unloading one that was not must take nothing with it.
    bool WasSeen() const { return seen_; }
    bool IsModal() const { return modal_; }

    /// Outer place on the screen.
    const Rect& Bounds() const { return bounds_; }
    void Move(const Rect& bounds);
    void Center();
    /// What the controls are laid out in. Where the screen has less room, or the user gives a
    /// sizable window less than its smallest size, the window shows a part of it and scrolls.
    const Size& ClientSize() const { return clientSize_; }
    /// The room inside the frame that the layout, or the user of a sizable window, asked for last.
    /// Where a screen has less the window is smaller, until there is more again.
    const Size& WantedInside() const { return wanted_; }
    void SetClientSize(Size size);
    const Size& MinimumClientSize() const { return minimumClientSize_; }
    void SetMinimumClientSize(Size size);
    /// What the user leaves of a sizable window at least: below its smallest size it scrolls.
    Size SmallestInside() const;
    bool Sizable() const { return sizable_; }
    void SetSizable(bool sizable);
    /// Nobody opened it: it stands above the windows of all programs, no modal window blocks it,
    /// and it goes with no other window. Set before it is loaded.
    bool ComesByItself() const { return comesByItself_; }
    void SetComesByItself(bool comes) { comesByItself_ = comes; }
    /// The part of the controls' room that is seen.
    const Viewport& View() const { return view_; }
    WindowState State() const { return state_; }
    void SetState(WindowState state);

    /// Keeps the caption and what controls and menus show and allow; the answer puts it back
    /// without an event, so that what failed half way can be undone.
    std::function<void()> Remember();
    /// Shows the present state of the controls at once, for a handler that works long.
    void Refresh();

    /// In order of creation.
    const std::vector<Control*>& Controls() const { return controls_; }
    const std::vector<MenuItem*>& Menus() const {
        return menus_;
    }  ///< all items, in creation order
    Control* FindControl(std::string_view name, int index = -1) const;
    MenuItem* FindMenu(std::string_view name, int index = -1) const;

    Control* ActiveControl() const { return active_; }
    /// Validates the control that has the focus, then LostFocus, then GotFocus of `target`. False
    /// when validation kept the focus or the target cannot take it.
    bool FocusTo(Control& target);
    /// In the order in which Tab visits them: those of SetTabOrder, then the others in order of
    /// creation.
    std::vector<Control*> TabOrder() const;
    void SetTabOrder(std::vector<Control*> first) { tabOrder_ = std::move(first); }
    /// As the Tab key (+1) or Shift+Tab (-1) does.
    void MoveFocus(int direction);
    /// Called when a control was hidden or disabled: the focus moves on, without validation.
    void FocusMayBeLost();

    /// Keys that act wherever the focus is, unless the control that has it keeps them.
    Shortcuts shortcuts;
    CommandButton* cancelButton = nullptr;   ///< pressed by Escape
    CommandButton* defaultButton = nullptr;  ///< pressed by Enter where nothing else takes it

    /// Opens a menu at a client position and returns when it is closed and the entry chosen has
    /// been informed. Opens none while another one is open.
    /// `stillMeant` is asked when an entry was chosen: false takes the choice back, because what
    /// the menu was opened for is there no more.
    void PopupMenu(MenuItem& menu, int x, int y, const std::function<bool()>& stillMeant = {});
    /// The last menu opened by PopupMenu; emptied by ForgetPopup.
    const std::string& LastPopup() const { return lastPopup_; }
    /// Where it was opened, as a client position.
    Position LastPopupAt() const { return lastPopupAt_; }
    void ForgetPopup() { lastPopup_.clear(); }

    /// Holds what the user has entered and not stored, which would be lost with the window.
    virtual bool HoldsUnsavedInput() const { return false; }

    /// What the user did; a backend calls these, errors are shown to the user.
    void UserClose();
    /// The session is about to end: false where the user wants to keep what he entered.
    bool UserMayEnd();
    /// `inside`: the room inside the frame, scroll bars included.
    void UserResized(Rect bounds, Size inside);
    /// The same where the program or the system gave the window its place.
    void WasPlaced(Rect bounds, Size inside);
    /// The same after a change of the resolution, which changes the widths of texts: the window is
    /// laid out again even where its size in units is as it was. The focus stays in view.
    void WasRescaled(Rect bounds, Size inside);
    void UserScrolled(Position offset);
    void UserScrolled(Viewport::Axis axis, Viewport::Step step);
    /// `turned` in the parts of a notch that Viewport counts.
    void UserTurnedWheel(Viewport::Axis axis, int turned);
    void UserChangedState(WindowState state) { state_ = state; }
    /// The monitors, or what windows may cover of them, are others. A window that has no place of
    /// its own then, because it is minimised or maximised, takes a fitting one when it has one.
    void MonitorsChanged();
    /// It waits for HasPlaceAgain.
    bool MissedMonitors() const { return missedMonitors_; }
    /// The native window has come back to the place that it had before it was minimised or
    /// maximised.
    void HasPlaceAgain();
    void UserActivated();
    /// The clock was set, or the machine was asleep.
    void ClockChanged();
    /// The native window is being destroyed by somebody else, or the session ends: the form goes
    /// too and ends its modal loop. Nobody is asked.
    void UserDestroyed();
    /// False: the native focus must go back to ActiveControl().
    bool UserFocused(Control& target);
    /// A key went down while `control` had the focus: its handler and the control itself see it
    /// first, then Tab, Enter and Escape do what they do in windows. False: the native control does
    /// with it what it does by itself. The window may be gone afterwards.
    bool UserKey(Control& control, KeyEvent event);
    /// A letter was pressed together with Alt: presses, or gives the focus to, the first control
    /// whose caption marks that letter. False: none does.
    bool UserAccessKey(char32_t letter);

    FormPeer* Peer() const { return peer_.get(); }

 protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    /// What was reckoned by the clock may be wrong.
    virtual void Form_ClockChange() {}
    virtual void Form_Resize() {}
    /// Texts have other widths than before: what follows from them is sized anew. Form_Resize
    /// comes afterwards.
    virtual void Form_Rescale() {}
    /// The user wants to leave: asks him where that loses input. False: he stays.
    virtual bool MayLeave();
    /// `byUser`: closed by its frame.
    virtual void Form_QueryUnload(bool& cancel, bool byUser);
    virtual void Form_Unload(bool& cancel);

 private:
    friend class Control;
    friend class MenuItem;
    friend class WindowSystem;
    void Appear(bool modal);
    void Realize();
    void Vanish();
    void ReportClosed();
    /// Unloads the window whatever its handlers say.
    void Dismiss() noexcept;
    /// As Dismiss, for a window whose opening was refused: it counts as never seen.
    void Discard() noexcept;
    void EndModal() noexcept;
    void Register(Control& control) { controls_.push_back(&control); }
    void Register(MenuItem& item) { menus_.push_back(&item); }
    void Unregister(Control& control);
    void Activate();
    void SetActive(Control* control);
    void Reveal(const Control& control);
    void UpdateView();
    bool TakeShortcut(const Control& control, const KeyEvent& event);
    void PressAndReturn(CommandButton& button);
    bool TakeKey(Control& control, KeyEvent& event);
    void TakeTab(Control& control, const KeyEvent& event);
    void PressButtonOf(int code);
    bool TakeAccessKey(char32_t letter);
    void LayOutAnew();
    void MoveMenu();

    WindowSystem& windows_;
    std::string name_;
    std::string caption_;
    std::vector<Control*> controls_;
    std::vector<MenuItem*> menus_;
    std::vector<Control*> tabOrder_;
    Rect bounds_{0, 0, 640, 480};
    Size inside_{640, 480};
    Size wanted_{640, 480};  ///< what the layout asked for last
    Size clientSize_{640, 480};
    Size minimumClientSize_;
    Viewport view_;
    WindowState state_ = WindowState::Normal;
    std::string lastPopup_;
    Position lastPopupAt_;
    Control* active_ = nullptr;
    bool sizable_ = false;
    bool loaded_ = false;
    bool loading_ = false;
    bool unloading_ = false;
    bool gone_ = false;
    bool shown_ = false;
    bool seen_ = false;
    bool modal_ = false;
    bool comesByItself_ = false;
    bool missedMonitors_ = false;
    bool menuMoves_ = false;  ///< the menu that stands opens once more at its place
    int loopDepth_ = 0;       ///< how deep the modal loop is nested
    std::unique_ptr<FormPeer> peer_;
};

}  // namespace zv::forms
