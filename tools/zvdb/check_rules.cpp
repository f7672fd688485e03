// The rules that the rows of a database keep.
#include <cstddef>
#include <string>

#include "base/text.h"
#include "zvdb/check.h"
#include "zvdb/plan.h"

namespace zv::zvdb::rules {
namespace {

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
        constexpr std::size_t kLongestText = 50;
        const std::string title = row_.Text(1);
        if (Number(0) == 0) Tell("has no number");
        if (text::Trim(title).empty()) Tell("has no title");
        if (DoubleByteLength(title) > kLongestText) Tell("has a title of more than 50 bytes");
        if (DoubleByteLength(row_.Text(11)) > kLongestText ||
            DoubleByteLength(row_.Text(12)) > kLongestText) {
            Tell("has a person's name of more than 50 bytes");
        }
        CheckRange();
        CheckRecurrence();
    }

 private:
    std::int64_t Number(int column) const { return row_.Number(column); }
    bool Within(int column, int low, int high) const {
        return !row_.IsNull(column) && Number(column) >= low && Number(column) <= high;
    }
    void Tell(const std::string& what) { problems_.push_back("plan " + key_ + " " + what); }

    void CheckRange() {
        const auto begin = DateTime::Parse(row_.Text(2));
        const auto end = DateTime::Parse(row_.Text(3));
        if (!begin || !end) {
            Tell("has no valid first or last day");
        } else if (*begin > *end) {
            Tell("ends before it begins");
        } else if (end->Year() - begin->Year() > 5) {
            Tell("runs over more than five years");
        }
    }

    void CheckRecurrence() {
        const bool circle = Within(4, 0, 3);
        const bool step = Within(5, 1, 999);
        const bool side = Within(9, 1, 3);
        const bool width = Within(10, 0, 99);
        if (!circle) Tell("has no valid kind of recurrence (CircleType 0 to 3)");
        if (!step) Tell("has a step that is not 1 to 999 (CircleValue)");
        if (!side) Tell("has no valid alert side (Type 1 to 3)");
        if (!width) Tell("has an alert width that is not 0 to 99 days (TypeValue)");
        if (!circle) return;
        const auto kind = static_cast<Circle>(Number(4));
        if (kind == Circle::Yearly && !Within(6, 1, 12)) Tell("has no valid month");
        if ((kind == Circle::Yearly || kind == Circle::Monthly) && !Within(7, 1, 31)) {
            Tell("has no valid day of the month");
        }
        if (kind == Circle::Weekly && !Within(8, 0, 6)) Tell("has no valid weekday");
        if (step && side && width &&
            !WindowsStayApart(kind, static_cast<int>(Number(5)), static_cast<AlertSide>(Number(9)),
                              static_cast<int>(Number(10)))) {
            Tell("has alert windows that overlap");
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
    // Engines join however many rows there are, whatever indexes they have; not all of them look a
    // number up in a long list.
    Find(database, problems, "guest items without a card",
         "select distinct a.fID from tTaskList a left join cards c on c.fID=a.TaskID "
         "where a.fType=1 and c.fID is null");
    // A task that a user entered while a card was shown carries that card's number; one that was
    // made from a plan has no user.
    Find(database, problems, "task items whose plan is gone",
         "select distinct a.fID from tTaskList a left join tTaskSet p on p.TaskID=a.TaskID "
         "left join cards c on c.fID=a.TaskID where a.fType=0 and a.TaskID<>0 "
         "and p.TaskID is null and (coalesce(a.fUser,'')='' or c.fID is null)");
    Find(database, problems, "items of an unknown kind (fType 0 to 2)",
         "select fID from tTaskList where fType is null or fType not in (0,1,2)");
    Find(database, problems, "items in an unknown state (tDone 0 to 2)",
         "select fID from tTaskList where tDone is null or tDone not in (0,1,2)");
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

}  // namespace zv::zvdb::rules
