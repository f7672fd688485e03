// The calls of the disk fail one by one, in each flow.
#include "disk_faults.h"
#include "fault_test.h"

namespace zv::ring {
namespace {

// So that a minute is enough for all flows.
constexpr long kDensity = 1;

class DiskFaultTest : public testing::TestWithParam<std::string> {
 protected:
    static void SetUpTestSuite() { UseMemoryFolder(); }
};

std::vector<std::string> AllFlows() {
    std::vector<std::string> names;
    for (const std::string& name : WindowFlows()) {
        names.push_back(name);
        names.push_back(name + " rollback");
    }
    names.insert(names.end(), ToolFlows().begin(), ToolFlows().end());
    return names;
}

std::string TestName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::erase(name, ' ');
    return name;
}

TEST(DiskFaultCorpus, HoldsNothingThatIsFoundAgain) {
    DiskFaults faults;
    RecordProperty("played", PlayCorpus(faults));
}

TEST_P(DiskFaultTest, WhateverCallFailsTheFlowIsDoneOrSaysWhyAndTheFileIsSound) {
    DiskFaults faults;
    ExpectSound(GetParam(), faults, kDensity, AllFlows().size());
}
INSTANTIATE_TEST_SUITE_P(Flows, DiskFaultTest, testing::ValuesIn(AllFlows()), TestName);

}  // namespace
}  // namespace zv::ring
