// Memory runs out in each flow, at one allocation or for the rest of the act.
#include "fault_test.h"
#include "memory_faults.h"

namespace zv::ring {
namespace {

// So that a minute is enough: flows take thousands of allocations.
constexpr long kDensity = 4;

class MemoryFaultTest : public testing::TestWithParam<std::string> {
 protected:
    static void SetUpTestSuite() { UseMemoryFolder(); }
};

std::vector<std::string> AllFlows() {
    std::vector<std::string> names = WindowFlows();
    names.insert(names.end(),
                 {"create", "replace", "import", "reimport", "backup", "restore", "upgrade"});
    return names;
}

TEST(MemoryFaultCorpus, HoldsNothingThatIsFoundAgain) {
    MemoryFaults faults;
    RecordProperty("played", PlayCorpus(faults));
}
TEST_P(MemoryFaultTest, WithoutMemoryTheFlowIsDoneOrSaysWhyAndTheFileIsSound) {
    MemoryFaults faults;
    ExpectSound(GetParam(), faults, kDensity, AllFlows().size());
}
INSTANTIATE_TEST_SUITE_P(Flows, MemoryFaultTest, testing::ValuesIn(AllFlows()));

}  // namespace
}  // namespace zv::ring
