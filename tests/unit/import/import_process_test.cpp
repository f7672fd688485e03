// Imports that something outside ends: a signal, a full disk, locks of other processes.
#include <sys/resource.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "access_rows_file.h"
#include "zvdb/engine.h"
#include "zvdb_process.h"

namespace zv::zvdb {
namespace {

using ImportProcess = ZvdbProcess;

TEST_F(ImportProcess, ASignalToEndLeavesNothingBehind) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "60000", "--quiet"}).status, 0);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const pid_t child = Start({"import", Path("a.db"), Path("b.db")});
        // The name under which it is filled is there as soon as the work is.
        while (!Exists("b.db.zvdb-part") && !Exists("b.db")) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        kill(child, signal);
        EXPECT_EQ(StatusOf(child), 2) << signal;
        EXPECT_NE(Read("said").find("interrupted, nothing was imported"), std::string::npos)
            << Read("said");
        EXPECT_FALSE(Exists("b.db"));
        EXPECT_FALSE(Exists("b.db.zvdb-part"));
    }
}

TEST_F(ImportProcess, ASignalThatTheStarterHasSwitchedOffIsNoEnd) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "60000", "--quiet"}).status, 0);
    const pid_t child = Start({"import", Path("a.db"), Path("b.db"), "--quiet"},
                              [] { std::signal(SIGHUP, SIG_IGN); });
    while (!Exists("b.db.zvdb-part") && !Exists("b.db")) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    kill(child, SIGHUP);
    EXPECT_EQ(StatusOf(child), 0) << Read("said");
    EXPECT_TRUE(Exists("b.db"));
}

TEST_F(ImportProcess, ASampleThatIsEndedLeavesNothingBehind) {
    for (const int signal : {SIGTERM, SIGINT}) {
        const pid_t child = Start({"sample", Path("b.db"), "--items", "400000", "--quiet"});
        while (!Exists("b.db.zvdb-part")) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        kill(child, signal);
        EXPECT_EQ(StatusOf(child), 2) << signal;
        EXPECT_NE(Read("said").find("interrupted"), std::string::npos) << Read("said");
        EXPECT_EQ(Files(), std::vector<std::string>{"said"});
    }
}

TEST_F(ImportProcess, ASecondRunOnTheSameNewFileIsRefusedAndDisturbsNothing) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "60000", "--quiet"}).status, 0);
    ASSERT_EQ(RunZvdb({"sample", Path("small.db"), "--items", "20"}).status, 0);
    const pid_t first = Start({"import", Path("a.db"), Path("b.db"), "--quiet"});
    // The claim is held before the copy begins.
    while (!Exists("b.db.zvdb-part")) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    // Stopped, so that it cannot be done before the others have tried.
    ASSERT_EQ(kill(first, SIGSTOP), 0);
    ASSERT_TRUE(Exists("b.db.zvdb-claim"));
    for (const std::vector<std::string>& second :
         {std::vector<std::string>{"import", Path("small.db"), Path("b.db")},
          {"backup", Path("small.db"), Path("b.db"), "--force"},
          {"restore", Path("small.db"), Path("b.db")},
          {"sample", Path("b.db"), "--items", "20", "--force"},
          {"create", Path("b.db")}}) {
        const Outcome outcome = RunZvdb(second);
        EXPECT_EQ(outcome.status, 2) << second[0] << outcome.out;
        EXPECT_NE(outcome.err.find("another zvdb is at work on"), std::string::npos)
            << second[0] << outcome.err;
    }
    ASSERT_EQ(kill(first, SIGCONT), 0);
    EXPECT_EQ(StatusOf(first), 0) << Read("said");
    EXPECT_EQ(Engine(Path("b.db")).Number("select count(*) from tTaskList"), 60000);
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
    EXPECT_FALSE(Exists("b.db.zvdb-claim"));
    EXPECT_FALSE(Exists("b.db.zvdb-part"));
}

TEST_F(ImportProcess, WhatARunThatDiedLeftBlocksNobody) {
    const Outcome made = RunZvdb({"sample", Path("a.db"), "--items", "60000", "--quiet"});
    ASSERT_EQ(made.status, 0) << made.out << made.err;
    const pid_t first = Start({"import", Path("a.db"), Path("b.db"), "--quiet"});
    while (!Exists("b.db.zvdb-part")) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    kill(first, SIGKILL);
    EXPECT_EQ(StatusOf(first), 1000 + SIGKILL);
    ASSERT_TRUE(Exists("b.db.zvdb-claim"));
    const Outcome again = RunZvdb({"import", Path("a.db"), Path("b.db"), "--quiet"});
    EXPECT_EQ(again.status, 0) << again.out << again.err;
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
    EXPECT_FALSE(Exists("b.db.zvdb-claim"));
    EXPECT_FALSE(Exists("b.db.zvdb-part"));
}

TEST_F(ImportProcess, ASignalLeavesAPresentTargetAsItWas) {
    const Outcome made = RunZvdb({"sample", Path("a.db"), "--items", "60000", "--quiet"});
    ASSERT_EQ(made.status, 0) << made.out << made.err;
    ASSERT_EQ(RunZvdb({"sample", Path("b.db"), "--items", "50"}).status, 0);
    const std::string before = Read("b.db");
    const pid_t child = Start({"import", Path("a.db"), Path("b.db"), "--replace"});
    while (!IsBeingWritten("b.db")) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        if (waitpid(child, nullptr, WNOHANG) == child) FAIL() << "over too soon";
    }
    kill(child, SIGTERM);
    EXPECT_EQ(StatusOf(child), 2);
    EXPECT_EQ(Engine(Path("b.db")).Number("select count(*) from tTaskList"), 50);
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
}

TEST_F(ImportProcess, ADiskThatTakesNoMoreIsAnError) {
    ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "5000", "--quiet"}).status, 0);
    const auto limit = [] {
        const rlimit size{200000, 200000};
        setrlimit(RLIMIT_FSIZE, &size);
    };
    EXPECT_EQ(StatusOf(Start({"import", Path("a.db"), Path("b.db"), "--quiet"}, limit)), 2);
    EXPECT_NE(Read("said").find("no room"), std::string::npos) << Read("said");
    EXPECT_FALSE(Exists("b.db"));
    EXPECT_FALSE(Exists("b.db.zvdb-part"));

    ASSERT_EQ(RunZvdb({"sample", Path("b.db"), "--items", "50"}).status, 0);
    EXPECT_EQ(
        StatusOf(Start({"import", Path("a.db"), Path("b.db"), "--replace", "--quiet"}, limit)), 2);
    EXPECT_NE(Read("said").find("no room"), std::string::npos) << Read("said");
    EXPECT_EQ(Engine(Path("b.db")).Number("select count(*) from tTaskList"), 50);
    EXPECT_EQ(RunZvdb({"check", Path("b.db")}).status, 0);
}

TEST_F(ImportProcess, AnAccessFileThatIsLockedIsNamed) {
    std::filesystem::copy_file(AccessFixture("taskAlert-2003.mdb"), File("a.mdb"));
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const std::string path = Path("a.mdb");
    const pid_t holder = fork();
    if (holder == 0) {
        const int file = open(path.c_str(), O_RDWR);
        struct flock lock {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        const bool locked = fcntl(file, F_SETLK, &lock) == 0;
        [[maybe_unused]] const auto sent = write(ready[1], locked ? "y" : "n", 1);
        pause();
        _exit(0);
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    const Outcome import = RunZvdb({"import", path, Path("b.db")});
    EXPECT_EQ(import.status, 2);
    EXPECT_NE(import.err.find("another program has locked the file"), std::string::npos)
        << import.err;
    kill(holder, SIGKILL);
    waitpid(holder, nullptr, 0);
    close(ready[0]);
    close(ready[1]);
}

TEST_F(ImportProcess, AFolderThatCannotBeWrittenIsNamed) {
    if (geteuid() != 0) GTEST_SKIP() << "needs the right to take rights away";
    std::filesystem::copy_file(AccessFixture("taskAlert-2003.mdb"), File("a.mdb"));
    std::filesystem::create_directory(File("closed"));
    std::filesystem::permissions(File("closed"), std::filesystem::perms(0555));
    for (auto folder = File("a.mdb"); folder.has_relative_path(); folder = folder.parent_path()) {
        std::error_code ignored;
        std::filesystem::permissions(folder, std::filesystem::perms(0055),
                                     std::filesystem::perm_options::add, ignored);
    }
    const int said = open(Path("said").c_str(), O_WRONLY | O_CREAT, 0666);
    close(said);
    std::filesystem::permissions(File("said"), std::filesystem::perms(0666));
    const auto nobody = [] {
        if (setgid(65534) != 0 || setuid(65534) != 0) _exit(98);
    };
    EXPECT_EQ(StatusOf(Start({"import", Path("a.mdb"), Path("closed/b.db")}, nobody)), 2);
    EXPECT_NE(Read("said").find("cannot be created"), std::string::npos) << Read("said");
}

}  // namespace
}  // namespace zv::zvdb
