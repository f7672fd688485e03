#include "forms/label.h"

namespace zv::forms {

void Label::SetCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    Notify(Aspect::Caption);
}

}  // namespace zv::forms
