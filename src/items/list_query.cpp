#include "items/list_query.h"

#include <string_view>

#include "base/text.h"
#include "store/sql_text.h"

namespace zv::items {
namespace {

constexpr std::string_view kWhereWord = "Where";

std::string FilterOf(const std::string& where, int databaseKind) {
    if (where.empty() || where == "1=1") return {};
    if (std::string_view(where).substr(0, 7).find(kWhereWord) != std::string_view::npos)
        return where;
    const bool qualified = text::Contains(where, "a.");
    return " Where " + (qualified ? where : store::QualifyFieldNames(where, "a.", databaseKind));
}

// Who reads the items by themselves has no cards to compare.
std::string ConditionAlone(const std::string& source, const std::string& filter) {
    if (filter.empty()) return {};
    if (text::Contains(filter, "b.")) return "a.fID in (select a.fID" + source + filter + ")";
    return std::string(
        text::Trim(std::string_view(filter).substr(filter.find(kWhereWord) + kWhereWord.size())));
}

}  // namespace

Order OrderOf(int row) {
    return row == 0 || row == 1 ? static_cast<Order>(row) : Order::ByPlan;
}

std::string OrderText(Order order) {
    switch (order) {
        case Order::ByDate:
            return "a.fType,a.taskTime desc,a.taskTitle";
        case Order::ByTitle:
            return "a.fType,a.taskTitle,a.taskTime desc";
        default:
            return "a.fType,a.taskID,a.taskTime desc,a.taskTitle";
    }
}

ListQuery ListItems(const std::string& where, bool withCards, Order order, int databaseKind) {
    std::string source = " from tTaskList a ";
    if (withCards) source += " Left Join cards b on a.taskID=b.fID ";
    const std::string filter = FilterOf(where, databaseKind);
    ListQuery query;
    query.order = OrderText(order);
    query.condition = ConditionAlone(source, filter);
    query.statement = "select distinct a.fID,a.fType,a.taskTime,a.taskTitle,a.tDone,a.taskID" +
                      source + filter + " Order by " + query.order;
    return query;
}

// No blank is written between the condition and "Order By".
std::string FirstOf(const std::string& condition, const std::string& order) {
    std::string sql = "select top 1 * from tTaskList a ";
    if (!condition.empty()) sql += "where " + condition;
    if (!order.empty()) sql += "Order By " + order;
    return sql;
}

}  // namespace zv::items
