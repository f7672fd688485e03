#pragma once

#include <string>

#include "forms/control.h"

namespace zv::forms {

class Label : public Control {
 public:
    Label(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::Label, std::move(name), parent, index) {}
    std::function<void()> Remember() override;
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    const std::string* AccessCaption() const override { return useMnemonic_ ? &caption_ : nullptr; }
    /// Whether an "&" in the caption underlines the next letter and makes it an access key, "&&"
    /// being one "&"; true at first. Without, the caption is shown as it stands, which is what a
    /// text that somebody typed needs.
    bool UseMnemonic() const { return useMnemonic_; }
    void SetUseMnemonic(bool use);
    /// The caption as the user reads it.
    std::string ShownText() const;

 private:
    std::string caption_;
    bool useMnemonic_ = true;
};

}  // namespace zv::forms
