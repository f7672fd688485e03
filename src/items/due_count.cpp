#include "items/due_count.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <tuple>

namespace zv::items {
namespace {

using Part = std::int64_t DueCount::*;
constexpr std::array<Part, 3> kParts = {&DueCount::overdue, &DueCount::today, &DueCount::inHand};

DueOfDoer& Of(std::vector<DueOfDoer>& doers, const std::string& name) {
    const auto found = std::find_if(doers.begin(), doers.end(),
                                    [&](const DueOfDoer& doer) { return doer.name == name; });
    return found != doers.end() ? *found : doers.emplace_back(DueOfDoer{name, {}});
}

}  // namespace

std::string DueStatement(const std::string& condition, DateTime today,
                         const DateLiteral& dateLiteral) {
    const std::string open = "a.tDone<>" + std::to_string(Number(ItemState::Done));
    const std::string begin = dateLiteral(today.Date());
    std::string ofToday = open + " And a.taskTime>=" + begin;
    // Behind the last day of the calendar there is none to be written.
    static const DateTime kLastDay(9999, 12, 31);
    if (today.Date() != kLastDay) {
        ofToday += " And a.taskTime<" + dateLiteral(today.Date().AddDays(1));
    }
    const std::array<std::string, kParts.size()> parts = {
        open + " And a.taskTime<" + begin, ofToday,
        "a.tDone=" + std::to_string(Number(ItemState::InHand))};
    const std::string given = condition.empty() ? "" : "(" + condition + ") And ";
    std::string statement;
    for (std::size_t part = 0; part < parts.size(); part++) {
        if (part > 0) statement += " union all ";
        statement += "select " + std::to_string(part) +
                     " as fDue,a.tDoneMan,count(*) as fCount from tTaskList a Where " + given +
                     parts[part] + " group by a.tDoneMan";
    }
    return statement;
}

DueCounts CountDue(store::Database& database, const std::string& condition, DateTime today) {
    const auto rows = database.Open(DueStatement(
        condition, today, [&database](DateTime date) { return database.DateLiteral(date); }));
    const int partColumn = rows->FieldIndex("fDue");
    const int nameColumn = rows->FieldIndex("tDoneMan");
    const int countColumn = rows->FieldIndex("fCount");
    DueCounts counts;
    for (; !rows->Eof(); rows->MoveNext()) {
        const Part part = kParts.at(static_cast<std::size_t>(rows->Field(partColumn).ToInt32()));
        const std::int64_t count = rows->Field(countColumn).ToInt32();
        Of(counts.doers, rows->Field(nameColumn).ToText()).count.*part += count;
        counts.all.*part += count;
    }
    rows->Close();
    std::stable_sort(counts.doers.begin(), counts.doers.end(),
                     [](const DueOfDoer& a, const DueOfDoer& b) {
                         return std::tie(b.count.overdue, b.count.today, b.count.inHand, a.name) <
                                std::tie(a.count.overdue, a.count.today, a.count.inHand, b.name);
                     });
    return counts;
}

}  // namespace zv::items
