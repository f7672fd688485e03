// The calls of the disk fail one by one, in each flow.
#include "disk_faults.h"
#include "fault_test.h"

namespace zv::ring {
namespace {

// So that a minute is enough for all flows.
constexpr long kDensity = 4;

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
    long points = 0;
    for (const std::string& operation : faults.Operations()) {
        const Tally tally = PlayAll(GetParam(), operation, faults, IsLong() ? kAll : kDensity);
        ExpectNoFindings(tally);
        points += tally.points;
    }
    std::printf("%s: %ld points\n", GetParam().c_str(), points);
}
INSTANTIATE_TEST_SUITE_P(Flows, DiskFaultTest, testing::ValuesIn(AllFlows()), TestName);

}  // namespace
}  // namespace zv::ring
