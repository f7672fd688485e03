#include "session/conflict_question.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(Excerpts, ShortTextsAreShownWhole) {
    EXPECT_EQ(Excerpts("", ""), (std::pair<std::string, std::string>("", "")));
    EXPECT_EQ(Excerpts("abc", "abd"), (std::pair<std::string, std::string>("abc", "abd")));
    const std::string sixty(60, 'x');
    EXPECT_EQ(Excerpts(sixty, ""), (std::pair<std::string, std::string>(sixty, "")));
}

TEST(Excerpts, LongTextsAreCut) {
    const auto [one, other] = Excerpts(std::string(61, 'x'), "y");
    EXPECT_EQ(one, std::string(60, 'x') + "...");
    EXPECT_EQ(other, "y");
}

TEST(Excerpts, LongTextsThatBeginAlikeAreShownFromTheDifferenceOn) {
    std::string alike;
    for (int i = 0; i < 100; i++) alike += "国";
    const auto [one, other] = Excerpts(alike + "甲", alike + "乙" + std::string(100, 'x'));
    const std::string lead = "...国国国国国国国国国国";
    EXPECT_EQ(one, lead + "甲");
    EXPECT_EQ(other, lead + "乙" + std::string(49, 'x') + "...");
    EXPECT_EQ(Excerpts(alike, alike + "甲").first, lead);
}

}  // namespace
}  // namespace zv
