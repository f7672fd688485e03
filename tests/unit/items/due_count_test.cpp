// Counting what is due, on every engine.
#include "items/due_count.h"

#include "items/list_query.h"
#include "watched_database.h"

namespace zv::items {
namespace {

class CountingWhatIsDue : public store::WatchedDatabaseTest {
 protected:
    void Add(const std::string& time, int state, const std::string& doer, int kind = 0) {
        Execute("insert into tTaskList(fType,taskTime,tDone,tDoneMan,taskTitle) values(" +
                std::to_string(kind) + ",'" + time + "'," + std::to_string(state) + "," + doer +
                ",'x')");
    }
    DueCounts Count(const std::string& condition = {}, DateTime now = DateTime(2003, 3, 7, 9, 30)) {
        return CountDue(database_, condition, now);
    }
};

ZV_ON_EVERY_ENGINE(CountingWhatIsDue);

TEST_P(CountingWhatIsDue, SplitsAtTheMidnightsOfToday) {
    database_.EnsureConnection();
    Add("2003-03-06 23:59:59", 0, "'甲'");
    Add("2003-03-07 00:00:00", 0, "'甲'");
    Add("2003-03-07 23:59:59", 2, "'乙'");
    Add("2003-03-08 00:00:00", 0, "'甲'");
    Add("2003-03-01 00:00:00", 1, "'甲'");
    Add("2003-03-01 00:00:00", 2, "'乙'");
    Add("2003-04-01 00:00:00", 2, "null");
    const DueCounts counts = Count();
    EXPECT_EQ(counts.all, (DueCount{2, 2, 3}));
    ASSERT_EQ(counts.doers.size(), 3u);
    EXPECT_EQ(counts.doers[0].name, "乙");
    EXPECT_EQ(counts.doers[0].count, (DueCount{1, 1, 2}));
    EXPECT_EQ(counts.doers[1].name, "甲");
    EXPECT_EQ(counts.doers[1].count, (DueCount{1, 1, 0}));
    EXPECT_EQ(counts.doers[2].name, "");
    EXPECT_EQ(counts.doers[2].count, (DueCount{0, 0, 1}));
}

TEST_P(CountingWhatIsDue, AgreesWithTheRuleOverItemsAtHand) {
    const DateTime now(2003, 3, 7, 9, 30);
    DueCount expected;
    database_.EnsureConnection();
    for (const ItemState state : {ItemState::NotDone, ItemState::Done, ItemState::InHand}) {
        for (int hours = -36; hours <= 36; hours += 6) {
            const DateTime time = now.Date().AddSeconds(hours * 3600);
            Add(time.IsoDateTime(), Number(state), "'甲'");
            expected.Add(time, state, now);
        }
    }
    EXPECT_EQ(Count().all, expected);
}

TEST(DueCounts, SumTheDoersFromAPositionOn) {
    const DueCounts counts{{}, {{"甲", {1, 2, 3}}, {"乙", {10, 20, 30}}, {"丙", {100, 200, 300}}}};
    EXPECT_EQ(counts.SumFrom(1), (DueCount{110, 220, 330}));
    EXPECT_EQ(counts.SumFrom(3), DueCount());
}

TEST_P(CountingWhatIsDue, CountsOnTheLastDayOfTheCalendar) {
    database_.EnsureConnection();
    Add("9999-12-30 23:59:59", 0, "'甲'");
    Add("9999-12-31 00:00:00", 0, "'甲'");
    Add("9999-12-31 23:59:59", 0, "'甲'");
    EXPECT_EQ(Count({}, DateTime(9999, 12, 31, 23, 30)).all, (DueCount{1, 2, 0}));
}

TEST_P(CountingWhatIsDue, IsOneStatement) {
    database_.EnsureConnection();
    log_.lines.clear();
    Count("a.fType=0");
    EXPECT_EQ(log_.lines.size(), 1u);
}

TEST_P(CountingWhatIsDue, CountsOnlyWhatMeetsTheCondition) {
    database_.EnsureConnection();
    Add("2003-03-06 00:00:00", 0, "'甲'", 0);
    Add("2003-03-06 00:00:00", 0, "'甲'", 1);
    Add("2003-03-06 00:00:00", 0, "'甲'", 2);
    // An "or" of the condition does not reach beyond it.
    EXPECT_EQ(Count("a.fType=0 Or a.fType=2").all, (DueCount{2, 0, 0}));
}

TEST_P(CountingWhatIsDue, TakesAConditionOnCards) {
    database_.EnsureConnection();
    Execute("insert into cards(fID,CompName) values(5,'甲公司')");
    Add("2003-03-06 00:00:00", 0, "'甲'");
    Execute(
        "insert into tTaskList(fType,taskTime,tDone,tDoneMan,TaskID) "
        "values(1,'2003-03-07 10:00:00',0,'乙',5)");
    const std::string condition =
        ListItems(" Where 1=1 And b.CompName like '%甲%'", true, Order::ByDate, 1).condition;
    EXPECT_EQ(Count(condition).all, (DueCount{0, 1, 0}));
}

TEST(DueStatement, IsWrittenInTheDialectOfTheDatabase) {
    EXPECT_EQ(DueStatement("", DateTime(2003, 3, 7, 9, 30),
                           [](DateTime date) { return "#" + date.UsDate() + "#"; }),
              "select 0 as fDue,a.tDoneMan,count(*) as fCount from tTaskList a Where a.tDone<>1 "
              "And a.taskTime<#03/07/2003# group by a.tDoneMan union all select 1 as "
              "fDue,a.tDoneMan,count(*) as fCount from tTaskList a Where a.tDone<>1 And "
              "a.taskTime>=#03/07/2003# And a.taskTime<#03/08/2003# group by a.tDoneMan union all "
              "select 2 as fDue,a.tDoneMan,count(*) as fCount from tTaskList a Where a.tDone=2 "
              "group by a.tDoneMan");
}

}  // namespace
}  // namespace zv::items
