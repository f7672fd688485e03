#include "reminders/retry.h"

#include <gtest/gtest.h>

#include <climits>

namespace zv::reminders {
namespace {

TEST(Retry, PausesGrowUpToHalfAnHour) {
    EXPECT_EQ(RetryMinutes(1), 1);
    EXPECT_EQ(RetryMinutes(2), 2);
    EXPECT_EQ(RetryMinutes(3), 4);
    EXPECT_EQ(RetryMinutes(4), 8);
    EXPECT_EQ(RetryMinutes(5), 16);
    EXPECT_EQ(RetryMinutes(6), 30);
    EXPECT_EQ(RetryMinutes(INT_MAX), 30);
}

TEST(Retry, WithoutAFailureThePauseIsTheShortest) {
    EXPECT_EQ(RetryMinutes(0), 1);
    EXPECT_EQ(RetryMinutes(-7), 1);
}

}  // namespace
}  // namespace zv::reminders
