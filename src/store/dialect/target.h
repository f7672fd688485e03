// What the engines that statements are translated for write differently.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/expression.h"

namespace zv::store::dialect {

enum class DateField { Year, Month, Day, Hour, Minute, Second };

/// A piece of a date's format: a field, or the text between two.
struct FormatPiece {
    bool isField = false;
    DateField field = DateField::Year;
    std::string text;
};

/// How a select finds the items whose alert window meets a span of days by their index: words
/// around the table's name, or one more condition.
struct WindowSearch {
    std::string before;
    std::string behind;
    std::string condition;
};

/// One engine. What stands here without being pure is written alike everywhere, or is a matter of
/// engines that insist on the types of their operands.
class Target {
 public:
    virtual ~Target() = default;

    /// The engine's name, the source of the errors of a translation.
    virtual const char* Engine() const = 0;

    virtual std::string Name(const std::string& name) const = 0;
    virtual std::string TextLiteral(const std::string& text) const { return QuoteText(text); }
    /// `stored`: "YYYY-MM-DD HH:MM:SS".
    virtual std::string DateLiteral(const std::string& stored) const = 0;

    // Kinds of values. Each makes the expression fit its place and leaves one that fits alone.

    /// A text literal becomes a date; throws RuntimeError (DatabaseStatement) when it is none.
    virtual void MakeDate(Expression& value) const;
    virtual void MakeText(Expression&) const {}
    virtual void MakeNumber(Expression&) const {}
    virtual void MakeCondition(Expression&) const {}
    /// No condition.
    virtual void MakeValue(Expression&) const {}
    /// What is shown, sorted or grouped by.
    virtual void MakeColumn(Expression&) const {}
    /// What is stored in a column of this kind.
    virtual void MakeStored(ColumnKind kind, Expression& value) const;
    /// The sides of a comparison.
    virtual void Match(Expression& left, Expression& right) const;
    /// Alternatives for one value; answers their kind, `usual` where nobody insists.
    virtual ColumnKind Unify(const std::vector<Expression*>&, ColumnKind usual) const {
        return usual;
    }

    /// A text that several others are compared with.
    virtual void FoldCase(Expression&) const {}
    virtual Expression Compare(const Expression& left, std::string_view op,
                               const Expression& right) const;
    virtual std::string Like(Expression left, Expression pattern, bool negated) const = 0;
    virtual Expression Concatenate(Expression left, Expression right) const = 0;
    /// `mayCompute`: the term may be something else than what the select shows.
    virtual std::string SortTerm(Expression term, bool descending, bool mayCompute) const = 0;
    /// Stands in for the name that a subquery was not given; empty when it needs none.
    virtual std::string SubqueryName(int) const { return {}; }
    /// Whether each row has a number "rowid" beside its columns.
    virtual bool NumbersRows() const { return false; }

    // Functions. The results are whole expressions; the arguments fit already.
    virtual std::string Part(const Expression& date, DateField field) const = 0;
    /// 1 on a Sunday.
    virtual std::string Weekday(const Expression& date) const = 0;
    virtual std::string FormatDate(const Expression& date,
                                   const std::vector<FormatPiece>& pieces) const = 0;
    virtual std::string PadNumber(const Expression& number, std::size_t digits) const = 0;
    virtual std::string Left(const Expression& text, const Expression& length) const = 0;
    virtual std::string Right(const Expression& text, const Expression& length) const = 0;
    virtual std::string Position(const Expression& text, const Expression& part) const = 0;
    virtual std::string ToText(const Expression& value) const = 0;
    /// Rounded.
    virtual std::string ToWhole(const Expression& value) const = 0;
    virtual std::string ToReal(const Expression& value) const = 0;
    /// The number that a text begins with.
    virtual std::string LeadingNumber(const Expression& value) const = 0;
    virtual std::string ToDate(const Expression& value) const = 0;
    virtual std::string Round(const std::vector<Expression>& arguments) const = 0;
    virtual std::string Average(const Expression& value) const = 0;
    virtual std::string Choose(const std::vector<Expression>& arguments) const = 0;
    virtual std::string OrElse(const std::vector<Expression>& arguments) const = 0;
    virtual std::string Now() const = 0;
    virtual std::string Today() const = 0;

    /// The index over alert windows, for windows of the items called `alias` (quoted, with its
    /// point) that meet the days `first` to `last` (stored form).
    virtual WindowSearch SearchWindows(const std::string& alias, const std::string& first,
                                       const std::string& last) const = 0;
    /// Whether the engine weighs that index against reading everything; otherwise it is used only
    /// where it is sure to pay.
    virtual bool WeighsIndexes() const { return false; }
};

/// `left op right` with the operands in parentheses as far as `operands` asks for them.
Expression Combine(const Expression& left, std::string_view op, const Expression& right,
                   Level level, Level operands, ColumnKind kind);

}  // namespace zv::store::dialect
