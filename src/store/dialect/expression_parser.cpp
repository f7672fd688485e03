#include <array>
#include <utility>

#include "base/text.h"
#include "store/dialect/functions.h"
#include "store/dialect/parser.h"

namespace zv::store::dialect {
namespace {

using Kind = Node::Kind;

Node Make(Kind kind, std::size_t position, std::vector<Node> operands = {}) {
    Node node;
    node.kind = kind;
    node.position = position;
    node.operands = std::move(operands);
    return node;
}

/// The chain that `left` already is, or a new one that begins with it.
Node& Chain(Node& left, Kind kind) {
    Node chain = Make(kind, left.position);
    chain.operands.push_back(std::move(left));
    left = std::move(chain);
    return left;
}

}  // namespace

Node Parser::ParseOr() {
    const DepthGuard guard(*this);
    Node left = ParseAnd();
    if (!IsKeyword("or")) return left;
    Chain(left, Kind::Or);
    while (AcceptKeyword("or")) left.operands.push_back(ParseAnd());
    return left;
}

Node Parser::ParseAnd() {
    Node left = ParseNot();
    if (!IsKeyword("and")) return left;
    Chain(left, Kind::And);
    while (AcceptKeyword("and")) left.operands.push_back(ParseNot());
    return left;
}

Node Parser::ParseNot() {
    if (!IsKeyword("not")) return ParseComparison();
    const DepthGuard guard(*this);
    Node node = Make(Kind::Not, Take().position);
    node.operands.push_back(ParseNot());
    return node;
}

Node Parser::ParseComparison() {
    if (IsKeyword("exists")) return ParseExists();
    Node left = ParseSum();
    static constexpr std::array<std::string_view, 7> kOperators{
        "=", "<>", "!=", "<=", ">=", "<", ">"};
    for (const auto op : kOperators) {
        if (!AcceptSymbol(op)) continue;
        Chain(left, Kind::Comparison).text = op;
        left.operands.push_back(ParseSum());
        return left;
    }
    if (AcceptKeyword("is")) {
        const bool negated = AcceptKeyword("not");
        ExpectKeyword("null");
        Chain(left, Kind::IsNull).negated = negated;
        return left;
    }
    const bool negated =
        IsKeyword("not") && (IsKeyword("like", 1) || IsKeyword("between", 1) || IsKeyword("in", 1));
    if (negated) Take();
    if (AcceptKeyword("like")) {
        Chain(left, Kind::Like).negated = negated;
        left.operands.push_back(ParseSum());
        return left;
    }
    if (AcceptKeyword("between")) {
        Chain(left, Kind::Between).negated = negated;
        left.operands.push_back(ParseSum());
        ExpectKeyword("and");
        left.operands.push_back(ParseSum());
        return left;
    }
    if (AcceptKeyword("in")) return ParseIn(std::move(left), negated);
    return left;
}

Node Parser::ParseIn(Node left, bool negated) {
    Chain(left, Kind::In).negated = negated;
    ExpectSymbol("(");
    if (IsKeyword("select")) {
        left.query.push_back(ParseQuery());
    } else {
        for (Node& item : ParseList()) left.operands.push_back(std::move(item));
    }
    ExpectSymbol(")");
    return left;
}

Node Parser::ParseSum() {
    Node left = ParseProduct();
    if (!IsSymbol("+") && !IsSymbol("-")) return left;
    Chain(left, Kind::Sum);
    while (IsSymbol("+") || IsSymbol("-")) {
        const Token op = Take();
        left.operators.push_back({op.text.front(), op.position});
        left.operands.push_back(ParseProduct());
    }
    return left;
}

Node Parser::ParseProduct() {
    Node left = ParseSign();
    if (!IsSymbol("*") && !IsSymbol("/") && !IsSymbol("%")) return left;
    Chain(left, Kind::Product);
    while (IsSymbol("*") || IsSymbol("/") || IsSymbol("%")) {
        const Token op = Take();
        left.operators.push_back({op.text.front(), op.position});
        left.operands.push_back(ParseSign());
    }
    return left;
}

Node Parser::ParseSign() {
    if (!IsSymbol("-") && !IsSymbol("+")) return ParsePrimary();
    const DepthGuard guard(*this);
    const Token sign = Take();
    Node node = Make(Kind::Sign, sign.position);
    node.text = sign.text;
    node.operands.push_back(ParseSign());
    return node;
}

Node Parser::ParsePrimary() {
    const Token& token = Peek();
    Node literal = Make(Kind::Null, token.position);
    switch (token.kind) {
        case TokenKind::Text:
            literal.kind = Kind::Text;
            break;
        case TokenKind::Date:
            literal.kind = Kind::Date;
            break;
        case TokenKind::Number:
            literal.kind = Kind::Number;
            break;
        case TokenKind::Symbol:
            if (token.text != "(") Unexpected();
            return ParseEnclosed();
        case TokenKind::Name:
            if (IsKeyword("case")) return ParseCase();
            // Left and Right are functions where a value is expected and joins elsewhere.
            if (IsSymbol("(", 1) && (IsName() || IsKeyword("left") || IsKeyword("right"))) {
                return ParseCall();
            }
            if (IsKeyword("null")) {
                Take();
                return literal;
            }
            return ParseColumn();
        case TokenKind::QuotedName:
            return ParseColumn();
        case TokenKind::End:
            Unexpected();
    }
    literal.text = Take().text;
    return literal;
}

Node Parser::ParseEnclosed() {
    Node node = Make(Kind::Enclosed, Take().position);
    if (IsKeyword("select")) {
        node.kind = Kind::Subquery;
        node.query.push_back(ParseQuery());
    } else {
        node.operands.push_back(ParseExpression());
    }
    ExpectSymbol(")");
    return node;
}

Node Parser::ParseColumn() {
    Node node = Make(Kind::Column, Peek().position);
    std::vector<std::string> names{ExpectName()};
    while (IsSymbol(".")) {
        Take();
        names.push_back(ExpectName());
    }
    // The owner in front of a server's table name means nothing here.
    if (names.size() == 3 && text::EqualsIgnoreCase(names[0], "dbo")) names.erase(names.begin());
    if (names.size() > 2) ThrowAt("the name has too many parts", node.position);
    node.text = names.back();
    if (names.size() == 2) node.qualifier = names.front();
    return node;
}

Node Parser::ParseCall() {
    const DepthGuard guard(*this);
    const Token name = Take();
    Node node = Make(Kind::Call, name.position);
    node.text = name.text;
    ExpectSymbol("(");
    if (IsAggregate(name.text)) {
        if (IsSymbol("*")) {
            if (!text::EqualsIgnoreCase(name.text, "count")) Unexpected();
            node.operands.push_back(Make(Kind::Star, Take().position));
        } else {
            node.distinct = AcceptKeyword("distinct");
            node.operands.push_back(ParseExpression());
        }
    } else if (!IsSymbol(")")) {
        node.operands = ParseList();
    }
    ExpectSymbol(")");
    return node;
}

std::vector<Node> Parser::ParseList() {
    std::vector<Node> list;
    do {
        list.push_back(ParseExpression());
    } while (AcceptSymbol(","));
    return list;
}

Node Parser::ParseCase() {
    const DepthGuard guard(*this);
    Node node = Make(Kind::Case, Take().position);
    node.compares = !IsKeyword("when");
    if (node.compares) node.operands.push_back(ParseExpression());
    do {
        ExpectKeyword("when");
        node.operands.push_back(ParseExpression());
        ExpectKeyword("then");
        node.operands.push_back(ParseExpression());
    } while (IsKeyword("when"));
    node.otherwise = AcceptKeyword("else");
    if (node.otherwise) node.operands.push_back(ParseExpression());
    ExpectKeyword("end");
    return node;
}

Node Parser::ParseExists() {
    Node node = Make(Kind::Exists, Take().position);
    ExpectSymbol("(");
    node.query.push_back(ParseQuery());
    ExpectSymbol(")");
    return node;
}

}  // namespace zv::store::dialect
