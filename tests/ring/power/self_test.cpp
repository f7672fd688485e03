// A program that leaves out a sync is found: without this, no findings would prove nothing.
#include <gtest/gtest.h>

#include <stdexcept>

#include "power_run.h"

namespace zv::ring {
namespace {

/// Some of a few seeds finds it.
bool IsFound(const std::string& flow, const LeavesOut& leavesOut) {
    constexpr std::uint32_t kSeeds = 4;
    for (std::uint32_t seed = 1; seed <= kSeeds; seed++) {
        if (!PlayPower({flow, seed, 60, 512}, leavesOut).wrong.empty()) return true;
    }
    return false;
}

LeavesOut SyncOf(const std::string& end) {
    return [end](const DiskCall& call) {
        return call.action == DiskAction::Sync && call.path.ends_with(end);
    };
}
bool IsSyncOfFolder(const DiskCall& call) {
    return call.action == DiskAction::SyncFolder;
}

TEST(PowerHarness, FindsALogThatIsNotSynced) {
    EXPECT_TRUE(IsFound("work", SyncOf("-wal")));
}
TEST(PowerHarness, FindsAJournalThatIsNotSynced) {
    EXPECT_TRUE(IsFound("work rollback", SyncOf("-journal")));
}
TEST(PowerHarness, FindsADatabaseThatIsNotSynced) {
    EXPECT_TRUE(IsFound("work rollback", SyncOf("t.db")));
    EXPECT_TRUE(IsFound("reimport", SyncOf("target.db")));
}
TEST(PowerHarness, FindsANewFileThatIsRenamedBeforeItIsWritten) {
    EXPECT_TRUE(IsFound("create", SyncOf("-part")));
    EXPECT_TRUE(IsFound("import", SyncOf("-part")));
}
TEST(PowerHarness, FindsANameThatIsNotOnTheDisk) {
    EXPECT_TRUE(IsFound("create", IsSyncOfFolder));
    EXPECT_TRUE(IsFound("backup", IsSyncOfFolder));
}
TEST(PowerHarness, FindsAJournalThatComesBack) {
    EXPECT_TRUE(IsFound("work rollback", IsSyncOfFolder));
}
TEST(PowerPoint, IsReadAsItIsWritten) {
    const PowerPoint point{"work rollback", 17, 30, 4096};
    EXPECT_EQ(PowerPoint::Parse("# a comment\n" + point.Text()).Text(), point.Text());
    EXPECT_THROW(PowerPoint::Parse("flow: work\n"), std::runtime_error);
}

}  // namespace
}  // namespace zv::ring
