// How long a reminder is put off.
#include "reminders/put_off.h"

#include <gtest/gtest.h>

namespace zv::reminders {
namespace {

TEST(MomentOf, CountsFromNow) {
    const DateTime now(2003, 3, 7, 23, 50, 30);  // a Friday
    EXPECT_EQ(MomentOf(PutOff::FiveMinutes, now), DateTime(2003, 3, 7, 23, 55, 30));
    EXPECT_EQ(MomentOf(PutOff::QuarterHour, now), DateTime(2003, 3, 8, 0, 5, 30));
    EXPECT_EQ(MomentOf(PutOff::HalfHour, now), DateTime(2003, 3, 8, 0, 20, 30));
    EXPECT_EQ(MomentOf(PutOff::Hour, now), DateTime(2003, 3, 8, 0, 50, 30));
    EXPECT_EQ(MomentOf(PutOff::FourHours, now), DateTime(2003, 3, 8, 3, 50, 30));
}

TEST(MomentOf, TomorrowIsAtEight) {
    EXPECT_EQ(MomentOf(PutOff::TomorrowMorning, DateTime(2003, 2, 28, 7)), DateTime(2003, 3, 1, 8));
    EXPECT_EQ(MomentOf(PutOff::TomorrowMorning, DateTime(2003, 3, 7, 23, 59, 59)),
              DateTime(2003, 3, 8, 8));
}

TEST(MomentOf, NextMondayIsNeverToday) {
    const DateTime monday(2003, 3, 10, 7);
    for (int day = 1; day <= 7; day++) {
        EXPECT_EQ(MomentOf(PutOff::NextMonday, monday.AddDays(-day)), DateTime(2003, 3, 10, 8))
            << day;
    }
    EXPECT_EQ(MomentOf(PutOff::NextMonday, monday), DateTime(2003, 3, 17, 8));
}

TEST(MomentOf, IsNothingBehindTheCalendar) {
    EXPECT_EQ(MomentOf(PutOff::FourHours, DateTime(9999, 12, 31, 19, 59, 59)),
              DateTime(9999, 12, 31, 23, 59, 59));
    EXPECT_EQ(MomentOf(PutOff::FourHours, DateTime(9999, 12, 31, 20)), std::nullopt);
    EXPECT_EQ(MomentOf(PutOff::TomorrowMorning, DateTime(9999, 12, 31)), std::nullopt);
    EXPECT_EQ(MomentOf(PutOff::NextMonday, DateTime(9999, 12, 30)), std::nullopt);
}

TEST(CanPutOffUntil, OnlyLaterThanNow) {
    const DateTime now(2003, 3, 7, 9, 30);
    EXPECT_FALSE(CanPutOffUntil(now.AddSeconds(-1), now));
    EXPECT_FALSE(CanPutOffUntil(now, now));
    EXPECT_TRUE(CanPutOffUntil(now.AddSeconds(1), now));
    EXPECT_TRUE(CanPutOffUntil(DateTime(9999, 12, 31, 23, 59, 59), now));
    EXPECT_FALSE(CanPutOffUntil(DateTime::LastDay().AddDays(1), now));
}

}  // namespace
}  // namespace zv::reminders
