#include "items/conditions.h"

#include <string_view>

#include "base/text.h"
#include "store/sql_text.h"

namespace zv::items {
namespace {

std::string_view Operator(Comparison comparison) {
    switch (comparison) {
        case Comparison::NotEqual:
            return "<>";
        case Comparison::Less:
            return "<";
        case Comparison::LessOrEqual:
            return "<=";
        case Comparison::Greater:
            return ">";
        case Comparison::GreaterOrEqual:
            return ">=";
        default:
            return "=";
    }
}

// An empty field differs from every value, which a comparison alone does not say in SQL.
std::string OrEmpty(const std::string& name, const std::string& condition) {
    return '(' + condition + " Or " + name + " is Null)";
}

std::string TextCondition(const std::string& name, Comparison comparison,
                          const std::string& value) {
    switch (comparison) {
        case Comparison::Contains:
            return name + " like '" + store::MakeLikePattern(value) + '\'';
        case Comparison::BeginsWith:
            return name + " like '" + std::string(text::Trim(value)) + "%'";
        case Comparison::Empty:
            return '(' + name + " is Null Or " + name + "='')";
        case Comparison::NotEmpty:
            return name + "<>''";
        case Comparison::NotEqual:
            return OrEmpty(name, name + "<>'" + value + '\'');
        default:
            return name + "='" + value + '\'';
    }
}

std::string NumberCondition(const std::string& name, Comparison comparison,
                            const std::string& value) {
    const std::string condition = name + std::string(Operator(comparison)) + value;
    return comparison == Comparison::NotEqual ? OrEmpty(name, condition) : condition;
}

// No day begins behind the last one of the calendar.
std::string LastDayCondition(const std::string& name, Comparison comparison,
                             const std::string& begin) {
    switch (comparison) {
        case Comparison::Less:
            return name + '<' + begin;
        case Comparison::LessOrEqual:
            return name + " is not Null";
        case Comparison::Greater:
            return '(' + name + " is Null And " + name + " is not Null)";
        case Comparison::NotEqual:
            return '(' + name + '<' + begin + " Or " + name + " is Null)";
        default:
            return name + ">=" + begin;
    }
}

// A day is compared whole: items carry a time of day.
std::string DateCondition(const std::string& name, Comparison comparison, DateTime day,
                          const DateLiteral& dateLiteral) {
    const std::string begin = dateLiteral(day.Date());
    if (TakesValue(comparison) && day.Date() == DateTime::LastDay()) {
        return LastDayCondition(name, comparison, begin);
    }
    const std::string end = dateLiteral(day.Date().AddDays(1));
    switch (comparison) {
        case Comparison::Empty:
            return name + " is Null";
        case Comparison::NotEmpty:
            return name + " is not Null";
        case Comparison::Less:
            return name + '<' + begin;
        case Comparison::LessOrEqual:
            return name + '<' + end;
        case Comparison::Greater:
            return name + ">=" + end;
        case Comparison::GreaterOrEqual:
            return name + ">=" + begin;
        case Comparison::NotEqual:
            return '(' + name + '<' + begin + " Or " + name + ">=" + end + " Or " + name +
                   " is Null)";
        default:
            return '(' + name + ">=" + begin + " And " + name + '<' + end + ')';
    }
}

std::string ConditionText(const Condition& condition, const DateLiteral& dateLiteral) {
    const std::string name = "a." + condition.field.field;
    switch (condition.field.kind) {
        case FieldKind::Date:
            return DateCondition(name, condition.comparison, condition.date, dateLiteral);
        case FieldKind::Number:
            return NumberCondition(name, condition.comparison, condition.value);
        case FieldKind::ItemKind:
        case FieldKind::State:
            return NumberCondition(name, condition.comparison, std::to_string(condition.row));
        default:
            return TextCondition(name, condition.comparison, condition.value);
    }
}

}  // namespace

const std::vector<Comparison>& ComparisonsOf(FieldKind kind) {
    using enum Comparison;
    static const std::vector<Comparison> ofText = {Contains, BeginsWith, Equal,
                                                   NotEqual, Empty,      NotEmpty};
    static const std::vector<Comparison> ofNumber = {Equal,       NotEqual, Less,
                                                     LessOrEqual, Greater,  GreaterOrEqual};
    static const std::vector<Comparison> ofDate = {Equal, GreaterOrEqual, LessOrEqual, Greater,
                                                   Less,  NotEqual,       Empty,       NotEmpty};
    static const std::vector<Comparison> ofChoice = {Equal, NotEqual};
    switch (kind) {
        case FieldKind::Number:
            return ofNumber;
        case FieldKind::Date:
            return ofDate;
        case FieldKind::ItemKind:
        case FieldKind::State:
            return ofChoice;
        default:
            return ofText;
    }
}

bool TakesValue(Comparison comparison) {
    return comparison != Comparison::Empty && comparison != Comparison::NotEmpty;
}

std::string WhereText(const std::vector<Condition>& conditions, const DateLiteral& dateLiteral) {
    if (conditions.empty()) return "1=1";
    std::string where = ConditionText(conditions.front(), dateLiteral);
    bool mixed = false;
    for (std::size_t i = 1; i < conditions.size(); i++) {
        const Join join = conditions[i].join;
        if (i > 1 && join != conditions[i - 1].join) where = '(' + where + ')';
        where += (join == Join::Or ? " Or " : " And ") + ConditionText(conditions[i], dateLiteral);
        mixed = mixed || join == Join::Or;
    }
    return mixed ? '(' + where + ')' : where;
}

}  // namespace zv::items
