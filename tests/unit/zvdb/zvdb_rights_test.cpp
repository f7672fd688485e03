// Who may read what the commands make.
#include <sys/stat.h>
#include <unistd.h>

#include "scratch.h"
#include "zvdb/engine.h"

namespace zv::zvdb {
namespace {

class ZvdbRights : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        before_ = umask(022);
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "30"}).status, 0);
    }
    void TearDown() override {
        umask(before_);
        Scratch::TearDown();
    }
    struct stat Facts(const std::string& name) {
        struct stat facts {};
        EXPECT_EQ(stat(Path(name).c_str(), &facts), 0) << name;
        return facts;
    }
    mode_t Mode(const std::string& name) { return Facts(name).st_mode & 07777; }
    void SetMode(const std::string& name, mode_t mode) {
        ASSERT_EQ(chmod(Path(name).c_str(), mode), 0);
    }
    mode_t before_ = 0;
};

TEST_F(ZvdbRights, OfANewFileAreThoseThatTheUserWants) {
    EXPECT_EQ(Mode("a.db"), 0644U);
    umask(077);
    for (const char* command : {"create", "sample"}) {
        ASSERT_EQ(RunZvdb({command, Path(std::string(command) + ".db")}).status, 0);
        EXPECT_EQ(Mode(std::string(command) + ".db"), 0600U);
    }
}
TEST_F(ZvdbRights, OfAFileMadeFromAnotherAreTheOthers) {
    for (const mode_t mode : {0600U, 0640U, 0660U}) {
        SetMode("a.db", mode);
        for (const char* command : {"import", "backup", "restore"}) {
            std::filesystem::remove(File("b.db"));
            ASSERT_EQ(RunZvdb({command, Path("a.db"), Path("b.db")}).status, 0);
            EXPECT_EQ(Mode("b.db"), mode) << command;
        }
    }
}
TEST_F(ZvdbRights, OfAFileThatMayOnlyBeReadLetItsOwnerWrite) {
    SetMode("a.db", 0444);
    ASSERT_EQ(RunZvdb({"import", Path("a.db"), Path("b.db")}).status, 0);
    EXPECT_EQ(Mode("b.db"), 0644U);
}
TEST_F(ZvdbRights, StayThoseOfAFileThatIsReplaced) {
    ASSERT_EQ(RunZvdb({"sample", Path("b.db"), "--items", "30"}).status, 0);
    const bool root = geteuid() == 0;
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"create", Path("b.db"), "--force"},
          {"sample", Path("b.db"), "--items", "20", "--force"},
          {"backup", Path("a.db"), Path("b.db"), "--force"},
          {"import", Path("a.db"), Path("b.db"), "--replace"},
          {"restore", Path("a.db"), Path("b.db"), "--replace"}}) {
        SetMode("b.db", 0600);
        if (root) {
            ASSERT_EQ(chown(Path("b.db").c_str(), 12345, 23456), 0);
        }
        const auto before = Facts("b.db");
        const Outcome outcome = RunZvdb(command);
        ASSERT_EQ(outcome.status, 0) << command[0] << outcome.out << outcome.err;
        EXPECT_EQ(Mode("b.db"), 0600U) << command[0];
        EXPECT_EQ(Facts("b.db").st_uid, before.st_uid) << command[0];
        EXPECT_EQ(Facts("b.db").st_gid, before.st_gid) << command[0];
    }
}
TEST_F(ZvdbRights, OfAGroupGoToThatGroupAlone) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a file to a group";
    SetMode("a.db", 0660);
    ASSERT_EQ(chown(Path("a.db").c_str(), geteuid(), 23456), 0);
    ASSERT_EQ(RunZvdb({"import", Path("a.db"), Path("b.db")}).status, 0);
    EXPECT_EQ(Facts("b.db").st_gid, 23456U);
    EXPECT_EQ(Mode("b.db"), 0660U);
}
TEST_F(ZvdbRights, AreNarrowAsLongAsAFileIsBeingMade) {
    // A disk that takes no more leaves the part for a look.
    SetMode("a.db", 0600);
    ASSERT_EQ(RunZvdb({"backup", Path("a.db"), Path("b.db")}).status, 0);
    Engine open(Path("b.db"));
    open.Run("begin immediate; update tTaskList set tDone=1");
    for (const char* name : {"b.db", "b.db-wal", "b.db-shm"}) EXPECT_EQ(Mode(name), 0600U) << name;
}
TEST_F(ZvdbRights, OfWhatIsSetAsideStay) {
    Write("c.db-wal", "a log");
    SetMode("c.db-wal", 0600);
    ASSERT_EQ(RunZvdb({"create", Path("c.db")}).status, 0);
    EXPECT_EQ(Mode("c.db.aside-wal"), 0600U);
}

}  // namespace
}  // namespace zv::zvdb
