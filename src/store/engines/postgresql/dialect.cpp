// PostgreSQL insists on types: a text is no number, a condition is no number, a date is no text.
// Columns of texts are of the type citext, which compares without regard to case; what is computed
// from them is of the type text, which does not, and is made citext where that shows.
#include <array>
#include <utility>

#include "base/number.h"
#include "base/text.h"
#include "store/dialect/lexer.h"
#include "store/dialect/target.h"
#include "store/engines/parts.h"

namespace zv::store::engines::postgresql {
namespace {

using namespace dialect;

constexpr const char* kStoredForm = "'YYYY-MM-DD HH24:MI:SS'";

const char* FieldName(DateField field) {
    static constexpr std::array<const char*, 6> kNames{"year", "month",  "day",
                                                       "hour", "minute", "second"};
    return kNames.at(static_cast<std::size_t>(field));
}

const char* FieldPattern(DateField field) {
    static constexpr std::array<const char*, 6> kPatterns{"YYYY", "MM", "DD", "HH24", "MI", "SS"};
    return kPatterns.at(static_cast<std::size_t>(field));
}

/// Puts another text of this kind in the place of the expression.
void Replace(Expression& value, std::string sql, ColumnKind kind) {
    value.sql = std::move(sql);
    value.kind = kind;
    value.level = Level::Primary;
    value.literal.reset();
    value.column.clear();
    value.condition = false;
    value.foldsCase = false;
}

std::string Cast(const Expression& value, const char* type) {
    return At(value, Level::Primary) + "::" + type;
}

/// A text literal becomes the number that is written in it.
void TakeAsNumber(Expression& literal) {
    const std::string written(text::Trim(*literal.literal));
    if (!number::Parse(written) ||
        written.find_first_not_of("+-.0123456789eE") != std::string::npos) {
        ThrowAt("\"" + *literal.literal + "\" is not a number", literal.position);
    }
    Replace(literal, "(" + written + ")", ColumnKind::Number);
}

/// Not less than 0, and null where there is none.
std::string Count(const Expression& length) {
    if (length.sql.find_first_not_of("0123456789") == std::string::npos) return length.sql;
    const std::string sql = Cast(length, "integer");
    return "greatest(" + sql + ",0*" + sql + ")";
}

class PostgreSqlTarget final : public Target {
 public:
    const char* Engine() const override { return "PostgreSQL"; }
    std::string Name(const std::string& name) const override {
        return QuoteName(text::ToLower(name));
    }
    std::string DateLiteral(const std::string& stored) const override {
        return "timestamp " + QuoteText(stored);
    }

    void MakeDate(Expression& value) const override {
        Target::MakeDate(value);
        if (value.kind == ColumnKind::Text || value.kind == ColumnKind::Unknown) {
            Replace(value, Cast(value, "timestamp"), ColumnKind::Date);
        }
    }

    void MakeText(Expression& value) const override {
        MakeValue(value);
        if (value.kind == ColumnKind::Unknown) return;
        if (value.kind == ColumnKind::Date) {
            Replace(value, "to_char(" + value.sql + "," + kStoredForm + ")", ColumnKind::Text);
        } else if (value.kind == ColumnKind::Number || !value.column.empty() || value.foldsCase) {
            Replace(value, Cast(value, "text"), ColumnKind::Text);
        }
    }

    void MakeNumber(Expression& value) const override {
        MakeValue(value);
        if (value.kind != ColumnKind::Text) return;
        if (value.literal) {
            TakeAsNumber(value);
        } else {
            Replace(value, Cast(value, "numeric"), ColumnKind::Number);
        }
    }

    void MakeCondition(Expression& value) const override {
        if (value.condition) return;
        MakeNumber(value);
        if (value.kind != ColumnKind::Number) return;
        value.sql = At(value, Level::Add) + "<>0";
        value.level = Level::Compare;
        value.condition = true;
        value.column.clear();
    }

    void MakeValue(Expression& value) const override {
        if (value.condition) Replace(value, Cast(value, "integer"), ColumnKind::Number);
    }

    void MakeColumn(Expression& value) const override {
        MakeValue(value);
        FoldCase(value);
    }

    void MakeStored(ColumnKind kind, Expression& value) const override {
        MakeValue(value);
        if (kind == ColumnKind::Date) {
            MakeDate(value);
        } else if (kind == ColumnKind::Number) {
            if (!value.literal) MakeNumber(value);
        } else if (kind == ColumnKind::Text && value.kind == ColumnKind::Date) {
            MakeText(value);
        }
    }

    void Match(Expression& left, Expression& right) const override {
        MakeValue(left);
        MakeValue(right);
        Target::Match(left, right);
        if (left.kind != right.kind) {
            MatchText(left, right);
            MatchText(right, left);
        }
        // Of two literals nobody knows the type.
        if (left.literal && right.literal) {
            Replace(left, Cast(left, "citext"), ColumnKind::Text);
            left.foldsCase = true;
        }
        FoldCase(left);
        FoldCase(right);
    }

    ColumnKind Unify(const std::vector<Expression*>& values, ColumnKind usual) const override {
        ColumnKind kind = ColumnKind::Unknown;
        bool mixed = false;
        for (const Expression* value : values) {
            if (value->kind == ColumnKind::Unknown) continue;
            mixed = mixed || (kind != ColumnKind::Unknown && kind != value->kind);
            kind = value->kind;
        }
        if (!mixed) return kind == ColumnKind::Unknown ? usual : kind;
        for (Expression* value : values) MakeText(*value);
        return ColumnKind::Text;
    }

    /// A column or a literal compares as it should; what is computed is cast so that it does.
    void FoldCase(Expression& value) const override {
        if (value.kind != ColumnKind::Text || value.foldsCase || value.literal ||
            !value.column.empty()) {
            return;
        }
        Replace(value, Cast(value, "citext"), ColumnKind::Text);
        value.foldsCase = true;
    }
    Expression Compare(const Expression& left, std::string_view op,
                       const Expression& right) const override {
        Expression result = Target::Compare(left, op, right);
        result.condition = true;
        return result;
    }
    // Without an escape character: a backslash in a pattern is a backslash.
    std::string Like(Expression left, Expression pattern, bool negated) const override {
        if (left.kind != ColumnKind::Text) MakeText(left);
        if (pattern.kind != ColumnKind::Text) MakeText(pattern);
        return At(left, Level::Primary) + (negated ? " not ilike " : " ilike ") +
               At(pattern, Level::Primary) + " escape ''";
    }
    // The operator binds less tightly here than those of arithmetic.
    Expression Concatenate(Expression left, Expression right) const override {
        MakeText(left);
        MakeText(right);
        Expression result =
            Combine(left, "||", right, Level::Primary, Level::Primary, ColumnKind::Text);
        result.sql = "(" + result.sql + ")";
        return result;
    }
    // Nothing sorts before everything, as in the other engines. A citext is folded for each
    // comparison; folded once for each row, a hundred thousand titles sort several times faster.
    std::string SortTerm(Expression term, bool descending, bool mayCompute) const override {
        MakeValue(term);
        if (term.literal) Replace(term, Cast(term, "text"), ColumnKind::Text);
        std::string sql = term.sql;
        if (term.kind == ColumnKind::Text) {
            if (!mayCompute) FoldCase(term);
            sql = mayCompute ? "lower(" + term.sql + ")" : term.sql;
        }
        return sql + (descending ? " desc nulls last" : " nulls first");
    }
    std::string SubqueryName(int number) const override {
        return "\"zv_" + std::to_string(number) + "\"";
    }

    std::string Part(const Expression& date, DateField field) const override {
        std::string sql = "extract(" + std::string(FieldName(field)) + " from " + date.sql + ")";
        if (field == DateField::Second) sql = "trunc(" + sql + ")";
        return sql + "::integer";
    }
    std::string Weekday(const Expression& date) const override {
        return "(extract(dow from " + date.sql + ")::integer+1)";
    }
    std::string FormatDate(const Expression& date,
                           const std::vector<FormatPiece>& pieces) const override {
        std::string pattern;
        for (const FormatPiece& piece : pieces) {
            if (piece.isField) {
                pattern += FieldPattern(piece.field);
                continue;
            }
            pattern += '"';
            for (const char c : piece.text) {
                if (c == '"' || c == '\\') pattern += '\\';
                pattern += c;
            }
            pattern += '"';
        }
        return "to_char(" + date.sql + "," + QuoteText(pattern) + ")";
    }
    std::string PadNumber(const Expression& number, std::size_t digits) const override {
        constexpr std::size_t kMostDigits = 30;
        const std::string free = digits < kMostDigits ? std::string(kMostDigits - digits, '9') : "";
        return "to_char(" + Cast(number, "numeric") + ",'FM" + free + std::string(digits, '0') +
               "')";
    }
    std::string Left(const Expression& text, const Expression& length) const override {
        return "left(" + text.sql + "," + Count(length) + ")";
    }
    std::string Right(const Expression& text, const Expression& length) const override {
        return "right(" + text.sql + "," + Count(length) + ")";
    }
    std::string Position(const Expression& text, const Expression& part) const override {
        return "strpos(lower(" + text.sql + "),lower(" + part.sql + "))";
    }
    std::string ToText(const Expression& value) const override {
        Expression text = value;
        MakeText(text);
        return text.literal || text.kind == ColumnKind::Unknown ? Cast(text, "text") : text.sql;
    }
    std::string ToWhole(const Expression& value) const override {
        return "round(" + Cast(value, "numeric") + ")::integer";
    }
    std::string ToReal(const Expression& value) const override {
        return Cast(value, "double precision");
    }
    std::string LeadingNumber(const Expression& value) const override {
        return "coalesce(substring(" + ToText(value) +
               R"( from '^ *([-+]?(?:[0-9]+\.?[0-9]*|\.[0-9]+))')::double precision,0))";
    }
    std::string ToDate(const Expression& value) const override {
        return Cast(value, "timestamp(0)");
    }
    std::string Round(const std::vector<Expression>& arguments) const override {
        std::string sql = "round(" + Cast(arguments[0], "numeric");
        if (arguments.size() > 1) sql += "," + Cast(arguments[1], "integer");
        return sql + ")::double precision";
    }
    std::string Average(const Expression& value) const override {
        return Call("avg", {value}) + "::double precision";
    }
    std::string Choose(const std::vector<Expression>& arguments) const override {
        return "case when " + arguments[0].sql + " then " + arguments[1].sql + " else " +
               arguments[2].sql + " end";
    }
    std::string OrElse(const std::vector<Expression>& arguments) const override {
        return Call("coalesce", arguments);
    }
    std::string Now() const override { return "localtimestamp(0)"; }
    std::string Today() const override { return "current_date::timestamp"; }

    // A window is a point: its first moment across, its last one up. The windows that meet the days
    // lie left of the last day and above the first, which is a box for the index.
    WindowSearch SearchWindows(const std::string& alias, const std::string& first,
                               const std::string& last) const override {
        const auto moment = [](const std::string& value) {
            return "extract(epoch from " + value + ")::float8";
        };
        return {{},
                {},
                "point(" + moment(alias + "\"tduring1\"") + "," + moment(alias + "\"tduring2\"") +
                    ")<@box(point('-infinity'," + moment(DateLiteral(first)) + "),point(" +
                    moment(DateLiteral(last)) + ",'infinity'))"};
    }
    bool WeighsIndexes() const override { return true; }

 private:
    /// A number or a date meets a text: a literal is read, otherwise both are compared as texts.
    void MatchText(Expression& text, Expression& other) const {
        if (text.kind != ColumnKind::Text) return;
        if (other.kind == ColumnKind::Number && text.literal) {
            TakeAsNumber(text);
        } else if (other.kind == ColumnKind::Number || other.kind == ColumnKind::Date) {
            MakeText(other);
        }
    }
};

}  // namespace

const Target* TheDialect() {
    static const PostgreSqlTarget target;
    return &target;
}

const Target* TheDriverDialect() {
    return TheDialect();
}

}  // namespace zv::store::engines::postgresql
