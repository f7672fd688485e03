// The days of a plan, reckoned apart from the engine that makes them: what zvdb writes is held
// against these.
#pragma once

#include <vector>

#include "base/date_time.h"

namespace zv::reckoned {

enum class Circle { Yearly = 0, Monthly = 1, Daily = 2, Weekly = 3 };
enum class AlertSide { Ahead = 1, After = 2, Both = 3 };

struct Plan {
    int number = 0;
    DateTime begin;
    DateTime end;
    Circle circle = Circle::Monthly;
    int step = 1;     ///< every N units
    int month = 1;    ///< 1..12, yearly
    int day = 1;      ///< 1..31, yearly and monthly
    int weekday = 1;  ///< 0..6, 0 = Sunday, weekly
    AlertSide side = AlertSide::Ahead;
    int width = 0;  ///< days
};

/// The date in another month, its day drawn in to the end of that month.
DateTime ShiftMonths(DateTime date, int months);

/// Every day from `begin` to `end` that the plan names, each counted from the same anchor so that a
/// short month does not shorten the ones behind it. The plan's step is 1 or more.
std::vector<DateTime> Occurrences(const Plan& plan);

DateTime AlertBegin(const Plan& plan, DateTime occurrence);
DateTime AlertEnd(const Plan& plan, DateTime occurrence);

}  // namespace zv::reckoned
