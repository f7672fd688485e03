#include "mainwindow/filter_text.h"

#include <string_view>

#include "base/text.h"
#include "store/sql_text.h"

namespace zv::mainwindow {
namespace {

std::string DateClause(const FilterChoice& choice,
                       const std::function<std::string(DateTime)>& dateLiteral) {
    if (!choice.from && !choice.until) return {};
    const std::string end =
        " And a.tDuring1<=" + dateLiteral(choice.until.value_or(choice.from.value_or(DateTime())));
    if (!choice.from) return end;
    return end + " and a.tDuring2>=" + dateLiteral(*choice.from);
}

std::string LikeClause(std::string_view field, const std::string& text) {
    if (text.empty()) return {};
    // What the user typed has no quote; the company that the host gives may have one.
    const std::string pattern = text::Replace(store::MakeLikePattern(text), "'", "_");
    return std::string(" And ").append(field) + " like '" + pattern + "'";
}

// Not trimmed and without wildcards: a name is compared as it stands.
std::string EqualClause(std::string_view field, const std::string& text) {
    if (text.empty()) return {};
    if (store::BreaksLiteral(text)) {
        // The user's own name: a limit by right holds for it, too.
        return std::string(" And ").append(field) + "  like '" + store::AsPatternOfName(text) + "'";
    }
    return std::string(" And ").append(field) + " ='" + text + "'";
}

}  // namespace

std::string BuildFilterText(const FilterChoice& choice,
                            const std::function<std::string(DateTime)>& dateLiteral) {
    std::string where = " Where 1=1";
    for (std::size_t kind = 0; kind < choice.kinds.size(); kind++) {
        if (!choice.kinds[kind]) where += " And a.fType<>" + std::to_string(kind);
    }
    where += DateClause(choice, dateLiteral);
    where += LikeClause("a.taskTitle", choice.title);
    where += LikeClause("a.fContent", choice.content);
    where += EqualClause("a.tDoneMan", choice.doer);
    where += EqualClause("a.fUser", choice.user);
    where += LikeClause("a.fGuest", choice.guest);
    where += LikeClause("b.CompName", choice.company);
    if (choice.state >= kNotDone && choice.state <= kInHand) {
        where += " And a.tDone=" + std::to_string(choice.state);
    } else if (choice.state == kNotYetDone) {
        where += " And a.tDone<>" + std::to_string(kDone);
    }
    return where;
}

}  // namespace zv::mainwindow
