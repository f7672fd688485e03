// What the sample data looks like.
#include <algorithm>
#include <chrono>

#include "reckoned_plan.h"
#include "scratch.h"
#include "zvdb/engine.h"
#include "zvdb/progress.h"

namespace zv::zvdb {
namespace {

using reckoned::AlertBegin;
using reckoned::AlertEnd;
using reckoned::AlertSide;
using reckoned::Circle;
using reckoned::Occurrences;
using reckoned::Plan;

class ZvdbSampleData : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        ASSERT_EQ(RunZvdb({"sample", Path("a.db")}).status, 0);
        engine_ = std::make_unique<Engine>(Path("a.db"));
    }
    void TearDown() override {
        engine_.reset();
        Scratch::TearDown();
    }
    std::int64_t Count(const std::string& from) {
        return engine_->Number("select count(*) from " + from);
    }

    std::unique_ptr<Engine> engine_;
};

TEST_F(ZvdbSampleData, BothStaffTablesHoldTheSamePeople) {
    EXPECT_EQ(Count("tRsBasic"), 20);
    EXPECT_EQ(Count("(select fCode,fName from tRsBasic except "
                    "select employcode,employee from Employees)"),
              0);
    EXPECT_EQ(Count("(select distinct fName from tRsBasic)"), 20);
}

TEST_F(ZvdbSampleData, PlansOfAllFourKindsAndAllAlertSides) {
    EXPECT_EQ(Count("(select distinct CircleType from tTaskSet)"), 4);
    EXPECT_EQ(Count("(select distinct Type from tTaskSet)"), 3);
}

TEST_F(ZvdbSampleData, TodayHasAnItemOfEachKindInEachState) {
    EXPECT_EQ(Count("(select distinct fType,tDone from tTaskList "
                    "where date(taskTime)='2003-03-07')"),
              9);
    EXPECT_GT(Count("tTaskList where tDone=0 and tDuring1<='2003-03-07 00:00:00' "
                    "and tDuring2>='2003-03-07 00:00:00'"),
              3);
}

TEST_F(ZvdbSampleData, PlanItemsAreTheOccurrencesOfTheirPlan) {
    Statement rows(*engine_,
                   "select TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,taskMonth,taskday,"
                   "TaskWeek,Type,TypeValue from tTaskSet");
    int compared = 0;
    while (rows.Step()) {
        Plan plan;
        plan.number = static_cast<int>(rows.Number(0));
        plan.begin = *DateTime::Parse(rows.Text(2));
        plan.end = *DateTime::Parse(rows.Text(3));
        plan.circle = static_cast<Circle>(rows.Number(4));
        plan.step = static_cast<int>(rows.Number(5));
        plan.month = static_cast<int>(rows.Number(6));
        plan.day = static_cast<int>(rows.Number(7));
        plan.weekday = static_cast<int>(rows.Number(8));
        plan.side = static_cast<AlertSide>(rows.Number(9));
        plan.width = static_cast<int>(rows.Number(10));
        std::string expected;
        for (const DateTime day : Occurrences(plan)) {
            expected += rows.Text(1) + " " + day.IsoDateTime() + " " +
                        AlertBegin(plan, day).IsoDateTime() + " " +
                        AlertEnd(plan, day).IsoDateTime() + "\n";
            ++compared;
        }
        EXPECT_EQ(engine_->Text("select coalesce(group_concat(taskTitle||' '||taskTime||' '||"
                                "tDuring1||' '||tDuring2||char(10),''),'') from (select * from "
                                "tTaskList where fType=0 and TaskID=" +
                                std::to_string(plan.number) + " order by taskTime)"),
                  expected);
    }
    EXPECT_GT(compared, 100);
}

TEST_F(ZvdbSampleData, TimesOfItemsAreHalfHours) {
    EXPECT_GT(Count("tTaskList where time(taskTime)<>'00:00:00'"), 0);
    EXPECT_EQ(Count("tTaskList where strftime('%M:%S',taskTime) not in ('00:00','30:00')"), 0);
}

TEST_F(ZvdbSampleData, GuestItemsNameTheContactOfTheirCard) {
    EXPECT_GT(Count("tTaskList where fType=1"), 20);
    EXPECT_EQ(Count("tTaskList a left join cards b on a.TaskID=b.fID "
                    "where a.fType=1 and coalesce(a.fGuest<>b.Name,1)"),
              0);
}

TEST_F(ZvdbSampleData, DoersAndUsersAreStaff) {
    for (const char* field : {"tDoneMan", "fUser"}) {
        EXPECT_EQ(Count(std::string("tTaskList where coalesce(") + field + ",'')<>'' and " + field +
                        " not in (select fName from tRsBasic)"),
                  0);
    }
    EXPECT_EQ(Count("tTaskList where tDone=1 and coalesce(tDoneMan,'')=''"), 0);
}

TEST_F(ZvdbSampleData, BirthdaysFallOnTodayAndSoonAndOnTheLeapDay) {
    EXPECT_GE(Count("cards where strftime('%m-%d',Birthday)='03-07'"), 1);
    EXPECT_GE(Count("cards where strftime('%m-%d',Birthday) between '03-07' and '03-22'"), 10);
    EXPECT_GE(Count("cards where strftime('%m-%d',Birthday)='02-29'"), 1);
    EXPECT_GE(Count("cards where Birthday is null"), 5);
    EXPECT_EQ(Count("cards where Birthday>'2003-03-07'"), 0);
}

TEST_F(ZvdbSampleData, SomeCardsHaveNoCompanyAndBothScriptsOccur) {
    EXPECT_GE(Count("cards where CompName=''"), 5);
    EXPECT_GE(Count("cards where CompName like '%臺%'"), 1);
    EXPECT_GE(Count("cards where CompName like '%广%' or CompName like '%东%'"), 1);
    EXPECT_GE(Count("tTaskSet where taskTitle like '%臺%'"), 1);
}

TEST_F(ZvdbSampleData, NetworkAddressesLeadNowhere) {
    EXPECT_EQ(Count("cards where (E_mail<>'' and E_mail not like '%.example') or "
                    "(http<>'' and http not like '%.example')"),
              0);
    EXPECT_GT(Count("cards where http like 'http://%'"), 0);
    EXPECT_GT(Count("cards where http like 'www.%'"), 0);
}

TEST_F(ZvdbSampleData, RegistryNamesTheGatedModulesInBothScripts) {
    for (const char* name : {"mnuCardLimited", "mnuCardPlan", "mnuToolTask", "mnuZjComp"}) {
        EXPECT_EQ(Count(std::string("tSysFunc where model_Name='") + name +
                        "' and NoUse_=0 and SerialNo>0 and Model_Name_0<>'' and "
                        "Model_Name_1<>''"),
                  1)
            << name;
    }
    EXPECT_EQ(Count("tSysFunc where password<>''"), 1);
}

TEST_F(ZvdbSampleData, CaptionsOfTheItemFieldsStandInBothScripts) {
    EXPECT_EQ(Count("rptListDetail where fTable='ttasklist' and FieldType>-1 and FieldName like "
                    "'fOther%' and FieldName_0<>'' and FieldName_1<>''"),
              6);
    EXPECT_GT(Count("rptListDetail where FieldType=-1"), 0);
}

TEST(ReckonedPlan, MonthEndDoesNotDrift) {
    Plan plan;
    plan.circle = Circle::Monthly;
    plan.day = 31;
    plan.begin = DateTime(2003, 1, 1);
    plan.end = DateTime(2003, 4, 30);
    std::string days;
    for (const DateTime day : Occurrences(plan)) days += day.IsoDate() + " ";
    EXPECT_EQ(days, "2003-01-31 2003-02-28 2003-03-31 2003-04-30 ");
}

TEST(ReckonedPlan, LeapDayComesBackInLeapYears) {
    Plan plan;
    plan.circle = Circle::Yearly;
    plan.month = 2;
    plan.day = 29;
    plan.begin = DateTime(2004, 1, 1);
    plan.end = DateTime(2008, 12, 31);
    std::string days;
    for (const DateTime day : Occurrences(plan)) days += day.IsoDate() + " ";
    EXPECT_EQ(days, "2004-02-29 2005-02-28 2006-02-28 2007-02-28 2008-02-29 ");
}

TEST(ReckonedPlan, WeeklyPlanBeginsOnItsWeekday) {
    Plan plan;
    plan.circle = Circle::Weekly;
    plan.weekday = 0;
    plan.step = 2;
    plan.begin = DateTime(2003, 3, 5);  // a Wednesday
    plan.end = DateTime(2003, 3, 31);
    std::string days;
    for (const DateTime day : Occurrences(plan)) days += day.IsoDate() + " ";
    EXPECT_EQ(days, "2003-03-09 2003-03-23 ");
}

std::string ReportsOf(bool terminal, std::chrono::milliseconds pause) {
    std::ostringstream out;
    {
        Progress progress(&out, terminal, pause);
        progress.Begin("items", 4096);
        for (int i = 0; i < 3000; ++i) progress.Advance();
    }
    return out.str();
}

TEST(ZvdbProgress, DrawsOneBarOnATerminalAndCompletesIt) {
    const std::string bar = ReportsOf(true, std::chrono::milliseconds(0));
    EXPECT_NE(bar.find("\ritems      [####################....................]  50 %"),
              std::string::npos)
        << bar;
    EXPECT_NE(bar.find("100 %\n"), std::string::npos) << bar;
    EXPECT_EQ(std::count(bar.begin(), bar.end(), '\n'), 1);
}

TEST(ZvdbProgress, WritesPlainLinesElsewhere) {
    EXPECT_EQ(ReportsOf(false, std::chrono::milliseconds(0)),
              "items: 1024 of 4096 (25 %)\nitems: 2048 of 4096 (50 %)\n");
}

TEST(ZvdbProgress, SaysNothingBeforeThePauseIsOver) {
    EXPECT_EQ(ReportsOf(true, std::chrono::hours(1)), "");
    EXPECT_EQ(ReportsOf(false, std::chrono::hours(1)), "");
}

}  // namespace
}  // namespace zv::zvdb
