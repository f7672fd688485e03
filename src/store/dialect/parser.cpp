#include "store/dialect/parser.h"

#include <algorithm>
#include <array>

#include "base/errors.h"
#include "base/text.h"

namespace zv::store::dialect {
namespace {

constexpr std::array<std::string_view, 42> kKeywords{
    "all",    "and",      "as",     "asc",    "between", "by",     "case",  "cross",  "delete",
    "desc",   "distinct", "drop",   "else",   "end",     "exists", "from",  "full",   "group",
    "having", "in",       "inner",  "insert", "into",    "is",     "join",  "left",   "like",
    "not",    "null",     "on",     "or",     "order",   "outer",  "right", "select", "set",
    "then",   "union",    "update", "values", "when",    "where"};

bool IsReserved(std::string_view word) {
    return std::find(kKeywords.begin(), kKeywords.end(), text::ToLower(word)) != kKeywords.end();
}

}  // namespace

const Token& Parser::Peek(std::size_t ahead) const {
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

Token Parser::Take() {
    const Token& token = Peek();
    if (token.kind != TokenKind::End) at_++;
    return token;
}

bool Parser::IsKeyword(std::string_view word, std::size_t ahead) const {
    const Token& token = Peek(ahead);
    return token.kind == TokenKind::Name && text::EqualsIgnoreCase(token.text, word);
}

bool Parser::IsSymbol(std::string_view symbol, std::size_t ahead) const {
    const Token& token = Peek(ahead);
    return token.kind == TokenKind::Symbol && token.text == symbol;
}

bool Parser::AcceptKeyword(std::string_view word) {
    if (!IsKeyword(word)) return false;
    at_++;
    return true;
}

bool Parser::AcceptSymbol(std::string_view symbol) {
    if (!IsSymbol(symbol)) return false;
    at_++;
    return true;
}

void Parser::ExpectKeyword(std::string_view word) {
    if (!AcceptKeyword(word)) Unexpected();
}

void Parser::ExpectSymbol(std::string_view symbol) {
    if (!AcceptSymbol(symbol)) Unexpected();
}

bool Parser::IsName(std::size_t ahead) const {
    const Token& token = Peek(ahead);
    return token.kind == TokenKind::QuotedName ||
           (token.kind == TokenKind::Name && !IsReserved(token.text));
}

std::string Parser::ExpectName() {
    if (!IsName()) Unexpected();
    return Take().text;
}

void Parser::Unexpected() const {
    const Token& token = Peek();
    if (token.kind == TokenKind::End) ThrowAt("the statement ends too early", token.position);
    ThrowAt("syntax error near \"" + token.text + "\"", token.position);
}

Parser::DepthGuard::DepthGuard(Parser& parser) : parser_(parser) {
    constexpr int kDeepest = 100;
    if (++parser_.depth_ > kDeepest) {
        // The destructor does not run for a guard that was not made.
        parser_.depth_--;
        ThrowAt("the statement is nested too deeply", parser_.Peek().position);
    }
}

Statement Parse(std::string_view statement) {
    return Parser(Tokenise(statement)).ParseStatement();
}

std::optional<Statement> ParseIfReadable(std::string_view statement) {
    try {
        return Parse(statement);
    } catch (const RuntimeError&) {
        return {};
    }
}

}  // namespace zv::store::dialect
