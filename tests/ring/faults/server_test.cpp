// The calls of a server's driver fail one by one, in each flow of the windows.
#include <chrono>

#include "doubles/boasting_connection.h"
#include "fault_test.h"
#include "odbc_faults.h"

namespace zv::ring {
namespace {

class ServerFaultHarness : public testing::Test {
 protected:
    void SetUp() override {
        if (const std::string reason = ServerStore::WhyMissing(); !reason.empty()) {
            GTEST_SKIP() << reason;
        }
    }
};
class ServerFaultTest : public ServerFaultHarness,
                        public testing::WithParamInterface<std::string> {};

TEST_P(ServerFaultTest, WhateverTheDriverRefusesTheFlowIsDoneOrSaysWhyAndTheServerIsSound) {
    OdbcFaults faults(std::make_shared<ServerStore>());
    constexpr long kFirstPointsOfEach = 1;
    ExpectSound(GetParam(), faults, kFirstPointsOfEach, WindowFlows().size());
}
TEST_F(ServerFaultHarness, WhatIsAcknowledgedThoughTheServerRefusedItIsFound) {
    OdbcFaults faults(std::make_shared<ServerStore>());
    const auto boast = [](const std::string& name, const FlowOptions& options) {
        FlowOptions boasting = options;
        boasting.open = [open = options.open](const std::string& path) {
            return doubles::Boast(open(path));
        };
        return MakeFlow(name, boasting);
    };
    EXPECT_TRUE(Finds("the item holds", "save", "SQLExecDirectW", faults, boast) ||
                Finds("the item holds", "save", "SQLExecute", faults, boast));
}
INSTANTIATE_TEST_SUITE_P(Flows, ServerFaultTest, testing::ValuesIn(WindowFlows()),
                         [](const auto& flow) { return flow.param; });

}  // namespace
}  // namespace zv::ring
