#include "forms/label.h"

namespace zv::forms {

void Label::SetCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    Notify(Aspect::Caption);
}

void Label::SetUseMnemonic(bool use) {
    if (use == useMnemonic_) return;
    useMnemonic_ = use;
    Notify(Aspect::Caption);
}

std::string Label::ShownText() const {
    if (!useMnemonic_) return caption_;
    std::string shown;
    for (std::size_t i = 0; i < caption_.size(); i++) {
        if (caption_[i] == '&' && ++i == caption_.size()) break;
        shown += caption_[i];
    }
    return shown;
}

std::function<void()> Label::Remember() {
    return RememberFields(Control::Remember(), {Aspect::Caption}, caption_, useMnemonic_);
}

}  // namespace zv::forms
