// What happens with files that are no usable database.
#include <gtest/gtest.h>

#include <fstream>

#include "base/path.h"
#include "database_fixture.h"

namespace zv::store {
namespace {

class DatabaseFile : public ::testing::Test {
 protected:
    std::string Path(const char8_t* name) { return Utf8Of(folder_ / name); }
    std::string Write(const char8_t* name, const std::string& content) {
        std::ofstream(folder_ / name, std::ios::binary) << content;
        return Path(name);
    }
    /// The text must give the reason and the path.
    void ExpectRefused(const std::string& path, ErrorNumber number, const std::string& reason) {
        const auto error = ErrorOf([&] { OpenSqlite(path, {.busyTimeout = 50}); });
        EXPECT_EQ(error.Number(), number);
        EXPECT_EQ(error.Text(), reason + ": " + path);
        EXPECT_EQ(error.Source(), "SQLite");
    }
    TemporaryFolder folder_;
};

TEST_F(DatabaseFile, MissingIsRefusedAndNotCreated) {
    const std::string path = Path(u8"none.db");
    ExpectRefused(path, ErrorNumber::FileNotFound, "The database file was not found");
    EXPECT_FALSE(std::filesystem::exists(folder_ / u8"none.db"));
    EXPECT_FALSE(IsSqliteFile(path));
    ExpectRefused("", ErrorNumber::FileNotFound, "The database file was not found");
}
TEST_F(DatabaseFile, AConnectionStringInItsPlaceKeepsItsPasswordToItself) {
    const auto error = ErrorOf([] { OpenSqlite("Driver=x;Server=db;Uid=me;Pwd=secret"); });
    EXPECT_EQ(error.Number(), ErrorNumber::FileNotFound);
    EXPECT_EQ(error.Text(), "The database file was not found: db");
}

TEST_F(DatabaseFile, FolderIsRefused) {
    std::filesystem::create_directory(folder_ / u8"folder");
    ExpectRefused(Path(u8"folder"), ErrorNumber::PathFileAccess,
                  "The path names a folder, not a database file");
    EXPECT_FALSE(IsSqliteFile(Path(u8"folder")));
}
TEST_F(DatabaseFile, EmptyIsRefused) {
    const std::string path = Write(u8"empty.db", "");
    ExpectRefused(path, ErrorNumber::DatabaseFailure, "The database file is empty");
    EXPECT_FALSE(IsSqliteFile(path));
}
TEST_F(DatabaseFile, ForeignIsRefused) {
    const std::string path = Write(u8"foreign.mdb", "Standard Jet DB and more of it");
    ExpectRefused(path, ErrorNumber::DatabaseFailure, "The file is not a database");
    EXPECT_FALSE(IsSqliteFile(path));
    ExpectRefused(Write(u8"short", "SQ"), ErrorNumber::DatabaseFailure,
                  "The file is not a database");
}
TEST_F(DatabaseFile, SignatureAloneIsRefused) {
    const std::string path =
        Write(u8"head.db", std::string("SQLite format 3\0", 16) + std::string(2000, 'x'));
    ExpectRefused(path, ErrorNumber::DatabaseFailure, "The file is not a database");
    EXPECT_TRUE(IsSqliteFile(path));
}
TEST_F(DatabaseFile, TruncatedIsRefused) {
    const std::string path = Path(u8"cut.db");
    CreateSqliteDatabase(path);
    const auto size = std::filesystem::file_size(folder_ / u8"cut.db");
    std::filesystem::resize_file(folder_ / u8"cut.db", size / 2);
    ExpectRefused(path, ErrorNumber::DatabaseFailure, "The database file is damaged or cut short");
}
TEST_F(DatabaseFile, LockedIsRefusedWithoutHanging) {
    const std::string path = Path(u8"locked.db");
    CreateSqliteDatabase(path);
    const auto other = OpenSqlite(path, {.translate = false});
    other->Open("pragma locking_mode=exclusive", CursorType::ForwardOnly, LockType::ReadOnly);
    other->Execute("begin exclusive");
    // In the exclusive mode the log is left for a journal, which locks readers out as well.
    other->Execute("commit");
    other->Execute("pragma journal_mode=delete");
    other->Execute("begin exclusive");
    ExpectRefused(path, ErrorNumber::DatabaseFailure, "The database is locked by another program");
}
TEST_F(DatabaseFile, StatementWaitsForAWriterAndThenFails) {
    const std::string path = Path(u8"busy.db");
    CreateSqliteDatabase(path);
    const auto other = OpenSqlite(path, {.translate = false});
    const auto connection = OpenSqlite(path, {.busyTimeout = 50});
    other->Execute("begin immediate");
    const auto error = ErrorOf([&] { connection->Execute("delete from cards"); });
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseFailure);
    EXPECT_EQ(error.Text(), "database is locked");
    other->Execute("commit");
    EXPECT_EQ(connection->Execute("delete from cards"), 0);
}
TEST_F(DatabaseFile, MissingTableIsAnErrorOfTheStatementOnly) {
    const std::string path = Path(u8"few.db");
    CreateSqliteDatabase(path);
    OpenSqlite(path)->Execute("drop table tRsBasic");
    const auto connection = OpenSqlite(path);
    EXPECT_EQ(ErrorOf([&] {
                  connection->Open("select fCode,fName from tRsBasic Order By fName",
                                   CursorType::ForwardOnly, LockType::ReadOnly);
              }).Number(),
              ErrorNumber::DatabaseTable);
    EXPECT_EQ(connection->Execute("delete from cards"), 0);
}
TEST_F(DatabaseFile, PathMayHoldChineseCharactersAndBlanks) {
    std::filesystem::create_directory(folder_ / u8"数据 文件夹");
    const std::string path = Path(u8"数据 文件夹/任务 一.db");
    CreateSqliteDatabase(path);
    EXPECT_TRUE(IsSqliteFile(path));
    const auto connection = OpenSqlite(path);
    EXPECT_EQ(connection->Execute("insert into cards(CompName) values('公司')"), 1);
    EXPECT_TRUE(std::filesystem::exists(folder_ / u8"数据 文件夹/任务 一.db"));
}
TEST_F(DatabaseFile, ForeignDatabaseWithTheTablesIsAccepted) {
    const std::string path = Path(u8"other.db");
    CreateSqliteDatabase(path);
    {
        const auto raw = OpenSqlite(path, {.translate = false});
        raw->Execute("pragma application_id=0");
        raw->Execute("drop table tTaskList");
        raw->Execute(
            "create table tTaskList(fID integer primary key, taskTime text, tDuring1 text,"
            " tDuring2 text)");
    }
    const auto connection = OpenSqlite(path);
    connection->Execute(
        "insert into tTaskList(taskTime,tDuring1,tDuring2) values('03/07/2003',"
        "'03/07/2003','03/07/2003')");
    const auto rows = connection->Open(
        "select * from tTaskList where tDuring1<=#03/07/2003# and "
        "tDuring2>=#03/07/2003#",
        CursorType::ForwardOnly, LockType::ReadOnly);
    EXPECT_EQ(rows->Field("taskTime"), Value(DateTime(2003, 3, 7)));
}

TEST_F(DatabaseFile, CreatingNeverOverwrites) {
    const std::string path = Write(u8"mine.txt", "dear");
    EXPECT_EQ(ErrorOf([&] { CreateSqliteDatabase(path); }).Number(),
              ErrorNumber::FileAlreadyExists);
    std::ifstream file(folder_ / u8"mine.txt");
    std::string content;
    file >> content;
    EXPECT_EQ(content, "dear");
}
TEST_F(DatabaseFile, CreatingInAMissingFolderIsRefused) {
    EXPECT_EQ(ErrorOf([&] { CreateSqliteDatabase(Path(u8"no/where.db")); }).Number(),
              ErrorNumber::DatabaseFailure);
}
TEST_F(DatabaseFile, CreatedFileIsRecognisable) {
    const std::string path = Path(u8"t.db");
    CreateSqliteDatabase(path);
    const auto raw = OpenSqlite(path, {.translate = false});
    EXPECT_EQ(raw->Open("pragma application_id", CursorType::ForwardOnly, LockType::ReadOnly)
                  ->Field(0)
                  .ToInt32(),
              kApplicationId);
}

}  // namespace
}  // namespace zv::store
