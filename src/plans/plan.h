// A task plan: what must be done, on which dates, and how long around each date it alerts.
#pragma once

#include <cstdint>
#include <string>

#include "base/date_time.h"

namespace zv::plans {

/// Recurrence kinds as stored in CircleType; a table may hold other numbers.
namespace circle {
inline constexpr int kYearly = 0;
inline constexpr int kMonthly = 1;
inline constexpr int kDaily = 2;
inline constexpr int kWeekly = 3;
}  // namespace circle

/// Sides of the alert window as stored in Type; a table may hold other numbers.
namespace side {
inline constexpr int kAhead = 1;
inline constexpr int kAfter = 2;
inline constexpr int kBoth = 3;
}  // namespace side

/// A row of tTaskSet.
struct Plan {
    std::int32_t taskId = 0;
    std::string title;
    DateTime begin;
    DateTime end;
    int circleType = circle::kMonthly;
    int circleValue = 1;  ///< every so many years, months, days or weeks
    int month = 1;        ///< 1..12, yearly plans
    int day = 1;          ///< 1..31, yearly and monthly plans
    int week = 1;         ///< 0 = Sunday .. 6, weekly plans
    int type = side::kAhead;
    int typeValue = 0;  ///< width of the alert window in days
    std::string setMan;
    std::string doneMan;
    std::string content;
};

}  // namespace zv::plans
