// A translated piece of a statement and what is known of its value.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/schema_info.h"

namespace zv::store::dialect {

/// How tightly the outermost operator of a piece binds in the target, loosest first.
enum class Level { Or, And, Not, Compare, Add, Multiply, Join, Primary };

struct Expression {
    std::string sql;
    ColumnKind kind = ColumnKind::Unknown;
    Level level = Level::Primary;
    bool condition = false;    ///< true or false, where the target distinguishes that from a number
    bool foldsCase = false;    ///< a computed text that compares without regard to case
    std::size_t position = 0;  ///< in the source statement, from 1
    std::optional<std::string> literal;  ///< the value of a bare text literal
    std::string column;                  ///< name of a bare column
};

/// The expression's text, in parentheses when its operator binds less tightly than `level`.
std::string At(const Expression& expression, Level level);
std::string QuoteName(const std::string& name);
std::string QuoteText(const std::string& text);
/// `function(a, b, …)` with the arguments as they stand.
std::string Call(std::string_view function, const std::vector<Expression>& arguments);

}  // namespace zv::store::dialect
