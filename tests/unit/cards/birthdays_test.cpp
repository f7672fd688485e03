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

}  // namespace
}  // namespace zv::cards
