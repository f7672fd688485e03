#include "items/criteria.h"

#include <string_view>

namespace zv::items {
namespace {

// The texts stand in the statement as they were typed: other programs look for statements of this
// form, and a quote among them is an error of the database.
std::string Contains(std::string_view field, const std::string& text) {
    return std::string(field) + " like '%" + text + "%'";
}

}  // namespace

std::string AskStatement(const AskCriteria& criteria, char delimiter) {
    std::string where = "1=1";
    if (criteria.user) where += " And " + Contains("fUser", *criteria.user);
    if (criteria.type) where += " And fType =" + std::to_string(*criteria.type);
    if (criteria.title) where += " and " + Contains("taskTitle", *criteria.title);
    if (criteria.dates) {
        const auto literal = [&](DateTime date) { return delimiter + date.UsDate() + delimiter; };
        where += " and taskTime between " + literal(criteria.dates->first) + " and " +
                 literal(criteria.dates->second);
    }
    if (criteria.state) where += " and tDone= " + std::to_string(*criteria.state);
    if (criteria.doneMan) where += " and " + Contains("tDoneMan", *criteria.doneMan);
    return "select * from tTaskList where " + where + " order by taskTime desc,taskTitle";
}

}  // namespace zv::items
