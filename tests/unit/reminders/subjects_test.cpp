// The items that a look reads, on every engine.
#include "reminders/subjects.h"

#include <set>

#include "watched_database.h"

namespace zv::reminders {
namespace {

const DateTime kNow(2003, 3, 7, 9, 30);
const DateTime kFirstLook(2003, 3, 1, 8, 0, 0);

class SubjectsTest : public store::WatchedDatabaseTest {
 protected:
    void SetUp() override {
        WatchedDatabaseTest::SetUp();
        database_.EnsureConnection();
    }
    /// `values`: taskTime, tDuring1, tDuring2, tDone, then the columns named.
    void Add(const std::string& title, const std::string& values, const std::string& columns = {}) {
        Execute("insert into tTaskList(taskTitle,taskTime,tDuring1,tDuring2,tDone" + columns +
                ") values('" + title + "'," + values + ")");
    }
    void AddOn(const std::string& title, const std::string& day, int state = 0) {
        const std::string moment = "'" + day + " 00:00:00'";
        Add(title, moment + "," + moment + "," + moment + "," + std::to_string(state));
    }
    std::set<std::string> Titles(DateTime now = kNow, DateTime firstLook = kFirstLook) {
        std::set<std::string> titles;
        for (const Subject& subject : ReadSubjects(database_, now, firstLook)) {
            titles.insert(subject.title);
        }
        return titles;
    }
};

ZV_ON_EVERY_ENGINE(SubjectsTest);

TEST_P(SubjectsTest, ReachFromTheFirstLookToTheEndOfToday) {
    AddOn("before", "2003-02-28");
    AddOn("first", "2003-03-01");
    Add("tonight", "'2003-03-07 23:59:59','2003-03-07 23:59:59','2003-03-07 23:59:59',0");
    AddOn("tomorrow", "2003-03-08");
    EXPECT_EQ(Titles(), (std::set<std::string>{"first", "tonight"}));
}

TEST_P(SubjectsTest, AreNotDone) {
    AddOn("open", "2003-03-05", 0);
    AddOn("done", "2003-03-05", 1);
    AddOn("in hand", "2003-03-05", 2);
    EXPECT_EQ(Titles(), (std::set<std::string>{"in hand", "open"}));
}

TEST_P(SubjectsTest, AWindowWithoutABeginningRemindsOfNothing) {
    Add("empty", "'2003-03-05 00:00:00',null,null,0");
    EXPECT_TRUE(Titles().empty());
}

TEST_P(SubjectsTest, CarryWhatTheItemSays) {
    Add("t", "'2003-03-06 10:00:00','2003-03-05 00:00:00','2003-03-09 00:00:00',2,'甲','乙','丙',1",
        ",tDoneMan,fUser,fGuest,fType");
    const auto subjects = ReadSubjects(database_, kNow, kFirstLook);
    ASSERT_EQ(subjects.size(), 1u);
    const Subject& subject = subjects[0];
    EXPECT_GT(subject.item, 0);
    EXPECT_EQ(subject.plan, 0);
    EXPECT_EQ(subject.kind, items::ItemKind::Guest);
    EXPECT_EQ(subject.state, items::ItemState::InHand);
    EXPECT_EQ(subject.guest, "丙");
    EXPECT_EQ(subject.date, DateTime(2003, 3, 6, 10, 0, 0));
    EXPECT_EQ(subject.from, DateTime(2003, 3, 5));
    EXPECT_EQ(subject.people.doer, "甲");
    EXPECT_EQ(subject.people.setter, "乙");
}

TEST_P(SubjectsTest, TakeThePeopleOfThePlanThatMadeThem) {
    Execute("insert into tTaskSet(TaskID,taskTitle,SetMan,DoneMan) values(7,'p','甲','乙')");
    Add("task", "'2003-03-06','2003-03-06','2003-03-06',0,7,0", ",TaskID,fType");
    Add("visit", "'2003-03-06','2003-03-06','2003-03-06',0,7,1", ",TaskID,fType");
    Add("free", "'2003-03-06','2003-03-06','2003-03-06',0,8,0", ",TaskID,fType");
    for (const Subject& subject : ReadSubjects(database_, kNow, kFirstLook)) {
        const bool ofPlan = subject.title == "task";
        EXPECT_EQ(subject.plan, ofPlan ? 7 : 0) << subject.title;
        EXPECT_EQ(subject.people.planSetter, ofPlan ? "甲" : "") << subject.title;
        EXPECT_EQ(subject.people.planDoer, ofPlan ? "乙" : "") << subject.title;
    }
    EXPECT_EQ(Titles(), (std::set<std::string>{"free", "task", "visit"}));
}

TEST_P(SubjectsTest, AKindOrAStateThatThereIsNotRemindsOfNothing) {
    Add("kind", "'2003-03-06','2003-03-06','2003-03-06',0,9", ",fType");
    Add("state", "'2003-03-06','2003-03-06','2003-03-06',7,0", ",fType");
    Add("sound", "'2003-03-06','2003-03-06','2003-03-06',0,0", ",fType");
    EXPECT_EQ(Titles(), (std::set<std::string>{"sound"}));
}

TEST_P(SubjectsTest, AreReadOnTheLastDayOfTheCalendar) {
    Add("late", "'9999-12-31 23:00:00','9999-12-31 23:00:00','9999-12-31 23:00:00',0");
    EXPECT_EQ(Titles(DateTime(9999, 12, 31, 12, 0, 0)), (std::set<std::string>{"late"}));
}

TEST_P(SubjectsTest, AreReadWithOneStatement) {
    log_.lines.clear();
    Titles();
    EXPECT_EQ(log_.lines.size(), 1u);
}

TEST_P(SubjectsTest, CountsWhatWasOverdueBeforeTheFirstLook) {
    AddOn("old", "2003-02-28");
    AddOn("done", "2003-02-28", 1);
    AddOn("new", "2003-03-01");
    EXPECT_EQ(CountOld(database_, kFirstLook, std::nullopt), 1);
}

TEST_P(SubjectsTest, CountsOfTheOldWhatConcernsTheUser) {
    Execute("insert into tTaskSet(TaskID,taskTitle,SetMan,DoneMan) values(7,'p','O''Brien','乙')");
    const std::string old = "'2003-02-28','2003-02-28','2003-02-28',0";
    Add("plan", old + ",7,0,null,''", ",TaskID,fType,tDoneMan,fUser");
    Add("visit to the card of that number", old + ",7,1,'甲',null", ",TaskID,fType,tDoneMan,fUser");
    Add("setter", old + ",0,0,'甲','乙'", ",TaskID,fType,tDoneMan,fUser");
    Add("nobody", old + ",0,0,'',null", ",TaskID,fType,tDoneMan,fUser");
    Add("visit that names nobody", old + ",7,1,'',null", ",TaskID,fType,tDoneMan,fUser");
    EXPECT_EQ(CountOld(database_, kFirstLook, "乙"), 4);
    EXPECT_EQ(CountOld(database_, kFirstLook, "甲"), 4);
    EXPECT_EQ(CountOld(database_, kFirstLook, "O'Brien"), 3);
    EXPECT_EQ(CountOld(database_, kFirstLook, "丁"), 2);
    EXPECT_EQ(CountOld(database_, kFirstLook, ""), 2);
    EXPECT_EQ(CountOld(database_, kFirstLook, std::nullopt), 5);
}

TEST(SubjectStatement, IsWrittenInTheDialectOfTheDatabase) {
    const auto literal = [](DateTime date) { return "#" + date.UsDate() + "#"; };
    EXPECT_EQ(SubjectStatement(kNow, kFirstLook, literal),
              "select a.fID,a.fType,a.taskTitle,a.fGuest,a.taskTime,a.tDuring1,a.tDone,"
              "a.tDoneMan,a.fUser,b.TaskID as fPlan,b.DoneMan,b.SetMan from tTaskList a Left Join "
              "tTaskSet b on a.TaskID=b.TaskID Where a.fID in (select c.fID from tTaskList c Where "
              "c.tDone<>1 And c.tDuring1<#03/08/2003# And c.tDuring2>=#03/01/2003#)");
    EXPECT_EQ(OldStatement(kFirstLook, std::nullopt, literal),
              "select count(*) from tTaskList a Left Join tTaskSet b on a.TaskID=b.TaskID Where "
              "a.tDone<>1 And a.taskTime<#03/01/2003#");
}

}  // namespace
}  // namespace zv::reminders
