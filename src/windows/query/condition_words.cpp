#include "windows/query/condition_words.h"

#include "items/names.h"
#include "resources/ask_texts.h"
#include "resources/texts.h"

namespace zv::windows {

using resources::ReportText;

ReportText NameOf(items::Comparison comparison, items::FieldKind kind) {
    const bool date = kind == items::FieldKind::Date;
    switch (comparison) {
        case items::Comparison::Contains:
            return ReportText::Contains;
        case items::Comparison::BeginsWith:
            return ReportText::BeginsWith;
        case items::Comparison::Equal:
            return date ? ReportText::On : ReportText::Equal;
        case items::Comparison::NotEqual:
            return date ? ReportText::NotOn : ReportText::NotEqual;
        case items::Comparison::Less:
            return date ? ReportText::Before : ReportText::Less;
        case items::Comparison::LessOrEqual:
            return date ? ReportText::OnOrBefore : ReportText::LessOrEqual;
        case items::Comparison::Greater:
            return date ? ReportText::After : ReportText::Greater;
        case items::Comparison::GreaterOrEqual:
            return date ? ReportText::OnOrAfter : ReportText::GreaterOrEqual;
        case items::Comparison::Empty:
            return ReportText::Empty;
        default:
            return ReportText::NotEmpty;
    }
}

std::string DescribeCondition(const items::Condition& condition, bool first,
                              std::int16_t language) {
    const auto load = [language](ReportText id) { return resources::LoadText(id, language); };
    const auto named = [](const std::vector<std::string>& names, int row) {
        return names.at(static_cast<std::size_t>(row));
    };
    std::string text;
    if (!first) {
        text = load(condition.join == items::Join::Or ? ReportText::Or : ReportText::And) + ' ';
    }
    const items::FieldKind kind = condition.field.kind;
    text += condition.field.caption + ' ' + load(NameOf(condition.comparison, kind));
    if (!items::TakesValue(condition.comparison)) return text;
    switch (kind) {
        case items::FieldKind::Date:
            return text + ' ' + condition.date.IsoDate();
        case items::FieldKind::ItemKind:
            return text + ' ' + named(items::KindNames(language), condition.row);
        case items::FieldKind::State:
            return text + ' ' + named(items::StateNames(language), condition.row);
        default:
            return text + " [" + condition.value + ']';
    }
}

std::string DescribeConditions(const std::vector<items::Condition>& conditions,
                               std::int16_t language) {
    std::string text;
    for (const items::Condition& condition : conditions) {
        if (!text.empty()) text += ' ';
        text += DescribeCondition(condition, text.empty(), language);
    }
    return text.empty() ? resources::LoadText(resources::AskText::AskedAll, language) : text;
}

}  // namespace zv::windows
