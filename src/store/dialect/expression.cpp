#include "store/dialect/expression.h"

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

std::string Call(std::string_view function, const std::vector<Expression>& arguments) {
    std::string sql(function);
    sql += '(';
    for (std::size_t i = 0; i < arguments.size(); i++) {
        if (i > 0) sql += ',';
        sql += arguments[i].sql;
    }
    return sql + ')';
}

}  // namespace zv::store::dialect
