#include "forms/lists.h"

#include <algorithm>

#include "base/errors.h"
#include "base/text.h"

namespace zv::forms {

const std::string& ListControl::List(int position) const {
    if (position < 0 || position >= ListCount()) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    return items_[static_cast<std::size_t>(position)];
}

void ListControl::AddItem(std::string text) {
    items_.push_back(std::move(text));
    Notify(Aspect::Items);
}

void ListControl::SetItems(std::vector<std::string> items) {
    items_ = std::move(items);
    listIndex_ = -1;
    OnIndexChanged();
    Notify(Aspect::Items);
}

void ListControl::Clear() {
    SetItems({});
}

void ListControl::SetListIndex(int position) {
    if (position < -1 || position >= ListCount()) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    if (position == listIndex_) return;
    listIndex_ = position;
    OnIndexChanged();
    Notify(Aspect::Selection);
    if (onClick) onClick();
}

void ListControl::UserPick(int position) {
    FromUser([&] { SetListIndex(position); });
}

void ListControl::OwnKey(KeyEvent& event) {
    const bool ends = event.code == key::kHome || event.code == key::kEnd;
    if (ends ? HasCaret() : event.code != key::kUp && event.code != key::kDown) return;
    const int target = event.code == key::kUp     ? listIndex_ - 1
                       : event.code == key::kDown ? listIndex_ + 1
                       : event.code == key::kHome ? 0
                                                  : ListCount() - 1;
    event.code = 0;
    if (MayPick() && target >= 0 && target < ListCount()) UserPick(target);
}

std::string ListBox::Text() const {
    return ListIndex() < 0 ? std::string() : List(ListIndex());
}

void ListBox::UserDoubleClick() {
    if (!onDoubleClick) return;
    FromUser([this] { onDoubleClick(); });
}

void ComboBox::OnIndexChanged() {
    text_ = ListIndex() < 0 ? std::string() : List(ListIndex());
}

void ComboBox::SetText(std::string text) {
    if (style_ == ComboStyle::ListOnly) {
        const auto at = std::find(Items().begin(), Items().end(), text);
        if (at == Items().end()) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        SetListIndex(static_cast<int>(at - Items().begin()));
        return;
    }
    if (maxLength_ > 0) text = text::Left(text, static_cast<std::size_t>(maxLength_));
    if (text == text_ && ListIndex() < 0) return;
    const bool changed = text != text_;
    SetIndexOnly(-1);
    text_ = std::move(text);
    Notify(Aspect::Text);
    if (changed && onChange) onChange();
}

void ComboBox::SetLocked(bool locked) {
    if (locked == locked_) return;
    locked_ = locked;
    Notify(Aspect::Locked);
}

void ComboBox::SetMaxLength(int units) {
    maxLength_ = std::max(units, 0);
    Notify(Aspect::MaxLength);
}

void ComboBox::UserText(const std::string& text) {
    std::string cut =
        maxLength_ > 0 ? text::Left(text, static_cast<std::size_t>(maxLength_)) : text;
    if (cut == text_) return;
    const bool shortened = cut != text;
    SetIndexOnly(-1);
    text_ = std::move(cut);
    if (shortened) Notify(Aspect::Text);
    if (onChange) FromUser([this] { onChange(); });
}

std::function<void()> ListControl::Remember() {
    return RememberFields(Control::Remember(), {Aspect::Items, Aspect::Selection}, items_,
                          listIndex_);
}

std::function<void()> ComboBox::Remember() {
    return RememberFields(ListControl::Remember(), {Aspect::Text, Aspect::Locked}, text_, locked_);
}

}  // namespace zv::forms
