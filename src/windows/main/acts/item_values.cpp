#include "windows/main/acts/item_values.h"

#include "session/text_checks.h"

namespace zv::windows {
namespace {

using items::FieldKind;
using items::kFields;

bool IsChosenFromList(std::size_t field) {
    return kFields[field].kind == FieldKind::ItemKind || kFields[field].kind == FieldKind::State;
}

// A stored row number that the list does not have selects nothing.
void SelectRow(forms::ComboBox& list, std::int32_t row) {
    list.SetListIndex(row >= 0 && row < list.ListCount() ? row : -1);
}

}  // namespace

ItemValues::ItemValues(Session& session, const std::vector<FieldBox>& boxes)
    : session_(session), boxes_(kFields.size()) {
    for (const FieldBox& box : boxes) boxes_[box.field] = Known(box.box);
}

// What the control is does not change: asked once, and not at every click on an item.
ItemValues::Box ItemValues::Known(forms::Control* box) {
    if (auto* text = dynamic_cast<forms::TextBox*>(box)) return text;
    if (auto* list = dynamic_cast<forms::ComboBox*>(box)) return list;
    if (auto* picker = dynamic_cast<forms::DatePicker*>(box)) return picker;
    return {};
}

void ItemValues::Show(std::size_t field, const store::Value& value) const {
    if (auto* text = BoxAs<forms::TextBox>(field)) {
        text->SetText(value.ToText());
    } else if (auto* picker = BoxAs<forms::DatePicker>(field)) {
        picker->SetValue(value.IsNull() ? session_.machine.clock.Now() : value.ToDate());
    } else if (auto* list = BoxAs<forms::ComboBox>(field)) {
        if (IsChosenFromList(field))
            SelectRow(*list, value.ToInt32());
        else
            list->SetText(value.ToText());
    }
}

std::string ItemValues::Text(std::size_t field) const {
    if (const auto* text = BoxAs<forms::TextBox>(field)) return text->Text();
    if (const auto* list = BoxAs<forms::ComboBox>(field)) return list->Text();
    const auto* picker = BoxAs<forms::DatePicker>(field);
    return picker && picker->Value() ? picker->Value()->IsoDate() : std::string();
}

int ItemValues::Row(std::size_t field) const {
    const auto* list = BoxAs<forms::ComboBox>(field);
    return list ? list->ListIndex() : -1;
}

std::optional<store::Value> ItemValues::ValueOf(std::size_t field) const {
    if (IsChosenFromList(field)) {
        const int row = Row(field);
        return row >= 0 ? std::optional<store::Value>(row) : std::nullopt;
    }
    if (const auto* picker = BoxAs<forms::DatePicker>(field)) {
        return store::Value(picker->Value().value());
    }
    const std::string text = Text(field);
    const auto* box = BoxAs<forms::TextBox>(field);
    const bool cut = kFields[field].fitsBytes && box && box->MaxLength() > 0;
    return cut ? CutToBytes(session_.machine.codePage, text, box->MaxLength()) : text;
}

items::ItemEntry ItemValues::Entry(std::int32_t number) const {
    items::ItemEntry entry(kFields.size());
    for (std::size_t field = 0; field < boxes_.size(); ++field) {
        if (!std::holds_alternative<std::monostate>(boxes_[field])) entry[field] = ValueOf(field);
    }
    entry[items::field::kNumber] = store::Value(number);
    entry[items::field::kAlertFrom] = entry[items::field::kAlertUntil] = entry[items::field::kTime];
    entry[items::field::kUser] = store::Value(session_.state.UserName);
    return entry;
}

}  // namespace zv::windows
