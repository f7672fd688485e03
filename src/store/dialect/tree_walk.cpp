#include "store/dialect/tree_walk.h"

#include <vector>

namespace zv::store::dialect {
namespace {

void WalkNode(Node& node, const Visitor& visitor) {
    for (Node& operand : node.operands) WalkNode(operand, visitor);
    for (Query& query : node.query) Walk(query, visitor);
    if (visitor.node) visitor.node(node);
}

void WalkNodes(std::vector<Node>& nodes, const Visitor& visitor) {
    for (Node& node : nodes) WalkNode(node, visitor);
}

void WalkTables(std::vector<Table>& tables, const Visitor& visitor) {
    for (Table& table : tables) {
        for (Query& query : table.query) Walk(query, visitor);
        WalkTables(table.enclosed, visitor);
        if (visitor.table) visitor.table(table);
        WalkNodes(table.on, visitor);
    }
}

}  // namespace

void Walk(Query& query, const Visitor& visitor) {
    for (Select& select : query.selects) {
        for (Shown& shown : select.columns) WalkNodes(shown.value, visitor);
        WalkTables(select.from, visitor);
        WalkNodes(select.where, visitor);
        WalkNodes(select.groupBy, visitor);
        WalkNodes(select.having, visitor);
    }
    for (SortTerm& term : query.order) WalkNode(term.value, visitor);
    if (visitor.query) visitor.query(query);
}

void Walk(Statement& statement, const Visitor& visitor) {
    for (Query& query : statement.query) Walk(query, visitor);
    for (std::vector<Node>& row : statement.rows) WalkNodes(row, visitor);
    for (Assignment& assignment : statement.assignments) WalkNode(assignment.value, visitor);
    WalkNodes(statement.where, visitor);
}

}  // namespace zv::store::dialect
