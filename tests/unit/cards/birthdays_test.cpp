#include "cards/birthdays.h"

#include <gtest/gtest.h>

namespace zv::cards {
namespace {

constexpr std::string_view kAnniversary =
    "-'+Right('0'+Ltrim(Month(Birthday)),2)+'-'+Right('0'+Ltrim(Day(Birthday)),2)";

std::string Anniversary(const std::string& year) {
    return "'" + year + std::string(kAnniversary);
}

TEST(BirthdayStatement, ComparesThisYearsAnniversaryAsText) {
    EXPECT_EQ(BirthdayStatement(DateTime(2003, 3, 7), DateTime(2003, 3, 12)),
              "select CompCode,name,compname,Birthday,fID from cards Where (" +
                  Anniversary("2003") + " >= '2003-03-07'   AND  " + Anniversary("2003") +
                  " <= '2003-03-12')");
}

TEST(BirthdayStatement, RepeatsTheTestWithNextYearAcrossNewYear) {
    EXPECT_EQ(BirthdayStatement(DateTime(2003, 12, 28), DateTime(2004, 1, 4)),
              "select CompCode,name,compname,Birthday,fID from cards Where (" +
                  Anniversary("2003") + " >= '2003-12-28'   AND  " + Anniversary("2003") +
                  " <= '2004-01-04') Or (" + Anniversary("2004") + " >= '2003-12-28' AND " +
                  Anniversary("2004") + " <= '2004-01-04')");
}

TEST(BirthdayStatement, TheLastDayOfTheYearIsNotAcrossNewYear) {
    EXPECT_EQ(BirthdayStatement(DateTime(2003, 12, 24), DateTime(2003, 12, 31)).find(" Or "),
              std::string::npos);
}

TEST(DaysToBirthday, CountToTheNextOneWhateverTheYearOfBirth) {
    const DateTime today = DateTime(2003, 12, 28);
    EXPECT_EQ(DaysToBirthday(DateTime(1970, 12, 28), today), 0);
    EXPECT_EQ(DaysToBirthday(DateTime(1970, 12, 31), today), 3);
    EXPECT_EQ(DaysToBirthday(DateTime(1970, 1, 2), today), 5);
    EXPECT_EQ(DaysToBirthday(DateTime(1970, 12, 27), today), 365);
    EXPECT_EQ(DaysToBirthday(DateTime(1970, 12, 27), DateTime(2004, 2, 28)), 303);
}

TEST(DaysToBirthday, TakeTheDayForAWholeOne) {
    EXPECT_EQ(DaysToBirthday(DateTime(1970, 3, 7), DateTime(2003, 3, 7, 23, 59, 0)), 0);
    EXPECT_EQ(DaysToBirthday(DateTime(1970, 3, 8, 6, 0, 0), DateTime(2003, 3, 7, 23, 59, 0)), 1);
}

TEST(DaysToBirthday, TheLastOfALeapFebruaryFollowsTheTwentyEighth) {
    EXPECT_EQ(DaysToBirthday(DateTime(1972, 2, 29), DateTime(2003, 2, 27)), 2);
    EXPECT_EQ(DaysToBirthday(DateTime(1972, 2, 29), DateTime(2004, 2, 27)), 2);
    EXPECT_EQ(DaysToBirthday(DateTime(1972, 2, 29), DateTime(2003, 3, 1)), 0);
}

}  // namespace
}  // namespace zv::cards
