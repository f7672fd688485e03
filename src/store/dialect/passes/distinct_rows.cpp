#include "store/dialect/passes/distinct_rows.h"

#include <algorithm>

#include "store/dialect/tree_walk.h"

namespace zv::store::dialect::passes {

Statement DropDistinct(Statement statement, const SchemaInfo& schema) {
    const auto drop = [&](Query& query) {
        Select& select = query.selects.back();
        if (select.from.size() != 1) return;
        const auto isKey = [&](const Shown& shown) {
            return !shown.star && shown.value.front().kind == Node::Kind::Column &&
                   schema.IsKey(select.from.front().name, shown.value.front().text);
        };
        if (std::any_of(select.columns.begin(), select.columns.end(), isKey)) {
            select.distinct = false;
        }
    };
    Walk(statement, {.query = drop});
    return statement;
}

}  // namespace zv::store::dialect::passes
