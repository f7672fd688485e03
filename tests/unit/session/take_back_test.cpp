#include "session/take_back.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace zv {
namespace {

class TakeBackList : public ::testing::Test {
 protected:
    TakeBackList() {
        list.Listen([this](const std::string& text) { notice = text; });
    }
    void Add(const std::string& name, bool done = true) {
        list.Add(&owner, name, [this, name, done] {
            taken.push_back(name);
            return done;
        });
    }
    int owner = 0;
    TakeBack list;
    std::string notice;
    std::vector<std::string> taken;
};

TEST_F(TakeBackList, TheNewestComesFirst) {
    Add("a");
    Add("b");
    EXPECT_EQ(notice, "b");
    list.TakeNewest();
    EXPECT_EQ(notice, "a");
    list.TakeNewest();
    EXPECT_EQ(notice, "");
    EXPECT_FALSE(list.Any());
    list.TakeNewest();
    EXPECT_EQ(taken, (std::vector<std::string>{"b", "a"}));
}

TEST_F(TakeBackList, WhatCannotBeDoneNowStays) {
    Add("a");
    Add("b", false);
    list.TakeNewest();
    EXPECT_EQ(notice, "b");
    EXPECT_TRUE(list.Any());
}

TEST_F(TakeBackList, WhatFailsStaysAndSaysSo) {
    list.Add(&owner, "a", []() -> bool { throw std::runtime_error("no memory"); });
    EXPECT_THROW(list.TakeNewest(), std::runtime_error);
    EXPECT_EQ(notice, "a");
}

TEST_F(TakeBackList, WhatIsReplacedTakesItsPlace) {
    list.Add(&owner, "a", [this] {
        Add("what stood there");
        return true;
    });
    list.TakeNewest();
    EXPECT_EQ(notice, "what stood there");
    list.TakeNewest();
    EXPECT_FALSE(list.Any());
}

TEST_F(TakeBackList, OfManyTheOldestGo) {
    for (int i = 0; i < 100; i++) Add(std::to_string(i));
    while (list.Any()) list.TakeNewest();
    EXPECT_EQ(taken.size(), 20U);
    EXPECT_EQ(taken.back(), "80");
}

TEST_F(TakeBackList, WhatItBelongsToIsForgottenWithIt) {
    Add("a");
    list.Add(nullptr, "b", [] { return true; });
    EXPECT_TRUE(list.NewestIsOf(nullptr));
    list.Forget(&owner);
    EXPECT_EQ(notice, "b");
    list.Forget(nullptr);
    EXPECT_EQ(notice, "");
    EXPECT_FALSE(list.Any());
    EXPECT_FALSE(list.NewestIsOf(nullptr));
}

TEST_F(TakeBackList, WhatWasTakenBackCanBeDoneAgainUntilSomethingElseIsDone) {
    const auto again = [this] {
        Add("done again");
        return true;
    };
    const auto back = [&] {
        list.AddAgain(&owner, "again", again);
        return true;
    };
    list.Add(&owner, "a", back);
    EXPECT_FALSE(list.AnyAgain());
    list.TakeNewest();
    EXPECT_TRUE(list.AnyAgain());
    list.DoAgain();
    EXPECT_EQ(notice, "done again");
    EXPECT_FALSE(list.AnyAgain());
    list.Add(&owner, "a", back);
    list.TakeNewest();
    Add("something else");
    EXPECT_FALSE(list.AnyAgain());
}

TEST_F(TakeBackList, AnActThatLetsKeysThroughIsTakenBackOnce) {
    Add("a");
    list.Add(&owner, "b", [this] {
        list.TakeNewest();
        return true;
    });
    list.TakeNewest();
    EXPECT_TRUE(taken.empty());
    EXPECT_EQ(notice, "a");
}

TEST_F(TakeBackList, WhoListensLaterHearsAtOnceAndUntilHeIsGone) {
    Add("a");
    std::string heard;
    const int number = list.Listen([&heard](const std::string& text) { heard = text; });
    EXPECT_EQ(heard, "a");
    list.Unlisten(number);
    Add("b");
    EXPECT_EQ(heard, "a");
}

}  // namespace
}  // namespace zv
