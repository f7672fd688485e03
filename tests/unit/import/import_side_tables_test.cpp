// What a file has beside the tables of the system comes over with them.
#include <algorithm>

#include "base/text.h"
#include "scratch.h"
#include "zvdb/engine.h"

namespace zv::zvdb {
namespace {

class ImportSideTables : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "60", "--side-tables"}).status, 0);
        Change(
            "insert into zvReminder(fID,fUser,fPlan,fItem,fDate,fTitle,fUntil,fState) values"
            "(7,'陈',2,0,'2003-03-07 00:00:00','报表',null,2),"
            "(9,'me',0,5,'2003-03-08 00:00:00','t','2003-03-09 08:30:00',1);"
            "insert into zvHistory(fID,fWhen,fWho,fAct,fTable,fRow,fField,fOld,fNew) values"
            "(40,'2003-03-07 "
            "10:00:00','me',2,'tTaskList',5,'taskTitle',null,printf('%9000c','x'))");
    }
    void Change(const std::string& sql, const std::string& file = "a.db") {
        Engine(Path(file)).Run(sql);
    }
    std::int64_t Number(const std::string& sql, const std::string& file = "b.db") {
        return Engine(Path(file)).Number(sql);
    }
    Outcome Import(const std::vector<std::string>& options = {}) {
        std::vector<std::string> arguments = {"import", Path("a.db"), Path("b.db"), "--quiet"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return RunZvdb(arguments);
    }
    std::string RowsBeside(const std::string& file) {
        Engine engine(Path(file));
        std::string all;
        for (const char* table : {"zvReminder", "zvHistory"}) {
            Statement rows(engine, std::string("select * from ") + table + " order by fID");
            while (rows.Step()) {
                for (int i = 0; i < rows.ColumnCount(); ++i) {
                    all += (rows.IsNull(i) ? "NULL" : rows.Text(i)) + "|";
                }
                all += "\n";
            }
        }
        return all;
    }
    /// Tables, indexes and the rows of zvMeta.
    std::string PartsBeside(const std::string& file) {
        Engine engine(Path(file));
        return engine.Text(
            "select group_concat(name) from (select name from sqlite_master where name like "
            "'zv%' or name='tTaskList_due' order by name)");
    }
};

TEST_F(ImportSideTables, ComeOverIntoANewFile) {
    const Outcome import = Import();
    EXPECT_EQ(import.status, 0) << import.out << import.err;
    EXPECT_NE(import.out.find("zvReminder             2\nzvHistory              1\n"),
              std::string::npos)
        << import.out;
    EXPECT_EQ(RowsBeside("b.db"), RowsBeside("a.db"));
    EXPECT_EQ(PartsBeside("b.db"), PartsBeside("a.db"));
    EXPECT_EQ(RunZvdb({"upgrade", Path("b.db")}).out, "nothing to do\n");
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).out, RunZvdb({"check", Path("a.db")}).out);
    Change("insert into zvHistory(fWho) values('next')", "b.db");
    EXPECT_EQ(Number("select max(fID) from zvHistory"), 41);
}

TEST_F(ImportSideTables, ComeOverIntoAFileThatGetsThemThen) {
    ASSERT_EQ(RunZvdb({"create", Path("b.db")}).status, 0);
    const Outcome import = Import();
    EXPECT_EQ(import.status, 0) << import.out << import.err;
    EXPECT_EQ(RowsBeside("b.db"), RowsBeside("a.db"));
    EXPECT_EQ(RunZvdb({"upgrade", Path("b.db")}).out, "nothing to do\n");
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
}

TEST_F(ImportSideTables, OfATargetAreCompletedWhenTheyGetRows) {
    ASSERT_EQ(RunZvdb({"create", Path("b.db"), "--side-tables"}).status, 0);
    Change("drop table zvHistory; drop index tTaskList_due", "b.db");
    EXPECT_EQ(Import().status, 0);
    EXPECT_EQ(RowsBeside("b.db"), RowsBeside("a.db"));
    EXPECT_EQ(RunZvdb({"upgrade", Path("b.db")}).out, "nothing to do\n");
}

TEST_F(ImportSideTables, WithoutThemNothingIsMadeAndNothingSaid) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "60", "--force"}).status, 0);
    const Outcome import = Import();
    EXPECT_EQ(import.status, 0) << import.out;
    for (const char* table : {"zvMeta", "zvReminder", "zvHistory"}) {
        EXPECT_EQ(import.out.find(table), std::string::npos) << import.out;
    }
    EXPECT_EQ(PartsBeside("b.db"), "");
    // Those of the target stay as they are, empty.
    ASSERT_EQ(RunZvdb({"create", Path("b.db"), "--side-tables", "--force"}).status, 0);
    EXPECT_EQ(Import().status, 0);
    EXPECT_EQ(RunZvdb({"upgrade", Path("b.db")}).out, "nothing to do\n");
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
}

TEST_F(ImportSideTables, TheirVersionAloneBringsNothing) {
    Change("drop table zvReminder; drop table zvHistory; drop index tTaskList_due");
    const Outcome import = Import();
    EXPECT_EQ(import.status, 0) << import.out;
    EXPECT_EQ(PartsBeside("b.db"), "");
}

TEST_F(ImportSideTables, OneOfThemComesWithoutTheOther) {
    Change("drop table zvReminder");
    const Outcome import = Import();
    EXPECT_EQ(import.status, 1) << import.out;
    EXPECT_NE(import.out.find("table zvReminder is missing at the source and stays empty"),
              std::string::npos)
        << import.out;
    EXPECT_EQ(Number("select count(*) from zvHistory"), 1);
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
}

TEST_F(ImportSideTables, ADryRunCountsThemAndMakesNothing) {
    ASSERT_EQ(RunZvdb({"create", Path("b.db")}).status, 0);
    const std::string before = Read("b.db");
    const Outcome dry = Import({"--dry-run"});
    EXPECT_EQ(dry.status, 0) << dry.err;
    EXPECT_NE(dry.out.find("zvReminder             2\n"), std::string::npos) << dry.out;
    EXPECT_TRUE(Read("b.db") == before);
}

TEST_F(ImportSideTables, RowsOfATargetAreKeptUnlessTheyAreReplaced) {
    for (const bool brings : {true, false}) {
        SCOPED_TRACE(brings);
        if (!brings) {
            ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "60", "--force"}).status, 0);
        }
        for (const char* table : {"zvReminder", "zvHistory"}) {
            ASSERT_EQ(RunZvdb({"create", Path("b.db"), "--side-tables", "--force"}).status, 0);
            Change(std::string("insert into ") + table + "(fID) values(1)", "b.db");
            const Outcome refused = Import();
            EXPECT_EQ(refused.status, 2) << refused.out;
            EXPECT_NE(refused.err.find(std::string("it is not empty (") + table + " has 1 rows)"),
                      std::string::npos)
                << refused.err;
            EXPECT_EQ(Number(std::string("select count(*) from ") + table), 1);
            EXPECT_EQ(Import({"--replace"}).status, 0);
            EXPECT_EQ(RowsBeside("b.db"), brings ? RowsBeside("a.db") : "");
            EXPECT_EQ(RunZvdb({"upgrade", Path("b.db")}).out, "nothing to do\n");
        }
    }
}

TEST_F(ImportSideTables, OfAnotherMakingAreNotFilled) {
    struct Case {
        const char* change;
        const char* reason;
    };
    for (const Case& each :
         {Case{"alter table zvReminder drop column fTitle", "column zvReminder.fTitle is missing"},
          {"update zvMeta set fValue='2'", "newer than version 1 of this program"}}) {
        ASSERT_EQ(RunZvdb({"create", Path("b.db"), "--side-tables", "--force"}).status, 0);
        Change(each.change, "b.db");
        const std::string before = Read("b.db");
        const Outcome refused = Import();
        EXPECT_EQ(refused.status, 2) << refused.out;
        EXPECT_NE(refused.err.find(each.reason), std::string::npos) << refused.err;
        EXPECT_TRUE(Read("b.db") == before);
    }
}

}  // namespace
}  // namespace zv::zvdb
