#include "forms/menu.h"

#include <string_view>

#include "forms/form.h"

namespace zv::forms {

MenuItem::MenuItem(Form& form, std::string name, MenuItem* parent, std::string caption, int index)
    : form_(form),
      name_(std::move(name)),
      parent_(parent),
      caption_(std::move(caption)),
      index_(index) {
    form_.Register(*this);
    if (parent_) parent_->children_.push_back(this);
}

void MenuItem::SetCaption(std::string caption) {
    caption_ = std::move(caption);
    Notify();
}

void MenuItem::SetAccessKey(char letter) {
    accessKey_ = letter;
    Notify();
}

std::string MenuItem::Marked() const {
    constexpr std::string_view kAsksFirst = "...";
    if (accessKey_ == 0) return caption_;
    std::string marked = caption_;
    const std::size_t end = marked.size() - (marked.ends_with(kAsksFirst) ? kAsksFirst.size() : 0);
    return marked.insert(end, std::string("(&") + accessKey_ + ")");
}

void MenuItem::SetShortcut(std::string name) {
    shortcut_ = std::move(name);
    Notify();
}

void MenuItem::SetEnabled(bool enabled) {
    enabled_ = enabled;
    Notify();
}

void MenuItem::SetVisible(bool visible) {
    visible_ = visible;
    Notify();
}

void MenuItem::SetChecked(bool checked) {
    checked_ = checked;
    Notify();
}

bool MenuItem::CanChoose() const {
    for (const MenuItem* item = this; item; item = item->parent_) {
        if (!item->enabled_ || (!item->visible_ && item->parent_)) return false;
    }
    return children_.empty() && form_.IsShown();
}

bool MenuItem::IsBelow(const MenuItem& root) const {
    const MenuItem* item = parent_;
    while (item && item != &root) item = item->parent_;
    return item != nullptr;
}

void MenuItem::UserChosen() {
    if (!onClick) return;
    form_.Windows().FromUser([this] { onClick(); });
}

void MenuItem::Notify() {
    if (form_.peer_) form_.peer_->MenuChanged(*this);
}

std::function<void()> MenuItem::Remember() {
    return [this, caption = caption_, enabled = enabled_, visible = visible_, checked = checked_] {
        caption_ = caption;
        enabled_ = enabled;
        visible_ = visible;
        checked_ = checked;
        Notify();
    };
}

}  // namespace zv::forms
