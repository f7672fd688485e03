#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace zv::forms {

/// Two small buttons; what they count is their window's business.
class UpDown : public Control {
 public:
    UpDown(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::UpDown, std::move(name), parent, index) {}
    std::function<void()> onUpClick;
    std::function<void()> onDownClick;
    /// +1 or -1.
    void UserSpin(int direction);
};

}  // namespace zv::forms
