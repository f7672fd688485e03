#include "store/database.h"

#include "database_fixture.h"

namespace zv::store {
namespace {

class Opener final : public ConnectionOpener {
 public:
    std::unique_ptr<Connection> Open(const ConnectionSettings& settings) override {
        opened++;
        if (refuse) throw RuntimeError(ErrorNumber::DatabaseFailure, "refused");
        return OpenSqlite(settings.dataPath);
    }
    int opened = 0;
    bool refuse = false;
};

class Log final : public StatementObserver {
 public:
    void OnStatement(const std::string& sql) override {
        statements.push_back(sql);
        if (fail) throw RuntimeError(ErrorNumber::DatabaseFailure, "told to fail");
    }
    void OnRowUpdate() override {
        updates++;
        if (fail) throw RuntimeError(ErrorNumber::DatabaseFailure, "told to fail");
    }
    std::vector<std::string> statements;
    int updates = 0;
    bool fail = false;
};

class StoreTest : public DatabaseTest {
 protected:
    StoreTest()
        : database_(
              opener_,
              [this] {
                  ConnectionSettings settings;
                  settings.dataPath = path_;
                  return settings;
              },
              &log_) {}

    Opener opener_;
    Log log_;
    Database database_;
};

using EnsureConnection = StoreTest;
using CountRows = StoreTest;
using MarkItemState = StoreTest;
using DateLiteral = StoreTest;
using StatementLog = StoreTest;

TEST_F(EnsureConnection, OpensOnceAndKeepsTheConnection) {
    EXPECT_FALSE(database_.IsOpen());
    EXPECT_TRUE(database_.EnsureConnection());
    EXPECT_TRUE(database_.EnsureConnection());
    EXPECT_EQ(opener_.opened, 1);
}
TEST_F(EnsureConnection, OpensAnewAfterClosing) {
    database_.EnsureConnection();
    database_.Close();
    EXPECT_FALSE(database_.IsOpen());
    EXPECT_TRUE(database_.EnsureConnection());
    EXPECT_EQ(opener_.opened, 2);
}
TEST_F(EnsureConnection, PassesTheReasonOn) {
    opener_.refuse = true;
    EXPECT_EQ(ErrorOf([&] { database_.EnsureConnection(); }).Text(), "refused");
    EXPECT_FALSE(database_.IsOpen());
}
TEST_F(EnsureConnection, LeavesNoConnectionWhenAnotherCannotBeOpened) {
    database_.EnsureConnection();
    opener_.refuse = true;
    ErrorOf([&] { database_.OpenConnection({}); });
    EXPECT_FALSE(database_.IsOpen());
    EXPECT_EQ(ErrorOf([&] { database_.Execute("delete from cards"); }).Number(),
              ErrorNumber::ObjectClosed);
}

TEST_F(CountRows, CountsAllRowsWithoutAFilter) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fType) values(0),(1),(1)");
    EXPECT_EQ(database_.CountRows("tTaskList", ""), 3);
    EXPECT_EQ(log_.statements, std::vector<std::string>{"select count(*) from tTaskList"});
}
TEST_F(CountRows, AppendsTheFilterUnchanged) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fType) values(0),(1),(1)");
    EXPECT_EQ(database_.CountRows("tTaskList", " fType =1 "), 2);
    EXPECT_EQ(log_.statements.back(), "select count(*) from tTaskList Where  fType =1 ");
}
TEST_F(CountRows, AnswersMinusOneForAMissingTable) {
    database_.EnsureConnection();
    EXPECT_EQ(database_.CountRows("nowhere", ""), -1);
}
TEST_F(CountRows, AnswersMinusOneWhenTheDatabaseFails) {
    database_.EnsureConnection();
    log_.fail = true;
    EXPECT_EQ(database_.CountRows("tTaskList", ""), -1);
}
TEST_F(CountRows, AnswersMinusOneBeyondSixteenBits) {
    database_.EnsureConnection();
    const auto raw = OpenSqlite(path_, {.translate = false});
    raw->Execute(
        "insert into tRsBasic(fCode) with recursive n(i) as (select 1 union all select i+1 from n"
        " where i<32767) select i from n");
    EXPECT_EQ(database_.CountRows("tRsBasic", ""), 32767);
    raw->Execute("insert into tRsBasic(fCode) values('x')");
    EXPECT_EQ(database_.CountRows("tRsBasic", ""), -1);
}

TEST_F(MarkItemState, SendsExactlyThisStatement) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fID,taskTitle) values(5,'x')");
    EXPECT_EQ(database_.MarkItemState(5, 2, "张三"), 1);
    EXPECT_EQ(log_.statements.back(),
              "Update tTaskList Set tDone=2,tDoneMan = '张三' where fID =5");
    EXPECT_EQ(Rows("select tDone,tDoneMan from tTaskList"), "2|张三");
}
TEST_F(MarkItemState, SendsNothingForItemZero) {
    database_.EnsureConnection();
    EXPECT_EQ(database_.MarkItemState(0, 1, "x"), 0);
    EXPECT_TRUE(log_.statements.empty());
}
TEST_F(MarkItemState, AnswersOneForAnUnknownItem) {
    database_.EnsureConnection();
    EXPECT_EQ(database_.MarkItemState(77, 1, "x"), 1);
}
TEST_F(MarkItemState, FailsInTheDatabaseForANameWithAnApostrophe) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fID,taskTitle) values(5,'x')");
    const auto error = ErrorOf([&] { database_.MarkItemState(5, 1, "O'Brien"); });
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseStatement);
    EXPECT_EQ(error.Source(), "SQLite");
    EXPECT_EQ(Rows("select tDone,tDoneMan from tTaskList"), "0|");
}

TEST_F(DateLiteral, FollowsTheDelimiter) {
    EXPECT_EQ(database_.DateLiteral(DateTime(2003, 3, 7, 10)), "#03/07/2003#");
    database_.SetDateDelimiter('\'');
    EXPECT_EQ(database_.DateLiteral(DateTime(2003, 3, 7)), "'03/07/2003'");
}

TEST_F(StatementLog, TellsStatementsExactlyAsSent) {
    database_.EnsureConnection();
    database_.Open("select max(TaskID) as  MaxID from tTaskSet");
    database_.Execute("delete from tTaskList where taskID =1");
    EXPECT_EQ(log_.statements,
              (std::vector<std::string>{"select max(TaskID) as  MaxID from tTaskSet",
                                        "delete from tTaskList where taskID =1"}));
}
TEST_F(StatementLog, FailsAStatementBeforeItReachesTheDatabase) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fType) values(0)");
    log_.fail = true;
    EXPECT_EQ(ErrorOf([&] { database_.Execute("delete from tTaskList"); }).Text(), "told to fail");
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "1");
}
TEST_F(StatementLog, TellsOfARowUpdateBeforeItIsWritten) {
    database_.EnsureConnection();
    auto rows = database_.Open("select * from tTaskList", CursorType::Keyset, LockType::Optimistic);
    rows->AddNew();
    rows->SetField("taskTitle", "x");
    log_.fail = true;
    ErrorOf([&] { rows->Update(); });
    EXPECT_EQ(log_.updates, 1);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
    log_.fail = false;
    rows->Update();
    EXPECT_EQ(Rows("select taskTitle from tTaskList"), "x");
}

}  // namespace
}  // namespace zv::store
