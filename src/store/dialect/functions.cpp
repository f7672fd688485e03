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

/// `function(a, b, …)` with the arguments as they stand.
std::string Call(std::string_view function, const Arguments& arguments) {
    std::string sql(function);
    sql += '(';
    for (std::size_t i = 0; i < arguments.size(); i++) {
        if (i > 0) sql += ',';
        sql += arguments[i].sql;
    }
    return sql + ')';
}

// Stored dates have fixed places for their parts, so cutting them out is exact and far cheaper than
// the engine's date functions.
std::string DatePart(const Expression& date, int begin, int length) {
    return "substr(" + date.sql + "," + std::to_string(begin) + "," + std::to_string(length) + ")";
}

Expression NumberPart(Arguments& a, int begin, int length) {
    TakeAsDate(a[0]);
    return Make("cast(" + DatePart(a[0], begin, length) + " as integer)", ColumnKind::Number);
}

Expression Year(Arguments& a) {
    return NumberPart(a, 1, 4);
}
Expression Month(Arguments& a) {
    return NumberPart(a, 6, 2);
}
Expression Day(Arguments& a) {
    return NumberPart(a, 9, 2);
}
Expression Hour(Arguments& a) {
    return NumberPart(a, 12, 2);
}
Expression Minute(Arguments& a) {
    return NumberPart(a, 15, 2);
}
Expression Second(Arguments& a) {
    return NumberPart(a, 18, 2);
}
Expression Weekday(Arguments& a) {
    TakeAsDate(a[0]);
    return Make("(cast(strftime('%w'," + a[0].sql + ") as integer)+1)", ColumnKind::Number);
}

Expression Left(Arguments& a) {
    return Make("substr(" + a[0].sql + ",1,max(0," + a[1].sql + "))", ColumnKind::Text);
}
// A name of a function that the engine's grammar does not accept; a length of 0 gives no text.
Expression Right(Arguments& a) {
    const std::string length = "max(0," + a[1].sql + ")";
    return Make("substr(" + a[0].sql + ",-" + length + "," + length + ")", ColumnKind::Text);
}
Expression Mid(Arguments& a) {
    return Make(Call("substr", a), ColumnKind::Text);
}
Expression TrimBoth(Arguments& a) {
    return Make(Call("trim", a), ColumnKind::Text);
}
Expression TrimLeft(Arguments& a) {
    return Make(Call("ltrim", a), ColumnKind::Text);
}
Expression TrimRight(Arguments& a) {
    return Make(Call("rtrim", a), ColumnKind::Text);
}
Expression Upper(Arguments& a) {
    return Make(Call("upper", a), ColumnKind::Text);
}
Expression Lower(Arguments& a) {
    return Make(Call("lower", a), ColumnKind::Text);
}
Expression Replace(Arguments& a) {
    return Make(Call("replace", a), ColumnKind::Text);
}
Expression Length(Arguments& a) {
    return Make(Call("length", a), ColumnKind::Number);
}
Expression InStr(Arguments& a) {
    return Make("instr(lower(" + a[0].sql + "),lower(" + a[1].sql + "))", ColumnKind::Number);
}
Expression AsText(Arguments& a) {
    return Make("cast(" + a[0].sql + " as text)", ColumnKind::Text);
}
Expression AsWhole(Arguments& a) {
    return Make("cast(round(" + a[0].sql + ") as integer)", ColumnKind::Number);
}
Expression AsReal(Arguments& a) {
    return Make("cast(" + a[0].sql + " as real)", ColumnKind::Number);
}
Expression AsDate(Arguments& a) {
    TakeAsDate(a[0]);
    return Make("datetime(" + a[0].sql + ")", ColumnKind::Date);
}
Expression Absolute(Arguments& a) {
    return Make(Call("abs", a), ColumnKind::Number);
}
Expression Round(Arguments& a) {
    return Make(Call("round", a), ColumnKind::Number);
}
Expression Now(Arguments&) {
    return Make("datetime('now','localtime')", ColumnKind::Date);
}
Expression Today(Arguments&) {
    return Make("datetime('now','localtime','start of day')", ColumnKind::Date);
}
Expression OrElse(Arguments& a) {
    return Make(Call("ifnull", a), a[1].kind);
}
Expression IsNull(Arguments& a) {
    if (a.size() == 2) return OrElse(a);
    return Make("(" + At(a[0], Level::Add) + " is null)", ColumnKind::Number);
}
Expression Nz(Arguments& a) {
    if (a.size() == 2) return OrElse(a);
    return Make("ifnull(" + a[0].sql + ",'')", a[0].kind);
}
Expression Coalesce(Arguments& a) {
    return Make(Call("coalesce", a), a[0].kind);
}
Expression If(Arguments& a) {
    return Make(Call("iif", a), a[1].kind);
}

Expression Total(std::string_view function, Arguments& a) {
    return Make(Call(function, a), ColumnKind::Number);
}
Expression Count(Arguments& a) {
    return Total("count", a);
}
Expression Sum(Arguments& a) {
    return Total("sum", a);
}
Expression Average(Arguments& a) {
    return Total("avg", a);
}
Expression Greatest(Arguments& a) {
    return Make(Call("max", a), a[0].kind);
}
Expression Least(Arguments& a) {
    return Make(Call("min", a), a[0].kind);
}

/// The pieces of a date as `format` ("yyyy-mm-dd hh:nn:ss") orders them; "mm" behind "hh" stands
/// for the minutes.
Expression FormatDate(const Expression& date, const Expression& format) {
    struct Piece {
        std::string_view letters;
        int begin;
        int length;
    };
    static constexpr std::array<Piece, 6> kPieces{
        {{"yyyy", 1, 4}, {"mm", 6, 2}, {"dd", 9, 2}, {"hh", 12, 2}, {"nn", 15, 2}, {"ss", 18, 2}}};
    const std::string pattern = text::ToLower(*format.literal);
    std::string sql;
    std::string between;
    const auto append = [&](const std::string& piece) { sql += (sql.empty() ? "" : "||") + piece; };
    bool afterHour = false;
    for (std::size_t at = 0; at < pattern.size();) {
        const auto piece = std::find_if(kPieces.begin(), kPieces.end(), [&](const Piece& p) {
            return pattern.compare(at, p.letters.size(), p.letters) == 0;
        });
        if (piece == kPieces.end()) {
            if (pattern[at] >= 'a' && pattern[at] <= 'z') {
                ThrowAt("unknown format \"" + *format.literal + "\"", format.position);
            }
            between += pattern[at++];
            continue;
        }
        if (!between.empty()) append(QuoteText(between));
        between.clear();
        const bool minutes = afterHour && piece->letters == "mm";
        append(minutes ? DatePart(date, 15, 2) : DatePart(date, piece->begin, piece->length));
        afterHour = piece->letters == "hh";
        at += piece->letters.size();
    }
    if (!between.empty()) append(QuoteText(between));
    if (sql.empty()) ThrowAt("the format is empty", format.position);
    return Make("(" + sql + ")", ColumnKind::Text);
}

Expression Format(Arguments& a) {
    if (!a[1].literal) ThrowAt("a format must be a text", a[1].position);
    const std::string& pattern = *a[1].literal;
    if (!pattern.empty() && pattern.size() < 20 &&
        pattern.find_first_not_of('0') == std::string::npos) {
        return Make("printf('%0" + std::to_string(pattern.size()) + "d'," + a[0].sql + ")",
                    ColumnKind::Text);
    }
    TakeAsDate(a[0]);
    return FormatDate(a[0], a[1]);
}

struct Function {
    std::size_t minArguments;
    std::size_t maxArguments;
    Expression (*translate)(Arguments&);
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
        {"day", {1, 1, Day}},
        {"format", {2, 2, Format}},
        {"getdate", {0, 0, Now}},
        {"hour", {1, 1, Hour}},
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
        {"minute", {1, 1, Minute}},
        {"month", {1, 1, Month}},
        {"now", {0, 0, Now}},
        {"nz", {1, 2, Nz}},
        {"replace", {3, 3, Replace}},
        {"right", {2, 2, Right}},
        {"round", {1, 2, Round}},
        {"rtrim", {1, 1, TrimRight}},
        {"second", {1, 1, Second}},
        {"substring", {2, 3, Mid}},
        {"sum", {1, 1, Sum}},
        {"trim", {1, 1, TrimBoth}},
        {"ucase", {1, 1, Upper}},
        {"upper", {1, 1, Upper}},
        {"val", {1, 1, AsReal}},
        {"weekday", {1, 1, Weekday}},
        {"year", {1, 1, Year}}};
    return functions;
}

}  // namespace

Expression TranslateCall(std::string_view name, std::vector<Expression> arguments,
                         std::size_t position) {
    const auto found = Functions().find(text::ToLower(name));
    if (found == Functions().end()) {
        ThrowAt("unknown function \"" + std::string(name) + "\"", position);
    }
    const Function& function = found->second;
    if (arguments.size() < function.minArguments || arguments.size() > function.maxArguments) {
        ThrowAt("wrong number of arguments of \"" + std::string(name) + "\"", position);
    }
    Expression result = function.translate(arguments);
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
