#include <optional>
#include <utility>

#include "store/dialect/functions.h"
#include "store/dialect/lexer.h"
#include "store/dialect/writer.h"

namespace zv::store::dialect {
namespace {

using Kind = Node::Kind;

/// An operation whose result is true or false.
Expression Test(const Expression& left, std::string_view op, const Expression& right, Level level,
                Level operands) {
    Expression result = Combine(left, op, right, level, operands, ColumnKind::Number);
    result.condition = true;
    return result;
}

}  // namespace

Expression Writer::WriteCondition(const Node& node) const {
    Expression result = WriteExpression(node);
    target_.MakeCondition(result);
    return result;
}

Expression Writer::WriteValue(const Node& node) const {
    Expression result = WriteExpression(node);
    target_.MakeValue(result);
    return result;
}

Expression Writer::WriteExpression(const Node& node) const {
    Expression result;
    result.position = node.position;
    switch (node.kind) {
        case Kind::Text:
            result.kind = ColumnKind::Text;
            result.literal = node.text;
            result.sql = target_.TextLiteral(node.text);
            return result;
        case Kind::Date:
            result.kind = ColumnKind::Date;
            result.sql = target_.DateLiteral(node.text);
            return result;
        case Kind::Number:
            result.kind = ColumnKind::Number;
            result.sql = node.text;
            return result;
        case Kind::Null:
            result.sql = "null";
            return result;
        case Kind::Star:
            result.sql = "*";
            return result;
        case Kind::Written:
            result.sql = node.text;
            result.kind = ColumnKind::Number;
            result.condition = true;
            return result;
        case Kind::Exists:
            result.sql = "exists(" + Write(node.query.front()) + ")";
            result.kind = ColumnKind::Number;
            result.condition = true;
            return result;
        case Kind::Column:
            return WriteColumn(node);
        case Kind::Enclosed:
        case Kind::Subquery:
            return WriteEnclosed(node);
        case Kind::Call:
            return WriteCall(node);
        case Kind::Case:
            return WriteCase(node);
        case Kind::Sign:
            return WriteSign(node);
        case Kind::Not:
            return WriteNot(node);
        case Kind::Or:
        case Kind::And:
            return WriteJunction(node);
        case Kind::Sum:
            return WriteSum(node);
        case Kind::Product:
            return WriteProduct(node);
        case Kind::Comparison:
            return WriteComparison(node);
        case Kind::IsNull:
        case Kind::Like:
        case Kind::Between:
            return WriteTest(node);
        case Kind::In:
            return WriteIn(node);
    }
    return result;
}

Expression Writer::WriteColumn(const Node& node) const {
    Expression result;
    result.position = node.position;
    result.column = node.text;
    if (!node.qualifier.empty()) result.sql = target_.Name(node.qualifier) + ".";
    result.sql += target_.Name(node.text);
    result.kind = schema_.KindOf(node.text);
    return result;
}

Expression Writer::WriteEnclosed(const Node& node) const {
    Expression result;
    if (node.kind == Kind::Subquery) {
        result.sql = Write(node.query.front());
    } else {
        result = WriteExpression(node.operands.front());
        result.literal.reset();
        result.column.clear();
    }
    result.sql = "(" + result.sql + ")";
    result.level = Level::Primary;
    result.position = node.position;
    return result;
}

Expression Writer::WriteCall(const Node& node) const {
    std::vector<Expression> arguments;
    for (const Node& operand : node.operands) arguments.push_back(WriteExpression(operand));
    const bool counts = !arguments.empty() && node.operands.front().kind == Kind::Star;
    if (IsAggregate(node.text) && !counts) target_.MakeColumn(arguments.front());
    if (node.distinct) arguments.front().sql.insert(0, "distinct ");
    return TranslateCall(target_, node.text, std::move(arguments), node.position);
}

Expression Writer::WriteCase(const Node& node) const {
    auto operand = node.operands.begin();
    std::optional<Expression> compared;
    if (node.compares) compared = WriteValue(*operand++);
    const auto last = node.operands.end() - (node.otherwise ? 1 : 0);
    std::vector<Expression> tests;
    std::vector<Expression> values;
    while (operand != last) {
        tests.push_back(compared ? WriteValue(*operand) : WriteCondition(*operand));
        operand++;
        if (compared) target_.Match(*compared, tests.back());
        values.push_back(WriteValue(*operand++));
    }
    Expression result;
    result.position = node.position;
    result.kind = values.back().kind;
    if (node.otherwise) values.push_back(WriteValue(*last));

    std::vector<Expression*> alternatives;
    alternatives.reserve(values.size());
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

Expression Writer::WriteSign(const Node& node) const {
    Expression operand = WriteExpression(node.operands.front());
    target_.MakeNumber(operand);
    Expression result;
    result.sql = "(" + node.text + " " + At(operand, Level::Primary) + ")";
    result.kind = ColumnKind::Number;
    result.position = node.position;
    return result;
}

Expression Writer::WriteNot(const Node& node) const {
    const Expression operand = WriteCondition(node.operands.front());
    Expression result;
    result.sql = "not " + At(operand, Level::Not);
    result.level = Level::Not;
    result.condition = true;
    result.kind = ColumnKind::Number;
    result.position = node.position;
    return result;
}

Expression Writer::WriteJunction(const Node& node) const {
    const bool all = node.kind == Kind::And;
    const Level level = all ? Level::And : Level::Or;
    Expression left = WriteCondition(node.operands.front());
    for (std::size_t i = 1; i < node.operands.size(); i++) {
        const Expression right = WriteCondition(node.operands[i]);
        left = Test(left, all ? " and " : " or ", right, level, level);
    }
    return left;
}

Expression Writer::WriteSum(const Node& node) const {
    Expression left = WriteExpression(node.operands.front());
    for (std::size_t i = 1; i < node.operands.size(); i++) {
        const Node::Operator& op = node.operators[i - 1];
        Expression right = WriteExpression(node.operands[i]);
        const bool text = left.kind == ColumnKind::Text || right.kind == ColumnKind::Text;
        if (op.sign == '+' && text) {
            left = target_.Concatenate(std::move(left), std::move(right));
            continue;
        }
        if (left.kind == ColumnKind::Date || right.kind == ColumnKind::Date) {
            ThrowAt("dates cannot be added or subtracted", op.position);
        }
        target_.MakeNumber(left);
        target_.MakeNumber(right);
        // A blank keeps two minus signs from becoming a comment.
        left = Combine(left, std::string{' ', op.sign, ' '}, right, Level::Add, Level::Multiply,
                       ColumnKind::Number);
    }
    return left;
}

Expression Writer::WriteProduct(const Node& node) const {
    Expression left = WriteExpression(node.operands.front());
    for (std::size_t i = 1; i < node.operands.size(); i++) {
        Expression right = WriteExpression(node.operands[i]);
        target_.MakeNumber(left);
        target_.MakeNumber(right);
        left = Combine(left, std::string(1, node.operators[i - 1].sign), right, Level::Multiply,
                       Level::Join, ColumnKind::Number);
    }
    return left;
}

Expression Writer::WriteComparison(const Node& node) const {
    Expression left = WriteExpression(node.operands.front());
    Expression right = WriteExpression(node.operands.back());
    target_.Match(left, right);
    return target_.Compare(left, node.text, right);
}

Expression Writer::WriteTest(const Node& node) const {
    Expression left = WriteExpression(node.operands.front());
    if (node.kind == Kind::IsNull) {
        Expression null;
        null.sql = "null";
        target_.MakeValue(left);
        return Test(left, node.negated ? " is not " : " is ", null, Level::Compare, Level::Add);
    }
    if (node.kind == Kind::Like) {
        Expression result;
        result.position = left.position;
        result.sql =
            target_.Like(std::move(left), WriteExpression(node.operands.back()), node.negated);
        result.kind = ColumnKind::Number;
        result.level = Level::Compare;
        result.condition = true;
        return result;
    }
    Expression low = WriteExpression(node.operands[1]);
    Expression high = WriteExpression(node.operands[2]);
    target_.Match(left, low);
    target_.Match(left, high);
    target_.FoldCase(left);
    low.sql = At(low, Level::Add) + " and " + At(high, Level::Add);
    low.level = Level::Primary;
    return Test(left, node.negated ? " not between " : " between ", low, Level::Compare,
                Level::Add);
}

Expression Writer::WriteIn(const Node& node) const {
    Expression left = WriteExpression(node.operands.front());
    std::string list;
    if (!node.query.empty()) {
        target_.MakeValue(left);
        list = Write(node.query.front());
    }
    for (std::size_t i = 1; i < node.operands.size(); i++) {
        Expression item = WriteExpression(node.operands[i]);
        target_.Match(left, item);
        list += (list.empty() ? "" : ",") + item.sql;
    }
    target_.FoldCase(left);
    Expression set;
    set.sql = "(" + list + ")";
    return Test(left, node.negated ? " not in " : " in ", set, Level::Compare, Level::Add);
}

}  // namespace zv::store::dialect
