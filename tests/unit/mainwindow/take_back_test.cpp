#include "windows/main/acts/take_back.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace zv::windows {
namespace {

class TakeBackList : public ::testing::Test {
 protected:
    TakeBackList() {
        list.onNotice = [this](const std::string& text) { notice = text; };
    }
    void Add(const std::string& name, bool done = true) {
        list.Add(name, [this, name, done] {
            taken.push_back(name);
            return done;
        });
    }
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
    list.Add("a", []() -> bool { throw std::runtime_error("no memory"); });
    EXPECT_THROW(list.TakeNewest(), std::runtime_error);
    EXPECT_EQ(notice, "a");
}

TEST_F(TakeBackList, WhatIsReplacedTakesItsPlace) {
    list.Add("a", [this] {
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

TEST_F(TakeBackList, ClearedItHoldsNothing) {
    Add("a");
    list.Clear();
    EXPECT_EQ(notice, "");
    EXPECT_FALSE(list.Any());
}

}  // namespace
}  // namespace zv::windows
