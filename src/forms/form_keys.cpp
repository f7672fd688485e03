// Keys that work across the controls of a window, the same on every backend.
#include <algorithm>

#include "base/text.h"
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/form.h"

namespace zv::forms {
namespace {

char32_t UpperLetter(char32_t letter) {
    return letter >= U'a' && letter <= U'z' ? letter - U'a' + U'A' : letter;
}

// The letter behind a single "&", 0 when there is none.
char32_t AccessKeyOf(const std::string& caption) {
    for (std::size_t at = 0; (at = caption.find('&', at)) != std::string::npos;) {
        if (++at == caption.size()) break;
        if (caption[at] != '&') return UpperLetter(text::NextCodePoint(caption, at));
        at++;
    }
    return 0;
}

// Itself, or the control behind it that it stands for.
Control* TargetOf(const Form& form, Control& named) {
    if (named.IsTabStop()) return &named;
    const auto& controls = form.Controls();
    auto at = std::find(controls.begin(), controls.end(), &named);
    at = std::find_if(at, controls.end(), [](const Control* next) { return next->CanFocus(); });
    return at == controls.end() ? nullptr : *at;
}

// The tabs that `inside` stands on, or null.
TabPanel* TabsAround(Control& inside) {
    for (Control* at = &inside; at; at = at->Parent()) {
        if (at->Kind() == ControlKind::TabPanel) return static_cast<TabPanel*>(at);
    }
    return nullptr;
}

}  // namespace

bool Form::UserKey(Control& control, KeyEvent event) {
    bool used = true;
    // Handlers may unload the window; it lives as long as this runs.
    windows_.FromUser([&] { used = TakeKey(control, event); });
    return used;
}

bool Form::TakeShortcut(const Control& control, const KeyEvent& event) {
    const Shortcuts::Entry* entry = shortcuts.Find({event.code, event.control, event.shift});
    if (!entry || control.KeepsKey(event)) return false;
    if (entry->button) {
        PressAndReturn(*entry->button);
    } else if (!entry->allowed || entry->allowed()) {
        entry->act();
    }
    return true;
}

// The button takes the focus first, so the field being left is validated. Where what it does leads
// nowhere else, the user goes on where he was.
void Form::PressAndReturn(CommandButton& button) {
    if (!button.CanInteract()) return;
    Control* const before = active_;
    if (!UserFocused(button)) return;
    button.UserClick();
    const bool stayed = windows_.Holds(*this) && IsShown() && active_ == &button;
    if (stayed && before && before->CanFocus()) UserFocused(*before);
}

bool Form::TakeKey(Control& control, KeyEvent& event) {
    if (TakeShortcut(control, event)) return true;
    if (event.code != key::kTab) {
        control.UserKeyDown(event);
        if (!windows_.Holds(*this) || event.code == 0) return true;
    }
    if (event.code == key::kTab) {
        TakeTab(control, event);
        return true;
    }
    if (event.code != key::kEnter && event.code != key::kEscape) return false;
    if (control.KeepsKey(event)) return false;
    // Where no button takes them, the native entry would only beep.
    PressButtonOf(event.code);
    return true;
}

void Form::TakeTab(Control& control, const KeyEvent& event) {
    const int direction = event.shift ? -1 : +1;
    if (!event.control) {
        MoveFocus(direction);
    } else if (TabPanel* tabs = TabsAround(control); tabs && UserFocused(*tabs)) {
        tabs->UserSelect((tabs->Tab() + direction + tabs->Tabs()) % tabs->Tabs());
    }
}

void Form::PressButtonOf(int code) {
    if (code == key::kEscape) {
        if (cancelButton) PressAndReturn(*cancelButton);
        return;
    }
    CommandButton* button = defaultButton;
    if (active_) {
        // A button that has the focus takes Enter from the default one; in several lines it breaks
        // the line.
        if (auto* pressed = dynamic_cast<CommandButton*>(active_)) button = pressed;
        if (active_->KeepsKey({code})) return;
    }
    // The button takes the focus first, so the field being left is validated.
    if (button && button->CanInteract() && UserFocused(*button)) button->UserClick();
}

bool Form::UserAccessKey(char32_t letter) {
    bool used = false;
    windows_.FromUser([&] { used = TakeAccessKey(UpperLetter(letter)); });
    return used;
}

bool Form::TakeAccessKey(char32_t letter) {
    if (CommandButton* button = shortcuts.ByLetter(letter)) {
        if (UserFocused(*button)) button->UserPress();
        return true;
    }
    for (Control* control : controls_) {
        const std::string* caption = control->AccessCaption();
        if (!caption || !control->CanInteract()) continue;
        if (AccessKeyOf(control->Marked(*caption)) != letter) continue;
        Control* target = TargetOf(*this, *control);
        if (!target) continue;
        if (UserFocused(*target)) target->UserPress();
        return true;
    }
    for (Control* control : controls_) {
        if (control->Kind() != ControlKind::TabPanel || !control->CanInteract()) continue;
        auto& tabs = static_cast<TabPanel&>(*control);
        for (int tab = 0; tab < tabs.Tabs(); tab++) {
            if (AccessKeyOf(tabs.TabCaption(tab)) != letter) continue;
            if (UserFocused(tabs)) tabs.UserSelect(tab);
            return true;
        }
    }
    return false;
}

}  // namespace zv::forms
