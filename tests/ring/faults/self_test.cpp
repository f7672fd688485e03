// What is broken on purpose is found: without this, no findings would prove nothing.
#include "disk_faults.h"
#include "doubles/boasting_connection.h"
#include "fault_test.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::ring {
namespace {

/// Every opening of the file yields a connection that swallows errors of writing.
std::unique_ptr<Flow> MakeBoasting(const std::string& name, const FlowOptions& options) {
    FlowOptions boasting = options;
    boasting.open = [](const std::string& path) { return doubles::Boast(store::OpenSqlite(path)); };
    return MakeFlow(name, boasting);
}

/// A flow that keeps to itself what it should say.
class Silent final : public Flow {
 public:
    explicit Silent(std::unique_ptr<Flow> flow) : flow_(std::move(flow)) {}
    Outcome Act() override { return {flow_->Act().acknowledged, {}}; }
    std::filesystem::path Folder() const override { return flow_->Folder(); }
    std::vector<std::string> WrongIn(const std::filesystem::path& folder,
                                     bool acknowledged) override {
        return flow_->WrongIn(folder, acknowledged);
    }

 private:
    std::unique_ptr<Flow> flow_;
};

TEST(FaultHarness, FindsAWriteThatIsAcknowledgedAndNotThere) {
    DiskFaults faults;
    EXPECT_TRUE(Finds("the item holds", "save", "write", faults, MakeBoasting));
    EXPECT_TRUE(Finds("the item's state", "mark", "sync", faults, MakeBoasting));
    EXPECT_TRUE(Finds("the plan's items", "generate", "write", faults, MakeBoasting));
}
TEST(FaultHarness, FindsAFailureOfWhichNobodyIsTold) {
    DiskFaults faults;
    const auto make = [](const std::string& name, const FlowOptions& options) {
        return std::make_unique<Silent>(MakeFlow(name, options));
    };
    EXPECT_TRUE(Finds("nobody said so", "save", "write", faults, make));
    EXPECT_TRUE(Finds("nobody said so", "create", "rename", faults, make));
}
TEST(FaultHarness, FindsAWriteThatIsAcknowledgedAndNeverGotItsLock) {
    DiskFaults faults;
    EXPECT_TRUE(Finds("the item holds", "save", "shmlock", faults, MakeBoasting));
    EXPECT_TRUE(Finds("the item's state", "mark rollback", "lock", faults, MakeBoasting));
}
TEST(FaultHarness, MeetsEachCallOfADisk) {
    // An operation that no flow ever asks for would pass for want of a fault.
    DiskFaults faults;
    for (const std::string& operation : faults.Operations()) {
        bool reached = false;
        for (const char* flow : {"save", "save rollback", "beside", "create"}) {
            reached = reached || Judge({flow, operation, 1, false}, faults).reached;
        }
        EXPECT_TRUE(reached) << operation;
    }
}
TEST(FaultPoint, IsReadAsItIsWritten) {
    const FaultPoint point{"save rollback", "write", 17, true};
    const FaultPoint read = FaultPoint::Parse("# a comment\n" + point.Text());
    EXPECT_EQ(read.Text(), point.Text());
    EXPECT_THROW(FaultPoint::Parse("flow: save\n"), std::runtime_error);
    EXPECT_THROW(FaultPoint::Parse(point.Text() + "more: 1\n"), std::runtime_error);
    EXPECT_THROW(FaultPoint::Parse(point.Text() + "number: 2\n"), std::runtime_error);
    EXPECT_THROW(FaultPoint::Parse("flow: a\nflow: b\nnumber: 1\ntimes: once\n"),
                 std::runtime_error);
    EXPECT_THROW(FaultPoint::Parse("flow: a\noperation: b\nnumber: 1\ntimes: twice\n"),
                 std::runtime_error);
}

}  // namespace
}  // namespace zv::ring
