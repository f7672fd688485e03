#include "store/dialect/target.h"

#include "store/dialect/lexer.h"

namespace zv::store::dialect {

Expression Combine(const Expression& left, std::string_view op, const Expression& right,
                   Level level, Level operands, ColumnKind kind) {
    Expression result;
    result.sql = At(left, operands);
    result.sql += op;
    result.sql += At(right, operands);
    result.level = level;
    result.kind = kind;
    result.position = left.position;
    return result;
}

void Target::MakeDate(Expression& value) const {
    if (!value.literal) return;
    const std::string stored = StoredDate(*value.literal);
    if (stored.empty()) ThrowAt("\"" + *value.literal + "\" is not a date", value.position);
    value.sql = DateLiteral(stored);
    value.kind = ColumnKind::Date;
    value.literal.reset();
}

void Target::MakeStored(ColumnKind kind, Expression& value) const {
    if (kind == ColumnKind::Date) MakeDate(value);
}

// What is written as a text is meant as a date where it meets a date.
void Target::Match(Expression& left, Expression& right) const {
    if (left.kind == ColumnKind::Date && right.literal) MakeDate(right);
    if (right.kind == ColumnKind::Date && left.literal) MakeDate(left);
}

Expression Target::Compare(const Expression& left, std::string_view op,
                           const Expression& right) const {
    return Combine(left, op, right, Level::Compare, Level::Add, ColumnKind::Number);
}

}  // namespace zv::store::dialect
