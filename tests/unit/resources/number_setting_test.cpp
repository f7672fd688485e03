#include "resources/number_setting.h"

#include <gtest/gtest.h>

namespace zv::resources {
namespace {

constexpr NumberSetting kSetting{"Key", 5, 1, 10};

TEST(NumberSetting, TakesWhatLiesBetweenItsBounds) {
    EXPECT_TRUE(kSetting.Takes(1));
    EXPECT_TRUE(kSetting.Takes(10));
    EXPECT_FALSE(kSetting.Takes(0.9));
    EXPECT_FALSE(kSetting.Takes(10.1));
}

TEST(NumberSetting, IsTheWholePartOfWhatIsStored) {
    EXPECT_EQ(kSetting.Of("7"), 7);
    EXPECT_EQ(kSetting.Of(" 7.9 "), 7);
    EXPECT_EQ(kSetting.Of("10"), 10);
}

TEST(NumberSetting, IsTheUsualNumberWhereNoneThatFitsIsStored) {
    for (const char* text : {"", "many", "0", "11", "-7", "1e400", "7 days"}) {
        EXPECT_EQ(kSetting.Of(text), 5) << text;
    }
}

TEST(NumberSetting, TheSettingsHaveTheirBounds) {
    EXPECT_EQ(kRemindInterval.Of(""), 5);
    EXPECT_EQ(kRemindInterval.Of("1440"), 1440);
    EXPECT_EQ(kRemindInterval.Of("1441"), 5);
    EXPECT_EQ(kHistoryDays.Of(""), 365);
    EXPECT_EQ(kHistoryDays.Of("0"), 0);
}

}  // namespace
}  // namespace zv::resources
