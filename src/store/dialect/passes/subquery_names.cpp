#include "store/dialect/passes/subquery_names.h"

#include "store/dialect/tree_walk.h"

namespace zv::store::dialect::passes {

Statement NameSubqueries(Statement statement, const Target& target) {
    int number = 0;
    const auto name = [&](Table& table) {
        const bool nameless = !table.query.empty() && table.alias.empty();
        if (nameless) table.writtenAlias = target.SubqueryName(++number);
    };
    Walk(statement, {.table = name});
    return statement;
}

}  // namespace zv::store::dialect::passes
