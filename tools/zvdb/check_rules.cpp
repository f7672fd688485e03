// The rules that the rows of a database keep.
#include <cstddef>
#include <string>

#include "base/text.h"
#include "items/item.h"
#include "plans/plan_rules.h"
#include "zvdb/check.h"
#include "zvdb/side_tables.h"

namespace zv::zvdb::rules {
namespace {

namespace circle = plans::circle;
namespace side = plans::side;

/// The numbers under which they are stored, as a list.
template <class Values>
std::string Numbers(const Values& values) {
    std::string list;
    for (const auto value : values)
        list += (list.empty() ? "" : ",") + std::to_string(Number(value));
    return list;
}

/// Bytes of the text in a double-byte code page.
std::size_t DoubleByteLength(std::string_view text) {
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size();)
        length += text::NextCodePoint(text, at) < 0x80 ? 1 : 2;
    return length;
}

class PlanRow {
 public:
    PlanRow(const InspectedRows& row, std::vector<std::string>& problems)
        : row_(row), problems_(problems), key_(row.Text(0)) {}

    void Check() {
        constexpr std::size_t kLongestText = plans::kMaximumTextBytes;
        const std::string title = row_.Text(1);
        if (Number(0) == 0) Report("has no number");
        if (text::Trim(title).empty()) Report("has no title");
        if (DoubleByteLength(title) > kLongestText) Report("has a title of more than 50 bytes");
        if (DoubleByteLength(row_.Text(11)) > kLongestText ||
            DoubleByteLength(row_.Text(12)) > kLongestText) {
            Report("has a person's name of more than 50 bytes");
        }
        CheckRange();
        CheckRecurrence();
    }

 private:
    std::int64_t Number(int column) const { return row_.Number(column); }
    bool Within(int column, int low, int high) const {
        return !row_.IsNull(column) && Number(column) >= low && Number(column) <= high;
    }
    void Report(const std::string& what) { problems_.push_back("plan " + key_ + " " + what); }

    void CheckRange() {
        const auto begin = DateTime::Parse(row_.Text(2));
        const auto end = DateTime::Parse(row_.Text(3));
        if (!begin || !end) {
            Report("has no valid first or last day");
        } else if (*begin > *end) {
            Report("ends before it begins");
        } else if (end->Year() - begin->Year() > plans::kMaximumYears) {
            Report("runs over more than five years");
        }
    }

    void CheckRecurrence() {
        const bool kind = Within(4, circle::kYearly, circle::kWeekly);
        const bool step = Within(5, 1, plans::kMaximumCircleValue);
        const bool alert = Within(9, side::kAhead, side::kBoth);
        const bool width = Within(10, 0, plans::kMaximumTypeValue);
        if (!kind) Report("has no valid kind of recurrence (CircleType 0 to 3)");
        if (!step) Report("has a step that is not 1 to 999 (CircleValue)");
        if (!alert) Report("has no valid alert side (Type 1 to 3)");
        if (!width) Report("has an alert width that is not 0 to 99 days (TypeValue)");
        if (!kind) return;
        const auto type = static_cast<int>(Number(4));
        if (type == circle::kYearly && !Within(6, 1, 12)) Report("has no valid month");
        if ((type == circle::kYearly || type == circle::kMonthly) && !Within(7, 1, 31)) {
            Report("has no valid day of the month");
        }
        if (type == circle::kWeekly && !Within(8, 0, 6)) Report("has no valid weekday");
        if (step && alert && width &&
            plans::WindowsOverlap(type, static_cast<double>(Number(5)), static_cast<int>(Number(9)),
                                  static_cast<double>(Number(10)))) {
            Report("has alert windows that overlap");
        }
    }

    const InspectedRows& row_;
    std::vector<std::string>& problems_;
    std::string key_;
};

}  // namespace

void CheckPlans(Inspected& database, std::vector<std::string>& problems) {
    const auto plans = database.Select(
        "select TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,taskMonth,taskday,"
        "TaskWeek,Type,TypeValue,SetMan,DoneMan from tTaskSet order by TaskID");
    while (plans->Next()) PlanRow(*plans, problems).Check();
    Find(database, problems, "plan numbers used more than once",
         "select TaskID from tTaskSet group by TaskID having count(*)>1");
    Find(database, problems, "plan titles used more than once",
         "select taskTitle from tTaskSet where taskTitle<>'' group by taskTitle having count(*)>1");
}

void CheckItems(Inspected& database, std::vector<std::string>& problems) {
    const std::string task = std::to_string(Number(items::ItemKind::Task));
    const std::string guest = std::to_string(Number(items::ItemKind::Guest));
    // Engines join however many rows there are, whatever indexes they have; not all of them look a
    // number up in a long list.
    Find(database, problems, "guest items without a card",
         "select distinct a.fID from tTaskList a left join cards c on c.fID=a.TaskID "
         "where a.fType=" +
             guest + " and c.fID is null");
    // A task that a user entered while a card was shown carries that card's number; one that was
    // made from a plan has no user.
    Find(database, problems, "task items whose plan is gone",
         "select distinct a.fID from tTaskList a left join tTaskSet p on p.TaskID=a.TaskID "
         "left join cards c on c.fID=a.TaskID where a.fType=" +
             task +
             " and a.TaskID<>0 "
             "and p.TaskID is null and (coalesce(a.fUser,'')='' or c.fID is null)");
    Find(database, problems, "items of an unknown kind (fType 0 to 2)",
         "select fID from tTaskList where fType is null or fType not in (" +
             Numbers(items::kItemKinds) + ")");
    Find(database, problems, "items in an unknown state (tDone 0 to 2)",
         "select fID from tTaskList where tDone is null or tDone not in (" +
             Numbers(items::kItemStates) + ")");
    Find(database, problems, "items without a valid date",
         "select fID from tTaskList where taskTime is null or " + database.NotADate("taskTime"));
    Find(database, problems, "items whose alert window is not made of dates",
         "select fID from tTaskList where (" + database.NotADate("tDuring1") + ") or (" +
             database.NotADate("tDuring2") +
             ") or (tDuring1 is null and tDuring2 is not null) or (tDuring1 is not null and "
             "tDuring2 is "
             "null)");
    Find(database, problems, "items whose alert window ends before it begins",
         "select fID from tTaskList where tDuring1>tDuring2");
    Find(database, problems, "items without a title",
         "select fID from tTaskList where ltrim(rtrim(coalesce(taskTitle,'')))=''");
    Find(database, problems, "cards whose birthday is not a date",
         "select fID from cards where " + database.NotADate("Birthday"));
    Find(database, problems, "card numbers used more than once",
         "select fID from cards group by fID having count(*)>1");
}

void CheckRegistry(Inspected& database, std::vector<std::string>& problems) {
    Find(database, problems, "staff codes used more than once",
         "select fCode from tRsBasic group by fCode having count(*)>1 union all "
         "select employcode from Employees group by employcode having count(*)>1");
    Find(database, problems, "staff without a name",
         "select fCode from tRsBasic where ltrim(rtrim(coalesce(fName,'')))='' union all "
         "select employcode from Employees where ltrim(rtrim(coalesce(employee,'')))=''");
    Find(database, problems, "modules without a position in the rights (SerialNo 1 to 350)",
         "select model_Name from tSysFunc where NoUse_=0 and "
         "(SerialNo is null or SerialNo not between 1 and 350)");
    Find(database, problems, "modules registered more than once",
         "select model_Name from tSysFunc where NoUse_=0 group by model_Name having count(*)>1");
    Find(database, problems, "fields with more than one caption",
         "select min(fTable),min(FieldName) from rptListDetail group by lower(fTable),"
         "lower(FieldName) having count(*)>1",
         2);
}

void CheckSideTables(Inspected& database, std::vector<std::string>& problems) {
    const SideTablesFound found = FindSideTables(database);
    if (!found.any) return;
    for (const SidePart& part : found.missing) {
        problems.push_back(part.Called() +
                           " is missing beside the other side tables (zvdb upgrade makes it)");
    }
    problems.insert(problems.end(), found.faults.begin(), found.faults.end());
}

}  // namespace zv::zvdb::rules
