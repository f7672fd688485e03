#include "store/odbc/named_tables.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "store/dialect/lexer.h"

namespace zv::store::odbc {
namespace {

using dialect::Token;
using dialect::TokenKind;

// Behind the first two, commas lead to more tables.
constexpr std::array<std::string_view, 2> kBeforeTables{"from", "join"};
constexpr std::array<std::string_view, 2> kBeforeTable{"into", "update"};
constexpr std::array<std::string_view, 8> kBehind{"where", "group", "order",  "having",
                                                  "on",    "set",   "select", "values"};

template <class Words>
bool IsOneOf(const Token& token, const Words& words) {
    return token.kind == TokenKind::Name &&
           std::find(words.begin(), words.end(), text::ToLower(token.text)) != words.end();
}

bool IsSymbol(const Token& token, std::string_view symbol) {
    return token.kind == TokenKind::Symbol && token.text == symbol;
}

}  // namespace

std::vector<std::string> NamedTables(std::string_view statement) {
    std::vector<std::string> names;
    bool commaLeadsOn = false;
    bool expected = false;
    const std::vector<Token> tokens = dialect::TokensIfReadable(statement);
    for (std::size_t i = 0; i < tokens.size(); i++) {
        const Token& token = tokens[i];
        if (IsOneOf(token, kBeforeTables)) {
            commaLeadsOn = expected = true;
        } else if (IsOneOf(token, kBeforeTable)) {
            commaLeadsOn = false;
            expected = true;
        } else if (IsOneOf(token, kBehind)) {
            commaLeadsOn = expected = false;
        } else if (IsSymbol(token, ",")) {
            expected = commaLeadsOn;
        } else if (expected &&
                   (token.kind == TokenKind::Name || token.kind == TokenKind::QuotedName)) {
            // The name in front of a point is a schema.
            if (IsSymbol(tokens[i + 1], ".")) continue;
            names.push_back(token.text);
            expected = false;
        }
    }
    return names;
}

}  // namespace zv::store::odbc
