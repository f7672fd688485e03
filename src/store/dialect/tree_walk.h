// Goes through a tree in the order in which it was written, what is inside before what is around.
#pragma once

#include <functional>

#include "store/dialect/tree.h"

namespace zv::store::dialect {

/// What is done at each place; what is not given is passed by.
struct Visitor {
    std::function<void(Query&)> query = {};
    std::function<void(Table&)> table = {};
    std::function<void(Node&)> node = {};
};

void Walk(Statement& statement, const Visitor& visitor);
void Walk(Query& query, const Visitor& visitor);

}  // namespace zv::store::dialect
