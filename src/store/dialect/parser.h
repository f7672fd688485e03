// The grammar of the dialect.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/lexer.h"
#include "store/dialect/tree.h"

namespace zv::store::dialect {

/// Throws RuntimeError (DatabaseStatement) that names the place of what is no statement of the
/// dialect.
Statement Parse(std::string_view statement);

/// The same for a statement that may be in another language: none where it is.
std::optional<Statement> ParseIfReadable(std::string_view statement);

/// Internal to these.
class Parser {
 public:
    explicit Parser(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}

    Statement ParseStatement();

 private:
    class DepthGuard;

    // Statements (statement_parser.cpp).
    Query ParseQuery();
    Select ParseSelect();
    Shown ParseShown();
    std::string ParseAlias();
    Table ParseTable();
    std::string ParseTableName();
    std::vector<Table> ParseFrom();
    std::vector<SortTerm> ParseOrder();
    Statement ParseInsert();
    Statement ParseUpdate();
    Statement ParseDelete();
    Statement ParseDrop();

    // Values and conditions (expression_parser.cpp).
    Node ParseExpression() { return ParseOr(); }
    Node ParseOr();
    Node ParseAnd();
    Node ParseNot();
    Node ParseComparison();
    Node ParseIn(Node left, bool negated);
    Node ParseSum();
    Node ParseProduct();
    Node ParseSign();
    Node ParsePrimary();
    Node ParseEnclosed();
    Node ParseColumn();
    Node ParseCall();
    Node ParseCase();
    Node ParseExists();
    std::vector<Node> ParseList();

    // Tokens (parser.cpp).
    const Token& Peek(std::size_t ahead = 0) const;
    Token Take();
    bool IsKeyword(std::string_view word, std::size_t ahead = 0) const;
    bool IsSymbol(std::string_view symbol, std::size_t ahead = 0) const;
    bool AcceptKeyword(std::string_view word);
    bool AcceptSymbol(std::string_view symbol);
    void ExpectKeyword(std::string_view word);
    void ExpectSymbol(std::string_view symbol);
    /// A name that is no keyword, quoted names included.
    bool IsName(std::size_t ahead = 0) const;
    std::string ExpectName();
    [[noreturn]] void Unexpected() const;

    std::vector<Token> tokens_;
    std::size_t at_ = 0;
    int depth_ = 0;
};

/// Refuses nesting that would exhaust the stack.
class Parser::DepthGuard {
 public:
    explicit DepthGuard(Parser& parser);
    ~DepthGuard() { parser_.depth_--; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

 private:
    Parser& parser_;
};

}  // namespace zv::store::dialect
