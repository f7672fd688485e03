#include "items/filter.h"

#include <string_view>

#include "base/text.h"
#include "store/sql_text.h"

namespace zv::items {
namespace {

std::string DateClause(const Filter& filter, const DateLiteral& dateLiteral) {
    if (!filter.from && !filter.until) return {};
    std::string end =
        " And a.tDuring1<=" + dateLiteral(filter.until.value_or(filter.from.value_or(DateTime())));
    if (!filter.from) return end;
    return end + " and a.tDuring2>=" + dateLiteral(*filter.from);
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

std::string StateClause(Filter::States states) {
    const auto clause = [](std::string_view comparison, ItemState state) {
        return std::string(" And a.tDone").append(comparison) + std::to_string(Number(state));
    };
    switch (states) {
        case Filter::States::NotDone:
            return clause("=", ItemState::NotDone);
        case Filter::States::Done:
            return clause("=", ItemState::Done);
        case Filter::States::InHand:
            return clause("=", ItemState::InHand);
        case Filter::States::NotYetDone:
            return clause("<>", ItemState::Done);
        default:
            return {};
    }
}

}  // namespace

bool Filter::Takes(ItemState state) const {
    switch (states) {
        case States::NotDone:
            return state == ItemState::NotDone;
        case States::Done:
            return state == ItemState::Done;
        case States::InHand:
            return state == ItemState::InHand;
        case States::NotYetDone:
            return state != ItemState::Done;
        default:
            return true;
    }
}

bool Filter::TakesMoment(DateTime moment) const {
    if (!from && !until) return true;
    return moment <= until.value_or(from.value_or(moment)) && (!from || moment >= *from);
}

std::string FilterText(const Filter& filter, const DateLiteral& dateLiteral) {
    std::string where = " Where 1=1";
    for (const ItemKind kind : kItemKinds) {
        if (!filter.Takes(kind)) where += " And a.fType<>" + std::to_string(Number(kind));
    }
    where += DateClause(filter, dateLiteral);
    where += LikeClause("a.taskTitle", filter.title);
    where += LikeClause("a.fContent", filter.content);
    where += EqualClause("a.tDoneMan", filter.doer);
    where += EqualClause("a.fUser", filter.user);
    where += LikeClause("a.fGuest", filter.guest);
    where += LikeClause("b.CompName", filter.company);
    return where + StateClause(filter.states);
}

}  // namespace zv::items
