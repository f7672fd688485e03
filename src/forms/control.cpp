#include "forms/control.h"

#include "forms/form.h"

namespace zv::forms {

Control::Control(Form& form, ControlKind kind, std::string name, Control* parent, int index)
    : form_(form), kind_(kind), name_(std::move(name)), parent_(parent), index_(index) {
    form_.Register(*this);
}

Control::~Control() {
    form_.Unregister(*this);
}

std::string Control::DisplayName() const {
    return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

bool Control::Visible() const {
    if (!visible_ || !form_.IsShown()) return false;
    const Control* child = this;
    for (const Control* parent = parent_; parent; child = parent, parent = parent->parent_) {
        if (!parent->visible_ || !parent->ShowsChild(*child)) return false;
    }
    return true;
}

void Control::SetVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    Notify(Aspect::Visible);
    if (!visible) form_.FocusMayBeLost();
}

void Control::SetEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    Notify(Aspect::Enabled);
    if (!enabled) form_.FocusMayBeLost();
}

bool Control::CanInteract() const {
    if (!Visible()) return false;
    for (const Control* control = this; control; control = control->parent_) {
        if (!control->enabled_) return false;
    }
    return true;
}

void Control::Move(const Rect& bounds) {
    if (bounds == bounds_) return;
    bounds_ = bounds;
    OnMoved();
    Notify(Aspect::Bounds);
}

Rect Control::PlaceInWindow() const {
    Rect place = bounds_;
    for (const Control* parent = parent_; parent; parent = parent->parent_) {
        place.left += parent->bounds_.left;
        place.top += parent->bounds_.top;
    }
    return place;
}

Rect Control::VisiblePlace() const {
    const Size content = form_.ClientSize();
    Rect seen = Common(PlaceInWindow(), {0, 0, content.width, content.height});
    for (const Control* parent = parent_; parent; parent = parent->parent_) {
        seen = Common(seen, parent->PlaceInWindow());
    }
    return seen;
}

void Control::SetFocus() {
    form_.FocusTo(*this);
}

bool Control::HasFocus() const {
    return form_.ActiveControl() == this;
}

void Control::SetAccessibleName(std::string name) {
    accessibleName_ = std::move(name);
    Notify(Aspect::Caption);
}

void Control::SetAccessKey(char letter) {
    accessKey_ = letter;
    Notify(Aspect::Caption);
}

std::string Control::Marked(const std::string& caption) const {
    return accessKey_ == 0 ? caption : caption + "(&" + accessKey_ + ")";
}

void Control::SetToolTip(std::string text) {
    if (text == toolTip_) return;
    toolTip_ = std::move(text);
    Notify(Aspect::ToolTip);
}

void Control::UserKeyDown(KeyEvent& event) {
    FromUser([&] {
        if (onKeyDown) onKeyDown(event);
        if (event.code != 0 && !event.listOpen) OwnKey(event);
    });
}

void Control::UserMouseMove(const MouseEvent& event) {
    if (!onMouseMove) return;
    FromUser([&] { onMouseMove(event); });
}

void Control::UserMouseDown(const MouseEvent& event) {
    if (!onMouseDown) return;
    FromUser([&] { onMouseDown(event); });
}

void Control::AttachPeer(std::unique_ptr<ControlPeer> peer) {
    peer_ = std::move(peer);
}

std::function<void()> Control::Remember() {
    return [this, visible = visible_, enabled = enabled_, text = tag] {
        visible_ = visible;
        enabled_ = enabled;
        tag = text;
        Notify(Aspect::Visible);
        Notify(Aspect::Enabled);
    };
}

std::function<void()> RememberAll(const std::vector<Control*>& controls) {
    std::vector<std::function<void()>> parts;
    parts.reserve(controls.size());
    for (Control* control : controls) parts.push_back(control->Remember());
    return [parts = std::move(parts)] {
        for (const auto& part : parts) part();
    };
}

void Control::Notify(Aspect aspect) {
    if (peer_) peer_->Changed(aspect);
}

void Control::FromUser(const std::function<void()>& handler) {
    form_.Windows().FromUser(handler);
}

}  // namespace zv::forms
