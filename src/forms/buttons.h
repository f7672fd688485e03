// The controls that are pressed: command buttons, check boxes and option buttons. An "&" in a
// caption marks the access key; "&&" shows one.
#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace zv::forms {

class CommandButton : public Control {
 public:
    CommandButton(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::CommandButton, std::move(name), parent, index) {
        SetTabStop(true);
    }
    std::function<void()> Remember() override;
    const std::string& Caption() const { return caption_; }
    const std::string* AccessCaption() const override { return &caption_; }
    void SetCaption(std::string caption);
    std::function<void()> onClick;
    void UserClick();
    void UserPress() override { UserClick(); }

 private:
    std::string caption_;
};

class CheckBox : public Control {
 public:
    CheckBox(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::CheckBox, std::move(name), parent, index) {
        SetTabStop(true);
    }
    std::function<void()> Remember() override;
    const std::string& Caption() const { return caption_; }
    const std::string* AccessCaption() const override { return &caption_; }
    void SetCaption(std::string caption);
    /// 0 or 1.
    int Value() const { return value_; }
    bool Checked() const { return value_ == 1; }
    /// Raises Click when the value changes; throws error 5 for other values.
    void SetValue(int value);
    std::function<void()> onClick;
    void UserClick();
    void UserPress() override { UserClick(); }

 private:
    std::string caption_;
    int value_ = 0;
};

/// One of a group: the option buttons of one parent.
class OptionButton : public Control {
 public:
    OptionButton(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::OptionButton, std::move(name), parent, index) {
        SetTabStop(true);
    }
    std::function<void()> Remember() override;
    const std::string& Caption() const { return caption_; }
    const std::string* AccessCaption() const override { return &caption_; }
    void SetCaption(std::string caption);
    bool Value() const { return value_; }
    /// Setting it clears the others of the group (without an event) and raises Click when it was
    /// not set before.
    void SetValue(bool value);
    std::function<void()> onClick;
    void UserClick();
    void UserPress() override { UserClick(); }

 protected:
    /// An arrow presses the next option of the group, round and round.
    void OwnKey(KeyEvent& event) override;

 private:
    std::string caption_;
    bool value_ = false;
};

}  // namespace zv::forms
