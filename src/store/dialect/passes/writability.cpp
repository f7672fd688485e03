#include "store/dialect/passes/writability.h"

#include <algorithm>

#include "store/dialect/functions.h"

namespace zv::store::dialect::passes {
namespace {

/// Of the select itself, not of one inside it.
bool HasTotal(const Node& node) {
    if (node.kind == Node::Kind::Call && IsAggregate(node.text)) return true;
    return std::any_of(node.operands.begin(), node.operands.end(), HasTotal);
}

bool HasTotal(const Select& select) {
    return std::any_of(
               select.columns.begin(), select.columns.end(),
               [](const Shown& shown) { return !shown.star && HasTotal(shown.value.front()); }) ||
           std::any_of(select.where.begin(), select.where.end(),
                       [](const Node& node) { return HasTotal(node); });
}

Node RowNumber(const Select& select, const Target& target, const char* behind) {
    Node number;
    number.kind = Node::Kind::Written;
    number.text = target.Name(select.from.front().Alias()) + ".\"rowid\"" + behind;
    return number;
}

}  // namespace

std::string WritableTable(const Statement& statement) {
    if (statement.kind != Statement::Kind::Select || statement.query.front().IsUnion()) return {};
    const Select& select = statement.query.front().selects.front();
    if (select.from.size() != 1 || select.distinct || !select.groupBy.empty() || HasTotal(select)) {
        return {};
    }
    return select.from.front().name;
}

Query KeysOf(Query query, const Target& target) {
    Select& select = query.selects.front();
    Shown key;
    key.value.push_back(RowNumber(select, target, ""));
    select.columns = {key};
    return query;
}

Query RowOf(Query query, const Target& target) {
    Select& select = query.selects.front();
    select.where = {RowNumber(select, target, "=?1")};
    select.limit.clear();
    query.order.clear();
    return query;
}

}  // namespace zv::store::dialect::passes
