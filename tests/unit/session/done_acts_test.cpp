// Acts that are taken back together.
#include "session/done_acts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>

#include "application/test_application.h"

namespace zv {
namespace {

TEST(DoneActs, AnyNumberDoneTogetherGoesBackInReverseAndAgainInOrder) {
    constexpr int kMany = 200'000;
    test::TestApplication stage;
    std::vector<int> played;
    stage.session.acts.Together([&] {
        for (int i = 0; i < kMany; i++) {
            DoneAct act;
            act.back = [&played, i] { played.push_back(i); };
            act.again = act.back;
            stage.session.acts.Done(std::move(act));
        }
        return std::size_t{kMany};
    });
    std::vector<int> order(kMany);
    std::iota(order.begin(), order.end(), 0);
    stage.session.takeBack.DoAgain();
    EXPECT_TRUE(played.empty()) << "nothing was taken back yet";
    stage.session.takeBack.TakeNewest();
    EXPECT_TRUE(std::equal(played.rbegin(), played.rend(), order.begin(), order.end()));
    played.clear();
    stage.session.takeBack.DoAgain();
    EXPECT_EQ(played, order);
}

}  // namespace
}  // namespace zv
