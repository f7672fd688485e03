// What a file may have beside the tables of the system: made, looked over, left alone.
#include <algorithm>

#include "base/text.h"
#include "scratch.h"
#include "store/engines/engines.h"
#include "zvdb/engine.h"
#include "zvdb/side_tables.h"

namespace zv::zvdb {
namespace {

class ZvdbUpgrade : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "200", "--cards", "9"}).status, 0);
    }
    Outcome Upgrade(const std::vector<std::string>& options = {}) {
        std::vector<std::string> arguments = {"upgrade", Path("a.db")};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return RunZvdb(arguments);
    }
    void Change(const std::string& sql) { Engine(Path("a.db")).Run(sql); }
    std::string Text(const std::string& sql) { return Engine(Path("a.db")).Text(sql); }
    void ExpectRefused(const Outcome& outcome, const std::string& reason) {
        EXPECT_EQ(outcome.status, 2) << outcome.out;
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find(reason), std::string::npos) << outcome.err;
    }
    void ExpectWrong(const std::string& sentence) {
        const Outcome check = RunZvdb({"check", Path("a.db")});
        EXPECT_EQ(check.status, 1) << check.out << check.err;
        EXPECT_NE(check.out.find("wrong: " + sentence + '\n'), std::string::npos)
            << "expected: " << sentence << "\n"
            << check.out;
    }
    /// Definitions and rows of the tables of the system.
    std::string SystemTablesAsTheyAre() {
        Engine engine(Path("a.db"));
        std::string all;
        for (const char* table : {"tTaskSet", "tTaskList", "cards", "tRsBasic", "Employees",
                                  "rptListDetail", "tSysFunc"}) {
            all += engine.Text(std::string("select sql from sqlite_master where name='") + table +
                               "'") +
                   "\n";
            Statement rows(engine, std::string("select rowid,* from ") + table + " order by rowid");
            while (rows.Step()) {
                for (int i = 0; i < rows.ColumnCount(); ++i) all += rows.Text(i) + "|";
            }
        }
        return all;
    }
};

TEST_F(ZvdbUpgrade, MakesWhatIsMissingAndSaysWhat) {
    const std::string before = SystemTablesAsTheyAre();
    const Outcome upgrade = Upgrade();
    EXPECT_EQ(upgrade.status, 0) << upgrade.err;
    EXPECT_EQ(upgrade.out, kSideTablesMade);
    EXPECT_EQ(Text("select fValue from zvMeta where fName='version'"), "1");
    EXPECT_EQ(Text("select count(*) from zvMeta"), "1");
    EXPECT_EQ(SystemTablesAsTheyAre(), before);
    const Outcome check = RunZvdb({"check", Path("a.db")});
    EXPECT_EQ(check.status, 0) << check.out;
    EXPECT_NE(check.out.find("zvMeta                 1\nzvReminder             0\n"
                             "zvHistory              0\n"),
              std::string::npos)
        << check.out;
    EXPECT_EQ(Files(), std::vector<std::string>{"a.db"});
}

TEST_F(ZvdbUpgrade, ASecondRunHasNothingToDo) {
    ASSERT_EQ(Upgrade().status, 0);
    Change("insert into zvReminder(fUser,fItem) values('me',7)");
    const std::string before = Read("a.db");
    for (const std::vector<std::string>& options : {std::vector<std::string>{}, {"--dry-run"}}) {
        const Outcome again = Upgrade(options);
        EXPECT_EQ(again.status, 0) << again.err;
        EXPECT_EQ(again.out, "nothing to do\n");
    }
    EXPECT_TRUE(Read("a.db") == before);
}

TEST_F(ZvdbUpgrade, ADryRunSaysTheSameAndChangesNoByte) {
    for (const char* mode : {"wal", "rollback"}) {
        ASSERT_EQ(RunZvdb({"mode", Path("a.db"), mode}).status, 0);
        const std::string before = Read("a.db");
        const Outcome dry = Upgrade({"--dry-run"});
        EXPECT_EQ(dry.status, 0) << dry.err;
        EXPECT_EQ(text::Replace(dry.out, "would make", "made"), kSideTablesMade);
        EXPECT_TRUE(Read("a.db") == before);
        EXPECT_EQ(Files(), std::vector<std::string>{"a.db"});
    }
}

TEST_F(ZvdbUpgrade, ADryRunLeavesTheLogThatAProgramLeft) {
    std::filesystem::create_directory(File("crashed"));
    {
        Engine program(Path("a.db"));
        program.Run("begin; select count(*) from tTaskList");
        Change("update tTaskList set taskTitle='only in the log' where fID=1");
        for (const char* name : {"a.db", "a.db-wal"}) {
            std::filesystem::copy_file(File(name), File("crashed") / name);
        }
    }
    const std::string file = Read("crashed/a.db");
    const std::string log = Read("crashed/a.db-wal");
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(RunZvdb({"upgrade", Path("crashed/a.db"), "--dry-run"}).status, 0);
    EXPECT_TRUE(Read("crashed/a.db") == file);
    EXPECT_TRUE(Read("crashed/a.db-wal") == log);
    EXPECT_EQ(RunZvdb({"upgrade", Path("crashed/a.db")}).out, kSideTablesMade);
    EXPECT_EQ(Engine(Path("crashed/a.db")).Text("select taskTitle from tTaskList where fID=1"),
              "only in the log");
}

TEST_F(ZvdbUpgrade, EachPartThatIsMissingIsMadeByItself) {
    ASSERT_EQ(Upgrade().status, 0);
    struct Part {
        const char* drop;
        const char* called;
    };
    for (const Part& part : {Part{"drop index zvReminder_item", "index zvReminder_item"},
                             {"drop index zvHistory_row", "index zvHistory_row"},
                             {"drop index zvHistory_when", "index zvHistory_when"},
                             {"drop index tTaskList_due", "index tTaskList_due"},
                             {"delete from zvMeta", "version 1"},
                             {"drop table zvMeta", "table zvMeta"},
                             {"drop table zvReminder", "table zvReminder"},
                             {"drop table zvHistory", "table zvHistory"}}) {
        SCOPED_TRACE(part.drop);
        Change(part.drop);
        ExpectWrong(std::string(part.called) +
                    " is missing beside the other side tables (zvdb upgrade makes it)");
        const Outcome upgrade = Upgrade();
        EXPECT_EQ(upgrade.status, 0) << upgrade.err;
        EXPECT_EQ(upgrade.out.find(std::string("made ") + part.called + '\n'), 0U) << upgrade.out;
        EXPECT_EQ(RunZvdb({"check", Path("a.db")}).status, 0);
    }
}

TEST_F(ZvdbUpgrade, TheVersionOfANewerProgramIsLeftAlone) {
    ASSERT_EQ(Upgrade().status, 0);
    struct Version {
        const char* value;
        const char* sentence;
    };
    for (const Version& version :
         {Version{"'2'", "its side tables are of version 2, newer than version 1 of this program"},
          {"'10'", "its side tables are of version 10, newer than version 1 of this program"},
          {"'0'", "its side tables are of an unknown version: \"0\""},
          {"'2x'", "its side tables are of an unknown version: \"2x\""},
          {"null", "its side tables are of an unknown version: \"\""}}) {
        // Parts of it may be made in another way, or not be there.
        Change(std::string("update zvMeta set fValue=") + version.value +
               "; drop index if exists zvHistory_when; drop index if exists zvHistory_row;"
               "create index zvHistory_row on zvHistory(fRow)");
        const std::string before = Read("a.db");
        for (const std::vector<std::string>& options :
             {std::vector<std::string>{}, {"--dry-run"}}) {
            ExpectRefused(Upgrade(options), version.sentence);
        }
        EXPECT_TRUE(Read("a.db") == before);
        ExpectWrong(version.sentence);
        EXPECT_EQ(RunZvdb({"check", Path("a.db")}).out.find("zvHistory_"), std::string::npos);
    }
}

TEST_F(ZvdbUpgrade, WhatIsOfAnotherMakingIsToldAndLeftAlone) {
    ASSERT_EQ(Upgrade().status, 0);
    struct Case {
        const char* change;
        const char* sentence;
    };
    const std::string due =
        "ttasklist(tdone,tduring1) where tdone is not null and tduring1 is not null";
    for (const Case& given :
         {Case{"alter table zvReminder rename column fPlan to fPlanNumber",
               "column zvReminder.fPlan is missing"},
          {"alter table zvMeta rename column fValue to fText", "column zvMeta.fValue is missing"},
          {"on tTaskList(tDuring1,tDone)", "ttasklist(tduring1,tdone)"},
          {"on tTaskList(tDone,tDuring1)", "ttasklist(tdone,tduring1)"},
          {"on tTaskList(tDone,tDuring1 desc) where tDone is  not null and tDuring1 is not null",
           "ttasklist(tdone,tduring1) where tdone is not null and tduring1 is not null otherwise"},
          {"on tTaskList(tDone,tDuring1) where tDone=0", "ttasklist(tdone,tduring1) where tdone=0"},
          {"on cards(BoxID)", "cards(boxid)"},
          {"on tTaskList(tDone,tDuring1||'')", "ttasklist(tdone,) otherwise"},
          {"drop index zvReminder_item; create index zvReminder_item on "
           "zvReminder(fUser,fPlan,fItem,fDate)",
           "index zvReminder_item is made as zvreminder(fuser,fplan,fitem,fdate), not as unique "
           "zvreminder(fuser,fplan,fitem,fdate)"},
          {"drop index zvReminder_item; create unique index zvReminder_item on "
           "zvReminder(fUser collate binary,fPlan,fItem,fDate)",
           "index zvReminder_item is made as unique zvreminder(fuser,fplan,fitem,fdate) otherwise, "
           "not as unique zvreminder(fuser,fplan,fitem,fdate)"}}) {
        SCOPED_TRACE(given.change);
        std::string change = given.change;
        std::string sentence = given.sentence;
        if (change.starts_with("on ")) {
            change = "drop index tTaskList_due; create index tTaskList_due " + change;
            sentence = "index tTaskList_due is made as " + sentence + ", not as " + due;
        }
        ASSERT_EQ(
            RunZvdb({"sample", Path("a.db"), "--items", "30", "--side-tables", "--force"}).status,
            0);
        Change(change);
        ExpectWrong(sentence);
        const std::string before = Read("a.db");
        ExpectRefused(Upgrade(), sentence);
        EXPECT_TRUE(Read("a.db") == before);
    }
}

TEST_F(ZvdbUpgrade, WhatIsNoDatabaseOfTheSystemIsRefused) {
    ExpectRefused(RunZvdb({"upgrade", Path("b.db")}), "there is no such file");
    Write("b.db", "");
    ExpectRefused(RunZvdb({"upgrade", Path("b.db")}), "the file is empty");
    Write("b.db", std::string(5000, 'x'));
    ExpectRefused(RunZvdb({"upgrade", Path("b.db")}), "not an embedded database");
    Write("b.db", Read("a.db").substr(0, 9000));
    ExpectRefused(RunZvdb({"upgrade", Path("b.db")}), "the file is cut short");
    ExpectRefused(RunZvdb({"upgrade", "Driver=x;Server=db"}), "--to stands in front of a server");
    using namespace std::string_literals;
    Write("c.mdb", "\0\1\0\0Standard Jet DB\0"s + std::string(5000, '\0'));
    ExpectRefused(RunZvdb({"upgrade", Path("c.mdb")}), "Access files are read, not written");
    Change("drop table tRsBasic");
    const std::string before = Read("a.db");
    ExpectRefused(Upgrade(), "table tRsBasic is missing");
    EXPECT_TRUE(Read("a.db") == before);
}

TEST_F(ZvdbUpgrade, ADamagedFileIsLeftAlone) {
    ASSERT_EQ(RunZvdb({"mode", Path("a.db"), "rollback"}).status, 0);
    const std::int64_t page = Engine(Path("a.db"))
                                  .Number(
                                      "select rootpage from sqlite_master where "
                                      "name='cards_name'");
    std::string bytes = Read("a.db");
    bytes.replace(static_cast<std::size_t>(page - 1) * 4096 + 3790, 300, 300, '!');
    Write("a.db", bytes);
    ExpectRefused(Upgrade(), "damaged file: ");
    EXPECT_TRUE(Read("a.db") == bytes);
}

TEST_F(ZvdbUpgrade, AProgramThatWritesKeepsItFromBeginning) {
    Engine program(Path("a.db"));
    program.Run("begin immediate; update tTaskList set tDone=1");
    ExpectRefused(Upgrade(), "another program has the file open");
    program.Run("rollback");
    EXPECT_EQ(program.Number("select count(*) from sqlite_master where name like 'zv%'"), 0);
    // One that has it open and reads is not in the way, and finds the tables.
    program.Run("begin; select count(*) from tTaskList");
    EXPECT_EQ(Upgrade().out, kSideTablesMade);
    program.Run("commit; insert into zvReminder(fUser) values('x')");
}

TEST_F(ZvdbUpgrade, WhatIsInTheWayOfThePartsLeavesNothingHalf) {
    Change("create view zvHistory_when as select 1 as n");
    const std::string before = SystemTablesAsTheyAre();
    ExpectRefused(Upgrade(), "zvHistory_when");
    EXPECT_EQ(Text("select count(*) from sqlite_master where name like 'zv%' and type<>'view' or "
                   "name='tTaskList_due'"),
              "0");
    EXPECT_EQ(SystemTablesAsTheyAre(), before);
    Change("drop view zvHistory_when");
    EXPECT_EQ(Upgrade().out, kSideTablesMade);
}

std::string PlanOf(const std::string& file, const std::string& sql) {
    Engine engine(file);
    Statement plan(engine, "explain query plan " + sql);
    std::string all;
    while (plan.Step()) all += plan.Text(3) + '\n';
    return all;
}

TEST_F(ZvdbUpgrade, WhatIsDueIsFoundByTheIndex) {
    ASSERT_EQ(Upgrade().status, 0);
    for (const char* state : {"tDone=0", "tDone in (0,2)"}) {
        const std::string plan =
            PlanOf(Path("a.db"), std::string("select fID from tTaskList where ") + state +
                                     " and tDuring1<='2003-03-07 00:00:00'");
        EXPECT_NE(plan.find("tTaskList_due (tDone=? AND tDuring1<?)"), std::string::npos) << plan;
    }
}

TEST_F(ZvdbUpgrade, WhatTheWindowsAskIsAnsweredTheWayItWas) {
    ASSERT_EQ(RunZvdb({"sample", Path("b.db"), "--items", "200", "--cards", "9"}).status, 0);
    ASSERT_EQ(Upgrade().status, 0);
    for (const char* sql :
         {"select * from tTaskList where taskID=7 and tDone=1",
          "select * from tTaskList where taskID=7 and taskTime='2003-03-07 00:00:00' and tDone=0",
          "delete from tTaskList where taskID=8 and tDone=0",
          "select count(*) from tTaskList where tDone=1",
          "select * from tTaskList where tDone=1 order by taskTime desc,taskTitle",
          "select fID,fType,taskTime,taskTitle,tDone,TaskID from tTaskList where "
          "tDuring1<='2003-03-08 00:00:00' order by fType,taskTime desc,taskTitle",
          "select tDoneMan,count(*) from tTaskList where tDone<>1 and "
          "taskTime<'2003-03-07 00:00:00' group by tDoneMan"}) {
        EXPECT_EQ(PlanOf(Path("a.db"), sql), PlanOf(Path("b.db"), sql)) << sql;
    }
}

TEST_F(ZvdbUpgrade, TextsOfTheSideTablesCompareLikeThoseOfTheOthers) {
    ASSERT_EQ(Upgrade().status, 0);
    Change(
        "insert into zvReminder(fUser,fPlan,fItem,fDate) values('Me',0,1,'2003-03-07 00:00:00')");
    EXPECT_EQ(Text("select count(*) from zvReminder where fUser='ME'"), "1");
    EXPECT_THROW(Change("insert into zvReminder(fUser,fPlan,fItem,fDate) "
                        "values('ME',0,1,'2003-03-07 00:00:00')"),
                 EngineError);
    Change("insert into zvHistory(fWho,fTable,fField,fOld,fNew) values('a','b','c','d','e')");
    EXPECT_EQ(Text("select count(*) from zvHistory where fWho='A' and fTable='B' and fField='C' "
                   "and fOld='D' and fNew='E'"),
              "1");
    EXPECT_THROW(Change("insert into zvMeta(fName) values('VERSION')"), EngineError);
    EXPECT_EQ(Text("select group_concat(fPlan||','||fItem||','||fState) from zvReminder"), "0,1,0");
}

using ZvdbSideTables = Scratch;

TEST_F(ZvdbSideTables, AreMadeWithADatabaseWhereTheyAreAskedFor) {
    for (const char* command : {"create", "sample"}) {
        const std::string with = Path(std::string(command) + "-with.db");
        const std::string plain = Path(std::string(command) + ".db");
        ASSERT_EQ(RunZvdb({command, with, "--side-tables"}).status, 0);
        EXPECT_EQ(RunZvdb({"upgrade", with}).out, "nothing to do\n");
        EXPECT_EQ(RunZvdb({"check", with}).status, 0);
        ASSERT_EQ(RunZvdb({command, plain}).status, 0);
        const auto made = [](const std::string& file) {
            return Engine(file).Number(
                "select count(*) from sqlite_master where name like 'zv%' "
                "or name='tTaskList_due'");
        };
        EXPECT_EQ(made(plain), 0);
        EXPECT_GT(made(with), 6);
        // What an upgrade makes is what is made with a new database.
        ASSERT_EQ(RunZvdb({"upgrade", plain}).status, 0);
        const std::string making =
            "select group_concat(sql,';') from (select sql from "
            "sqlite_master where name like 'zv%' or name='tTaskList_due' "
            "order by name)";
        EXPECT_EQ(Engine(plain).Text(making), Engine(with).Text(making));
    }
}

TEST_F(ZvdbSideTables, GoWithABackupAndComeBack) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "30", "--side-tables"}).status, 0);
    Engine(Path("a.db")).Run("insert into zvHistory(fWho) values('me')");
    ASSERT_EQ(RunZvdb({"backup", Path("a.db"), Path("b.db")}).status, 0);
    ASSERT_EQ(RunZvdb({"restore", Path("b.db"), Path("c.db")}).status, 0);
    EXPECT_EQ(Engine(Path("c.db")).Text("select fWho from zvHistory"), "me");
    EXPECT_EQ(RunZvdb({"mode", Path("c.db"), "rollback"}).status, 0);
    EXPECT_EQ(RunZvdb({"upgrade", Path("c.db")}).out, "nothing to do\n");
}

TEST(SidePartsTest, AreTheSameOnEveryEngine) {
    const auto described = [](std::string_view script) {
        std::string all;
        for (const SidePart& part : SideParts(script)) {
            // Only the embedded engine needs a condition.
            all += part.Called() + " " + part.making.substr(0, part.making.find(" where")) + "\n";
        }
        return all;
    };
    const std::string embedded = described(store::engines::Of("sqlite").sideTables);
    EXPECT_EQ(std::ranges::count(embedded, '\n'), 8);
    for (const store::engines::Engine& engine : store::engines::All()) {
        EXPECT_EQ(described(engine.sideTables), embedded) << engine.folder;
        for (const SidePart& part : SideParts(engine.sideTables)) {
            EXPECT_EQ(part.statement.find("--"), std::string::npos) << part.statement;
        }
    }
    EXPECT_TRUE(SideParts("-- nothing;\n").empty());
}

}  // namespace
}  // namespace zv::zvdb
