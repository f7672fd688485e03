#include <gtest/gtest.h>

#include "engines.h"

namespace zv::store {
namespace {

class ConnectionTest : public EngineTest {};
class ReadingRecordsetTest : public EngineTest {};
class KeysetRecordsetTest : public EngineTest {};
using SqliteConnectionTest = DatabaseTest;

ZV_ON_EVERY_ENGINE(ConnectionTest);
ZV_ON_EVERY_ENGINE(ReadingRecordsetTest);
ZV_ON_EVERY_ENGINE(KeysetRecordsetTest);

TEST_P(ConnectionTest, CountsRowsThatAStatementChanged) {
    EXPECT_EQ(connection_->Execute("insert into tTaskList(taskTitle) values('a')"), 1);
    EXPECT_EQ(connection_->Execute("insert into tTaskList(taskTitle) values('b')"), 1);
    EXPECT_EQ(connection_->Execute("Update tTaskList Set tDone=1,tDoneMan = 'x' where fID =7"), 0);
    EXPECT_EQ(connection_->Execute("delete from tTaskList"), 2);
}
TEST_P(ConnectionTest, ASelectThatIsExecutedChangesNoRow) {
    Execute("insert into tTaskList(taskTitle) values('a'),('b')");
    EXPECT_EQ(connection_->Execute("select * from tTaskList"), 0);
}
TEST_P(ConnectionTest, RaisesTheClosedErrorOnceClosed) {
    const auto reading = Read("select * from cards");
    const auto editing = Edit("select * from cards");
    EXPECT_EQ(connection_->State(), Connection::kStateOpen);
    connection_->Close();
    EXPECT_EQ(connection_->State(), Connection::kStateClosed);
    EXPECT_EQ(ErrorOf([&] { Execute("delete from cards"); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { Read("select * from cards"); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { connection_->Close(); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { (void)reading->Eof(); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { editing->AddNew(); }).Number(), ErrorNumber::ObjectClosed);
}
TEST_P(ConnectionTest, RecordsetsOutliveTheConnectionSafely) {
    const auto reading = Read("select * from cards");
    const auto editing = Edit("select * from cards");
    connection_.reset();
    EXPECT_EQ(ErrorOf([&] { reading->MoveNext(); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { editing->Update(); }).Number(), ErrorNumber::ObjectClosed);
}
TEST_P(ConnectionTest, NoticesATableThatWasDropped) {
    EXPECT_FALSE(Read("select count(*) from cards")->Eof());
    Execute("drop table cards");
    EXPECT_EQ(ErrorOf([&] { Read("select count(*) from cards"); }).Number(),
              ErrorNumber::DatabaseTable);
}
TEST_P(ConnectionTest, KeepsItsStatementsThroughManyTexts) {
    for (int i = 0; i < 200; i++) {
        Execute("insert into tTaskList(TaskID) values(" + std::to_string(i % 50) + ")");
    }
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "200");
}
TEST_P(ConnectionTest, TakesOneStatementAtATime) {
    Execute("insert into cards(Name) values('a')");
    for (const char* sql : {"delete from tTaskList; delete from cards",
                            "select * from cards where Name='x'; delete from cards; --'",
                            "select * from cards where Name='x' delete from cards"}) {
        EXPECT_EQ(ErrorOf([&] { Execute(sql); }).Number(), ErrorNumber::DatabaseStatement) << sql;
        EXPECT_EQ(ErrorOf([&] { Read(sql); }).Number(), ErrorNumber::DatabaseStatement) << sql;
    }
    EXPECT_EQ(Rows("select count(*) from cards"), "1");
}
TEST_P(ConnectionTest, RefusesToOpenAStatementWithoutRows) {
    EXPECT_EQ(ErrorOf([&] { Read("delete from cards"); }).Number(), ErrorNumber::DatabaseStatement);
}

TEST_P(ReadingRecordsetTest, YieldsDatesOfDateColumns) {
    Execute("insert into tTaskList(taskTime,tDuring1) values(#03/07/2003#,#03/05/2003 10:30:00#)");
    const auto rows = Read("select taskTime,tDuring1 as begin1,tDuring2 from tTaskList");
    EXPECT_EQ(rows->Field(0), Value(DateTime(2003, 3, 7)));
    EXPECT_EQ(rows->Field("BEGIN1"), Value(DateTime(2003, 3, 5, 10, 30)));
    EXPECT_TRUE(rows->Field("tDuring2").IsNull());
    EXPECT_EQ(Read("select max(taskTime) as m from tTaskList")->Field("m"),
              Value(DateTime(2003, 3, 7)));
}
TEST_P(ReadingRecordsetTest, NamesItsFields) {
    const auto rows = Read("select fID,taskTitle as Heading from tTaskList");
    EXPECT_EQ(rows->FieldCount(), 2);
    EXPECT_EQ(rows->FieldName(1), Traits().keepsNameCase ? "Heading" : "heading");
    EXPECT_EQ(rows->FieldIndex("heading"), 1);
    EXPECT_EQ(ErrorOf([&] { rows->FieldIndex("x"); }).Number(), ErrorNumber::DatabaseColumn);
    EXPECT_EQ(ErrorOf([&] { (void)rows->FieldName(2); }).Number(), ErrorNumber::DatabaseColumn);
}
TEST_P(ReadingRecordsetTest, RaisesNoCurrentRecordBehindTheEnd) {
    const auto rows = Read("select fID from tTaskList");
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(ErrorOf([&] { (void)rows->Field(0); }).Number(), ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }).Number(), ErrorNumber::NoCurrentRecord);
}
TEST_P(ReadingRecordsetTest, RaisesTheClosedErrorOnceClosed) {
    const auto rows = Read("select fID from tTaskList");
    rows->Close();
    EXPECT_EQ(ErrorOf([&] { (void)rows->Eof(); }).Number(), ErrorNumber::ObjectClosed);
    EXPECT_EQ(ErrorOf([&] { rows->Close(); }).Number(), ErrorNumber::ObjectClosed);
}
TEST_P(ReadingRecordsetTest, CannotBeWritten) {
    Execute("insert into tTaskList(fType) values(0)");
    const auto rows = Read("select fID from tTaskList");
    EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }).Text(), "the recordset is read-only");
    EXPECT_EQ(ErrorOf([&] { rows->SetField("fID", 1); }).Text(), "the recordset is read-only");
}
TEST_P(ReadingRecordsetTest, KeepsTheRowsOfItsOpeningWhileTheConnectionWrites) {
    Execute(
        "insert into tTaskList(fID,taskTitle,taskTime) values(1,'a',#03/07/2003#),"
        "(2,'b',#03/08/2003#),(3,'c',#03/09/2003#)");
    const auto rows = Read("select fID,taskTitle,taskTime from tTaskList");
    rows->MoveNext();
    Execute("delete from tTaskList where fID >1");
    Execute("insert into tTaskList(fID,taskTitle) values(4,'d')");
    EXPECT_EQ(rows->Field(1).ToText(), "b");
    rows->MoveNext();
    EXPECT_EQ(rows->Field(0).ToInt32(), 3);
    EXPECT_EQ(rows->Field(2), Value(DateTime(2003, 3, 9)));
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
}

TEST_P(KeysetRecordsetTest, AddsRowsWithTheDefaultsOfTheTable) {
    const auto rows = Edit("select * from tTasklist");
    for (int day = 1; day <= 3; day++) {
        rows->AddNew();
        rows->SetField("taskID", 7);
        rows->SetField("taskTitle", "标题");
        rows->SetField("taskTime", DateTime(2003, 3, day));
        rows->Update();
        EXPECT_EQ(rows->Field("fID").ToInt32(), day);
        EXPECT_EQ(rows->Field("fType").ToInt32(), 0);
    }
    EXPECT_EQ(Rows("select fID,TaskID,taskTitle,taskTime,tDone,fType,tDuring1 from tTaskList "
                   "where fID=3"),
              "3|7|标题|2003-03-03 00:00:00|0|0|");
}
TEST_P(KeysetRecordsetTest, AddsARowWithoutAnyField) {
    const auto rows = Edit("select * from tTaskList");
    rows->AddNew();
    EXPECT_TRUE(rows->Field("fType").IsNull());
    rows->Update();
    EXPECT_EQ(Rows("select fID,fType,tDone from tTaskList"), "1|0|0");
}
TEST_P(KeysetRecordsetTest, DoesNotGiveAKeyTwice) {
    Execute("insert into tTaskList(fType) values(0),(0)");
    Execute("delete from tTaskList");
    const auto rows = Edit("select * from tTaskList");
    rows->AddNew();
    rows->Update();
    EXPECT_EQ(rows->Field("fID").ToInt32(), 3);
}
TEST_P(KeysetRecordsetTest, ChangesTheCurrentRow) {
    Execute("insert into tTaskList(fID,taskTitle) values(1,'a'),(2,'b')");
    const auto rows = connection_->Open("select * from tTaskList where fID=2",
                                        CursorType::ForwardOnly, LockType::Optimistic);
    rows->SetField("TASKTITLE", "B");
    rows->SetField("tDuring1", "2003-3-7");
    EXPECT_EQ(rows->Field("taskTitle").ToText(), "B");
    EXPECT_EQ(rows->Field("tDuring1"), Value(DateTime(2003, 3, 7)));
    EXPECT_EQ(Rows("select taskTitle from tTaskList where fID=2"), "b");
    rows->Update();
    EXPECT_EQ(Rows("select taskTitle,tDuring1 from tTaskList order by fID"),
              "a|\nB|2003-03-07 00:00:00");
    rows->SetField("taskTitle", Value());
    rows->Update();
    EXPECT_TRUE(Read("select taskTitle from tTaskList where fID=2")->Field(0).IsNull());
}
TEST_P(KeysetRecordsetTest, WritesAChangedRowBeforeMovingOn) {
    Execute("insert into tTaskList(fID,taskTitle) values(1,'a'),(2,'b')");
    const auto rows = Edit("select * from tTaskList order by fID desc");
    rows->SetField("taskTitle", "x");
    rows->MoveNext();
    EXPECT_EQ(rows->Field("taskTitle").ToText(), "a");
    EXPECT_EQ(Rows("select taskTitle from tTaskList where fID=2"), "x");
    rows->MoveNext();
    EXPECT_TRUE(rows->Eof());
    EXPECT_EQ(ErrorOf([&] { rows->SetField("taskTitle", "y"); }).Number(),
              ErrorNumber::NoCurrentRecord);
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }).Number(), ErrorNumber::NoCurrentRecord);
}
TEST_P(KeysetRecordsetTest, DropsUnwrittenChangesWhenClosed) {
    const auto rows = Edit("select * from tTaskList");
    rows->AddNew();
    rows->SetField("taskTitle", "x");
    rows->Close();
    EXPECT_EQ(Rows("select count(*) from tTaskList"), "0");
}
TEST_P(KeysetRecordsetTest, RefusesToChangeARowThatVanished) {
    Execute("insert into tTaskList(fID,taskTitle) values(1,'a')");
    const auto rows = Edit("select * from tTaskList");
    rows->SetField("taskTitle", "x");
    Another()->Execute("delete from tTaskList");
    const auto error = ErrorOf([&] { rows->Update(); });
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseConflict);
    EXPECT_EQ(error.Text(), "the row has been deleted");
}
TEST_P(KeysetRecordsetTest, RefusesToOverwriteAnotherUsersChange) {
    Execute("insert into tTaskList(fID,taskTitle) values(1,'a')");
    const auto rows = Edit("select * from tTaskList");
    rows->SetField("taskTitle", "x");
    Another()->Execute("Update tTaskList Set taskTitle='A' where fID=1");
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }).Number(), ErrorNumber::DatabaseConflict);
    EXPECT_EQ(Rows("select taskTitle from tTaskList"), "A");
}
TEST_P(KeysetRecordsetTest, AConflictDoesNotPassByTryingAgain) {
    Execute("insert into tTaskList(fID,taskTitle) values(1,'a')");
    const auto rows = Edit("select * from tTaskList");
    rows->SetField("taskTitle", "x");
    Another()->Execute("Update tTaskList Set taskTitle='b' where fID=1");
    for (int attempt = 0; attempt < 3; attempt++) {
        const auto error = ErrorOf([&] { rows->Update(); });
        EXPECT_EQ(error.Number(), ErrorNumber::DatabaseConflict);
        EXPECT_EQ(error.Text(), "the row has been changed by another user since it was read");
        EXPECT_EQ(rows->Field("taskTitle").ToText(), "x");
    }
    EXPECT_EQ(Rows("select taskTitle from tTaskList"), "b");
}
TEST_P(KeysetRecordsetTest, ANewRowWhoseKeyIsUnknownIsNotWrittenAgain) {
    database_->ConnectRaw()->Execute(
        "create table pairs(a integer not null, b integer default 7 not null, c varchar(9),"
        " primary key(a,b))");
    const auto rows = Edit("select a,b,c from pairs");
    rows->AddNew();
    rows->SetField("a", 1);
    rows->SetField("c", "x");
    rows->Update();
    EXPECT_EQ(Rows("select a,b,c from pairs"), "1|7|x");
    EXPECT_EQ(rows->Field("c").ToText(), "x");
    if (GetParam() == EngineKind::Embedded) return;  // which has a number for every row
    const auto error = ErrorOf([&] { rows->SetField("c", "y"); });
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseFailure);
    EXPECT_EQ(error.Text(), "the rows have no key by which they could be written");
}
TEST_P(KeysetRecordsetTest, LeavesAnotherUsersChangeOfOtherFieldsAlone) {
    Execute("insert into tTaskList(fID,taskTitle) values(1,'a')");
    const auto rows = Edit("select * from tTaskList");
    rows->SetField("taskTitle", "x");
    Another()->Execute("Update tTaskList Set tDone=1 where fID=1");
    rows->Update();
    EXPECT_EQ(Rows("select taskTitle,tDone from tTaskList"), "x|1");
}
TEST_P(KeysetRecordsetTest, KeepsAnUnwrittenRowAfterAFailure) {
    Execute("insert into tTaskSet(TaskID,taskTitle) values(1,'a')");
    const auto rows = Edit("select * from tTaskSet");
    rows->AddNew();
    rows->SetField("TaskID", 1);
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }).Number(), ErrorNumber::DatabaseFailure);
    rows->SetField("TaskID", 2);
    rows->Update();
    EXPECT_EQ(Rows("select count(*) from tTaskSet"), "2");
}
TEST_P(KeysetRecordsetTest, ReadsJoinedRowsButDoesNotWriteThem) {
    Execute("insert into tTaskList(fID,TaskID) values(1,1)");
    Execute("insert into cards(fID,Name) values(1,'x')");
    const auto rows =
        Edit("select a.fID,b.Name from tTaskList a Left Join cards b on a.taskID=b.fID");
    EXPECT_EQ(rows->Field("Name").ToText(), "x");
    EXPECT_EQ(ErrorOf([&] { rows->SetField("Name", "y"); }).Number(), ErrorNumber::DatabaseFailure);
}
TEST_P(KeysetRecordsetTest, FindsTheErrorsOfItsStatementAtOpening) {
    EXPECT_EQ(ErrorOf([&] { Edit("select * from nowhere"); }).Number(), ErrorNumber::DatabaseTable);
    if (!Traits().knowsItsColumns) return;
    EXPECT_EQ(ErrorOf([&] { Edit("select * from cards where nothing=1"); }).Number(),
              ErrorNumber::DatabaseColumn);
}

TEST_F(SqliteConnectionTest, SyncsEachCommitToTheWriteAheadLog) {
    const auto raw = OpenSqlite(path_, {.translate = false});
    const auto mode = raw->Open("pragma journal_mode", CursorType::ForwardOnly, LockType::ReadOnly);
    EXPECT_EQ(mode->Field(0).ToText(), "wal");
    const auto sync = raw->Open("pragma synchronous", CursorType::ForwardOnly, LockType::ReadOnly);
    constexpr int kFolderToo = 3;
    EXPECT_EQ(sync->Field(0).ToInt32(), kFolderToo);
}
TEST_F(SqliteConnectionTest, YieldsDatesAsTextsWhenAsked) {
    Execute("insert into tTaskList(taskTime) values(#03/07/2003#)");
    const auto raw = OpenSqlite(path_, {.datesAsText = true});
    const auto rows =
        raw->Open("select taskTime from tTaskList", CursorType::ForwardOnly, LockType::ReadOnly);
    EXPECT_EQ(rows->Field(0), Value("2003-03-07 00:00:00"));
}
TEST_F(SqliteConnectionTest, AStatementThatWritesAndYieldsRowsLeavesTheRowsOfOthersAlone) {
    Execute("insert into tTaskList(fID,taskTitle) values(1,'a'),(2,'b'),(3,'c')");
    const auto raw = OpenSqlite(path_, {.translate = false});
    const auto open = [&](const std::string& sql) {
        return raw->Open(sql, CursorType::ForwardOnly, LockType::ReadOnly);
    };
    const auto rows = open("select fID,taskTitle from tTaskList order by rowid");
    const auto deleted = open("delete from tTaskList where fID>1 returning fID");
    EXPECT_EQ(deleted->Field(0).ToInt32(), 2);
    while (!deleted->Eof()) deleted->MoveNext();
    std::string titles;
    for (; !rows->Eof(); rows->MoveNext()) titles += rows->Field(1).ToText();
    EXPECT_EQ(titles, "abc");
}
TEST_F(SqliteConnectionTest, HoldsNoLockThatStopsAnotherWriterOrTheLogFromBeingEmptied) {
    Execute("insert into tTaskList(fType) values(0),(1),(2)");
    const auto rows = Read("select fID from tTaskList");
    const auto other = OpenSqlite(path_, {.busyTimeout = 0, .translate = false});
    EXPECT_EQ(other->Execute("delete from tTaskList where fType=2"), 1);
    Execute("Update tTaskList Set tDone=1,tDoneMan = 'x' where fID =1");
    const auto checkpoint =
        other->Open("pragma wal_checkpoint(truncate)", CursorType::ForwardOnly, LockType::ReadOnly);
    EXPECT_EQ(checkpoint->Field(0).ToInt32(), 0) << "the checkpoint was kept from finishing";
}

}  // namespace
}  // namespace zv::store
