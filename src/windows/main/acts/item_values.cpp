#include "windows/main/acts/item_values.h"

#include <utility>

#include "forms/date_picker.h"
#include "forms/lists.h"
#include "forms/text_box.h"
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

ItemValues::ItemValues(Session& session, std::vector<FieldBox> boxes)
    : session_(session), boxes_(std::move(boxes)) {}

forms::Control* ItemValues::BoxOf(std::size_t field) const {
    for (const FieldBox& box : boxes_) {
        if (box.field == field) return box.box;
    }
    return nullptr;
}

void ItemValues::Show(std::size_t field, const store::Value& value) const {
    forms::Control* const box = BoxOf(field);
    if (auto* text = dynamic_cast<forms::TextBox*>(box)) {
        text->SetText(value.ToText());
    } else if (auto* picker = dynamic_cast<forms::DatePicker*>(box)) {
        picker->SetValue(value.IsNull() ? session_.machine.clock.Now() : value.ToDate());
    } else if (auto* list = dynamic_cast<forms::ComboBox*>(box)) {
        if (IsChosenFromList(field))
            SelectRow(*list, value.ToInt32());
        else
            list->SetText(value.ToText());
    }
}

std::string ItemValues::Text(std::size_t field) const {
    const forms::Control* const box = BoxOf(field);
    if (const auto* text = dynamic_cast<const forms::TextBox*>(box)) return text->Text();
    if (const auto* list = dynamic_cast<const forms::ComboBox*>(box)) return list->Text();
    const auto* picker = dynamic_cast<const forms::DatePicker*>(box);
    return picker && picker->Value() ? picker->Value()->IsoDate() : std::string();
}

int ItemValues::Row(std::size_t field) const {
    const auto* list = dynamic_cast<const forms::ComboBox*>(BoxOf(field));
    return list ? list->ListIndex() : -1;
}

std::optional<store::Value> ItemValues::ValueOf(std::size_t field) const {
    if (IsChosenFromList(field)) {
        const int row = Row(field);
        return row >= 0 ? std::optional<store::Value>(row) : std::nullopt;
    }
    if (const auto* picker = dynamic_cast<const forms::DatePicker*>(BoxOf(field))) {
        return store::Value(picker->Value().value());
    }
    const std::string text = Text(field);
    const auto* box = dynamic_cast<const forms::TextBox*>(BoxOf(field));
    const bool cut = kFields[field].fitsBytes && box && box->MaxLength() > 0;
    return cut ? CutToBytes(session_.machine.codePage, text, box->MaxLength()) : text;
}

items::ItemEntry ItemValues::Entry(std::int32_t number) const {
    items::ItemEntry entry(kFields.size());
    for (const FieldBox& box : boxes_) entry[box.field] = ValueOf(box.field);
    entry[items::field::kNumber] = store::Value(number);
    entry[items::field::kAlertFrom] = entry[items::field::kAlertUntil] = entry[items::field::kTime];
    entry[items::field::kUser] = store::Value(session_.state.UserName);
    return entry;
}

}  // namespace zv::windows
