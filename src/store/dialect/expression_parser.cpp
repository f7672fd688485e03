#include <array>

#include "base/text.h"
#include "store/dialect/functions.h"
#include "store/dialect/parser.h"

namespace zv::store::dialect {
namespace {

Expression Combine(const Expression& left, const std::string& op, const Expression& right,
                   Level level, Level operands, ColumnKind kind) {
    Expression result;
    result.sql = At(left, operands) + op + At(right, operands);
    result.level = level;
    result.kind = kind;
    result.position = left.position;
    return result;
}

/// What is written as a text is meant as a date where it meets a date.
void MatchKinds(Expression& a, Expression& b) {
    if (a.kind == ColumnKind::Date) TakeAsDate(b);
    if (b.kind == ColumnKind::Date) TakeAsDate(a);
}

/// Columns bring their collation along; computed texts have none of their own.
bool NeedsCollation(const Expression& a, const Expression& b) {
    return a.kind == ColumnKind::Text && b.kind == ColumnKind::Text && a.column.empty() &&
           b.column.empty();
}

void NoteWindowBound(Expression& result, const Expression& left, const std::string& op,
                     const Expression& right) {
    if (!right.date) return;
    const bool before = op == "<=" || op == "<";
    const bool after = op == ">=" || op == ">";
    if (before && text::EqualsIgnoreCase(left.column, "tDuring1")) {
        result.bounds.push_back({left.qualifier, false, *right.date});
    } else if (after && text::EqualsIgnoreCase(left.column, "tDuring2")) {
        result.bounds.push_back({left.qualifier, true, *right.date});
    }
}

}  // namespace

Expression Parser::ParseOr() {
    const DepthGuard guard(*this);
    Expression left = ParseAnd();
    while (AcceptKeyword("or")) {
        left = Combine(left, " or ", ParseAnd(), Level::Or, Level::Or, ColumnKind::Number);
    }
    return left;
}

Expression Parser::ParseAnd() {
    Expression left = ParseNot();
    while (AcceptKeyword("and")) {
        const Expression right = ParseNot();
        std::vector<WindowBound> bounds = std::move(left.bounds);
        bounds.insert(bounds.end(), right.bounds.begin(), right.bounds.end());
        left = Combine(left, " and ", right, Level::And, Level::And, ColumnKind::Number);
        left.bounds = std::move(bounds);
    }
    return left;
}

Expression Parser::ParseNot() {
    if (!IsKeyword("not")) return ParseComparison();
    const DepthGuard guard(*this);
    const std::size_t position = Take().position;
    Expression result;
    result.sql = "not " + At(ParseNot(), Level::Not);
    result.level = Level::Not;
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
        MatchKinds(left, right);
        const std::string written(op);
        Expression result =
            Combine(left, written, right, Level::Compare, Level::Add, ColumnKind::Number);
        if (NeedsCollation(left, right)) {
            result.sql =
                At(left, Level::Add) + written + At(right, Level::Primary) + " collate nocase";
        }
        NoteWindowBound(result, left, written, right);
        return result;
    }
    if (AcceptKeyword("is")) {
        const bool negated = AcceptKeyword("not");
        ExpectKeyword("null");
        Expression null;
        null.sql = "null";
        return Combine(left, negated ? " is not " : " is ", null, Level::Compare, Level::Add,
                       ColumnKind::Number);
    }
    const bool negated =
        IsKeyword("not") && (IsKeyword("like", 1) || IsKeyword("between", 1) || IsKeyword("in", 1));
    if (negated) Take();
    const std::string no = negated ? " not" : "";
    if (AcceptKeyword("like")) {
        return Combine(left, no + " like ", ParseAdditive(), Level::Compare, Level::Add,
                       ColumnKind::Number);
    }
    if (AcceptKeyword("between")) {
        Expression low = ParseAdditive();
        ExpectKeyword("and");
        Expression high = ParseAdditive();
        MatchKinds(left, low);
        MatchKinds(left, high);
        low.sql = At(low, Level::Add) + " and " + At(high, Level::Add);
        low.level = Level::Primary;
        return Combine(left, no + " between ", low, Level::Compare, Level::Add, ColumnKind::Number);
    }
    if (AcceptKeyword("in")) return ParseIn(std::move(left), negated);
    return left;
}

Expression Parser::ParseIn(Expression left, bool negated) {
    ExpectSymbol("(");
    std::string list;
    if (IsKeyword("select")) {
        list = ParseSelect(nullptr);
    } else {
        do {
            Expression item = ParseExpression();
            MatchKinds(left, item);
            list += (list.empty() ? "" : ",") + item.sql;
        } while (AcceptSymbol(","));
    }
    ExpectSymbol(")");
    Expression set;
    set.sql = "(" + list + ")";
    return Combine(left, negated ? " not in " : " in ", set, Level::Compare, Level::Add,
                   ColumnKind::Number);
}

Expression Parser::ParseAdditive() {
    Expression left = ParseMultiplicative();
    while (IsSymbol("+") || IsSymbol("-")) {
        const Token op = Take();
        const Expression right = ParseMultiplicative();
        const bool text = left.kind == ColumnKind::Text || right.kind == ColumnKind::Text;
        if (op.text == "+" && text) {
            left = Combine(left, "||", right, Level::Join, Level::Join, ColumnKind::Text);
            continue;
        }
        if (left.kind == ColumnKind::Date || right.kind == ColumnKind::Date) {
            ThrowAt("dates cannot be added or subtracted", op.position);
        }
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
        left = Combine(left, op, ParseUnary(), Level::Multiply, Level::Join, ColumnKind::Number);
    }
    return left;
}

Expression Parser::ParseUnary() {
    if (!IsSymbol("-") && !IsSymbol("+")) return ParsePrimary();
    const DepthGuard guard(*this);
    const Token sign = Take();
    Expression result;
    result.sql = "(" + sign.text + " " + At(ParseUnary(), Level::Primary) + ")";
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
            result.sql = QuoteText(token.text);
            break;
        case TokenKind::Date:
            result.kind = ColumnKind::Date;
            result.date = token.text;
            result.sql = QuoteText(token.text);
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
        result.sql = QuoteName(names.front()) + ".";
    }
    result.sql += QuoteName(names.back());
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
            if (distinct) arguments.back().sql.insert(0, "distinct ");
        }
    } else if (!IsSymbol(")")) {
        arguments = ParseList();
    }
    ExpectSymbol(")");
    return TranslateCall(name.text, std::move(arguments), name.position);
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
    result.sql = "case";
    if (!IsKeyword("when")) result.sql += " " + ParseExpression().sql;
    do {
        ExpectKeyword("when");
        result.sql += " when " + ParseExpression().sql;
        ExpectKeyword("then");
        const Expression value = ParseExpression();
        result.kind = value.kind;
        result.sql += " then " + value.sql;
    } while (IsKeyword("when"));
    if (AcceptKeyword("else")) result.sql += " else " + ParseExpression().sql;
    ExpectKeyword("end");
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
    return result;
}

}  // namespace zv::store::dialect
