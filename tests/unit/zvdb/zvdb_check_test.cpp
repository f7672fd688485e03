// The check finds every defect that is planted.
#include "scratch.h"
#include "zvdb/engine.h"

namespace zv::zvdb {
namespace {

class ZvdbCheck : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "60", "--cards", "9"}).status, 0);
    }
    void Plant(const std::string& sql) { Engine(Path("a.db")).Run(sql); }
    void ExpectWrong(const std::string& sentence) {
        const Outcome check = RunZvdb({"check", Path("a.db")});
        EXPECT_EQ(check.status, 1) << check.out << check.err;
        EXPECT_NE(check.out.find("wrong: " + sentence), std::string::npos)
            << "expected: " << sentence << "\n"
            << check.out;
    }
    void ExpectRefused(const std::string& file, const std::string& sentence) {
        const Outcome check = RunZvdb({"check", Path(file)});
        EXPECT_EQ(check.status, 2) << check.out;
        EXPECT_NE(check.err.find(sentence), std::string::npos) << check.err;
    }
    std::string Key(const std::string& sql) { return Engine(Path("a.db")).Text(sql); }
};

TEST_F(ZvdbCheck, MissingFile) {
    ExpectRefused("b.db", "no such file");
}

TEST_F(ZvdbCheck, EmptyFile) {
    Write("b.db", "");
    ExpectRefused("b.db", "empty");
}

TEST_F(ZvdbCheck, ForeignFile) {
    Write("b.db", std::string(5000, 'x'));
    ExpectRefused("b.db", "not an embedded database");
    Write("c.db", "SQ");
    ExpectRefused("c.db", "cut short");
}

TEST_F(ZvdbCheck, TruncatedFile) {
    const std::string whole = Read("a.db");
    Write("b.db", whole.substr(0, whole.size() / 2));
    ExpectRefused("b.db", "cut short");
    Write("c.db", whole.substr(0, 50));
    ExpectRefused("c.db", "cut short");
}

TEST_F(ZvdbCheck, AFileThatItsJournalMakesWholeIsNotCutShort) {
    ASSERT_EQ(RunZvdb({"mode", Path("a.db"), "rollback"}).status, 0);
    {
        Engine writer(Path("a.db"));
        // With so little room the change goes into the file before it is committed.
        writer.Run(
            "pragma cache_size=5; begin; insert into cards(CompName) select"
            " printf('%2000c','x') from tTaskList");
        std::string half = Read("a.db");
        Write("b.db-journal", Read("a.db-journal"));
        constexpr std::size_t kPages = 28;  // of the head: how many the file has
        half[kPages + 1] = '\x01';
        Write("b.db", half);
    }
    const Outcome check = RunZvdb({"check", Path("b.db")});
    EXPECT_EQ(check.status, 0) << check.out << check.err;
}
TEST_F(ZvdbCheck, LockedFile) {
    Engine other(Path("a.db"));
    other.Run("pragma locking_mode=exclusive; begin exclusive");
    ExpectRefused("a.db", "locked");
}

TEST_F(ZvdbCheck, FolderInPlaceOfAFile) {
    std::filesystem::create_directory(File("folder"));
    ExpectRefused("folder", "not a file");
}

TEST_F(ZvdbCheck, DamagedPages) {
    std::string bytes = Read("a.db");
    for (std::size_t at = 3 * 4096; at < bytes.size(); at += 4096) bytes.replace(at, 400, 400, '!');
    Write("a.db", bytes);
    ExpectWrong("damaged file: ");
}

TEST_F(ZvdbCheck, LeavesTheFileAsItIs) {
    const std::string before = Read("a.db");
    RunZvdb({"check", Path("a.db")});
    EXPECT_EQ(Read("a.db"), before);
    EXPECT_EQ(Files(), std::vector<std::string>{"a.db"});
}

TEST_F(ZvdbCheck, MissingTable) {
    Plant("drop table tRsBasic");
    ExpectWrong("table tRsBasic is missing");
}

TEST_F(ZvdbCheck, MissingColumn) {
    Plant("alter table cards rename column BoxID to Box");
    ExpectWrong("column cards.BoxID is missing");
}

TEST_F(ZvdbCheck, GuestItemWithoutACard) {
    const std::string key = Key("select min(fID) from tTaskList where fType=1");
    Plant("update tTaskList set TaskID=777 where fID=" + key);
    ExpectWrong("guest items without a card: " + key);
}

TEST_F(ZvdbCheck, GuestItemThatNamesNoCardAtAll) {
    const std::string key = Key("select min(fID) from tTaskList where fType=1");
    Plant("update tTaskList set TaskID=null where fID=" + key);
    ExpectWrong("guest items without a card: " + key);
}

TEST_F(ZvdbCheck, TaskItemWhosePlanIsGone) {
    const std::string key = Key("select min(fID) from tTaskList where fType=0 and TaskID>0");
    Plant("update tTaskList set TaskID=7777 where fID=" + key);
    ExpectWrong("task items whose plan is gone: " + key);
}

TEST_F(ZvdbCheck, TaskThatAUserEnteredWhileACardWasShownIsFine) {
    Plant("delete from tTaskSet where TaskID=9");
    Plant("delete from tTaskList where fType=0 and TaskID=9");
    Plant(
        "update tTaskList set TaskID=9 where fID=(select min(fID) from tTaskList "
        "where fType=0 and fUser<>'')");
    EXPECT_EQ(RunZvdb({"check", Path("a.db")}).status, 0);
}

TEST_F(ZvdbCheck, ItemKindOutOfRange) {
    Plant("update tTaskList set fType=3 where fID=5");
    ExpectWrong("items of an unknown kind (fType 0 to 2): 5");
}

TEST_F(ZvdbCheck, ItemStateOutOfRange) {
    Plant("update tTaskList set tDone=3 where fID=5");
    ExpectWrong("items in an unknown state (tDone 0 to 2): 5");
    Plant("update tTaskList set tDone=null where fID=5");
    ExpectWrong("items in an unknown state (tDone 0 to 2): 5");
}

TEST_F(ZvdbCheck, DatesThatAreNone) {
    for (const char* bad : {"'2003-02-30 00:00:00'", "'soon'", "''", "37687", "null"}) {
        Plant(std::string("update tTaskList set taskTime=") + bad + " where fID=5");
        ExpectWrong("items without a valid date: 5");
    }
    Plant("update cards set Birthday='29.2.1988' where fID=3");
    ExpectWrong("cards whose birthday is not a date: 3");
    Plant("update tTaskList set tDuring1=null where fID=6");
    ExpectWrong("items whose alert window is not made of dates: 6");
}

TEST_F(ZvdbCheck, ReversedAlertWindow) {
    Plant(
        "update tTaskList set tDuring1='2003-03-09 00:00:00',tDuring2='2003-03-08 00:00:00' "
        "where fID=5");
    ExpectWrong("items whose alert window ends before it begins: 5");
}

TEST_F(ZvdbCheck, ManyFindingsAreCountedNotListed) {
    Plant("update tTaskList set taskTitle='' where fID<=50");
    ExpectWrong("items without a title: 1, 2, 3, 4, 5, ... (50 in all)");
}

TEST_F(ZvdbCheck, PlansThatBreakTheRules) {
    struct Case {
        const char* change;
        const char* sentence;
    };
    const Case cases[] = {
        {"taskTitle=' '", "plan 2 has no title"},
        {"taskTitle='一二三四五六七八九十一二三四五六七八九十一二三四五六'",
         "plan 2 has a title of more than 50 bytes"},
        {"SetMan='一二三四五六七八九十一二三四五六七八九十一二三四五六'",
         "plan 2 has a person's name of more than 50 bytes"},
        {"tbegin='2003-05-01 00:00:00',tEnd='2003-04-30 00:00:00'", "plan 2 ends before it begins"},
        {"tbegin='2003-01-01 00:00:00',tEnd='2009-01-01 00:00:00'",
         "plan 2 runs over more than five years"},
        {"tEnd='never'", "plan 2 has no valid first or last day"},
        {"CircleType=4", "plan 2 has no valid kind of recurrence"},
        {"CircleValue=0", "plan 2 has a step"},
        {"CircleValue=1000", "plan 2 has a step"},
        {"Type=0", "plan 2 has no valid alert side"},
        {"TypeValue=100", "plan 2 has an alert width"},
        {"CircleType=0,taskMonth=13", "plan 2 has no valid month"},
        {"CircleType=1,taskday=32", "plan 2 has no valid day of the month"},
        {"CircleType=3,TaskWeek=7", "plan 2 has no valid weekday"},
        {"CircleType=2,CircleValue=3,Type=3,TypeValue=2", "plan 2 has alert windows that overlap"},
        {"CircleType=1,CircleValue=1,Type=1,TypeValue=29", "plan 2 has alert windows that overlap"},
    };
    for (const Case& planted : cases) {
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "60", "--force"}).status, 0);
        Plant(std::string("update tTaskSet set ") + planted.change + " where TaskID=2");
        ExpectWrong(planted.sentence);
    }
}

TEST_F(ZvdbCheck, PlansAtTheLimitsAreFine) {
    Plant(
        "update tTaskSet set taskTitle='一二三四五六七八九十一二三四五六七八九十一二三四五',"
        "tbegin='2003-01-01 00:00:00',tEnd='2008-12-31 00:00:00',CircleType=1,CircleValue=1,"
        "Type=1,TypeValue=28 where TaskID=2");
    Plant("update tTaskSet set CircleType=2,CircleValue=999,TypeValue=99 where TaskID=3");
    const Outcome check = RunZvdb({"check", Path("a.db")});
    EXPECT_EQ(check.status, 0) << check.out;
}

TEST_F(ZvdbCheck, PlanTitleUsedTwice) {
    Plant("update tTaskSet set taskTitle='abc' where TaskID in (2,3)");
    ExpectWrong("plan titles used more than once: abc");
}

TEST_F(ZvdbCheck, CardNumberUsedTwice) {
    Plant("create table others as select * from cards");
    Plant("drop table cards");
    Plant("alter table others rename to cards");
    Plant("update cards set fID=2 where fID=3");
    ExpectWrong("card numbers used more than once: 2");
}

TEST_F(ZvdbCheck, ModuleWithoutAPosition) {
    Plant("update tSysFunc set SerialNo=351 where model_Name='mnuZjComp'");
    ExpectWrong("modules without a position in the rights (SerialNo 1 to 350): mnuZjComp");
}

TEST_F(ZvdbCheck, StaffCodeUsedTwice) {
    Plant("update tRsBasic set fCode='XS001'");
    ExpectWrong("staff codes used more than once: XS001");
}

}  // namespace
}  // namespace zv::zvdb
