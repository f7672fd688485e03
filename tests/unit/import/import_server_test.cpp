// To and from a server.
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <memory>
#include <thread>

#include "access_rows_file.h"
#include "base/errors.h"
#include "scratch.h"
#include "test_server/scratch_schema.h"
#include "zvdb/engine.h"
#include "zvdb/import/server_link.h"

namespace zv::zvdb {
namespace {

/// A schema of its own for each test.
class ImportServer : public Scratch {
 protected:
    void SetUp() override {
        if (test_server::Address().empty()) {
            GTEST_SKIP() << "engine PostgreSql is missing: ZV_TEST_POSTGRESQL names no server";
        }
        Scratch::SetUp();
        schema_ = std::make_unique<test_server::ScratchSchema>(test_server::Address(), "zv_import");
        schema_->CreateTables();
        server_ = schema_->Address();
    }
    void TearDown() override {
        if (!schema_) return;
        schema_->Drop();
        Scratch::TearDown();
    }
    void Run(const std::string& sql) {
        ServerLink link(server_);
        link.Run("set client_min_messages=warning");
        link.Run(sql);
    }
    std::int32_t Ask(const std::string& sql) { return ServerLink(server_).Ask(sql).ToInt32(); }
    void ExpectRefused(const Outcome& outcome, const std::string& reason) {
        EXPECT_EQ(outcome.status, 2) << outcome.out;
        EXPECT_NE((outcome.out + outcome.err).find(reason), std::string::npos)
            << outcome.out << outcome.err;
    }
    void Sample(int items) {
        ASSERT_EQ(
            RunZvdb({"sample", Path("a.db"), "--items", std::to_string(items), "--quiet"}).status,
            0);
    }

    std::string server_;

 private:
    std::unique_ptr<test_server::ScratchSchema> schema_;
};

TEST_F(ImportServer, AnAccessFileGoesThereAndComesBackCellByCell) {
    for (const char* file : {"taskAlert-2000.mdb", "taskAlert-2010.accdb"}) {
        const Outcome there = RunZvdb({"import", AccessFixture(file), server_, "--replace"});
        // The files hold values that break rules, which is reported.
        EXPECT_EQ(there.status, 3) << there.out << there.err;
        ExpectStatusShowsCheck(there, RunZvdb({"check", "--to", server_}));
        const Outcome back = RunZvdb({"import", server_, Path(std::string(file) + ".db")});
        EXPECT_EQ(back.status, 3) << back.out << back.err;
        ExpectStatusShowsCheck(back, RunZvdb({"check", Path(std::string(file) + ".db")}));
        EXPECT_EQ(StoredRows(Path(std::string(file) + ".db")), ExpectedRows());
    }
}

TEST_F(ImportServer, AnEmbeddedFileOfManyPartsGoesThereAndComesBack) {
    Sample(12000);
    ASSERT_EQ(RunZvdb({"import", Path("a.db"), server_}).status, 0);
    ASSERT_EQ(RunZvdb({"import", server_, Path("b.db")}).status, 0);
    EXPECT_EQ(StoredRows(Path("a.db")), StoredRows(Path("b.db")));
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
}

TEST_F(ImportServer, TheStatusShowsWhatTheCheckFinds) {
    struct Case {
        const char* change;
        int status;
    };
    for (const Case& given : {Case{"select 1", 0},
                              {"create table mine(a)", 1},
                              {"update tTaskList set taskTitle='' where fID=3", 3},
                              {"delete from tTaskSet", 3}}) {
        SCOPED_TRACE(given.change);
        std::filesystem::remove(File("a.db"));
        Sample(100);
        Engine(Path("a.db")).Run(given.change);
        const Outcome import = RunZvdb({"import", Path("a.db"), server_, "--replace"});
        EXPECT_EQ(import.status, given.status) << import.out << import.err;
        ExpectStatusShowsCheck(import, RunZvdb({"check", "--to", server_}));
    }
}

TEST_F(ImportServer, WhatTheServerMakesOfTheTablesIsThereAfterwards) {
    const std::string indexes =
        "select count(*) from pg_index i join pg_class c on c.oid=i.indrelid where "
        "c.relnamespace=current_schema()::regnamespace";
    const std::string triggers =
        "select count(*) from pg_trigger t join pg_class c on c.oid=t.tgrelid where "
        "c.relnamespace=current_schema()::regnamespace and t.tgenabled='O'";
    const std::int32_t indexesBefore = Ask(indexes);
    const std::int32_t triggersBefore = Ask(triggers);
    ASSERT_GT(triggersBefore, 0);
    ASSERT_EQ(RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), server_}).status, 3);
    EXPECT_EQ(Ask(indexes), indexesBefore);
    EXPECT_EQ(Ask(triggers), triggersBefore);
    EXPECT_EQ(Ask("insert into ttasklist(tasktitle) values('next') returning fid"), 403);
}

TEST_F(ImportServer, SideTablesGoThereAndComeBack) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "60", "--side-tables"}).status, 0);
    Engine(Path("a.db"))
        .Run(
            "insert into zvReminder(fID,fUser,fPlan,fItem,fDate,fTitle,fUntil,fState,"
            "fGiven) values(7,'陈',2,0,'2003-03-07 00:00:00','报表',null,2,null),"
            "(9,'me',0,5,'2003-03-08 00:00:00','t','2003-03-09 08:30:00',1,"
            "'2003-03-08 17:30:05');"
            "insert into zvHistory(fID,fWhen,fWho,fRow,fOld,fNew) values"
            "(40,'2003-03-07 10:00:00','me',5,null,printf('%9000c','x'))");
    // Once it makes them, once they are there and empty, once they are there and full.
    for (const char* options : {"", "--replace", "--replace"}) {
        std::vector<std::string> arguments = {"import", Path("a.db"), server_, "--quiet"};
        if (*options != '\0') arguments.emplace_back(options);
        const Outcome there = RunZvdb(arguments);
        ASSERT_EQ(there.status, 0) << there.out << there.err;
        EXPECT_NE(there.out.find("zvReminder             2\nzvHistory              1\n"),
                  std::string::npos)
            << there.out;
        EXPECT_EQ(RunZvdb({"upgrade", "--to", server_}).out, "nothing to do\n");
        EXPECT_EQ(RunZvdb({"check", "--to", server_}).status, 0);
        EXPECT_EQ(Ask("insert into zvHistory(fWho) values('next') returning fID"), 41);
        Run("delete from zvHistory where fWho='next'");
    }
    ASSERT_EQ(RunZvdb({"import", server_, Path("b.db")}).status, 0);
    Engine a(Path("a.db"));
    Engine b(Path("b.db"));
    for (const char* sum :
         {"group_concat(fID||fUser||fPlan||fItem||fDate||fTitle||coalesce(fUntil,'-')||fState||"
          "coalesce(fGiven,'-')) from zvReminder",
          "group_concat(fID||fWhen||fWho||fRow||coalesce(fOld,'-')||fNew) from zvHistory"}) {
        const std::string sql = std::string("select ") + sum;
        EXPECT_FALSE(a.Text(sql).empty());
        EXPECT_EQ(b.Text(sql), a.Text(sql));
    }
}

TEST_F(ImportServer, SideTablesOfATargetAreEmptiedWithTheOthers) {
    Sample(30);
    ASSERT_EQ(RunZvdb({"upgrade", "--to", server_}).status, 0);
    Run("insert into zvReminder(fItem) values(1)");
    ExpectRefused(RunZvdb({"import", Path("a.db"), server_}),
                  "it is not empty (zvReminder has 1 rows)");
    EXPECT_EQ(Ask("select count(*) from zvreminder"), 1);
    const Outcome import = RunZvdb({"import", Path("a.db"), server_, "--replace"});
    EXPECT_EQ(import.status, 0) << import.out << import.err;
    EXPECT_EQ(Ask("select count(*) from zvreminder"), 0);
    EXPECT_EQ(RunZvdb({"upgrade", "--to", server_}).out, "nothing to do\n");
}

TEST_F(ImportServer, SideTablesOfAnotherMakingAreNotFilled) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "30", "--side-tables"}).status, 0);
    ASSERT_EQ(RunZvdb({"upgrade", "--to", server_}).status, 0);
    Run("alter table zvhistory drop column fnew");
    ExpectRefused(RunZvdb({"import", Path("a.db"), server_}), "column zvHistory.fNew is missing");
    EXPECT_EQ(Ask("select count(*) from ttasklist"), 0);
}

TEST_F(ImportServer, ATargetWithRowsIsRefusedUnlessAskedFor) {
    Run("insert into employees(employee) values('mine')");
    ExpectRefused(RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), server_}),
                  "it is not empty (Employees has 1 rows)");
    EXPECT_EQ(Ask("select count(*) from employees"), 1);
    EXPECT_EQ(RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), server_, "--replace"}).status,
              3);
    EXPECT_EQ(Ask("select count(*) from employees where employee='mine'"), 0);
}

TEST_F(ImportServer, ModulesThatWereRegisteredWithTheTablesAreNoRowsOfAnybody) {
    ASSERT_EQ(RunZvdb({"create", "--to", server_, "--force"}).status, 0);
    ASSERT_EQ(Ask("select count(*) from tsysfunc"), 4);
    Sample(30);
    const Outcome import = RunZvdb({"import", Path("a.db"), server_});
    EXPECT_EQ(import.status, 0) << import.out << import.err;
    EXPECT_EQ(Ask("select count(*) from ttasklist"), 30);
    Run("delete from ttasklist");
    for (const char* table : {"ttaskset", "cards", "trsbasic", "employees", "rptlistdetail"}) {
        Run(std::string("delete from ") + table);
    }
    Run("update tsysfunc set model_name='mine'");
    ExpectRefused(RunZvdb({"import", Path("a.db"), server_}), "it is not empty (tSysFunc has ");
}

TEST_F(ImportServer, ADryRunWritesNothing) {
    const Outcome dry =
        RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), server_, "--dry-run"});
    EXPECT_EQ(dry.status, 0) << dry.out << dry.err;
    EXPECT_EQ(Ask("select count(*) from ttasklist"), 0);
}

TEST_F(ImportServer, CellsThatDoNotFitAreNamedAndNothingIsImported) {
    Sample(300);
    Run("insert into employees(employee) values('mine')");
    Engine(Path("a.db"))
        .Run(
            "update tTaskList set tDone=70000 where fID in (7,9);"
            "update tTaskList set taskTime='never' where fID=11;"
            "update cards set Name='a'||char(0)||'b' where fID=3;"
            "update tTaskList set TaskID=3000000000 where fID=12");
    const Outcome import = RunZvdb({"import", Path("a.db"), server_, "--replace"});
    ExpectRefused(import,
                  "refused: tTaskList.tDone: numbers too large for the column: fID 7, fID "
                  "9 (2 in all)");
    ExpectRefused(import, "refused: tTaskList.taskTime: values that are no dates: fID 11");
    ExpectRefused(import, "refused: cards.Name: texts with a zero character: fID 3");
    ExpectRefused(import, "refused: tTaskList.TaskID: numbers too large for the column: fID 12");
    ExpectRefused(import, "nothing was imported");
    EXPECT_EQ(Ask("select count(*) from employees where employee='mine'"), 1);
    EXPECT_EQ(Ask("select count(*) from ttasklist"), 0);
}

TEST_F(ImportServer, ColumnsThatAreNarrowerThereRefuseLongTexts) {
    Sample(300);
    Run("alter table cards alter column name type varchar(5)");
    Engine(Path("a.db")).Run("update cards set Name='123456' where fID=3");
    ExpectRefused(RunZvdb({"import", Path("a.db"), server_}),
                  "refused: cards.Name: texts longer than the column: ");
    EXPECT_EQ(Ask("select count(*) from cards"), 0);
}

TEST_F(ImportServer, AFailureOfTheServerLeavesItAsItWas) {
    Run("insert into employees(employee) values('mine')");
    Run("alter table tsysfunc add constraint few check (serialno < 5)");
    ExpectRefused(RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), server_, "--replace"}),
                  "few");
    EXPECT_EQ(Ask("select count(*) from employees where employee='mine'"), 1);
    EXPECT_EQ(Ask("select count(*) from ttasklist"), 0);
    EXPECT_GT(Ask("select count(*) from pg_indexes where indexname='ttasklist_plan'"), 0);
}

TEST_F(ImportServer, ValuesThatTheServerChangesAreNoticed) {
    // Texts of this type are filled up with blanks.
    Run("alter table trsbasic alter column fname type char(60)");
    ExpectRefused(RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), server_}),
                  "table tRsBasic was not written as it was read: column fName has another sum");
    EXPECT_EQ(Ask("select count(*) from ttasklist"), 0);
}

TEST_F(ImportServer, SourceAndTargetMustDiffer) {
    ExpectRefused(RunZvdb({"import", server_, server_ + ";Protocol=7.4", "--replace"}),
                  "source and target are the same");
}

TEST_F(ImportServer, MissingTablesAndColumnsOfTheTargetAreNamed) {
    Run("alter table cards drop column fax");
    ExpectRefused(RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), server_}),
                  "column cards.fax is missing");
    Run("drop table cards cascade");
    ExpectRefused(RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), server_}),
                  "table cards is missing");
}

TEST_F(ImportServer, ARefusedLoginIsReportedWithoutThePassword) {
    std::string wrong = test_server::Address();
    const auto at = wrong.find("Pwd=");
    ASSERT_NE(at, std::string::npos);
    wrong = wrong.substr(0, at) + "Pwd=not-this-one";
    const Outcome import = RunZvdb({"import", AccessFixture("taskAlert-2003.mdb"), wrong});
    EXPECT_EQ(import.status, 2);
    EXPECT_EQ((import.out + import.err).find("not-this-one"), std::string::npos);
    EXPECT_FALSE(import.err.empty());
}

TEST_F(ImportServer, ASignalToEndLeavesItAsItWas) {
    Sample(30000);
    Run("insert into employees(employee) values('mine')");
    const std::string from = Path("a.db");
    const pid_t child = fork();
    if (child == 0) {
        execl(ZV_ZVDB, "zvdb", "import", from.c_str(), server_.c_str(), "--replace", "--quiet",
              nullptr);
        _exit(99);
    }
    while (Ask("select count(*) from pg_locks where relation='ttasklist'::regclass and "
               "mode='ExclusiveLock' and granted") == 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        if (waitpid(child, nullptr, WNOHANG) == child) FAIL() << "over too soon";
    }
    kill(child, SIGTERM);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 2);
    EXPECT_EQ(Ask("select count(*) from employees where employee='mine'"), 1);
    EXPECT_EQ(Ask("select count(*) from ttasklist"), 0);
}

}  // namespace
}  // namespace zv::zvdb
