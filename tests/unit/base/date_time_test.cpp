// Dates as texts and as automation dates.
#include "base/date_time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/errors.h"

namespace zv {
namespace {

TEST(DateTimeText, PadsEveryPart) {
    const DateTime date(203, 4, 5, 6, 7, 8);
    EXPECT_EQ(date.IsoDate(), "0203-04-05");
    EXPECT_EQ(date.UsDate(), "04/05/0203");
    EXPECT_EQ(date.IsoDateTime(), "0203-04-05 06:07:08");
}

TEST(DateTimeText, ShortFormLeavesMidnightOut) {
    EXPECT_EQ(DateTime(2003, 3, 7).ShortIso(), "2003-03-07");
    EXPECT_EQ(DateTime(2003, 3, 7, 10, 0, 0).ShortIso(), "2003-03-07T10:00:00");
}

TEST(DateTimeText, DatesBeforeTheFirstDayKeepTheirTime) {
    EXPECT_EQ(DateTime(1899, 12, 29, 18, 30, 0).IsoDateTime(), "1899-12-29 18:30:00");
}

TEST(DateTimeText, EveryDayReadsBackAsItself) {
    for (int day = 0; day < 150000; day += 13) {
        const DateTime date = DateTime(1890, 1, 1, 23, 59, 58).AddDays(day);
        EXPECT_EQ(DateTime::Parse(date.IsoDateTime()), date);
    }
}

TEST(AutomationDate, LiesInTheCalendarOrIsNone) {
    constexpr double kBehindLast = 2958466;
    EXPECT_EQ(DateTime::InCalendar(-657434), DateTime(100, 1, 1));
    EXPECT_EQ(DateTime::InCalendar(-657434.5), DateTime(100, 1, 1, 12));
    EXPECT_EQ(DateTime::InCalendar(-657435), std::nullopt);
    EXPECT_EQ(DateTime::InCalendar(kBehindLast - 1), DateTime::LastDay());
    EXPECT_EQ(DateTime::InCalendar(kBehindLast - 1.0 / 86400), DateTime(9999, 12, 31, 23, 59, 59));
    // Its last half second is rounded into the year behind.
    EXPECT_EQ(DateTime::InCalendar(kBehindLast - 0.4 / 86400), std::nullopt);
    EXPECT_EQ(DateTime::InCalendar(kBehindLast), std::nullopt);
    EXPECT_EQ(DateTime::InCalendar(std::nan("")), std::nullopt);
    EXPECT_EQ(DateTime::InCalendar(-std::numeric_limits<double>::infinity()), std::nullopt);
}

TEST(DateTimeText, IsReadOnlyInItsOwnForms) {
    EXPECT_EQ(DateTime::Parse("2003-03-07"), DateTime(2003, 3, 7));
    EXPECT_EQ(DateTime::Parse("2003-03-07 08:05"), DateTime(2003, 3, 7, 8, 5));
    EXPECT_EQ(DateTime::Parse("2003-03-07T23:59:59"), DateTime(2003, 3, 7, 23, 59, 59));
    EXPECT_EQ(DateTime::Parse("2003-03-07 00:00:00"), DateTime(2003, 3, 7));
    for (const char* text : {"",
                             "2003",
                             "2003-03-0",
                             "2003/03-07",
                             "2003-03/07",
                             "200x-03-07",
                             "200/-03-07",
                             "2003-03-1/",
                             "2003-03-0",
                             "2003-0x-07",
                             "2003-03-0:",
                             "2003-03-/1",
                             "2003-02-29",
                             "2003-03-07 ",
                             "2003-03-07x08:05",
                             "2003-03-07 08",
                             "2003-03-07 08:",
                             "2003-03-07 08:0",
                             "2003-03-07 0x:05",
                             "2003-03-07 08x05",
                             "2003-03-07 08:0x",
                             "2003-03-07 24:00",
                             "2003-03-07 08:60",
                             "2003-03-07 08:05:",
                             "2003-03-07 08:05:0",
                             "2003-03-07 08:05x09",
                             "2003-03-07 08:05:0x",
                             "2003-03-07 08:05:60",
                             "2003-03-07 08:05:099"}) {
        EXPECT_EQ(DateTime::Parse(text), std::nullopt) << text;
    }
}

TEST(DateTime, IsMadeOfPartsThatExist) {
    const auto is = [](int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
        try {
            DateTime(year, month, day, hour, minute, second);
            return true;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::InvalidProcedureCall);
            return false;
        }
    };
    EXPECT_TRUE(is(100, 1, 1) && is(9999, 12, 31, 23, 59, 59) && is(2004, 2, 29));
    EXPECT_FALSE(is(99, 12, 31) || is(10000, 1, 1) || is(2003, 0, 1) || is(2003, 13, 1));
    EXPECT_FALSE(is(2003, 1, 0) || is(2003, 1, 32) || is(2003, 4, 31) || is(2003, 2, 29));
    EXPECT_FALSE(is(2003, 1, 1, -1) || is(2003, 1, 1, 24));
    EXPECT_FALSE(is(2003, 1, 1, 0, -1) || is(2003, 1, 1, 0, 60));
    EXPECT_FALSE(is(2003, 1, 1, 0, 0, -1) || is(2003, 1, 1, 0, 0, 60));
}

TEST(DateTime, IsTakenApart) {
    for (const DateTime date : {DateTime(2003, 3, 7, 8, 5, 9), DateTime(1803, 3, 7, 8, 5, 9)}) {
        EXPECT_EQ(date.Month(), 3);
        EXPECT_EQ(date.Day(), 7);
        EXPECT_EQ(date.Hour(), 8);
        EXPECT_EQ(date.Minute(), 5);
        EXPECT_EQ(date.Second(), 9);
        EXPECT_EQ(date.Date().IsoDateTime().substr(4), "-03-07 00:00:00");
    }
    const DateTime late(2003, 3, 7, 23);
    EXPECT_EQ(late.Hour(), 23);
    EXPECT_EQ(late.Minute(), 0);
    EXPECT_EQ(late.AddSeconds(59LL * 60).Minute(), 59);
    EXPECT_EQ(DateTime(2003, 3, 8).Weekday(), 7);
    EXPECT_EQ(DateTime(2003, 3, 9, 23, 59, 59).Weekday(), 1);
    EXPECT_EQ(DateTime(1899, 12, 29, 12).Weekday(), 6);
    EXPECT_EQ(DateTime(1899, 12, 30).Seconds(), 0);
    EXPECT_EQ(DateTime(1899, 12, 29).Seconds(), -86400);
    EXPECT_EQ(DateTime(2003, 3, 7).AddDays(-7), DateTime(2003, 2, 28));
    EXPECT_EQ(DateTime(2003, 3, 7).AddSeconds(-1), DateTime(2003, 3, 6, 23, 59, 59));
}

TEST(AutomationDate, HasItsTimeOfDayBehindThePointOnBothSidesOfTheFirstDay) {
    for (const auto& [number, date] :
         {std::pair{37687.75, DateTime(2003, 3, 7, 18)}, std::pair{0.25, DateTime(1899, 12, 30, 6)},
          std::pair{-1.25, DateTime(1899, 12, 29, 6)}, std::pair{-1.0, DateTime(1899, 12, 29)}}) {
        EXPECT_EQ(DateTime::FromAutomation(number), date);
        EXPECT_EQ(date.ToAutomation(), number);
    }
    EXPECT_EQ(DateTime::FromAutomation(-0.25), DateTime(1899, 12, 30, 6));
    EXPECT_EQ(DateTime::FromAutomation(1 + 0.4 / 86400), DateTime(1899, 12, 31));
    EXPECT_EQ(DateTime::FromAutomation(1 + 0.6 / 86400), DateTime(1899, 12, 31, 0, 0, 1));
}

TEST(DateTimeText, LastDayOfAll) {
    EXPECT_EQ(DateTime(9999, 12, 31, 23, 59, 59).IsoDateTime(), "9999-12-31 23:59:59");
}

}  // namespace
}  // namespace zv
