#include "store/dialect/functions.h"

#include <algorithm>
#include <array>
#include <map>

#include "base/text.h"
#include "store/dialect/lexer.h"

namespace zv::store::dialect {
namespace {

using Arguments = std::vector<Expression>;

Expression Make(std::string sql, ColumnKind kind) {
    Expression result;
    result.sql = std::move(sql);
    result.kind = kind;
    return result;
}

template <DateField field>
Expression Part(const Target& target, Arguments& a) {
    target.MakeDate(a[0]);
    return Make(target.Part(a[0], field), ColumnKind::Number);
}
Expression Weekday(const Target& target, Arguments& a) {
    target.MakeDate(a[0]);
    return Make(target.Weekday(a[0]), ColumnKind::Number);
}

Expression Left(const Target& target, Arguments& a) {
    target.MakeText(a[0]);
    target.MakeNumber(a[1]);
    return Make(target.Left(a[0], a[1]), ColumnKind::Text);
}
Expression Right(const Target& target, Arguments& a) {
    target.MakeText(a[0]);
    target.MakeNumber(a[1]);
    return Make(target.Right(a[0], a[1]), ColumnKind::Text);
}
Expression Mid(const Target& target, Arguments& a) {
    target.MakeText(a[0]);
    for (std::size_t i = 1; i < a.size(); i++) target.MakeNumber(a[i]);
    return Make(Call("substr", a), ColumnKind::Text);
}

/// A function of texts that has one name everywhere.
Expression OfTexts(const Target& target, std::string_view function, Arguments& a, ColumnKind kind) {
    for (Expression& text : a) target.MakeText(text);
    return Make(Call(function, a), kind);
}
Expression TrimBoth(const Target& target, Arguments& a) {
    return OfTexts(target, "trim", a, ColumnKind::Text);
}
Expression TrimLeft(const Target& target, Arguments& a) {
    return OfTexts(target, "ltrim", a, ColumnKind::Text);
}
Expression TrimRight(const Target& target, Arguments& a) {
    return OfTexts(target, "rtrim", a, ColumnKind::Text);
}
Expression Upper(const Target& target, Arguments& a) {
    return OfTexts(target, "upper", a, ColumnKind::Text);
}
Expression Lower(const Target& target, Arguments& a) {
    return OfTexts(target, "lower", a, ColumnKind::Text);
}
Expression Replace(const Target& target, Arguments& a) {
    return OfTexts(target, "replace", a, ColumnKind::Text);
}
Expression Length(const Target& target, Arguments& a) {
    return OfTexts(target, "length", a, ColumnKind::Number);
}
Expression InStr(const Target& target, Arguments& a) {
    for (Expression& text : a) target.MakeText(text);
    return Make(target.Position(a[0], a[1]), ColumnKind::Number);
}
Expression AsText(const Target& target, Arguments& a) {
    return Make(target.ToText(a[0]), ColumnKind::Text);
}
Expression AsWhole(const Target& target, Arguments& a) {
    target.MakeNumber(a[0]);
    return Make(target.ToWhole(a[0]), ColumnKind::Number);
}
Expression AsReal(const Target& target, Arguments& a) {
    target.MakeNumber(a[0]);
    return Make(target.ToReal(a[0]), ColumnKind::Number);
}
Expression LeadingNumber(const Target& target, Arguments& a) {
    return Make(target.LeadingNumber(a[0]), ColumnKind::Number);
}
Expression AsDate(const Target& target, Arguments& a) {
    target.MakeDate(a[0]);
    return Make(target.ToDate(a[0]), ColumnKind::Date);
}
Expression Absolute(const Target& target, Arguments& a) {
    target.MakeNumber(a[0]);
    return Make(Call("abs", a), ColumnKind::Number);
}
Expression Round(const Target& target, Arguments& a) {
    for (Expression& number : a) target.MakeNumber(number);
    return Make(target.Round(a), ColumnKind::Number);
}
Expression Now(const Target& target, Arguments&) {
    return Make(target.Now(), ColumnKind::Date);
}
Expression Today(const Target& target, Arguments&) {
    return Make(target.Today(), ColumnKind::Date);
}

ColumnKind Unify(const Target& target, Arguments& a, std::size_t first, ColumnKind usual) {
    std::vector<Expression*> alternatives;
    for (std::size_t i = first; i < a.size(); i++) alternatives.push_back(&a[i]);
    return target.Unify(alternatives, usual);
}
Expression OrElse(const Target& target, Arguments& a) {
    const ColumnKind kind = Unify(target, a, 0, a[1].kind);
    return Make(target.OrElse(a), kind);
}
Expression IsNull(const Target& target, Arguments& a) {
    if (a.size() == 2) return OrElse(target, a);
    Expression result = Make("(" + At(a[0], Level::Add) + " is null)", ColumnKind::Number);
    result.condition = true;
    return result;
}
Expression Nz(const Target& target, Arguments& a) {
    if (a.size() == 2) return OrElse(target, a);
    const ColumnKind usual = a[0].kind;
    Expression nothing;
    nothing.sql = "''";
    nothing.kind = ColumnKind::Text;
    nothing.literal = "";
    a.push_back(nothing);
    const ColumnKind kind = Unify(target, a, 0, usual);
    return Make(target.OrElse(a), kind);
}
Expression Coalesce(const Target& target, Arguments& a) {
    const ColumnKind kind = Unify(target, a, 0, a[0].kind);
    return Make(Call("coalesce", a), kind);
}
Expression If(const Target& target, Arguments& a) {
    target.MakeCondition(a[0]);
    const ColumnKind kind = Unify(target, a, 1, a[1].kind);
    return Make(target.Choose(a), kind);
}

Expression Count(const Target&, Arguments& a) {
    return Make(Call("count", a), ColumnKind::Number);
}
Expression Sum(const Target& target, Arguments& a) {
    target.MakeNumber(a[0]);
    return Make(Call("sum", a), ColumnKind::Number);
}
Expression Average(const Target& target, Arguments& a) {
    target.MakeNumber(a[0]);
    return Make(target.Average(a[0]), ColumnKind::Number);
}
Expression Greatest(const Target&, Arguments& a) {
    return Make(Call("max", a), a[0].kind);
}
Expression Least(const Target&, Arguments& a) {
    return Make(Call("min", a), a[0].kind);
}

/// The pieces of a date as `format` ("yyyy-mm-dd hh:nn:ss") orders them; "mm" behind "hh" stands
/// for the minutes.
std::vector<FormatPiece> PiecesOf(const Expression& format) {
    struct Letters {
        std::string_view letters;
        DateField field;
    };
    static constexpr std::array<Letters, 6> kLetters{{{"yyyy", DateField::Year},
                                                      {"mm", DateField::Month},
                                                      {"dd", DateField::Day},
                                                      {"hh", DateField::Hour},
                                                      {"nn", DateField::Minute},
                                                      {"ss", DateField::Second}}};
    const std::string pattern = text::ToLower(*format.literal);
    std::vector<FormatPiece> pieces;
    bool afterHour = false;
    for (std::size_t at = 0; at < pattern.size();) {
        const auto found = std::find_if(kLetters.begin(), kLetters.end(), [&](const Letters& l) {
            return pattern.compare(at, l.letters.size(), l.letters) == 0;
        });
        if (found == kLetters.end()) {
            if (pattern[at] >= 'a' && pattern[at] <= 'z') {
                ThrowAt("unknown format \"" + *format.literal + "\"", format.position);
            }
            if (pieces.empty() || pieces.back().isField) pieces.emplace_back();
            pieces.back().text += pattern[at++];
            continue;
        }
        const bool minutes = afterHour && found->field == DateField::Month;
        pieces.push_back({true, minutes ? DateField::Minute : found->field, {}});
        afterHour = found->field == DateField::Hour;
        at += found->letters.size();
    }
    if (pieces.empty()) ThrowAt("the format is empty", format.position);
    return pieces;
}

Expression Format(const Target& target, Arguments& a) {
    if (!a[1].literal) ThrowAt("a format must be a text", a[1].position);
    const std::string& pattern = *a[1].literal;
    if (!pattern.empty() && pattern.size() < 20 &&
        pattern.find_first_not_of('0') == std::string::npos) {
        target.MakeNumber(a[0]);
        return Make(target.PadNumber(a[0], pattern.size()), ColumnKind::Text);
    }
    target.MakeDate(a[0]);
    return Make(target.FormatDate(a[0], PiecesOf(a[1])), ColumnKind::Text);
}

struct Function {
    std::size_t minArguments;
    std::size_t maxArguments;
    Expression (*translate)(const Target&, Arguments&);
};

const std::map<std::string, Function, std::less<>>& Functions() {
    static const std::map<std::string, Function, std::less<>> functions{
        {"abs", {1, 1, Absolute}},
        {"avg", {1, 1, Average}},
        {"cdate", {1, 1, AsDate}},
        {"cdbl", {1, 1, AsReal}},
        {"cint", {1, 1, AsWhole}},
        {"clng", {1, 1, AsWhole}},
        {"coalesce", {2, 20, Coalesce}},
        {"count", {1, 1, Count}},
        {"cstr", {1, 1, AsText}},
        {"date", {0, 0, Today}},
        {"day", {1, 1, Part<DateField::Day>}},
        {"format", {2, 2, Format}},
        {"getdate", {0, 0, Now}},
        {"hour", {1, 1, Part<DateField::Hour>}},
        {"iif", {3, 3, If}},
        {"instr", {2, 2, InStr}},
        {"isnull", {1, 2, IsNull}},
        {"lcase", {1, 1, Lower}},
        {"left", {2, 2, Left}},
        {"len", {1, 1, Length}},
        {"lower", {1, 1, Lower}},
        {"ltrim", {1, 1, TrimLeft}},
        {"max", {1, 1, Greatest}},
        {"mid", {2, 3, Mid}},
        {"min", {1, 1, Least}},
        {"minute", {1, 1, Part<DateField::Minute>}},
        {"month", {1, 1, Part<DateField::Month>}},
        {"now", {0, 0, Now}},
        {"nz", {1, 2, Nz}},
        {"replace", {3, 3, Replace}},
        {"right", {2, 2, Right}},
        {"round", {1, 2, Round}},
        {"rtrim", {1, 1, TrimRight}},
        {"second", {1, 1, Part<DateField::Second>}},
        {"substring", {2, 3, Mid}},
        {"sum", {1, 1, Sum}},
        {"trim", {1, 1, TrimBoth}},
        {"ucase", {1, 1, Upper}},
        {"upper", {1, 1, Upper}},
        {"val", {1, 1, LeadingNumber}},
        {"weekday", {1, 1, Weekday}},
        {"year", {1, 1, Part<DateField::Year>}}};
    return functions;
}

}  // namespace

Expression TranslateCall(const Target& target, std::string_view name,
                         std::vector<Expression> arguments, std::size_t position) {
    const auto found = Functions().find(text::ToLower(name));
    if (found == Functions().end()) {
        ThrowAt("unknown function \"" + std::string(name) + "\"", position);
    }
    const Function& function = found->second;
    if (arguments.size() < function.minArguments || arguments.size() > function.maxArguments) {
        ThrowAt("wrong number of arguments of \"" + std::string(name) + "\"", position);
    }
    for (std::size_t i = 0; i < arguments.size(); i++) {
        if (i > 0 || function.translate != If) target.MakeValue(arguments[i]);
    }
    Expression result = function.translate(target, arguments);
    result.position = position;
    return result;
}

bool IsAggregate(std::string_view name) {
    static constexpr std::array<std::string_view, 5> kAggregates{"avg", "count", "max", "min",
                                                                 "sum"};
    return std::find(kAggregates.begin(), kAggregates.end(), text::ToLower(name)) !=
           kAggregates.end();
}

}  // namespace zv::store::dialect
