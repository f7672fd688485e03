// The grammar of the dialect. Internal to the translation; others use translator.h.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/dialect/expression.h"
#include "store/dialect/lexer.h"
#include "store/dialect/target.h"
#include "store/dialect/translator.h"

namespace zv::store::dialect {

class Parser {
 public:
    Parser(std::vector<Token> tokens, const SchemaInfo& schema, const Target& target);

    Translation ParseStatement();

 private:
    /// What stands behind "from".
    struct Source {
        std::string firstTable;  ///< quoted; empty when the first is a subquery or in parentheses
        std::string firstName;   ///< as written, for comparison
        std::string firstAlias;  ///< quoted, the table's name without an alias
        std::string firstSql;    ///< the first table with its alias
        std::string joins;       ///< everything behind it
        std::vector<std::string> otherAliases;
        bool outerFirst = false;  ///< a right or full join may leave the first table's columns null
        bool single = true;
        bool enclosed =
            false;  ///< holds something in parentheses, whose columns have no alias here
    };
    struct Select {
        bool distinct = false;
        bool aggregate = false;
        bool grouped = false;
        bool bareStar = false;
        std::vector<std::string> plainColumns;  ///< names of those that are nothing else
        std::vector<std::string> aliases;       ///< given to columns, quoted
        std::string limit;
        std::vector<std::string> columns;
        Source source;
        std::string where;
        std::string groupBy;
        std::string orderBy;
        std::vector<WindowBound> bounds;
        bool covered = true;  ///< reads no column of the items beyond those of the window index
    };
    class DepthGuard;

    // Statements (statement.cpp).
    std::string ParseSelect(Translation* translation);
    Select ParseSelectCore();
    void ParseColumns(Select& select);
    Source ParseFrom();
    std::string ParseTable(Source& source, bool first);
    std::string ParseTableName(std::string* plainName = nullptr);
    std::string ParseAlias();
    /// `mayCompute`: a term may be something else than what the select shows.
    std::string ParseOrder(const Select& select, bool mayCompute);
    bool ShowsKey(const Select& select) const;
    void UseWindowIndex(Select& select) const;
    static std::string Compose(const Select& select);
    Translation ParseInsert();
    Translation ParseUpdate();
    Translation ParseDelete();
    Translation ParseDrop();

    // Expressions (expression_parser.cpp).
    Expression ParseExpression() { return ParseOr(); }
    Expression ParseCondition();
    Expression ParseValue();
    Expression ParseOr();
    Expression ParseAnd();
    Expression ParseNot();
    Expression ParseComparison();
    Expression ParseComparisonTail(Expression left);
    Expression ParseIn(Expression left, bool negated);
    Expression ParseAdditive();
    Expression ParseMultiplicative();
    Expression ParseUnary();
    Expression ParsePrimary();
    Expression ParseParenthesised();
    Expression ParseColumn();
    Expression ParseCall();
    Expression ParseCase();
    Expression ParseExists();
    std::vector<Expression> ParseList();

    // Tokens.
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
    const SchemaInfo& schema_;
    const Target& target_;
    int depth_ = 0;
    int subqueries_ = 0;  ///< without a name, so far
    // Of the select that is being read.
    bool sawAggregate_ = false;
    std::vector<std::pair<std::string, std::string>> columns_;  ///< qualifier, name
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
