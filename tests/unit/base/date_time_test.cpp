// Dates as texts and as automation dates.
#include "base/date_time.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

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

TEST(DateTimeText, LastDayOfAll) {
    EXPECT_EQ(DateTime(9999, 12, 31, 23, 59, 59).IsoDateTime(), "9999-12-31 23:59:59");
}

}  // namespace
}  // namespace zv
