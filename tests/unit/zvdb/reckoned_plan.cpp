#include "reckoned_plan.h"

#include <algorithm>

namespace zv::reckoned {
namespace {

DateTime DayInMonth(int year, int month, int day) {
    return DateTime(year, month, std::min(day, DateTime::DaysInMonth(year, month)));
}

DateTime Anchor(const Plan& plan) {
    const int year = plan.begin.Year();
    switch (plan.circle) {
        case Circle::Yearly:
            return DayInMonth(year, plan.month, plan.day);
        case Circle::Monthly:
            return DayInMonth(year, plan.begin.Month(), plan.day);
        case Circle::Daily:
            return plan.begin;
        case Circle::Weekly:
            return plan.begin.Date().AddDays((plan.weekday + 8 - plan.begin.Weekday()) % 7);
    }
    return plan.begin;
}

DateTime Shift(DateTime anchor, Circle circle, int units) {
    switch (circle) {
        case Circle::Yearly:
            return ShiftMonths(anchor, 12 * units);
        case Circle::Monthly:
            return ShiftMonths(anchor, units);
        case Circle::Daily:
            return anchor.AddDays(units);
        case Circle::Weekly:
            return anchor.AddDays(7 * units);
    }
    return anchor;
}

}  // namespace

DateTime ShiftMonths(DateTime date, int months) {
    const int month = date.Year() * 12 + date.Month() - 1 + months;
    return DayInMonth(month / 12, month % 12 + 1, date.Day())
        .AddSeconds((date.Seconds() - date.Date().Seconds()));
}

std::vector<DateTime> Occurrences(const Plan& plan) {
    std::vector<DateTime> days;
    const DateTime anchor = Anchor(plan);
    for (int i = 0;; ++i) {
        const DateTime day = Shift(anchor, plan.circle, i * plan.step);
        if (day > plan.end) return days;
        if (plan.circle == Circle::Daily || day >= plan.begin) days.push_back(day);
    }
}

DateTime AlertBegin(const Plan& plan, DateTime occurrence) {
    return plan.side == AlertSide::After ? occurrence : occurrence.AddDays(-plan.width);
}

DateTime AlertEnd(const Plan& plan, DateTime occurrence) {
    return plan.side == AlertSide::Ahead ? occurrence : occurrence.AddDays(plan.width);
}

}  // namespace zv::reckoned
