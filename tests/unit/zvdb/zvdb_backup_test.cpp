// Backup and restore of files that programs have open, and the journal mode.
#include <algorithm>

#include "scratch.h"
#include "store/sqlite/journal_mode.h"
#include "store/sqlite/sqlite_connection.h"
#include "zvdb/engine.h"

namespace zv::zvdb {
namespace {

class ZvdbCopies : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "300"}).status, 0);
    }
    std::int64_t Items(const std::string& name, const std::string& where = "1") {
        return Engine(Path(name)).Number("select count(*) from tTaskList where " + where);
    }
    void ExpectRefused(const Outcome& outcome, const std::string& reason) {
        EXPECT_EQ(outcome.status, 2) << outcome.out;
        EXPECT_NE(outcome.err.find(reason), std::string::npos) << outcome.err;
    }
    void Damage(const std::string& name) {
        std::string bytes = Read(name);
        // A page in the middle.
        const std::size_t page = bytes.size() / 8192 * 4096;
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(page), 4096, '\x55');
        Write(name, bytes);
    }
    std::vector<std::string> SortedFiles() {
        auto files = Files();
        std::sort(files.begin(), files.end());
        return files;
    }
};

TEST_F(ZvdbCopies, ABackupHoldsRowsThatAreOnlyInTheLog) {
    const auto program = store::OpenSqlite(Path("a.db"));
    program->Execute("update tTaskList set taskTitle='only in the log' where fID<=20");
    const Outcome backup = RunZvdb({"backup", Path("a.db"), Path("b.db")});
    EXPECT_EQ(backup.status, 0) << backup.out << backup.err;
    EXPECT_NE(backup.out.find("nothing wrong"), std::string::npos) << backup.out;
    EXPECT_FALSE(std::filesystem::exists(File("b.db-wal")));
    EXPECT_EQ(Items("b.db", "taskTitle='only in the log'"), 20);
    EXPECT_EQ(program->Execute("update tTaskList set tDone=1 where fID=1"), 1);
    EXPECT_EQ(Engine(Path("b.db")).Text("pragma journal_mode"), "wal");
}
TEST_F(ZvdbCopies, ABackupOfARollBackFileIsOne) {
    ASSERT_EQ(RunZvdb({"mode", Path("a.db"), "rollback"}).status, 0);
    ASSERT_EQ(RunZvdb({"backup", Path("a.db"), Path("b.db")}).status, 0);
    EXPECT_EQ(RunZvdb({"mode", Path("b.db")}).out, "rollback\n");
}
TEST_F(ZvdbCopies, ABackupNeverOverwritesUnlessAskedTo) {
    Write("b.db", "mine");
    ExpectRefused(RunZvdb({"backup", Path("a.db"), Path("b.db")}), "there already");
    EXPECT_EQ(Read("b.db"), "mine");
    EXPECT_EQ(RunZvdb({"backup", Path("a.db"), Path("b.db"), "--force"}).status, 0);
    EXPECT_EQ(Items("b.db"), 300);
    ExpectRefused(RunZvdb({"backup", Path("a.db"), Path("a.db"), "--force"}), "are the same");
    ExpectRefused(RunZvdb({"backup", Path("a.db"), Path("no/b.db")}), "does not exist");
    EXPECT_EQ(SortedFiles(), (std::vector<std::string>{"a.db", "b.db"}));
}
TEST_F(ZvdbCopies, ADamagedFileIsNotCopied) {
    Damage("a.db");
    const Outcome backup = RunZvdb({"backup", Path("a.db"), Path("b.db")});
    EXPECT_EQ(backup.status, 2) << backup.out << backup.err;
    EXPECT_EQ(SortedFiles(), std::vector<std::string>{"a.db"});
}
TEST_F(ZvdbCopies, ARestoreGoesIntoAFileThatProgramsHaveOpen) {
    ASSERT_EQ(RunZvdb({"backup", Path("a.db"), Path("b.db")}).status, 0);
    for (const std::string mode : {"wal", "rollback"}) {
        ASSERT_EQ(RunZvdb({"mode", Path("a.db"), mode}).status, 0);
        const auto program = store::OpenSqlite(Path("a.db"));
        program->Execute("delete from tTaskList where fID>100");
        const auto list = program->Open("select fID from tTaskList order by fID",
                                        store::CursorType::ForwardOnly, store::LockType::ReadOnly);
        const Outcome restore =
            RunZvdb({"restore", Path("b.db"), Path("a.db"), "--replace", "--quiet"});
        EXPECT_EQ(restore.status, 0) << restore.out << restore.err;
        int rows = 0;
        for (; !list->Eof(); list->MoveNext()) rows++;
        EXPECT_EQ(rows, 100) << "the list that was open goes on with what it began";
        EXPECT_EQ(program
                      ->Open("select count(*) from tTaskList", store::CursorType::ForwardOnly,
                             store::LockType::ReadOnly)
                      ->Field(0)
                      .ToInt32(),
                  300);
        EXPECT_EQ(program->Execute("update tTaskList set tDone=1 where fID=200"), 1);
        EXPECT_EQ(RunZvdb({"mode", Path("a.db")}).out, mode + "\n");
        EXPECT_EQ(RunZvdb({"check", Path("a.db")}).status, 0);
    }
    EXPECT_EQ(SortedFiles(), (std::vector<std::string>{"a.db", "b.db"}));
}
TEST_F(ZvdbCopies, ARestoreOfPagesOfAnotherSize) {
    ASSERT_EQ(RunZvdb({"mode", Path("a.db"), "rollback"}).status, 0);
    Engine(Path("a.db")).Run("pragma page_size=8192; vacuum");
    ASSERT_EQ(RunZvdb({"sample", Path("live.db"), "--items", "50"}).status, 0);
    const Outcome restore = RunZvdb({"restore", Path("a.db"), Path("live.db"), "--replace"});
    EXPECT_EQ(restore.status, 0) << restore.out << restore.err;
    EXPECT_EQ(Items("live.db"), 300);
    EXPECT_EQ(RunZvdb({"mode", Path("live.db")}).out, "wal\n");
}
TEST_F(ZvdbCopies, ARestoreWhereNothingIsMakesTheFile) {
    ASSERT_EQ(RunZvdb({"backup", Path("a.db"), Path("b.db")}).status, 0);
    const Outcome restore = RunZvdb({"restore", Path("b.db"), Path("c.db")});
    EXPECT_EQ(restore.status, 0) << restore.out << restore.err;
    EXPECT_EQ(Items("c.db"), 300);
}
TEST_F(ZvdbCopies, ARestoreTakesNoOtherFilesPlaceUnlessAskedTo) {
    ASSERT_EQ(RunZvdb({"sample", Path("live.db"), "--items", "50"}).status, 0);
    ExpectRefused(RunZvdb({"restore", Path("a.db"), Path("live.db")}), "there already");
    EXPECT_EQ(Items("live.db"), 50);
}
TEST_F(ZvdbCopies, WhatIsNoWholeBackupChangesNothing) {
    ASSERT_EQ(RunZvdb({"sample", Path("live.db"), "--items", "50"}).status, 0);
    ASSERT_EQ(RunZvdb({"sample", Path("few.db"), "--items", "50"}).status, 0);
    Engine(Path("few.db")).Run("drop table cards");
    Damage("a.db");
    Write("other.db", "something else");
    const std::string before = Read("live.db");
    for (const char* bad : {"a.db", "few.db", "other.db", "none.db"}) {
        const Outcome restore = RunZvdb({"restore", Path(bad), Path("live.db"), "--replace"});
        EXPECT_EQ(restore.status, 2) << bad << restore.out;
        EXPECT_TRUE(Read("live.db") == before) << bad;
    }
}
TEST_F(ZvdbCopies, ARestoreIntoALockedFileIsRefusedAndChangesNothing) {
    ASSERT_EQ(RunZvdb({"sample", Path("live.db"), "--items", "50"}).status, 0);
    Engine writer(Path("live.db"));
    writer.Run("begin immediate");
    ExpectRefused(RunZvdb({"restore", Path("a.db"), Path("live.db"), "--replace"}),
                  "another program");
    writer.Run("rollback");
    EXPECT_EQ(Items("live.db"), 50);
}

class ZvdbMode : public ZvdbCopies {};

TEST_F(ZvdbMode, IsReportedAndChanged) {
    EXPECT_EQ(RunZvdb({"mode", Path("a.db")}).out, "wal\n");
    const Outcome back = RunZvdb({"mode", Path("a.db"), "rollback"});
    EXPECT_EQ(back.status, 0) << back.err;
    EXPECT_EQ(back.out, "rollback\n");
    EXPECT_EQ(Engine(Path("a.db")).Text("pragma journal_mode"), "delete");
    EXPECT_EQ(RunZvdb({"mode", Path("a.db"), "wal"}).out, "wal\n");
    EXPECT_EQ(RunZvdb({"check", Path("a.db")}).status, 0);
    EXPECT_EQ(SortedFiles(), std::vector<std::string>{"a.db"});
}
TEST_F(ZvdbMode, DoesNotChangeUnderAProgram) {
    const auto program = store::OpenSqlite(Path("a.db"));
    ExpectRefused(RunZvdb({"mode", Path("a.db"), "rollback"}), "another program");
    EXPECT_EQ(RunZvdb({"mode", Path("a.db")}).out, "wal\n");
}
TEST_F(ZvdbMode, TakesTheLogAlong) {
    Engine reader(Path("a.db"));
    reader.Run("begin; select count(*) from tTaskList");
    Engine(Path("a.db")).Run("update tTaskList set taskTitle='only in the log' where fID=1");
    std::filesystem::create_directory(File("crashed"));
    for (const char* name : {"a.db", "a.db-wal"}) {
        std::filesystem::copy_file(File(name), File("crashed") / name);
    }
    const store::sqlite::ScriptedShares shares([](const std::string&) { return true; });
    ASSERT_EQ(RunZvdb({"mode", Path("crashed/a.db"), "rollback"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(File("crashed/a.db-wal")));
    EXPECT_EQ(Items("crashed/a.db", "taskTitle='only in the log'"), 1);
}
TEST_F(ZvdbMode, OfWriteAheadIsRefusedOnAShare) {
    ASSERT_EQ(RunZvdb({"mode", Path("a.db"), "rollback"}).status, 0);
    const store::sqlite::ScriptedShares shares([](const std::string&) { return true; });
    ExpectRefused(RunZvdb({"mode", Path("a.db"), "wal"}), "on a network share");
    EXPECT_EQ(RunZvdb({"mode", Path("a.db")}).out, "rollback\n");
}
TEST_F(ZvdbMode, OfAllThatIsMadeOnAShareIsRollBack) {
    ASSERT_EQ(RunZvdb({"sample", Path("local.db"), "--items", "30"}).status, 0);
    std::filesystem::create_directory(File("share"));
    const store::sqlite::ScriptedShares shares(
        [](const std::string& path) { return path.find("share") != std::string::npos; });
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"create", Path("share/c.db")},
          {"sample", Path("share/s.db"), "--items", "30"},
          {"import", Path("a.db"), Path("share/i.db")},
          {"backup", Path("a.db"), Path("share/b.db")},
          {"restore", Path("local.db"), Path("share/r.db")}}) {
        const Outcome made = RunZvdb(command);
        EXPECT_EQ(made.status, 0) << command[0] << made.out << made.err;
        const std::string file =
            command[0] == "create" || command[0] == "sample" ? command[1] : command[2];
        EXPECT_EQ(RunZvdb({"mode", file}).out, "rollback\n") << command[0];
        EXPECT_EQ(RunZvdb({"check", file}).status, 0) << command[0];
    }
}
TEST_F(ZvdbMode, WriteAheadIsRefusedOnAShareByEveryCommand) {
    const store::sqlite::ScriptedShares shares([](const std::string&) { return true; });
    const std::string remedy = "run: zvdb mode \"" + Path("a.db") + "\" rollback";
    ExpectRefused(RunZvdb({"check", Path("a.db")}), remedy);
    ExpectRefused(RunZvdb({"import", Path("a.db"), Path("b.db")}), remedy);
    ExpectRefused(RunZvdb({"backup", Path("a.db"), Path("b.db")}), remedy);
    EXPECT_EQ(SortedFiles(), std::vector<std::string>{"a.db"});
    ASSERT_EQ(RunZvdb({"mode", Path("a.db"), "rollback"}).status, 0);
    EXPECT_EQ(RunZvdb({"check", Path("a.db")}).status, 0);
}

TEST_F(ZvdbCopies, TheFileThatIsAtFaultIsNamed) {
    Write("junk.db", "this is no database at all, only a text that lies there");
    ExpectRefused(RunZvdb({"restore", Path("a.db"), Path("junk.db"), "--replace"}),
                  "\"" + Path("junk.db") + "\": this is not an embedded database");
    ASSERT_EQ(RunZvdb({"sample", Path("b.db"), "--items", "50"}).status, 0);
    Engine open(Path("b.db"));
    open.Run("begin; select count(*) from cards");
    ExpectRefused(RunZvdb({"backup", Path("a.db"), Path("b.db"), "--force"}),
                  "another program has \"" + Path("b.db") + "\" open");
}

TEST_F(ZvdbCopies, RowsThatTheCheckFindsFaultWithAreCopiedAndReported) {
    Engine(Path("a.db")).Run("update tTaskList set taskTitle='' where fID=3");
    const Outcome backup = RunZvdb({"backup", Path("a.db"), Path("b.db")});
    EXPECT_EQ(backup.status, 3) << backup.out << backup.err;
    ExpectStatusShowsCheck(backup, RunZvdb({"check", Path("b.db")}));
    for (const char* name : {"new.db", "a.db"}) {
        const Outcome restore = RunZvdb({"restore", Path("b.db"), Path(name), "--replace"});
        EXPECT_EQ(restore.status, 3) << restore.out << restore.err;
        ExpectStatusShowsCheck(restore, RunZvdb({"check", Path(name)}));
    }
}

}  // namespace
}  // namespace zv::zvdb
