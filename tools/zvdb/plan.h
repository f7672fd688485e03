// A task plan as it is stored, and the days that it falls on.
#pragma once

#include <string>
#include <vector>

#include "base/date_time.h"

namespace zv::zvdb {

enum class Circle { Yearly = 0, Monthly = 1, Daily = 2, Weekly = 3 };
enum class AlertSide { Ahead = 1, After = 2, Both = 3 };

struct Plan {
    int number = 0;
    std::string title;
    std::string content;
    DateTime begin;
    DateTime end;
    Circle circle = Circle::Monthly;
    int step = 1;     ///< every N units
    int month = 1;    ///< 1..12, yearly
    int day = 1;      ///< 1..31, yearly and monthly
    int weekday = 1;  ///< 0..6, 0 = Sunday, weekly
    AlertSide side = AlertSide::Ahead;
    int width = 0;  ///< days
    std::string setter;
    std::string doer;
};

/// The date in another month, its day drawn in to the end of that month.
DateTime ShiftMonths(DateTime date, int months);

/// Every day from `begin` to `end` that the plan names, each counted from the same anchor so that a
/// short month does not shorten the ones behind it. The plan's step is 1 or more.
std::vector<DateTime> Occurrences(const Plan& plan);

DateTime AlertBegin(const Plan& plan, DateTime occurrence);
DateTime AlertEnd(const Plan& plan, DateTime occurrence);

/// The shortest time in days between two occurrences, as the plan editor reckons it.
int PeriodDays(Circle circle, int step);
/// Whether the alert windows of neighbouring occurrences stay apart.
bool WindowsStayApart(Circle circle, int step, AlertSide side, int width);

}  // namespace zv::zvdb
