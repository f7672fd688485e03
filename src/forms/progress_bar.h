#pragma once

#include <optional>
#include <string>

#include "forms/control.h"

namespace zv::forms {

/// How far a work has come.
class ProgressBar : public Control {
 public:
    ProgressBar(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::ProgressBar, std::move(name), parent, index) {}
    /// 0 to 100; nothing while nobody knows how much there is to do.
    const std::optional<int>& Percent() const { return percent_; }
    /// Values outside are taken as the nearest end.
    void SetPercent(std::optional<int> percent);

 private:
    std::optional<int> percent_ = 0;
};

}  // namespace zv::forms
