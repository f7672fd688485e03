// Upgrades that something outside ends: a signal, a full disk, a file that may only be read.
#include <sys/resource.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "zvdb/engine.h"
#include "zvdb_process.h"

namespace zv::zvdb {
namespace {

class UpgradeProcess : public ZvdbProcess {
 protected:
    void ExpectNothingIsMade() {
        EXPECT_EQ(Engine(Path("a.db"))
                      .Number("select count(*) from sqlite_master where name like "
                              "'zv%' or name='tTaskList_due'"),
                  0);
        EXPECT_EQ(RunZvdb({"check", Path("a.db")}).status, 0);
    }
};

TEST_F(UpgradeProcess, ASignalToEndLeavesTheFileAsItWas) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "150000", "--quiet"}).status, 0);
    const std::string before = Read("a.db");
    for (const int signal : {SIGTERM, SIGINT}) {
        const pid_t child = Start({"upgrade", Path("a.db")});
        while (!IsBeingWritten("a.db")) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            if (waitpid(child, nullptr, WNOHANG) == child) FAIL() << "over too soon";
        }
        kill(child, signal);
        EXPECT_EQ(StatusOf(child), 2);
        EXPECT_NE(Read("said").find("interrupted"), std::string::npos) << Read("said");
        EXPECT_TRUE(Read("a.db") == before);
    }
    ExpectNothingIsMade();
    EXPECT_EQ(RunZvdb({"upgrade", Path("a.db")}).out, kSideTablesMade);
}

TEST_F(UpgradeProcess, ADiskThatTakesNoMoreIsAnErrorAndNothingIsHalf) {
    for (const char* mode : {"wal", "rollback"}) {
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "5000", "--force", "--quiet"}).status,
                  0);
        ASSERT_EQ(RunZvdb({"mode", Path("a.db"), mode}).status, 0);
        const auto size = static_cast<rlim_t>(std::filesystem::file_size(File("a.db")));
        // The log is shorter than the file.
        const rlim_t limit = mode == std::string("wal") ? 60000 : size + 20000;
        EXPECT_EQ(StatusOf(Start({"upgrade", Path("a.db")},
                                 [limit] {
                                     const rlimit most{limit, limit};
                                     setrlimit(RLIMIT_FSIZE, &most);
                                 })),
                  2)
            << mode;
        EXPECT_NE(Read("said").find("no room"), std::string::npos) << Read("said");
        ExpectNothingIsMade();
    }
}

TEST_F(UpgradeProcess, AFileThatMayOnlyBeReadIsNamed) {
    if (geteuid() != 0) GTEST_SKIP() << "needs the right to take rights away";
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "50"}).status, 0);
    ASSERT_EQ(RunZvdb({"mode", Path("a.db"), "rollback"}).status, 0);
    namespace fs = std::filesystem;
    fs::permissions(File("a.db"), fs::perms(0444));
    for (auto folder = File("a.db").parent_path(); folder.has_relative_path();
         folder = folder.parent_path()) {
        std::error_code ignored;
        fs::permissions(folder, fs::perms(0055), fs::perm_options::add, ignored);
    }
    const std::string before = Read("a.db");
    close(open(Path("said").c_str(), O_WRONLY | O_CREAT, 0666));
    fs::permissions(File("said"), fs::perms(0666));
    const auto nobody = [] {
        if (setgid(65534) != 0 || setuid(65534) != 0) _exit(98);
    };
    EXPECT_EQ(StatusOf(Start({"upgrade", Path("a.db")}, nobody)), 2);
    EXPECT_NE(Read("said").find("a.db: the file cannot be written"), std::string::npos)
        << Read("said");
    EXPECT_TRUE(Read("a.db") == before);
    // Where nothing is to be made nothing has to be written.
    EXPECT_EQ(StatusOf(Start({"upgrade", Path("a.db"), "--dry-run"}, nobody)), 0) << Read("said");
    ASSERT_EQ(RunZvdb({"upgrade", Path("a.db")}).status, 0);
    EXPECT_EQ(StatusOf(Start({"upgrade", Path("a.db")}, nobody)), 0) << Read("said");
}

}  // namespace
}  // namespace zv::zvdb
