#include "forms/containers.h"

#include "base/errors.h"
#include "forms/form.h"

namespace zv::forms {

void Frame::SetCaption(std::string caption) {
    caption_ = std::move(caption);
    Notify(Aspect::Caption);
}

TabPanel::TabPanel(Form& form, std::string name, Control* parent, int tabs, int index)
    : Control(form, ControlKind::TabPanel, std::move(name), parent, index),
      captions_(static_cast<std::size_t>(tabs)) {
    SetTabStop(true);
    for (int tab = 0; tab < tabs; tab++) {
        pages_.push_back(std::make_unique<Panel>(form, Name() + "_" + std::to_string(tab), this));
    }
}

void TabPanel::SetTabCaption(int tab, std::string caption) {
    captions_.at(static_cast<std::size_t>(tab)) = std::move(caption);
    Notify(Aspect::Items);
}

void TabPanel::SetTab(int tab) {
    if (tab < 0 || tab >= Tabs()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    if (tab == tab_) return;
    tab_ = tab;
    Notify(Aspect::Value);
    Owner().FocusMayBeLost();
    if (onClick) onClick();
}

void TabPanel::UserSelect(int tab) {
    FromUser([&] { SetTab(tab); });
}

void TabPanel::OwnKey(KeyEvent& event) {
    if (event.code != key::kLeft && event.code != key::kRight) return;
    const int target = tab_ + (event.code == key::kLeft ? -1 : +1);
    event.code = 0;
    if (target >= 0 && target < Tabs()) UserSelect(target);
}

Rect TabPanel::PageBounds() const {
    return {kMargin, kTabHeight, Bounds().width - 2 * kMargin,
            Bounds().height - kTabHeight - kMargin};
}

void TabPanel::OnMoved() {
    for (const auto& page : pages_) page->Move(PageBounds());
}

bool TabPanel::ShowsChild(const Control& child) const {
    return pages_[static_cast<std::size_t>(tab_)].get() == &child;
}

std::function<void()> Frame::Remember() {
    return RememberFields(Control::Remember(), {Aspect::Caption}, caption_);
}

std::function<void()> TabPanel::Remember() {
    return RememberFields(Control::Remember(), {Aspect::Items, Aspect::Value}, captions_, tab_);
}

}  // namespace zv::forms
