#include "plans/generation.h"

#include <gtest/gtest.h>

#include <random>

#include "base/text.h"
#include "plan_database.h"
#include "plans/occurrences.h"

namespace zv::plans {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kLook = "select count(*) from tTaskList Where taskID =7 And fType<>0";

class GenerateTaskListTest : public testing::Test, protected PlanDatabase {
 protected:
    // A monthly plan of four items: 31 January to 30 April.
    GenerateTaskListTest() {
        Sql("insert into tTaskSet(TaskID,taskTitle,tbegin,tEnd,CircleType,CircleValue,taskMonth,"
            "taskday,TaskWeek,Type,TypeValue,SetMan,DoneMan,Content) values(7,'报表',"
            "'2003-01-01 00:00:00','2003-04-30 00:00:00',1,1,1,31,1,1,2,'李四','王五','月底报表')");
    }
    void SetPlan(const std::string& assignment) { Sql("update tTaskSet set " + assignment); }
    // A done item of the plan, with every field filled.
    void AddDoneItem() {
        Sql("insert into tTaskList(TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone,"
            "tDoneMan,fUser,fType,fWay,fGuest,fOther0,fOther5) values(7,'旧','旧文',"
            "'2003-01-31 00:00:00','2003-01-29 00:00:00',null,1,'王五','u',0,'w','g','a','f')");
    }
    std::string Dates() { return Rows("select substr(taskTime,1,10) from tTaskList order by fID"); }
    /// `deletesDone` answers the question, of which `asked` counts how often it came.
    Generation Generate(const std::string& plan = "7") {
        const auto asks = [this] {
            asked++;
            if (whileAsked) whileAsked();
            return deletesDone;
        };
        const GenerationResult result = GenerateTaskList(database, {plan, user, asks, progress});
        rowsWritten = result.rows;
        return result.outcome;
    }
    std::string Executor() { return Rows("select DoneMan from tTaskSet"); }

    std::string user = "张三";
    bool deletesDone = true;
    int asked = 0;
    int rowsWritten = 0;  ///< by the last run, as it says
    std::function<void()> whileAsked;
    GenerationProgress progress;
};

constexpr const char* kFourDates = "2003-01-31\n2003-02-28\n2003-03-31\n2003-04-30";

TEST_F(GenerateTaskListTest, SendsTheStatementsInOrder) {
    EXPECT_EQ(Generate(), Generation::Finished);
    EXPECT_EQ(statements.Take(),
              (Lines{kLook, "select * from tTaskList where taskID =7 And tDone=1",
                     "delete from tTaskList where taskID =7",
                     "select * from tTaskSet where taskID=7", "select * from tTasklist", "row",
                     "row", "row", "row", "Update tTaskSet Set DoneMan='张三' where taskID=7"}));
}

TEST_F(GenerateTaskListTest, WritesOnlyTheFieldsOfAnItem) {
    SetPlan("tEnd='2003-01-31 00:00:00'");
    Generate();
    EXPECT_EQ(Rows("select TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone from "
                   "tTaskList"),
              "7|报表|月底报表|2003-01-31 00:00:00|2003-01-29 00:00:00|2003-01-31 00:00:00|0");
    EXPECT_EQ(Rows("select tDoneMan,fUser,fWay,fGuest,fOther0,fOther1,fOther2,fOther3,fOther4,"
                   "fOther5 from tTaskList"),
              "|||||||||");
}

TEST_F(GenerateTaskListTest, LeavesTheWindowEmptyForASideThatIsNone) {
    SetPlan("Type=0");
    Generate();
    EXPECT_EQ(Rows("select count(*),count(tDuring1),count(tDuring2) from tTaskList"), "4|0|0");
}

TEST_F(GenerateTaskListTest, LeavesAnEmptyContentEmpty) {
    SetPlan("Content=null");
    Generate();
    EXPECT_EQ(Rows("select count(*),count(fContent) from tTaskList"), "4|0");
}

TEST_F(GenerateTaskListTest, StampsThePlanWithTheUser) {
    Generate();
    EXPECT_EQ(Executor(), "张三");
}

TEST_F(GenerateTaskListTest, StampsWithAnEmptyUserToo) {
    user.clear();
    Generate();
    EXPECT_EQ(Executor(), "");
}

TEST_F(GenerateTaskListTest, DeletesAllItemsWhenNoneIsDone) {
    Sql("insert into tTaskList(TaskID,tDone) values(7,0),(7,2),(8,0)");
    Generate();
    EXPECT_EQ(Rows("select TaskID,count(*) from tTaskList group by TaskID"), "7|4\n8|1");
}

TEST_F(GenerateTaskListTest, DeletesDoneItemsTooWhenTheUserSaysYes) {
    AddDoneItem();
    deletesDone = true;
    Generate();
    const Lines sent = statements.Take();
    EXPECT_EQ(sent[3], "delete from tTaskList where taskID =7");
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Dates(), kFourDates);
    EXPECT_EQ(Rows("select count(*) from tTaskList where tDone=1"), "0");
}

TEST_F(GenerateTaskListTest, KeepsDoneItemsByteForByteWhenTheUserSaysNo) {
    AddDoneItem();
    Sql("insert into tTaskList(TaskID,tDone) values(7,0),(7,2)");
    const std::string done = Rows("select * from tTaskList where tDone=1");
    deletesDone = false;
    Generate();
    EXPECT_EQ(statements.Take()[3], "delete from tTaskList where taskID =7 And tDone=0");
    EXPECT_EQ(Rows("select * from tTaskList where tDone=1"), done);
    // An item in hand is not undone, and the date of the done one is there twice.
    EXPECT_EQ(Rows("select tDone,count(*) from tTaskList group by tDone"), "0|4\n1|1\n2|1");
    EXPECT_EQ(Rows("select count(*) from tTaskList where taskTime='2003-01-31 00:00:00'"), "2");
}

TEST_F(GenerateTaskListTest, AConnectionThatTheHostLetsGoOfWhileTheQuestionStandsIsOpenedAgain) {
    AddDoneItem();
    whileAsked = [this] { database.Close(); };
    EXPECT_EQ(Generate(), Generation::Finished);
    EXPECT_EQ(Dates(), kFourDates);
    EXPECT_EQ(Executor(), "张三");
}

TEST_F(GenerateTaskListTest, AVisitThatIsEnteredWhileTheQuestionStandsStays) {
    AddDoneItem();
    deletesDone = true;
    whileAsked = [this] {
        Sql("insert into tTaskList(fType,TaskID,taskTitle,tDone) values(1,7,'拜访',1)");
    };
    Generate();
    EXPECT_EQ(Rows("select taskTitle,tDone from tTaskList where fType=1"), "拜访|1");
    EXPECT_EQ(Rows("select count(*) from tTaskList where fType=0"), "4");
}

TEST_F(GenerateTaskListTest, NothingIsDeletedWhenTheLookForOtherKindsFails) {
    Sql("insert into tTaskList(fType,TaskID,tDone) values(1,7,0),(0,7,0)");
    statements.failing = "fType<>0";
    EXPECT_THROW(Generate(), RuntimeError);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "2");
}

TEST_F(GenerateTaskListTest, GivesTheSameRowsAgain) {
    const std::string query =
        "select TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone,fType from tTaskList "
        "order by fID";
    Generate();
    const std::string first = Rows(query);
    Generate();
    EXPECT_EQ(Rows(query), first);
}

TEST_F(GenerateTaskListTest, DeletesAndStampsWhenThePlanIsGone) {
    Sql("insert into tTaskList(TaskID,tDone) values(9,0)");
    EXPECT_EQ(Generate("9"), Generation::Finished);
    EXPECT_EQ(
        statements.Take(),
        (Lines{"select count(*) from tTaskList Where taskID =9 And fType<>0",
               "select * from tTaskList where taskID =9 And tDone=1",
               "delete from tTaskList where taskID =9", "select * from tTaskSet where taskID=9",
               "Update tTaskSet Set DoneMan='张三' where taskID=9"}));
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
    EXPECT_EQ(Executor(), "王五");
}

TEST_F(GenerateTaskListTest, WritesNothingForAnUnknownKind) {
    SetPlan("CircleType=5");
    EXPECT_EQ(Generate(), Generation::Finished);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
    EXPECT_EQ(Executor(), "张三");
}

TEST_F(GenerateTaskListTest, SaysItIsDoneWhenNoDateFallsIntoThePlan) {
    SetPlan("tEnd='2003-01-30 00:00:00'");
    EXPECT_EQ(Generate(), Generation::Finished);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
    EXPECT_EQ(Executor(), "张三");
}

TEST_F(GenerateTaskListTest, KeepsTheRowsBeforeAFailureAndDoesNotStamp) {
    for (int row = 1; row <= 4; row++) {
        statements.FailRow(row);
        try {
            Generate();
            ADD_FAILURE() << "no error at row " << row;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Text(), "disk full");
        }
        EXPECT_EQ(Rows("select count(*) from tTaskList"), std::to_string(row - 1));
        EXPECT_EQ(Executor(), "王五");
    }
    Generate();
    EXPECT_EQ(Dates(), kFourDates);
}

TEST_F(GenerateTaskListTest, EndsWithAnOverflowWhenTheCounterDoes) {
    // No round is on or after the begin, so the counter runs through without a row.
    SetPlan(
        "CircleType=0,CircleValue=0,taskMonth=1,taskday=1,tbegin='2003-06-01 00:00:00',"
        "tEnd='2003-12-31 00:00:00'");
    try {
        Generate();
        ADD_FAILURE() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    }
    EXPECT_EQ(Executor(), "王五");
}

TEST_F(GenerateTaskListTest, ReportsItsProgress) {
    std::vector<int> rows;
    double last = -1;
    progress = [&](int written, double part) {
        rows.push_back(written);
        EXPECT_GT(part, last);
        EXPECT_LE(part, 1.0);
        last = part;
    };
    Generate();
    EXPECT_EQ(rows, (std::vector<int>{0, 1, 2, 3}));
}

TEST_F(GenerateTaskListTest, ReadsADateOfAPlanWhateverItsTime) {
    SetPlan("CircleType=2,tbegin='2003-01-01 10:30:00',tEnd='2003-01-02 10:30:00',Type=3");
    Generate();
    EXPECT_EQ(Rows("select taskTime,tDuring1,tDuring2 from tTaskList order by fID"),
              "2003-01-01 10:30:00|2002-12-30 10:30:00|2003-01-03 10:30:00\n"
              "2003-01-02 10:30:00|2002-12-31 10:30:00|2003-01-04 10:30:00");
}

// Any plan: a second run gives the rows of the first, and done rows stay as they are when the user
// answers No.
TEST_F(GenerateTaskListTest, RepeatsItselfForAnyPlanAndKeepsWhatIsDone) {
    std::mt19937 random(20030307);
    const auto number = [&](int first, int last) {
        return std::uniform_int_distribution<int>(first, last)(random);
    };
    const std::string undone =
        "select taskTime,tDuring1,tDuring2,taskTitle,fContent from tTaskList where tDone=0 "
        "order by fID";
    for (int i = 0; i < 40; i++) {
        const DateTime begin = DateTime(2003, 1, 1).AddDays(number(0, 800));
        const DateTime end = begin.AddDays(number(0, 200));
        SetPlan("CircleType=" + std::to_string(number(0, 3)) + ",CircleValue=" +
                std::to_string(number(1, 20)) + ",taskMonth=" + std::to_string(number(1, 12)) +
                ",taskday=" + std::to_string(number(1, 31)) + ",TaskWeek=" +
                std::to_string(number(0, 6)) + ",Type=" + std::to_string(number(0, 4)) +
                ",TypeValue=" + std::to_string(number(0, 99)) + ",tbegin='" + begin.IsoDateTime() +
                "',tEnd='" + end.IsoDateTime() + "'");
        Sql("delete from tTaskList");
        Generate();
        const std::string first = Rows(undone);
        Generate();
        ASSERT_EQ(Rows(undone), first) << i;
        if (first.empty()) continue;

        Sql("update tTaskList set tDone=1,tDoneMan='x' where fID=(select min(fID) from tTaskList)");
        const std::string done = Rows("select * from tTaskList where tDone=1");
        deletesDone = false;
        Generate();
        ASSERT_EQ(Rows("select * from tTaskList where tDone=1"), done) << i;
        ASSERT_EQ(Rows(undone), first) << i;
    }
}

TEST_F(GenerateTaskListTest, SaysThatThePlanWentWhileTheQuestionStood) {
    AddDoneItem();
    whileAsked = [this] { Sql("delete from tTaskSet"); };
    EXPECT_EQ(Generate(), Generation::PlanIsGone);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
}

TEST_F(GenerateTaskListTest, TakesANameWithAnApostropheIntoNoStatement) {
    user = "O'Neil";
    EXPECT_EQ(Generate(), Generation::Finished);
    EXPECT_EQ(Executor(), "O'Neil");
    const Lines sent = statements.Take();
    EXPECT_EQ(sent[sent.size() - 2], "select * from tTaskSet where taskID=7");
    EXPECT_EQ(sent.back(), "row");
}

TEST_F(GenerateTaskListTest, AnswersHowManyItemsItWrote) {
    Generate();
    EXPECT_EQ(rowsWritten, 4);
    Generate("9");
    EXPECT_EQ(rowsWritten, 0);
}

class AddTaskInstanceTest : public GenerateTaskListTest {
 protected:
    Instance Add(std::int16_t plan = 7) {
        const InstanceResult result =
            AddTaskInstance(database, plan, date, [this](const std::string& title) {
                titles.push_back(title);
                if (whileAsked) whileAsked();
                return confirmed;
            });
        added = result.added ? std::optional(result.added->row) : std::nullopt;
        return result.outcome;
    }

    const DateTime date{2003, 3, 10};
    bool confirmed = true;
    std::optional<std::int32_t> added;  ///< the number of the item that the last call added
    Lines titles;                       ///< that were asked about
};

constexpr const char* kUndone =
    "select * from tTasklist where taskID =7 And taskTime = #03/10/2003# and tDone=0";

TEST_F(AddTaskInstanceTest, AddsTheItemAfterAsking) {
    EXPECT_EQ(Add(), Instance::IsThere);
    EXPECT_EQ(statements.Take(),
              (Lines{"select * from tTaskSet where taskID =7", kLook, kUndone,
                     // What the question stood long enough for may have changed.
                     "select * from tTaskSet where taskID =7", kLook, kUndone, "row"}));
    EXPECT_EQ(titles, Lines{"报表"});
    EXPECT_EQ(Rows("select TaskID,taskTitle,fContent,taskTime,tDuring1,tDuring2,tDone from "
                   "tTaskList"),
              "7|报表||2003-03-10 00:00:00|2003-03-08 00:00:00|2003-03-10 00:00:00|0");
    EXPECT_EQ(Executor(), "王五");
}

TEST_F(AddTaskInstanceTest, AnswersTheNumberOfTheItemThatItAdded) {
    Add();
    EXPECT_EQ(std::to_string(added.value()), Rows("select fID from tTaskList"));
    Add();
    EXPECT_EQ(added, std::nullopt);
}

TEST_F(AddTaskInstanceTest, AddsNothingWhenTheUserCancels) {
    confirmed = false;
    EXPECT_EQ(Add(), Instance::CalledOff);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
}

TEST_F(AddTaskInstanceTest, AsksNothingWhenAnUndoneItemIsThere) {
    Sql("insert into tTaskList(TaskID,taskTime,tDone) values(7,'2003-03-10 00:00:00',0)");
    EXPECT_EQ(Add(), Instance::IsThere);
    EXPECT_TRUE(titles.empty());
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "1");
}

TEST_F(AddTaskInstanceTest, AddsNoSecondItemWhenOneCameWhileTheQuestionStood) {
    whileAsked = [this] {
        Sql("insert into tTaskList(TaskID,taskTime,tDone) values(7,'2003-03-10 00:00:00',0)");
    };
    EXPECT_EQ(Add(), Instance::IsThere);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "1");
}

TEST_F(AddTaskInstanceTest, AConnectionThatTheHostLetsGoOfWhileTheQuestionStandsIsOpenedAgain) {
    whileAsked = [this] { database.Close(); };
    EXPECT_EQ(Add(), Instance::IsThere);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "1");
}

TEST_F(AddTaskInstanceTest, AddsBesideADoneItem) {
    Sql("insert into tTaskList(TaskID,taskTime,tDone) values(7,'2003-03-10 00:00:00',1)");
    EXPECT_EQ(Add(), Instance::IsThere);
    EXPECT_EQ(Rows("select tDone from tTaskList order by fID"), "1\n0");
}

TEST_F(AddTaskInstanceTest, AsksNothingOfAMissingPlan) {
    EXPECT_EQ(Add(9), Instance::PlanIsGone);
    EXPECT_TRUE(titles.empty());
    EXPECT_EQ(statements.Take(), Lines{"select * from tTaskSet where taskID =9"});
}

TEST_F(AddTaskInstanceTest, SaysThatThePlanWentWhileTheQuestionStood) {
    whileAsked = [this] { Sql("delete from tTaskSet"); };
    EXPECT_EQ(Add(), Instance::PlanIsGone);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
}

TEST_F(AddTaskInstanceTest, WritesServerDatesBetweenQuotes) {
    database.EnsureConnection();
    database.SetDateDelimiter('\'');
    confirmed = false;
    Add();
    EXPECT_EQ(statements.Take()[2],
              "select * from tTasklist where taskID =7 And taskTime = '03/10/2003' and tDone=0");
}

TEST_F(AddTaskInstanceTest, LeavesTheWindowEmptyForASideThatIsNone) {
    SetPlan("Type=9");
    EXPECT_EQ(Add(), Instance::IsThere);
    EXPECT_EQ(Rows("select count(*),count(tDuring1),count(tDuring2) from tTaskList"), "1|0|0");
}

}  // namespace
}  // namespace zv::plans
