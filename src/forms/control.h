// What all controls of a window share.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "forms/backend.h"
#include "forms/geometry.h"

namespace zv::forms {

class Form;

namespace key {
inline constexpr int kTab = 9;
inline constexpr int kEnter = 13;
inline constexpr int kEscape = 27;
inline constexpr int kPageUp = 33;
inline constexpr int kPageDown = 34;
inline constexpr int kEnd = 35;
inline constexpr int kHome = 36;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kDelete = 46;
inline constexpr int kMenu = 93;
inline constexpr int kF1 = 112;
inline constexpr int kF2 = 113;
inline constexpr int kF5 = 116;
inline constexpr int kF7 = 118;
inline constexpr int kF10 = 121;
inline constexpr int kA = 'A';
inline constexpr int kC = 'C';
}  // namespace key

struct KeyEvent {
    int code = 0;  ///< a handler sets 0 to swallow the key
    bool shift = false;
    bool control = false;
    bool listOpen = false;  ///< a list or a calendar that the native control has opened takes it
};

/// Keys that mean something of their own in an entry: Delete, Ctrl+H (a backspace) and Ctrl+Z. In
/// one that is locked there is nothing to take back.
constexpr bool EditsText(const KeyEvent& event, bool locked) {
    if (event.code == key::kDelete) return true;
    return !locked && event.control && (event.code == 'H' || event.code == 'Z');
}

enum class MouseButton { None = 0, Left = 1, Right = 2 };

/// x and y in twips from the control's corner.
struct MouseEvent {
    MouseButton button = MouseButton::None;
    int x = 0;
    int y = 0;
};

enum class ControlKind {
    Label,
    TextBox,
    ComboBox,
    CheckBox,
    OptionButton,
    CommandButton,
    DatePicker,
    UpDown,
    TabPanel,
    Panel,
    Frame,
    TreeView,
    ListBox,
    Grid,
    Picture,
    Canvas,
    ProgressBar,
    Timer,
};

class Control {
 public:
    /// `parent` null: directly on the form. `index` -1: not an element of a control array.
    Control(Form& form, ControlKind kind, std::string name, Control* parent, int index);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    ControlKind Kind() const { return kind_; }
    const std::string& Name() const { return name_; }
    int Index() const { return index_; }
    /// "name", or "name(index)" of an element of a control array.
    std::string DisplayName() const;
    Form& Owner() const { return form_; }
    Control* Parent() const { return parent_; }

    /// What the user sees: false while a parent or the window itself is not shown.
    bool Visible() const;
    /// The control's own switch.
    bool OwnVisible() const { return visible_; }
    void SetVisible(bool visible);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    /// Visible, and neither it nor a parent disabled: the user can work with it.
    bool CanInteract() const;
    bool CanFocus() const { return tabStop_ && CanInteract(); }
    /// Of a kind that can have the focus at all.
    bool IsTabStop() const { return tabStop_; }
    /// The caption in which an "&" marks the access key; null for a control without one. What is no
    /// tab stop stands for the control behind it.
    virtual const std::string* AccessCaption() const { return nullptr; }
    /// The letter that works with Alt where the caption itself, which may be anybody's, marks none;
    /// it is shown behind the caption. 0: none.
    char AccessKey() const { return accessKey_; }
    void SetAccessKey(char letter);
    /// A caption as it is shown: with the access key behind it.
    std::string Marked(const std::string& caption) const;
    /// Whether the control must get a key that the window would use otherwise.
    virtual bool KeepsKey(const KeyEvent& event) const { return event.listOpen; }

    /// In what contains it.
    const Rect& Bounds() const { return bounds_; }
    void Move(const Rect& bounds);
    /// In the content of the window.
    Rect PlaceInWindow() const;
    /// The part of that which its containers and the content of the window let through.
    Rect VisiblePlace() const;
    void BringToFront() {
        inFront_ = true;
        Notify(Aspect::ZOrder);
    }
    /// Whether it was ever brought to the front; it stays there when its window is made later.
    bool InFront() const { return inFront_; }

    /// Moves the focus here by the rules of Form::FocusTo; does nothing while it cannot take it.
    void SetFocus();
    bool HasFocus() const;

    /// What a screen reader says for a control without a caption of its own.
    void SetAccessibleName(std::string name);
    const std::string& AccessibleName() const { return accessibleName_; }

    /// What appears beside the mouse when it rests on the control; empty for nothing.
    void SetToolTip(std::string text);
    const std::string& ToolTip() const { return toolTip_; }

    /// Keeps what the control shows and allows; the answer puts it back and raises no event.
    /// Places and handlers are not part of it.
    virtual std::function<void()> Remember();

    std::string tag;
    bool causesValidation = true;

    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;
    std::function<void(bool& cancel)> onValidate;
    std::function<void(KeyEvent&)> onKeyDown;
    std::function<void(const MouseEvent&)> onMouseMove;
    std::function<void(const MouseEvent&)> onMouseDown;

    /// What the user did; a backend calls these, errors are shown to the user.
    void UserKeyDown(KeyEvent& event);
    /// Pressed by its access key, the focus being there.
    virtual void UserPress() {}
    void UserMouseMove(const MouseEvent& event);
    void UserMouseDown(const MouseEvent& event);

    void AttachPeer(std::unique_ptr<ControlPeer> peer);
    void DetachPeer() { peer_.reset(); }
    ControlPeer* Peer() const { return peer_.get(); }

 protected:
    /// Whether children of this container are shown now; a tab page answers for its tab.
    virtual bool ShowsChild(const Control&) const { return true; }
    /// What the control itself does with a key that no handler swallowed; sets the code to 0 when
    /// it used it.
    virtual void OwnKey(KeyEvent&) {}
    /// For a container whose children follow it.
    virtual void OnMoved() {}
    void Notify(Aspect aspect);
    /// For Remember of derived classes: keeps these fields of the control too. Putting back sets
    /// them, reports the aspects and then runs `base`.
    template <typename... Fields>
    std::function<void()> RememberFields(std::function<void()> base,
                                         std::initializer_list<Aspect> aspects, Fields&... fields) {
        return [this, base = std::move(base), aspects = std::vector<Aspect>(aspects),
                kept = std::tuple<Fields...>(fields...), targets = std::tie(fields...)] {
            auto present = targets;
            present = kept;
            for (const Aspect aspect : aspects) Notify(aspect);
            base();
        };
    }
    void FromUser(const std::function<void()>& handler);
    void SetTabStop(bool tabStop) { tabStop_ = tabStop; }

 private:
    Form& form_;
    ControlKind kind_;
    std::string name_;
    Control* parent_;
    int index_;
    bool inFront_ = false;
    bool visible_ = true;
    bool enabled_ = true;
    bool tabStop_ = false;
    Rect bounds_;
    std::string accessibleName_;
    std::string toolTip_;
    char accessKey_ = 0;
    std::unique_ptr<ControlPeer> peer_;
};

/// Control::Remember of several.
std::function<void()> RememberAll(const std::vector<Control*>& controls);

/// Controls of one name distinguished by an index.
template <typename T>
class ControlArray {
 public:
    /// Elements `first` to `first + count - 1`; `args` go to each constructor before the index.
    template <typename... Args>
    ControlArray(Form& form, const std::string& name, Control* parent, int count, int first = 0,
                 Args... args)
        : first_(first) {
        for (int i = 0; i < count; i++) {
            items_.push_back(std::make_unique<T>(form, name, parent, args..., first + i));
        }
    }
    /// One more element, which may stand in another container than the others.
    template <typename... Args>
    T& Append(Form& form, const std::string& name, Control* parent, Args... args) {
        return *items_.emplace_back(
            std::make_unique<T>(form, name, parent, args..., first_ + Count()));
    }
    T& operator[](int index) { return *items_.at(static_cast<std::size_t>(index - first_)); }
    const T& operator[](int index) const {
        return *items_.at(static_cast<std::size_t>(index - first_));
    }
    int First() const { return first_; }
    int Count() const { return static_cast<int>(items_.size()); }

 private:
    int first_;
    std::vector<std::unique_ptr<T>> items_;
};

}  // namespace zv::forms
