// Containers, bags, streams, sinks and objects that misbehave in the N-th call of anything: nothing
// breaks, nothing is left, and the next control works.
#include <gtest/gtest.h>

#include "flows.h"
#include "ring.h"

namespace zv::ring::com {
namespace {

// More calls than any flow has.
constexpr int kMostCalls = 400;
// What opens windows takes its time.
constexpr int kMostCostlyCalls = 2;

class Misbehaving : public testing::TestWithParam<std::size_t> {};

std::string NameOf(const testing::TestParamInfo<std::size_t>& info) {
    std::string name;
    for (const char c : std::string(Flows()[info.param].name)) {
        if (c != ' ') name += c;
    }
    return name;
}

TEST_P(Misbehaving, EachCallOfTheHost) {
    const Flow& flow = Flows()[GetParam()];
    int points = 0;
    // The session of the first control serves all others.
    ComPtr<IUnknown> keeper;
    for (const Act& act : Acts()) {
        ASSERT_EQ(CoCreateInstance(zv::com::kClassId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                   keeper.PutVoid()),
                  S_OK);
        const int most =
            (flow.isCostly || act.isCostly) && !IsLong() ? kMostCostlyCalls : kMostCalls;
        for (int call = 1; call <= most; call++) {
            bool reached = false;
            EXPECT_EQ(Play(flow, act, call, reached), "");
            if (!reached) break;
            points++;
        }
        keeper.Reset();
        EXPECT_EQ(WhatIsLeft(), "") << act.name;
    }
    EXPECT_GT(points, 0);
    RecordProperty("points", points);
    std::printf("%s: %d points\n", flow.name, points);
    EXPECT_EQ(NormalLife(), "");
}

INSTANTIATE_TEST_SUITE_P(Hosts, Misbehaving, testing::Range<std::size_t>(0, 15), NameOf);

TEST(Misbehaving, AllFlowsAreTested) {
    EXPECT_EQ(Flows().size(), 15u);
}

}  // namespace
}  // namespace zv::ring::com
