#pragma once

#include <string>

#include "forms/control.h"

namespace zv::forms {

class Label : public Control {
 public:
    Label(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::Label, std::move(name), parent, index) {}
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

 private:
    std::string caption_;
};

}  // namespace zv::forms
