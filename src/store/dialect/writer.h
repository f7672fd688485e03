// Writes a tree in the terms of an engine.
#pragma once

#include <string>
#include <vector>

#include "store/dialect/expression.h"
#include "store/dialect/target.h"
#include "store/dialect/tree.h"

namespace zv::store::dialect {

/// Knows of each value whether it is a text, a number, a date or a condition; the target makes it
/// fit its place. Operations throw RuntimeError (DatabaseStatement) that names the place of what
/// has no meaning.
class Writer {
 public:
    Writer(const SchemaInfo& schema, const Target& target) : schema_(schema), target_(target) {}

    std::string Write(const Statement& statement) const;
    std::string Write(const Query& query) const;

 private:
    // Statements (statement_writer.cpp).
    std::string WriteSelect(const Select& select) const;
    std::string WriteShown(const Shown& shown) const;
    std::string WriteTable(const Table& table) const;
    std::string WriteFrom(const std::vector<Table>& tables) const;
    std::string WriteOrder(const Query& query) const;
    std::string WriteInsert(const Statement& statement) const;
    std::string WriteUpdate(const Statement& statement) const;
    /// " where …", or nothing.
    std::string WriteWhere(const std::vector<Node>& where) const;

    // Values and conditions (expression_writer.cpp).
    Expression WriteValue(const Node& node) const;
    Expression WriteCondition(const Node& node) const;
    Expression WriteExpression(const Node& node) const;
    Expression WriteColumn(const Node& node) const;
    Expression WriteEnclosed(const Node& node) const;
    Expression WriteCall(const Node& node) const;
    Expression WriteCase(const Node& node) const;
    Expression WriteSign(const Node& node) const;
    Expression WriteNot(const Node& node) const;
    Expression WriteJunction(const Node& node) const;
    Expression WriteSum(const Node& node) const;
    Expression WriteProduct(const Node& node) const;
    Expression WriteComparison(const Node& node) const;
    Expression WriteTest(const Node& node) const;
    Expression WriteIn(const Node& node) const;

    const SchemaInfo& schema_;
    const Target& target_;
};

}  // namespace zv::store::dialect
