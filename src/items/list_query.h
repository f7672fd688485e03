// The statement that lists items, and what a print of the list needs of it.
#pragma once

#include <string>

namespace zv::items {

/// The orders of the list, as the list of orders to choose from has them.
enum class Order { ByDate = 0, ByTitle = 1, ByPlan = 2 };
/// Any other row stands for the last one.
Order OrderOf(int row);
/// The order without the words.
std::string OrderText(Order order);

struct ListQuery {
    std::string statement;
    /// The condition, without the word, that is true for just these rows of "tTaskList a", without
    /// any other table. May be empty.
    std::string condition;
    std::string order;  ///< without the words
    std::string asked;  ///< the condition as the user asked for it; may be empty
};

/// `where` with or without the word; field names without a table in it are those of the items.
/// `withCards` joins the cards for a condition on them. `databaseKind` as in ConnectionSettings.
ListQuery ListItems(const std::string& where, bool withCards, Order order, int databaseKind);

/// The statement for one item that passes a condition; both without their words, both may be empty.
std::string FirstOf(const std::string& condition, const std::string& order);

}  // namespace zv::items
