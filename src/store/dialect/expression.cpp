#include "store/dialect/expression.h"

#include "store/dialect/lexer.h"

namespace zv::store::dialect {
namespace {

std::string Enclose(const std::string& text, char quote) {
    std::string result(1, quote);
    for (const char c : text) {
        if (c == quote) result += c;
        result += c;
    }
    return result + quote;
}

}  // namespace

std::string At(const Expression& expression, Level level) {
    return expression.level < level ? "(" + expression.sql + ")" : expression.sql;
}

std::string QuoteName(const std::string& name) {
    return Enclose(name, '"');
}
std::string QuoteText(const std::string& text) {
    return Enclose(text, '\'');
}

void TakeAsDate(Expression& expression) {
    if (!expression.literal) return;
    const std::string stored = StoredDate(*expression.literal);
    if (stored.empty()) {
        ThrowAt("\"" + *expression.literal + "\" is not a date", expression.position);
    }
    expression.sql = QuoteText(stored);
    expression.kind = ColumnKind::Date;
    expression.date = stored;
    expression.literal.reset();
}

}  // namespace zv::store::dialect
