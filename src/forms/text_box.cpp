#include "forms/text_box.h"

#include <algorithm>

#include "base/text.h"

namespace zv::forms {

std::string TextBox::Cut(std::string text) const {
    if (maxLength_ == 0) return text;
    const auto limit = static_cast<std::size_t>(maxLength_);
    return text::Length(text) > limit ? text::Left(text, limit) : std::move(text);
}

void TextBox::SetText(std::string text) {
    text = Cut(std::move(text));
    if (text == text_) return;
    text_ = std::move(text);
    selStart_ = 0;
    selLength_ = 0;
    Notify(Aspect::Text);
    if (onChange) onChange();
}

void TextBox::SetMaxLength(int units) {
    maxLength_ = std::max(units, 0);
    Notify(Aspect::MaxLength);
}

void TextBox::SetNumericKeyboard(bool numeric) {
    if (numeric == numeric_) return;
    numeric_ = numeric;
    Notify(Aspect::Keyboard);
}

void TextBox::SetLocked(bool locked) {
    if (locked == locked_) return;
    locked_ = locked;
    Notify(Aspect::Locked);
}

void TextBox::SetVacant(bool vacant) {
    if (vacant == vacant_) return;
    vacant_ = vacant;
    Notify(Aspect::Locked);
}

void TextBox::Select(int start, int length) {
    const int units = static_cast<int>(text::Length(text_));
    selStart_ = std::clamp(start, 0, units);
    selLength_ = std::clamp(length, 0, units - selStart_);
    Notify(Aspect::Selection);
}

void TextBox::SelectAll() {
    Select(0, static_cast<int>(text::Length(text_)));
}

void TextBox::UserText(const std::string& text) {
    std::string cut = Cut(text);
    if (cut == text_) return;
    const bool shortened = cut != text;
    text_ = std::move(cut);
    if (shortened) Notify(Aspect::Text);
    if (onChange) FromUser([this] { onChange(); });
}

std::function<void()> TextBox::Remember() {
    return RememberFields(Control::Remember(), {Aspect::Text, Aspect::Locked}, text_, locked_,
                          vacant_);
}

}  // namespace zv::forms
