// In which journal mode a file of the embedded engine is opened, and where it is refused.
#include <sqlite3.h>

#include "database_fixture.h"
#include "store/sqlite/journal_mode.h"

namespace zv::store {
namespace {

class JournalModes : public DatabaseTest {
 protected:
    JournalModes() { connection_.reset(); }
    std::unique_ptr<Connection> Raw() { return OpenSqlite(path_, {.translate = false}); }
    void SetMode(const std::string& mode) { RowsOf(*Raw(), "pragma journal_mode=" + mode); }
    std::string Mode() { return RowsOf(*Raw(), "pragma journal_mode"); }
};

TEST_F(JournalModes, OfANewFileIsWriteAhead) {
    EXPECT_EQ(Mode(), "wal");
    EXPECT_TRUE(sqlite::UsesWriteAheadLog(path_));
}
TEST_F(JournalModes, ThatAFileHasIsNeverChanged) {
    SetMode("delete");
    EXPECT_EQ(OpenSqlite(path_)->Execute("insert into cards(CompName) values('a')"), 1);
    EXPECT_EQ(Mode(), "delete");
    EXPECT_FALSE(sqlite::UsesWriteAheadLog(path_));
    SetMode("wal");
    EXPECT_EQ(OpenSqlite(path_)->Execute("insert into cards(CompName) values('b')"), 1);
    EXPECT_EQ(Mode(), "wal");
}
TEST_F(JournalModes, AHalfReadListKeepsNobodyFromWriting) {
    for (const std::string mode : {"delete", "wal"}) {
        SetMode(mode);
        const auto reader = OpenSqlite(path_);
        for (int i = 0; i < 3; i++) reader->Execute("insert into cards(CompName) values('c')");
        const auto rows = reader->Open("select fID,CompName from cards order by fID",
                                       CursorType::ForwardOnly, LockType::ReadOnly);
        ASSERT_FALSE(rows->Eof());
        EXPECT_EQ(OpenSqlite(path_, {.busyTimeout = 50})->Execute("update cards set CompName='d'"),
                  mode == "delete" ? 3 : 6)
            << mode;
        int count = 0;
        for (; !rows->Eof(); rows->MoveNext()) {
            EXPECT_EQ(rows->Field(1).ToText(), mode == "delete" || count >= 3 ? "c" : "d");
            count++;
        }
        EXPECT_EQ(count, mode == "delete" ? 3 : 6);
    }
}

class OnAShare : public JournalModes {
 protected:
    sqlite::ScriptedShares shares_{[](const std::string&) { return true; }};
};

TEST_F(OnAShare, AFileInWriteAheadModeIsRefusedWithTheCommandThatHelps) {
    const auto error = ErrorOf([&] { OpenSqlite(path_); });
    EXPECT_EQ(error.Number(), ErrorNumber::PathFileAccess);
    EXPECT_EQ(error.Kind(), ErrorKind::WriteAheadOnShare);
    EXPECT_EQ(
        error.Text(),
        "The database file is in write-ahead mode, which would destroy it on a network share. "
        "Close all programs and run: zvdb mode \"" +
            path_ + "\" rollback");
    EXPECT_FALSE(std::filesystem::exists(folder_ / u8"t.db-shm"));
}
TEST_F(OnAShare, AFileInARollBackModeIsOpenedAsItIs) {
    {
        const sqlite::ScriptedShares local([](const std::string&) { return false; });
        SetMode("delete");
    }
    const sqlite::ScriptedShares shares([](const std::string&) { return true; });
    const auto connection = OpenSqlite(path_);
    EXPECT_EQ(connection->Execute("insert into cards(CompName) values('a')"), 1);
    EXPECT_EQ(Mode(), "delete");
}
TEST_F(OnAShare, ANewFileIsInARollBackMode) {
    const std::string path = Utf8Of(folder_ / u8"new.db");
    CreateSqliteDatabase(path);
    EXPECT_FALSE(sqlite::UsesWriteAheadLog(path));
    EXPECT_EQ(OpenSqlite(path)->Execute("insert into cards(CompName) values('a')"), 1);
}
TEST_F(OnAShare, AFileThatAnotherMachineConvertsIsNotTouchedAnyMore) {
    const std::string path = Utf8Of(folder_ / u8"new.db");
    CreateSqliteDatabase(path);
    const auto connection = OpenSqlite(path);
    {
        // For the machine that keeps the file it lies on a disk of its own.
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
        EXPECT_EQ(sqlite::SetJournalMode(other, "wal"), SQLITE_OK);
        sqlite3_close(other);
    }
    ErrorOf([&] { connection->Execute("insert into cards(CompName) values('a')"); });
    EXPECT_FALSE(std::filesystem::exists(folder_ / u8"new.db-shm"));
}

TEST_F(JournalModes, InRollBackModeACommitIsOnTheDiskBeforeItIsAcknowledged) {
    SetMode("delete");
    const auto connection = OpenSqlite(path_, {.translate = false});
    constexpr const char* kFolderToo = "3";
    EXPECT_EQ(RowsOf(*connection, "pragma synchronous"), kFolderToo);
}

TEST(ShareType, IsRecognisedByTheNameOfTheFileSystem) {
    for (const char* share : {"nfs", "nfs4", "cifs", "smb3", "9p", "fuse.sshfs", "fuse.glusterfs",
                              "fuse.anything", "fuse", "remote"}) {
        EXPECT_TRUE(sqlite::IsShareType(share)) << share;
    }
    for (const char* local : {"ext4", "xfs", "btrfs", "tmpfs", "overlay", "fuseblk",
                              "fuse.fuse-overlayfs", "local", ""}) {
        EXPECT_FALSE(sqlite::IsShareType(local)) << local;
    }
}
TEST(ShareType, OfThisMachinesTemporaryFolderIsNone) {
    const TemporaryFolder folder;
    EXPECT_FALSE(sqlite::IsOnShare(Utf8Of(folder / u8"not there.db")));
}
TEST(JournalModeAnswer, IsLookedAt) {
    sqlite3* memory = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &memory), SQLITE_OK);
    // The engine leaves the mode as it is, and says so in its answer alone.
    EXPECT_NE(sqlite::SetJournalMode(memory, "wal"), SQLITE_OK);
    sqlite3_close(memory);
}

}  // namespace
}  // namespace zv::store
