#include "windows/history/history_words.h"

#include "base/number.h"
#include "base/text.h"
#include "changes/row_text.h"
#include "items/item_row.h"
#include "items/names.h"
#include "plans/plan_row.h"
#include "resources/change_texts.h"
#include "resources/text_ids.h"
#include "resources/texts.h"

namespace zv::windows {
namespace {

using resources::ChangeText;

std::string NameOf(const std::vector<std::string>& names, std::string_view number) {
    const std::optional<double> value = number::Parse(number);
    for (std::size_t i = 0; value && i < names.size(); i++) {
        if (*value == static_cast<double>(i)) return names[i];
    }
    return std::string(number);
}

std::string WithoutMidnight(std::string_view date) {
    constexpr std::string_view kMidnight = " 00:00:00";
    if (date.ends_with(kMidnight)) date.remove_suffix(kMidnight.size());
    return std::string(date);
}

}  // namespace

const changes::Table* TableCalled(std::string_view name) {
    for (const changes::Table* table : {&items::ItemTable(), &plans::PlanTable()}) {
        if (text::EqualsIgnoreCase(table->name, name)) return table;
    }
    return nullptr;
}

std::string ActName(std::int32_t act, std::int16_t language) {
    static_assert(static_cast<int>(ChangeText::ActRestore) - static_cast<int>(ChangeText::ActAdd) ==
                      static_cast<int>(changes::kLastAct) - 1,
                  "each act has its name");
    if (act < 1 || act > static_cast<std::int32_t>(changes::kLastAct)) return std::to_string(act);
    const auto first = static_cast<std::int32_t>(ChangeText::ActAdd);
    return resources::LoadText(static_cast<ChangeText>(first + act - 1), language);
}

std::string FieldName(const changes::Record& record, std::int16_t language) {
    const items::Field* field = items::FindField(record.field);
    const bool shown =
        TableCalled(record.table) == &items::ItemTable() && field && !field->box.empty();
    return shown ? field->caption.Text(language) : record.field;
}

std::string ShownValue(const changes::Record& record, std::string_view value,
                       std::int16_t language) {
    if (record.field.empty()) {
        const changes::Table* table = TableCalled(record.table);
        if (!table || value.empty()) return {};
        return changes::TitleOf(
            {table, record.row, changes::FieldsOf(*table, value), std::nullopt});
    }
    const items::Field* field = items::FindField(record.field);
    if (!field || TableCalled(record.table) != &items::ItemTable()) {
        return WithoutMidnight(value);
    }
    switch (field->kind) {
        case items::FieldKind::ItemKind:
            return NameOf(items::KindNames(language), value);
        case items::FieldKind::State:
            return NameOf(items::StateNames(language), value);
        case items::FieldKind::Date:
            return WithoutMidnight(value);
        default:
            return std::string(value);
    }
}

changes::RowChange Deleted(const changes::Record& record) {
    const changes::Table* table = TableCalled(record.table);
    if (!table) return {};
    return {table, record.row, changes::FieldsOf(*table, record.before), std::nullopt};
}

std::string KindOf(const changes::RowChange& change, std::int16_t language) {
    if (change.table == &plans::PlanTable()) {
        return resources::LoadText(text_id::kEvent, language);
    }
    const auto& kind = (*change.before)[items::field::kKind];
    return NameOf(items::KindNames(language), kind ? kind->ToText() : "0");
}

}  // namespace zv::windows
