#include "store/database.h"

#include "watched_database.h"

namespace zv::store {
namespace {

class EnsureConnection : public WatchedDatabaseTest {};
class CountRows : public WatchedDatabaseTest {};
class SetFields : public WatchedDatabaseTest {};
class DateLiteral : public WatchedDatabaseTest {};
class StatementLog : public WatchedDatabaseTest {};

ZV_ON_EVERY_ENGINE(EnsureConnection);
ZV_ON_EVERY_ENGINE(CountRows);
ZV_ON_EVERY_ENGINE(SetFields);
ZV_ON_EVERY_ENGINE(DateLiteral);
ZV_ON_EVERY_ENGINE(StatementLog);

TEST_P(EnsureConnection, OpensOnceAndKeepsTheConnection) {
    EXPECT_FALSE(database_.IsOpen());
    EXPECT_TRUE(database_.EnsureConnection());
    EXPECT_TRUE(database_.EnsureConnection());
    EXPECT_EQ(opener_.openings, 1);
}
TEST_P(EnsureConnection, OpensAnewAfterClosing) {
    database_.EnsureConnection();
    database_.Close();
    EXPECT_FALSE(database_.IsOpen());
    EXPECT_TRUE(database_.EnsureConnection());
    EXPECT_EQ(opener_.openings, 2);
}
TEST_P(EnsureConnection, PassesTheReasonOn) {
    RefuseConnections();
    EXPECT_EQ(ErrorOf([&] { database_.EnsureConnection(); }).Text(), "refused");
    EXPECT_FALSE(database_.IsOpen());
}
TEST_P(EnsureConnection, KeepsThePresentConnectionWhenAnotherCannotBeOpened) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fType) values(0)");
    RefuseConnections();
    EXPECT_EQ(ErrorOf([&] { database_.OpenConnection({}); }).Text(), "refused");
    EXPECT_TRUE(database_.IsOpen());
    EXPECT_EQ(database_.CountRows("tTaskList", ""), 1);
}

TEST_P(CountRows, CountsAllRowsWithoutAFilter) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fType) values(0),(1),(1)");
    EXPECT_EQ(database_.CountRows("tTaskList", ""), 3);
    EXPECT_EQ(log_.lines, std::vector<std::string>{"select count(*) from tTaskList"});
}
TEST_P(CountRows, AppendsTheFilterUnchanged) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fType) values(0),(1),(1)");
    EXPECT_EQ(database_.CountRows("tTaskList", " fType =1 "), 2);
    EXPECT_EQ(log_.lines.back(), "select count(*) from tTaskList Where  fType =1 ");
}
TEST_P(CountRows, AnswersMinusOneForAMissingTable) {
    database_.EnsureConnection();
    EXPECT_EQ(database_.CountRows("nowhere", ""), -1);
}
TEST_P(CountRows, AnswersMinusOneWhenTheDatabaseFails) {
    database_.EnsureConnection();
    log_.Fail(1, "made to fail");
    EXPECT_EQ(database_.CountRows("tTaskList", ""), -1);
}
TEST_P(CountRows, AnswersMinusOneBeyondSixteenBits) {
    database_.EnsureConnection();
    const auto raw = EngineTest::database_->ConnectRaw();
    raw->Execute(
        "insert into tRsBasic(fCode) with recursive n(i) as (select 1 union all select i+1 from n"
        " where i<32767) select i from n");
    EXPECT_EQ(database_.CountRows("tRsBasic", ""), 32767);
    raw->Execute("insert into tRsBasic(fCode) values('x')");
    EXPECT_EQ(database_.CountRows("tRsBasic", ""), -1);
}

TEST_P(SetFields, SetsAFieldOfAPlan) {
    database_.EnsureConnection();
    Execute("insert into tTaskSet(TaskID,taskTitle) values(3,'x')");
    EXPECT_TRUE(database_.SetFields("select * from tTaskSet where taskID=3",
                                    {{"DoneMan", Value("O'Brien")}}));
    EXPECT_EQ(Rows("select taskTitle,DoneMan from tTaskSet"), "x|O'Brien");
    EXPECT_FALSE(database_.SetFields("select * from tTaskSet where taskID=4",
                                     {{"DoneMan", Value("O'Brien")}}));
}
TEST_P(SetFields, LeavesNothingSaidAboutTheRowsWhenItFails) {
    database_.EnsureConnection();
    database_.Execute("delete from tTaskList where fID =77");
    EXPECT_TRUE(database_.ChangedNothing());
    log_.Fail(1, "made to fail");
    ErrorOf([&] {
        database_.SetFields("select * from tTaskList where fID=77", {{"tDone", Value(1)}});
    });
    EXPECT_FALSE(database_.ChangedNothing());
}

TEST_P(DateLiteral, FollowsTheDelimiter) {
    EXPECT_EQ(database_.DateLiteral(DateTime(2003, 3, 7, 10)), "#03/07/2003#");
    database_.SetDateDelimiter('\'');
    EXPECT_EQ(database_.DateLiteral(DateTime(2003, 3, 7)), "'03/07/2003'");
}

TEST_P(StatementLog, ReportsStatementsExactlyAsSent) {
    database_.EnsureConnection();
    database_.Open("select max(TaskID) as  MaxID from tTaskSet");
    database_.Execute("delete from tTaskList where taskID =1");
    EXPECT_EQ(log_.lines, (std::vector<std::string>{"select max(TaskID) as  MaxID from tTaskSet",
                                                    "delete from tTaskList where taskID =1"}));
}
TEST_P(StatementLog, FailsAStatementBeforeItReachesTheDatabase) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fType) values(0)");
    log_.Fail(1, "made to fail");
    EXPECT_EQ(ErrorOf([&] { database_.Execute("delete from tTaskList"); }).Text(), "made to fail");
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "1");
}
TEST_P(StatementLog, ReportsARowUpdateBeforeItIsWritten) {
    database_.EnsureConnection();
    auto rows = database_.Open("select * from tTaskList", CursorType::Keyset, LockType::Optimistic);
    rows->AddNew();
    rows->SetField("taskTitle", "x");
    log_.Fail(1, "made to fail");
    ErrorOf([&] { rows->Update(); });
    EXPECT_EQ(log_.rows, 1);
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
    rows->Update();
    EXPECT_EQ(Rows("select taskTitle from tTaskList"), "x");
}

}  // namespace
}  // namespace zv::store
