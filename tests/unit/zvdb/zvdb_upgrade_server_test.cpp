// The side tables on a server, each test in a schema of its own.
#include <memory>

#include "base/text.h"
#include "scratch.h"
#include "test_server/scratch_schema.h"

namespace zv::zvdb {
namespace {

class ZvdbUpgradeServer : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        const std::string server = test_server::Address();
        if (server.empty()) {
            GTEST_SKIP() << "engine PostgreSql is missing: ZV_TEST_POSTGRESQL names no server";
        }
        schema_ = std::make_unique<test_server::ScratchSchema>(server, "zvdb_upgrade");
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
    Outcome Zvdb(std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--to", name_});
        return RunZvdb(arguments);
    }
    void ExpectRefused(const Outcome& outcome, const std::string& reason) {
        EXPECT_EQ(outcome.status, 2) << outcome.out;
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find(reason), std::string::npos) << outcome.err;
    }
    void ExpectWrong(const std::string& sentence) {
        const Outcome check = Zvdb({"check"});
        EXPECT_EQ(check.status, 1) << check.out << check.err;
        EXPECT_NE(check.out.find("wrong: " + sentence + '\n'), std::string::npos)
            << "expected: " << sentence << "\n"
            << check.out;
    }
    std::string PartsThatAreThere() {
        return Text(
            "select count(*) from pg_class where relnamespace=current_schema()::regnamespace and "
            "(relname like 'zv%' or relname='ttasklist_due')");
    }

    std::unique_ptr<test_server::ScratchSchema> schema_;
    std::string name_;
};

TEST_F(ZvdbUpgradeServer, MakesWhatIsMissingOnceAndSaysWhat) {
    ASSERT_EQ(Zvdb({"sample", "--items", "60", "--cards", "9"}).status, 0);
    const std::string columns =
        "select string_agg(table_name||column_name||data_type||coalesce(column_default,''),',' "
        "order by table_name,ordinal_position) from information_schema.columns where "
        "table_schema=current_schema() and table_name not like 'zv%'";
    const std::string before = Text(columns);
    const Outcome dry = Zvdb({"upgrade", "--dry-run"});
    EXPECT_EQ(dry.status, 0) << dry.err;
    EXPECT_EQ(text::Replace(dry.out, "would make", "made"), kSideTablesMade);
    EXPECT_EQ(PartsThatAreThere(), "0");
    const Outcome upgrade = Zvdb({"upgrade"});
    EXPECT_EQ(upgrade.status, 0) << upgrade.err;
    EXPECT_EQ(upgrade.out, kSideTablesMade);
    EXPECT_EQ(Text("select fvalue from zvmeta where fname='Version'"), "1");
    EXPECT_EQ(Text(columns), before);
    EXPECT_EQ(Zvdb({"upgrade"}).out, "nothing to do\n");
    const Outcome check = Zvdb({"check"});
    EXPECT_EQ(check.status, 0) << check.out;
    EXPECT_NE(check.out.find("zvMeta                 1\nzvReminder             0\n"
                             "zvHistory              0\n"),
              std::string::npos)
        << check.out;
}

TEST_F(ZvdbUpgradeServer, EachPartThatIsMissingIsMadeByItself) {
    ASSERT_EQ(Zvdb({"create", "--side-tables"}).status, 0);
    EXPECT_EQ(Zvdb({"upgrade"}).out, "nothing to do\n");
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
        Run(part.drop);
        ExpectWrong(std::string(part.called) +
                    " is missing beside the other side tables (zvdb upgrade makes it)");
        const Outcome upgrade = Zvdb({"upgrade"});
        EXPECT_EQ(upgrade.status, 0) << upgrade.err;
        EXPECT_EQ(upgrade.out.find(std::string("made ") + part.called + '\n'), 0U) << upgrade.out;
        EXPECT_EQ(Zvdb({"check"}).status, 0);
    }
}

TEST_F(ZvdbUpgradeServer, WhatIsOfAnotherMakingIsToldAndLeftAlone) {
    ASSERT_EQ(Zvdb({"create", "--side-tables"}).status, 0);
    struct Case {
        const char* change;
        const char* sentence;
        const char* back;
    };
    const char* const due = "create index tTaskList_due on tTaskList(tDone,tDuring1)";
    for (const Case& each :
         {Case{"create index tTaskList_due on tTaskList(tDuring1,tDone)",
               "ttasklist(tduring1,tdone), not as ttasklist(tdone,tduring1)", due},
          {"create index tTaskList_due on tTaskList(tDone,tDuring1 desc)",
           "ttasklist(tdone,tduring1) otherwise, not as ttasklist(tdone,tduring1)", due},
          {"create index tTaskList_due on tTaskList(tDone,tDuring1) where tDone=0",
           "ttasklist(tdone,tduring1) otherwise, not as ttasklist(tdone,tduring1)", due},
          {"create index tTaskList_due on tTaskList(tDone,tDuring1) include (fUser)",
           "ttasklist(tdone,tduring1,fuser) otherwise, not as ttasklist(tdone,tduring1)", due},
          {"create unique index tTaskList_due on tTaskList(tDone,tDuring1)",
           "unique ttasklist(tdone,tduring1), not as ttasklist(tdone,tduring1)", due},
          {"create index tTaskList_due on tTaskList(tDone,coalesce(tDuring1,tDuring2))",
           "ttasklist(tdone,) otherwise, not as ttasklist(tdone,tduring1)", due},
          {"create index tTaskList_due on cards(BoxID)",
           "cards(boxid), not as ttasklist(tdone,tduring1)", due}}) {
        SCOPED_TRACE(each.change);
        Run("drop index tTaskList_due");
        Run(each.change);
        const std::string sentence = std::string("index tTaskList_due is made as ") + each.sentence;
        ExpectWrong(sentence);
        ExpectRefused(Zvdb({"upgrade"}), sentence);
        Run("drop index tTaskList_due");
        Run(each.back);
    }
    EXPECT_EQ(Zvdb({"check"}).status, 0);
    Run("alter table zvReminder drop column fTitle");
    ExpectWrong("column zvReminder.fTitle is missing");
    ExpectRefused(Zvdb({"upgrade"}), "column zvReminder.fTitle is missing");
    Run("update zvMeta set fValue='2'");
    Run("drop index tTaskList_due");
    const std::string sentence =
        "its side tables are of version 2, newer than version 1 of this program";
    ExpectWrong(sentence);
    ExpectRefused(Zvdb({"upgrade"}), sentence);
    EXPECT_EQ(Text("select count(*) from pg_indexes where indexname='ttasklist_due' and "
                   "schemaname=current_schema()"),
              "0");
}

TEST_F(ZvdbUpgradeServer, WhatIsNoDatabaseOfTheSystemIsRefused) {
    ExpectRefused(Zvdb({"upgrade"}), "table tTaskSet is missing");
    EXPECT_EQ(PartsThatAreThere(), "0");
}

TEST_F(ZvdbUpgradeServer, AllIsMadeOrNothing) {
    ASSERT_EQ(Zvdb({"create"}).status, 0);
    // In the way of the last index.
    Run("create view tTaskList_due as select 1 as n");
    ExpectRefused(Zvdb({"upgrade"}), "ttasklist_due");
    EXPECT_EQ(PartsThatAreThere(), "1");
    Run("drop view tTaskList_due");
    EXPECT_EQ(Zvdb({"upgrade"}).out, kSideTablesMade);
}

TEST_F(ZvdbUpgradeServer, AProgramThatLocksATableIsNotWaitedForLong) {
    ASSERT_EQ(Zvdb({"create"}).status, 0);
    const auto program = test_server::ConnectRaw(name_);
    program->Execute("begin");
    program->Execute("lock table tTaskList in exclusive mode");
    ExpectRefused(Zvdb({"upgrade"}), "another program keeps its tables locked");
    EXPECT_EQ(PartsThatAreThere(), "0");
    program->Execute("rollback");
    EXPECT_EQ(Zvdb({"upgrade"}).status, 0);
}

TEST_F(ZvdbUpgradeServer, AUserWhoMayNotMakeThemIsRefused) {
    ASSERT_EQ(Zvdb({"create"}).status, 0);
    const std::string reader = schema_->Name() + "_reader";
    Run("create role " + reader + " nologin");
    Run("grant usage on schema " + schema_->Name() + " to " + reader);
    Run("grant select on all tables in schema " + schema_->Name() + " to " + reader);
    const std::string own = name_;
    name_ = test_server::Address() + ";ConnSettings={set role " + reader + ";set search_path to " +
            schema_->Name() + ",public}";
    const Outcome refused = Zvdb({"upgrade"});
    name_ = own;
    ExpectRefused(refused, "permission denied");
    EXPECT_EQ(PartsThatAreThere(), "0");
    Run("drop owned by " + reader + "; drop role " + reader);
}

TEST_F(ZvdbUpgradeServer, TablesAreMadeWithThemWhereTheyAreAskedForAndReplacedWithThem) {
    ASSERT_EQ(Zvdb({"create"}).status, 0);
    EXPECT_EQ(PartsThatAreThere(), "0");
    const Outcome sample =
        Zvdb({"create", "--items", "40", "--cards", "4", "--side-tables", "--force"});
    ASSERT_EQ(sample.status, 0) << sample.err;
    EXPECT_EQ(Zvdb({"upgrade"}).out, "nothing to do\n");
    EXPECT_EQ(Text("select count(*) from ttasklist"), "40");
    Run("insert into zvReminder(fItem,fTitle) values(1,'of an item that goes')");
    const Outcome refused = Zvdb({"create"});
    EXPECT_NE(refused.err.find("zvhistory, zvmeta, zvreminder"), std::string::npos) << refused.err;
    ASSERT_EQ(Zvdb({"create", "--force"}).status, 0);
    EXPECT_EQ(PartsThatAreThere(), "0");
    EXPECT_EQ(Zvdb({"check"}).status, 0);
}

TEST_F(ZvdbUpgradeServer, TheCheckLooksAtTheNextNumbersOfThem) {
    ASSERT_EQ(Zvdb({"create", "--side-tables"}).status, 0);
    for (const std::string table : {"zvReminder", "zvHistory"}) {
        Run("insert into " + table + "(fID) values(9)");
        ExpectWrong("the next numbers of " + table + " are taken already");
        Run("select setval('" + text::ToLower(table) + "_fid_seq',9)");
        EXPECT_EQ(Zvdb({"check"}).status, 0);
    }
}

TEST_F(ZvdbUpgradeServer, TextsOfTheSideTablesCompareLikeThoseOfTheOthers) {
    ASSERT_EQ(Zvdb({"create", "--side-tables"}).status, 0);
    Run("insert into zvReminder(fUser,fPlan,fItem,fDate) values('Me',0,1,'2003-03-07')");
    EXPECT_EQ(Text("select fid from zvReminder where fUser='ME'"), "1");
    EXPECT_THROW(
        Run("insert into zvReminder(fUser,fPlan,fItem,fDate) values('ME',0,1,'2003-03-07')"),
        std::exception);
    Run("insert into zvHistory(fWho,fTable,fField,fOld,fNew) values('a','b','c','d','e')");
    EXPECT_EQ(Text("select count(*) from zvHistory where fWho='A' and fTable='B' and fField='C' "
                   "and fOld='D' and fNew='E'"),
              "1");
}

}  // namespace
}  // namespace zv::zvdb
