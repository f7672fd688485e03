#pragma once

#include <string>

#include "forms/control.h"
#include "forms/icon.h"

namespace zv::forms {

/// Shows an icon, as large as it fits.
class Picture : public Control {
 public:
    Picture(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::Picture, std::move(name), parent, index) {}
    const Icon& Image() const { return image_; }
    void SetImage(Icon image);

 private:
    Icon image_;
};

}  // namespace zv::forms
