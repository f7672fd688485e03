#include "windows/remind/due_words.h"

#include <gtest/gtest.h>

namespace zv::windows {
namespace {

std::string Words(std::optional<DateTime> date, std::int16_t language = 0) {
    const DateTime now(2003, 3, 7, 14, 0, 0);
    reminders::Due due;
    due.subject.date = date;
    due.daysOverdue = reminders::DaysOverdue(date, now);
    return DueWords(due, now, language);
}

TEST(DueWords, OfThePresentDaySayTheTime) {
    EXPECT_EQ(Words(DateTime(2003, 3, 7)), "今天");
    EXPECT_EQ(Words(DateTime(2003, 3, 7, 14, 0, 0)), "今天 14:00");
    EXPECT_EQ(Words(DateTime(2003, 3, 7, 0, 5, 0)), "今天 00:05");
    EXPECT_EQ(Words(DateTime(2003, 3, 7, 23, 59, 59)), "今天 23:59");
}

TEST(DueWords, OfAnotherDayCountTheDays) {
    EXPECT_EQ(Words(DateTime(2003, 3, 6, 23, 59, 0)), "逾期 1 天");
    EXPECT_EQ(Words(DateTime(2003, 2, 28)), "逾期 7 天");
    EXPECT_EQ(Words(DateTime(2003, 3, 8)), "明天");
    EXPECT_EQ(Words(DateTime(2003, 3, 8, 9, 15, 0)), "明天 09:15");
    EXPECT_EQ(Words(DateTime(2003, 3, 9, 9, 15, 0)), "2 天后");
    EXPECT_EQ(Words(DateTime(2004, 2, 29)), "359 天后");
}

TEST(DueWords, WithoutADateSaySo) {
    EXPECT_EQ(Words(std::nullopt), "不限日期");
    EXPECT_EQ(Words(std::nullopt, 1), "不限日期");
}

TEST(DueWords, FollowTheLanguage) {
    EXPECT_EQ(Words(DateTime(2003, 3, 9), 1), "2 天後");
    EXPECT_EQ(Words(DateTime(2003, 3, 1), 1), "逾期 6 天");
}

}  // namespace
}  // namespace zv::windows
