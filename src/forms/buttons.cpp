#include "forms/buttons.h"

#include <algorithm>
#include <vector>

#include "base/errors.h"
#include "forms/form.h"

namespace zv::forms {

void CommandButton::SetCaption(std::string caption) {
    caption_ = std::move(caption);
    Notify(Aspect::Caption);
}

void CommandButton::UserClick() {
    if (!onClick) return;
    FromUser([this] { onClick(); });
}

void CheckBox::SetCaption(std::string caption) {
    caption_ = std::move(caption);
    Notify(Aspect::Caption);
}

void CheckBox::SetValue(int value) {
    if (value != 0 && value != 1) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    if (value == value_) return;
    value_ = value;
    Notify(Aspect::Value);
    if (onClick) onClick();
}

void CheckBox::UserClick() {
    FromUser([this] { SetValue(1 - value_); });
}

void OptionButton::SetCaption(std::string caption) {
    caption_ = std::move(caption);
    Notify(Aspect::Caption);
}

void OptionButton::SetValue(bool value) {
    if (value == value_) return;
    value_ = value;
    Notify(Aspect::Value);
    if (!value) return;
    for (Control* control : Owner().Controls()) {
        if (control == this || control->Kind() != ControlKind::OptionButton ||
            control->Parent() != Parent()) {
            continue;
        }
        auto& other = static_cast<OptionButton&>(*control);
        if (!other.value_) continue;
        other.value_ = false;
        other.Notify(Aspect::Value);
    }
    if (onClick) onClick();
}

void OptionButton::UserClick() {
    FromUser([this] { SetValue(true); });
}

void OptionButton::OwnKey(KeyEvent& event) {
    const bool back = event.code == key::kUp || event.code == key::kLeft;
    if (!back && event.code != key::kDown && event.code != key::kRight) return;
    event.code = 0;
    std::vector<OptionButton*> group;
    for (Control* control : Owner().Controls()) {
        if (control->Kind() == ControlKind::OptionButton && control->Parent() == Parent() &&
            (control == this || control->CanInteract())) {
            group.push_back(static_cast<OptionButton*>(control));
        }
    }
    const auto at =
        static_cast<std::size_t>(std::find(group.begin(), group.end(), this) - group.begin());
    OptionButton& next = *group[(at + (back ? group.size() - 1 : 1)) % group.size()];
    if (Owner().UserFocused(next)) next.UserClick();
}

std::function<void()> CommandButton::Remember() {
    return RememberFields(Control::Remember(), {Aspect::Caption}, caption_);
}

std::function<void()> CheckBox::Remember() {
    return RememberFields(Control::Remember(), {Aspect::Caption, Aspect::Value}, caption_, value_);
}

std::function<void()> OptionButton::Remember() {
    return RememberFields(Control::Remember(), {Aspect::Caption, Aspect::Value}, caption_, value_);
}

}  // namespace zv::forms
