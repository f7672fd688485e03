// What stands behind the control classes: real windows (win32/) or nothing but memory (headless/).
//
// A control keeps its whole state itself and raises its own events; a peer only mirrors that state
// on a native window and reports what the user did through the control's User... operations. So a
// backend can add no behaviour, and a form that was never shown has no peers at all.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "forms/dialogs.h"
#include "forms/geometry.h"
#include "forms/theme.h"

namespace zv::forms {

class Control;
class Form;
class MenuItem;

/// What changed in a control's state.
enum class Aspect {
    Bounds,
    Visible,  ///< of the control itself, its page or a parent
    Enabled,
    Caption,    ///< caption or accessible name
    Text,       ///< text, also of a combo box's entry field
    Value,      ///< check, option, date, tab
    Items,      ///< entries, rows or columns as a whole
    Selection,  ///< list index, tree selection, selected text
    Locked,
    MaxLength,
    Keyboard,  ///< digits only, or an input method
    Image,
    ZOrder,    ///< brought to the front
    Interval,  ///< of a timer, or whether it runs
    ToolTip,
};

class ControlPeer {
 public:
    virtual ~ControlPeer() = default;
    virtual void Changed(Aspect aspect) = 0;
    virtual void TakeFocus() = 0;
};

/// Nodes are distinguished by the ids of TreeView.
class TreePeer : public ControlPeer {
 public:
    virtual void NodeAdded(int node) = 0;
    virtual void NodeRemoved(int node) = 0;
    virtual void NodeChanged(int node) = 0;  ///< text, image or expansion
    virtual void NodesCleared() = 0;
    /// Between these two only adding and clearing happen, in any number.
    virtual void FillBegins() = 0;
    virtual void FillEnds() = 0;
    /// Where a menu of the node opens, in twips from the tree's corner.
    virtual Position PlaceOf(int node) = 0;
};

class FormPeer {
 public:
    virtual ~FormPeer() = default;  ///< destroys the native window
    virtual void Show() = 0;
    virtual void Hide() = 0;
    virtual void CaptionChanged() = 0;
    virtual void BoundsChanged() = 0;
    virtual void WindowStateChanged() = 0;
    /// The scroll bars, or what lies in view, are others.
    virtual void ViewChanged() {}
    /// Paints at once what waits to be painted, also while no message loop runs.
    virtual void PaintNow() {}
    virtual void MenuChanged(MenuItem& item) = 0;
    /// x and y are client coordinates of the form. Returns when the menu is closed: the entry
    /// chosen, or null.
    virtual MenuItem* PopupMenu(MenuItem& menu, int x, int y) = 0;
    /// Closes the menu that is open, of the bar or not, without a choice.
    virtual void CloseMenu() {}
    /// Lies whole on its monitor or the nearest one, of that one's scale and as large as it is
    /// meant to be; a maximised window covers what windows may. Reports its place.
    virtual void FollowMonitor() = 0;
    /// A menu of the window's bar is open.
    virtual bool InMenu() const { return false; }
};

class Backend {
 public:
    virtual ~Backend() = default;
    /// Builds the native window of a form and all its controls, not shown yet, and attaches the
    /// peers to the controls.
    virtual std::unique_ptr<FormPeer> Realize(Form& form) = 0;
    /// Runs what the host caused. What the system keeps for the thread is as windows need it
    /// meanwhile, and the host's again afterwards, whatever is thrown.
    virtual void RunForHost(const std::function<void()>& act) { act(); }
    /// Runs until the form is no longer shown.
    virtual void RunModal(Form& form) = 0;
    /// Size of the text in the system's font, lines broken at line feeds.
    virtual Size MeasureText(std::string_view text) = 0;
    /// The part of the screen that windows may cover, its origin included, on the monitor where the
    /// user works at this moment.
    virtual Rect WorkArea() = 0;
    /// From now on MeasureText reckons with that monitor too.
    virtual void MeetMonitor() = 0;
    /// The thickness of a window's scroll bar.
    virtual int ScrollBarSize() = 0;
    virtual SystemTheme GetTheme() = 0;
    virtual Dialogs& GetDialogs() = 0;
    /// Throws error 521 when another program holds the clipboard.
    virtual void SetClipboardText(std::string_view text) = 0;
    /// Empty when the clipboard holds no text.
    virtual std::string ClipboardText() = 0;
};

}  // namespace zv::forms
