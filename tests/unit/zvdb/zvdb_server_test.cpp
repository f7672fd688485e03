// The commands on a server, each test in a schema of its own.
#include <memory>

#include "base/errors.h"
#include "scratch.h"
#include "test_server/scratch_schema.h"
#include "zvdb/engine.h"
#include "zvdb/import/server_link.h"

namespace zv::zvdb {
namespace {

class ZvdbServer : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        server_ = test_server::Address();
        if (server_.empty()) {
            GTEST_SKIP() << "engine PostgreSql is missing: ZV_TEST_POSTGRESQL names no server";
        }
        schema_ = std::make_unique<test_server::ScratchSchema>(server_, "zvdb_test");
        name_ = schema_->Address();
    }
    void TearDown() override {
        if (schema_) schema_->Drop();
        Scratch::TearDown();
    }

    void Run(const std::string& sql) { test_server::ConnectRaw(name_)->Execute(sql); }
    std::string Text(const std::string& sql) {
        const auto connection = test_server::ConnectRaw(name_);
        return connection->Open(sql, store::CursorType::ForwardOnly, store::LockType::ReadOnly)
            ->Field(0)
            .ToText();
    }
    /// What every output must be without.
    std::string Password() const {
        const std::size_t begin = server_.find("Pwd=") + 4;
        return server_.substr(begin, server_.find(';', begin) - begin);
    }
    Outcome Zvdb(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--to", name_});
        return ZvdbTo(arguments);
    }
    Outcome ZvdbTo(const std::vector<std::string>& arguments) {
        Outcome outcome = RunZvdb(arguments);
        EXPECT_EQ((outcome.out + outcome.err).find(Password()), std::string::npos);
        return outcome;
    }
    void ExpectWrong(const std::string& sentence) {
        const Outcome check = Zvdb({"check"});
        EXPECT_EQ(check.status, 1) << check.out << check.err;
        EXPECT_NE(check.out.find("wrong: " + sentence), std::string::npos)
            << "expected: " << sentence << "\n"
            << check.out;
    }

    std::string server_;
    std::unique_ptr<test_server::ScratchSchema> schema_;
    std::string name_;
};

TEST_F(ZvdbServer, MakesEmptyTablesThatPassTheCheck) {
    const Outcome create = Zvdb({"create"});
    EXPECT_EQ(create.status, 0) << create.err;
    const Outcome check = Zvdb({"check"});
    EXPECT_EQ(check.status, 0) << check.out << check.err;
    EXPECT_NE(check.out.find("tTaskList              0\n"), std::string::npos) << check.out;
    EXPECT_NE(check.out.find("nothing wrong"), std::string::npos);
}

TEST_F(ZvdbServer, RegistersTheModulesThatTheWindowsAskFor) {
    ASSERT_EQ(Zvdb({"create"}).status, 0);
    EXPECT_EQ(Text("select count(*) from tSysFunc"), "4");
    EXPECT_EQ(Text("select Model_Name_1 from tSysFunc where model_Name='mnuZjComp'"), "客戶跟進");
}

TEST_F(ZvdbServer, NeverReplacesTablesUnlessAskedTo) {
    Run("create table employees(employee text)");
    Run("insert into employees values('mine')");
    Run("create table other(n int)");
    for (const char* command : {"create", "sample"}) {
        const Outcome refused = Zvdb({command});
        EXPECT_EQ(refused.status, 2);
        EXPECT_NE(refused.err.find("(employees; --force replaces them)"), std::string::npos)
            << refused.err;
    }
    EXPECT_EQ(Text("select employee from employees"), "mine");
    EXPECT_EQ(Zvdb({"create", "--force"}).status, 0);
    EXPECT_EQ(Text("select count(*) from employees"), "0");
    EXPECT_EQ(Text("select count(*) from other"), "0");
    EXPECT_EQ(Zvdb({"check"}).status, 0);
    // Its own tables are replaced as well, with all that belongs to them.
    EXPECT_EQ(Zvdb({"create", "--force"}).status, 0);
    EXPECT_EQ(Zvdb({"check"}).status, 0);
}

TEST_F(ZvdbServer, MakesAllTablesOrNone) {
    // In the way of the last table.
    Run("create view tsysfunc as select 1 as n");
    const Outcome refused = Zvdb({"create"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_NE(refused.err.find("tsysfunc"), std::string::npos) << refused.err;
    EXPECT_EQ(Text("select count(*) from pg_tables where schemaname=current_schema()"), "0");
}

TEST_F(ZvdbServer, SampleDataIsThatOfAFile) {
    const Outcome sample =
        Zvdb({"create", "--items", "300", "--cards", "20", "--today", "2003-03-07"});
    ASSERT_EQ(sample.status, 0) << sample.err;
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "300", "--cards", "20", "--today",
                       "2003-03-07"})
                  .status,
              0);
    EXPECT_EQ(Zvdb({"check"}).out, RunZvdb({"check", Path("a.db")}).out);
    Engine file(Path("a.db"));
    for (const char* sum :
         {"sum(fID)", "sum(TaskID)", "sum(length(taskTitle))", "max(taskTime)", "min(tDuring1)",
          "max(tDuring2)", "sum(tDone)", "count(fUser)", "max(fWay)"}) {
        const std::string sql = std::string("select ") + sum + " from tTaskList";
        EXPECT_EQ(Text(sql), file.Text(sql)) << sum;
    }
    Run("insert into ttasklist(tasktitle) values('next')");
    EXPECT_EQ(Text("select fid from ttasklist where tasktitle='NEXT'"), "301");
}

TEST_F(ZvdbServer, TheCheckFindsWhatIsPlanted) {
    ASSERT_EQ(Zvdb({"sample", "--items", "60", "--cards", "9"}).status, 0);
    const std::string guest = Text("select min(fid) from ttasklist where ftype=1");
    const std::string item = Text("select min(fid) from ttasklist where ftype=2");
    const std::string plan = Text("select min(taskid) from ttaskset");
    struct Defect {
        std::string plant;
        std::string sentence;
        std::string repair;
    };
    const std::vector<Defect> defects{
        {"update ttasklist set taskid=-taskid where fid=" + guest,
         "guest items without a card: " + guest,
         "update ttasklist set taskid=-taskid where fid=" + guest},
        {"update ttasklist set ftype=9 where fid=" + item,
         "items of an unknown kind (fType 0 to 2): " + item,
         "update ttasklist set ftype=2 where fid=" + item},
        {"update ttasklist set tduring1=tduring1+interval '1 day' where fid=" + item,
         "items whose alert window ends before it begins: " + item,
         "update ttasklist set tduring1=tduring2 where fid=" + item},
        {"update ttasklist set tduring1=null where fid=" + item,
         "items whose alert window is not made of dates: " + item,
         "update ttasklist set tduring1=tduring2 where fid=" + item},
        {"update ttasklist set tasktitle='  ' where fid=" + item, "items without a title: " + item,
         "update ttasklist set tasktitle='t' where fid=" + item},
        {"update ttaskset set tend=tbegin-interval '1 day' where taskid=" + plan,
         "plan " + plan + " ends before it begins",
         "update ttaskset set tend=tbegin+interval '1 year' where taskid=" + plan},
        {"insert into rptlistdetail(ftable,fieldname) values('X','f'),('x','F')",
         "fields with more than one caption: ", "delete from rptlistdetail where ftable='x'"},
        {"insert into trsbasic(fcode) values('Twice'),('TWICE')", "staff codes used more than once",
         "delete from trsbasic where fcode='twice'"},
        {"update ttaskset set typevalue=null where taskid=" + plan,
         "plan " + plan + " has an alert width that is not 0 to 99 days (TypeValue)",
         "update ttaskset set typevalue=0 where taskid=" + plan},
        {"select setval('ttasklist_fid_seq',59)", "the next numbers of tTaskList are taken already",
         "select setval('ttasklist_fid_seq',60)"},
        {"select setval('ttasklist_fid_seq',5)", "the next numbers of tTaskList are taken already",
         "select setval('ttasklist_fid_seq',60)"},
        {"drop trigger zv_take_key on cards;alter table cards alter fid drop identity",
         "table cards gives new rows no number", "select 1"},
    };
    for (const Defect& defect : defects) {
        SCOPED_TRACE(defect.plant);
        ASSERT_EQ(defect.sentence == defects.front().sentence ? Zvdb({"check"}).status : 0, 0);
        Run(defect.plant);
        ExpectWrong(defect.sentence);
        Run(defect.repair);
    }
    Run("drop table tsysfunc");
    Run("alter table cards drop column http");
    ExpectWrong("column cards.http is missing");
    ExpectWrong("table tSysFunc is missing");
}

TEST_F(ZvdbServer, TheConnectionMayStandInAFile) {
    Write("server.txt", "\xEF\xBB\xBF" + name_ + " \r\nnot this\r\n");
    const std::string server = "@" + Path("server.txt");
    EXPECT_EQ(ZvdbTo({"sample", "--to", server, "--items", "30", "--cards", "3"}).status, 0);
    EXPECT_EQ(ZvdbTo({"import", server, Path("b.db")}).status, 0);
    EXPECT_EQ(ZvdbTo({"check", "--to", server}).out, ZvdbTo({"check", Path("b.db")}).out);
}

TEST_F(ZvdbServer, ATableThatSomebodyDropsElsewhereDisturbsNobody) {
    Run("create table cards(fid int, name varchar(40), note text)");
    const std::string elsewhere = schema_->Name() + "_2";
    Run("create schema " + elsewhere);
    Run("create table " + elsewhere + ".gone(n int)");
    ServerLink link(name_);
    // From here on the link sees the server as it is now, whatever others do.
    link.Run("begin transaction isolation level repeatable read, read only");
    link.Ask("select count(*) from cards");
    Run("drop schema " + elsewhere + " cascade");
    const std::vector<ServerTable> tables = ReadServerTables(link);
    ASSERT_EQ(tables.size(), 1U);
    EXPECT_EQ(tables[0].name, "cards");
    ASSERT_EQ(tables[0].columns.size(), 3U);
    EXPECT_EQ(tables[0].columns[1].name, "name");
    EXPECT_EQ(tables[0].columns[1].size, 40U);
    EXPECT_EQ(tables[0].columns[2].size, 0U);
}

TEST_F(ZvdbServer, WhatCannotBeReachedIsReportedWithoutThePassword) {
    for (const char* command : {"create", "check", "sample"}) {
        std::string wrong = server_;
        wrong.insert(wrong.find("Pwd=") + 4, "x");
        const Outcome refused = ZvdbTo({command, "--to", wrong});
        EXPECT_EQ(refused.status, 2);
        EXPECT_NE(refused.err.find("refused the login"), std::string::npos) << refused.err;
    }
    const Outcome away = ZvdbTo({"check", "--to",
                                 "Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=1;Database=x;"
                                 "Uid=u;Pwd=" +
                                     Password()});
    EXPECT_EQ(away.status, 2);
    EXPECT_NE(away.err.find("127.0.0.1"), std::string::npos) << away.err;
}

TEST(ZvdbServerUsage, AFileThatNamesAServerMustBeReadable) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"check", "--to", "@/gone/server.txt"},
          {"check", "--to", "@"},
          {"import", "@/gone/server.txt", "b.db"}}) {
        const Outcome refused = RunZvdb(arguments);
        EXPECT_EQ(refused.status, 2);
        EXPECT_NE(refused.err.find("no line that can be read"), std::string::npos) << refused.err;
    }
}

TEST(ZvdbServerUsage, AFileOrAServer) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"create", "a.db", "--to", "x"},
          {"check", "--to"},
          {"check", "--to", "x", "--force"},
          {"create", "a.db", "--items", "5"}}) {
        const Outcome refused = RunZvdb(arguments);
        EXPECT_EQ(refused.status, 2);
        EXPECT_NE(refused.err.find("--help"), std::string::npos) << refused.err;
    }
}

}  // namespace
}  // namespace zv::zvdb
