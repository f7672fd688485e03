#include <array>
#include <optional>
#include <utility>

#include "base/text.h"
#include "store/dialect/functions.h"
#include "store/dialect/parser.h"

namespace zv::store::dialect {
namespace {

/// An operation whose result is true or false.
Expression Test(const Expression& left, std::string_view op, const Expression& right, Level level,
                Level operands) {
    Expression result = Combine(left, op, right, level, operands, ColumnKind::Number);
    result.condition = true;
    return result;
}

void NoteWindowBound(const WindowIndex* index, Expression& result, const Expression& left,
                     std::string_view op, const Expression& right) {
    if (!index || !right.date) return;
    const bool before = op == "<=" || op == "<";
    const bool after = op == ">=" || op == ">";
    if (before && text::EqualsIgnoreCase(left.column, index->start)) {
        result.bounds.push_back({left.qualifier, false, *right.date});
    } else if (after && text::EqualsIgnoreCase(left.column, index->end)) {
        result.bounds.push_back({left.qualifier, true, *right.date});
    }
}

}  // namespace

Expression Parser::ParseCondition() {
    Expression result = ParseExpression();
    target_.MakeCondition(result);
    return result;
}

Expression Parser::ParseValue() {
    Expression result = ParseExpression();
    target_.MakeValue(result);
    return result;
}

Expression Parser::ParseOr() {
    const DepthGuard guard(*this);
    Expression left = ParseAnd();
    while (AcceptKeyword("or")) {
        Expression right = ParseAnd();
        target_.MakeCondition(left);
        target_.MakeCondition(right);
        left = Test(left, " or ", right, Level::Or, Level::Or);
    }
    return left;
}

Expression Parser::ParseAnd() {
    Expression left = ParseNot();
    while (AcceptKeyword("and")) {
        Expression right = ParseNot();
        std::vector<WindowBound> bounds = std::move(left.bounds);
        bounds.insert(bounds.end(), right.bounds.begin(), right.bounds.end());
        target_.MakeCondition(left);
        target_.MakeCondition(right);
        left = Test(left, " and ", right, Level::And, Level::And);
        left.bounds = std::move(bounds);
    }
    return left;
}

Expression Parser::ParseNot() {
    if (!IsKeyword("not")) return ParseComparison();
    const DepthGuard guard(*this);
    const std::size_t position = Take().position;
    Expression operand = ParseNot();
    target_.MakeCondition(operand);
    Expression result;
    result.sql = "not " + At(operand, Level::Not);
    result.level = Level::Not;
    result.condition = true;
    result.kind = ColumnKind::Number;
    result.position = position;
    return result;
}

Expression Parser::ParseComparison() {
    if (IsKeyword("exists")) return ParseExists();
    return ParseComparisonTail(ParseAdditive());
}

Expression Parser::ParseComparisonTail(Expression left) {
    static constexpr std::array<std::string_view, 7> kOperators{
        "=", "<>", "!=", "<=", ">=", "<", ">"};
    for (const auto op : kOperators) {
        if (!AcceptSymbol(op)) continue;
        Expression right = ParseAdditive();
        target_.Match(left, right);
        Expression result = target_.Compare(left, op, right);
        NoteWindowBound(schema_.windowIndex, result, left, op, right);
        return result;
    }
    if (AcceptKeyword("is")) {
        const bool negated = AcceptKeyword("not");
        ExpectKeyword("null");
        Expression null;
        null.sql = "null";
        target_.MakeValue(left);
        return Test(left, negated ? " is not " : " is ", null, Level::Compare, Level::Add);
    }
    const bool negated =
        IsKeyword("not") && (IsKeyword("like", 1) || IsKeyword("between", 1) || IsKeyword("in", 1));
    if (negated) Take();
    const std::string no = negated ? " not" : "";
    if (AcceptKeyword("like")) {
        Expression result;
        result.position = left.position;
        result.sql = target_.Like(std::move(left), ParseAdditive(), negated);
        result.kind = ColumnKind::Number;
        result.level = Level::Compare;
        result.condition = true;
        return result;
    }
    if (AcceptKeyword("between")) {
        Expression low = ParseAdditive();
        ExpectKeyword("and");
        Expression high = ParseAdditive();
        target_.Match(left, low);
        target_.Match(left, high);
        target_.FoldCase(left);
        low.sql = At(low, Level::Add) + " and " + At(high, Level::Add);
        low.level = Level::Primary;
        return Test(left, no + " between ", low, Level::Compare, Level::Add);
    }
    if (AcceptKeyword("in")) return ParseIn(std::move(left), negated);
    return left;
}

Expression Parser::ParseIn(Expression left, bool negated) {
    ExpectSymbol("(");
    std::string list;
    if (IsKeyword("select")) {
        target_.MakeValue(left);
        list = ParseSelect(nullptr);
    } else {
        do {
            Expression item = ParseExpression();
            target_.Match(left, item);
            list += (list.empty() ? "" : ",") + item.sql;
        } while (AcceptSymbol(","));
    }
    target_.FoldCase(left);
    ExpectSymbol(")");
    Expression set;
    set.sql = "(" + list + ")";
    return Test(left, negated ? " not in " : " in ", set, Level::Compare, Level::Add);
}

Expression Parser::ParseAdditive() {
    Expression left = ParseMultiplicative();
    while (IsSymbol("+") || IsSymbol("-")) {
        const Token op = Take();
        Expression right = ParseMultiplicative();
        const bool text = left.kind == ColumnKind::Text || right.kind == ColumnKind::Text;
        if (op.text == "+" && text) {
            left = target_.Concatenate(std::move(left), std::move(right));
            continue;
        }
        if (left.kind == ColumnKind::Date || right.kind == ColumnKind::Date) {
            ThrowAt("dates cannot be added or subtracted", op.position);
        }
        target_.MakeNumber(left);
        target_.MakeNumber(right);
        // A blank keeps two minus signs from becoming a comment.
        left = Combine(left, " " + op.text + " ", right, Level::Add, Level::Multiply,
                       ColumnKind::Number);
    }
    return left;
}

Expression Parser::ParseMultiplicative() {
    Expression left = ParseUnary();
    while (IsSymbol("*") || IsSymbol("/") || IsSymbol("%")) {
        const std::string op = Take().text;
        Expression right = ParseUnary();
        target_.MakeNumber(left);
        target_.MakeNumber(right);
        left = Combine(left, op, right, Level::Multiply, Level::Join, ColumnKind::Number);
    }
    return left;
}

Expression Parser::ParseUnary() {
    if (!IsSymbol("-") && !IsSymbol("+")) return ParsePrimary();
    const DepthGuard guard(*this);
    const Token sign = Take();
    Expression result;
    Expression operand = ParseUnary();
    target_.MakeNumber(operand);
    result.sql = "(" + sign.text + " " + At(operand, Level::Primary) + ")";
    result.kind = ColumnKind::Number;
    result.position = sign.position;
    return result;
}

Expression Parser::ParsePrimary() {
    const Token& token = Peek();
    Expression result;
    result.position = token.position;
    switch (token.kind) {
        case TokenKind::Text:
            result.kind = ColumnKind::Text;
            result.literal = token.text;
            result.sql = target_.TextLiteral(token.text);
            break;
        case TokenKind::Date:
            result.kind = ColumnKind::Date;
            result.date = token.text;
            result.sql = target_.DateLiteral(token.text);
            break;
        case TokenKind::Number:
            result.kind = ColumnKind::Number;
            result.sql = token.text;
            break;
        case TokenKind::Symbol:
            if (token.text != "(") Unexpected();
            return ParseParenthesised();
        case TokenKind::Name:
            if (IsKeyword("case")) return ParseCase();
            // Left and Right are functions where a value is expected and joins elsewhere.
            if (IsSymbol("(", 1) && (IsName() || IsKeyword("left") || IsKeyword("right"))) {
                return ParseCall();
            }
            if (IsKeyword("null")) {
                result.sql = "null";
                break;
            }
            return ParseColumn();
        case TokenKind::QuotedName:
            return ParseColumn();
        case TokenKind::End:
            Unexpected();
    }
    Take();
    return result;
}

Expression Parser::ParseParenthesised() {
    const std::size_t position = Take().position;
    Expression result;
    if (IsKeyword("select")) {
        result.sql = ParseSelect(nullptr);
    } else {
        result = ParseExpression();
        result.literal.reset();
        result.column.clear();
    }
    ExpectSymbol(")");
    result.sql = "(" + result.sql + ")";
    result.level = Level::Primary;
    result.position = position;
    return result;
}

Expression Parser::ParseColumn() {
    Expression result;
    result.position = Peek().position;
    std::vector<std::string> names{ExpectName()};
    while (IsSymbol(".")) {
        Take();
        names.push_back(ExpectName());
    }
    // The owner in front of a server's table name means nothing here.
    if (names.size() == 3 && text::EqualsIgnoreCase(names[0], "dbo")) names.erase(names.begin());
    if (names.size() > 2) ThrowAt("the name has too many parts", result.position);
    result.column = names.back();
    if (names.size() == 2) {
        result.qualifier = names.front();
        result.sql = target_.Name(names.front()) + ".";
    }
    result.sql += target_.Name(names.back());
    result.kind = schema_.KindOf(result.column);
    columns_.emplace_back(result.qualifier, result.column);
    return result;
}

Expression Parser::ParseCall() {
    const DepthGuard guard(*this);
    const Token name = Take();
    ExpectSymbol("(");
    std::vector<Expression> arguments;
    if (IsAggregate(name.text)) {
        sawAggregate_ = true;
        if (IsSymbol("*")) {
            if (!text::EqualsIgnoreCase(name.text, "count")) Unexpected();
            Take();
            arguments.emplace_back().sql = "*";
        } else {
            const bool distinct = AcceptKeyword("distinct");
            arguments.push_back(ParseExpression());
            target_.MakeColumn(arguments.back());
            if (distinct) arguments.back().sql.insert(0, "distinct ");
        }
    } else if (!IsSymbol(")")) {
        arguments = ParseList();
    }
    ExpectSymbol(")");
    return TranslateCall(target_, name.text, std::move(arguments), name.position);
}

std::vector<Expression> Parser::ParseList() {
    std::vector<Expression> list;
    do {
        list.push_back(ParseExpression());
    } while (AcceptSymbol(","));
    return list;
}

Expression Parser::ParseCase() {
    const DepthGuard guard(*this);
    Expression result;
    result.position = Take().position;
    std::optional<Expression> compared;
    if (!IsKeyword("when")) compared = ParseValue();
    std::vector<Expression> tests;
    std::vector<Expression> values;
    do {
        ExpectKeyword("when");
        tests.push_back(compared ? ParseValue() : ParseCondition());
        if (compared) target_.Match(*compared, tests.back());
        ExpectKeyword("then");
        values.push_back(ParseValue());
    } while (IsKeyword("when"));
    result.kind = values.back().kind;
    if (AcceptKeyword("else")) values.push_back(ParseValue());
    ExpectKeyword("end");

    std::vector<Expression*> alternatives;
    for (Expression& value : values) alternatives.push_back(&value);
    result.kind = target_.Unify(alternatives, result.kind);
    if (compared) target_.FoldCase(*compared);
    result.sql = compared ? "case " + compared->sql : "case";
    for (std::size_t i = 0; i < tests.size(); i++) {
        result.sql += " when " + tests[i].sql + " then " + values[i].sql;
    }
    if (values.size() > tests.size()) result.sql += " else " + values.back().sql;
    result.sql += " end";
    return result;
}

Expression Parser::ParseExists() {
    Expression result;
    result.position = Take().position;
    ExpectSymbol("(");
    result.sql = "exists(" + ParseSelect(nullptr) + ")";
    ExpectSymbol(")");
    result.kind = ColumnKind::Number;
    result.condition = true;
    return result;
}

}  // namespace zv::store::dialect
