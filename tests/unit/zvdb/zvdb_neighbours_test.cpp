// A log or journal of another file that lies beside the name of a new one: it is set aside and the
// new file is whole.
#include <algorithm>
#include <optional>

#include "scratch.h"
#include "zvdb/engine.h"

namespace zv::zvdb {
namespace {

class ZvdbNeighbours : public Scratch {
 protected:
    void SetUp() override {
        Scratch::SetUp();
        ASSERT_EQ(RunZvdb({"sample", Path("a.db"), "--items", "300"}).status, 0);
        ASSERT_EQ(RunZvdb({"sample", Path("dead.db"), "--items", "500", "--seed", "3"}).status, 0);
        LeaveALog("dead.db", "old.db");
        log_ = Read("old.db-wal");
        ASSERT_FALSE(log_.empty());
    }
    /// What is left beside `name` when a program that wrote to `from` is killed and the file itself
    /// is then deleted.
    void LeaveALog(const std::string& from, const std::string& name) {
        Engine writer(Path(from));
        writer.Run("pragma wal_autocheckpoint=0");
        writer.Run("update tTaskList set taskTitle=taskTitle||'!',fContent=printf('%2000c','x')");
        for (const char* suffix : {"-wal", "-shm"}) {
            std::filesystem::copy_file(File(from + suffix), File(name + suffix));
        }
    }
    void ExpectSetAside(const Outcome& outcome) {
        EXPECT_NE((outcome.out + outcome.err).find("old.db.aside-wal"), std::string::npos)
            << outcome.out << outcome.err;
        EXPECT_TRUE(Read("old.db.aside-wal") == log_);
        EXPECT_TRUE(std::filesystem::exists(File("old.db.aside-shm")));
        const Outcome check = RunZvdb({"check", Path("old.db")});
        EXPECT_EQ(check.status, 0) << check.out << check.err;
    }
    std::int64_t Items(const std::string& name) {
        return Engine(Path(name)).Number("select count(*) from tTaskList");
    }

    std::string log_;
};

TEST_F(ZvdbNeighbours, OfAnImportIntoANewFileAreSetAside) {
    const Outcome import = RunZvdb({"import", Path("a.db"), Path("old.db")});
    EXPECT_EQ(import.status, 1) << import.out << import.err;
    ExpectSetAside(import);
    EXPECT_EQ(Items("old.db"), 300);
}
TEST_F(ZvdbNeighbours, ADryRunReportsThemAndLeavesThem) {
    const Outcome import = RunZvdb({"import", Path("a.db"), Path("old.db"), "--dry-run"});
    EXPECT_EQ(import.status, 1) << import.out << import.err;
    EXPECT_NE(import.out.find("old.db.aside-wal"), std::string::npos) << import.out;
    EXPECT_TRUE(Read("old.db-wal") == log_);
}
TEST_F(ZvdbNeighbours, OfANewFileAreSetAside) {
    const Outcome create = RunZvdb({"create", Path("old.db")});
    EXPECT_EQ(create.status, 0) << create.err;
    ExpectSetAside(create);
    EXPECT_EQ(Items("old.db"), 0);
}
TEST_F(ZvdbNeighbours, OfSampleDataAreSetAside) {
    const Outcome sample = RunZvdb({"sample", Path("old.db"), "--items", "40"});
    EXPECT_EQ(sample.status, 0) << sample.err;
    ExpectSetAside(sample);
    EXPECT_EQ(Items("old.db"), 40);
}
TEST_F(ZvdbNeighbours, OfAForeignFileThatIsReplacedAreSetAside) {
    Write("old.db", "no database at all");
    const Outcome create = RunZvdb({"create", Path("old.db"), "--force"});
    EXPECT_EQ(create.status, 0) << create.err;
    ExpectSetAside(create);
}
TEST_F(ZvdbNeighbours, AJournalIsSetAsideToo) {
    std::filesystem::remove(File("old.db-shm"));
    std::filesystem::rename(File("old.db-wal"), File("old.db-journal"));
    const Outcome import = RunZvdb({"import", Path("a.db"), Path("old.db")});
    EXPECT_EQ(import.status, 1) << import.out << import.err;
    EXPECT_TRUE(Read("old.db.aside-journal") == log_);
    EXPECT_EQ(RunZvdb({"check", Path("old.db")}).status, 0);
}
TEST_F(ZvdbNeighbours, WhatWasSetAsideBeforeStays) {
    Write("old.db.aside-wal", "an earlier one");
    const Outcome create = RunZvdb({"create", Path("old.db")});
    EXPECT_EQ(create.status, 0) << create.err;
    EXPECT_NE(create.err.find("old.db.aside-2-wal"), std::string::npos) << create.err;
    EXPECT_EQ(Read("old.db.aside-wal"), "an earlier one");
    EXPECT_TRUE(Read("old.db.aside-2-wal") == log_);
}
TEST_F(ZvdbNeighbours, ThatWereSetAsideFitTheFileThatComesBack) {
    // The file was moved away and is found again: with it its log gives back all rows.
    ASSERT_EQ(RunZvdb({"create", Path("old.db")}).status, 0);
    std::filesystem::copy_file(File("dead.db"), File("old.db.aside"));
    EXPECT_EQ(Engine(Path("old.db.aside"))
                  .Number("select count(*) from tTaskList where taskTitle like '%!'"),
              500);
}
TEST_F(ZvdbNeighbours, AFailedImportLeavesThemWhereTheyWere) {
    Engine(Path("a.db")).Run("update tSysFunc set password=x'00ff' where SerialNo=1");
    EXPECT_EQ(RunZvdb({"import", Path("a.db"), Path("old.db")}).status, 2);
    EXPECT_TRUE(Read("old.db-wal") == log_);
    EXPECT_FALSE(std::filesystem::exists(File("old.db.aside-wal")));
    EXPECT_FALSE(std::filesystem::exists(File("old.db")));
}

}  // namespace
}  // namespace zv::zvdb
