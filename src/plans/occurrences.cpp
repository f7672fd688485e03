#include "plans/occurrences.h"

#include <algorithm>
#include <chrono>

#include "base/errors.h"

namespace zv::plans {
namespace {

using namespace std::chrono;

constexpr int kDaysPerWeek = 7;
constexpr int kMonthsPerYear = 12;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

constexpr sys_days kZero{year{1899} / December / 30};

constexpr std::int64_t DayNumber(sys_days day) {
    return (day - kZero).count();
}

[[noreturn]] void ThrowOverflow() {
    throw RuntimeError(ErrorNumber::Overflow);
}

int FullYear(int year) {
    constexpr int kLastOfThisCentury = 29;
    if (year < 0 || year > 99) return year;
    return year + (year <= kLastOfThisCentury ? 2000 : 1900);
}

void CheckMonth(int year, int month) {
    if (year < kFirstYear || year > kLastYear || month < 1 || month > kMonthsPerYear) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
}

int FloorDivide(int dividend, int divisor) {
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
}

DateTime ShiftWindow(DateTime date, int days) {
    static const DateTime calendarBegin(kFirstYear, 1, 1);
    static const DateTime calendarEnd(kLastYear, 12, 31, 23, 59, 59);
    const DateTime shifted = date.AddDays(days);
    if (shifted < calendarBegin || shifted > calendarEnd) ThrowOverflow();
    return shifted;
}

}  // namespace

DateTime MakeDate(std::int16_t year, std::int16_t month, std::int16_t day) {
    const int fullYear = FullYear(year);
    CheckMonth(fullYear, month);
    const int last = DateTime::DaysInMonth(fullYear, month);
    return DateTime(fullYear, month, day < 1 ? last : std::min<int>(day, last));
}

Occurrences::Occurrences(const Plan& plan)
    : begin_(plan.begin.Seconds()), end_(plan.end.Seconds()) {
    static_assert(kDayZero == -DayNumber(std::chrono::year{1} / January / 1));
    static_assert(kCalendarBegin ==
                  DayNumber(std::chrono::year{kFirstYear} / January / 1) * kSecondsPerDay);
    const sys_days firstDay = kZero + floor<days>(seconds{begin_});
    const year_month_day first{firstDay};
    const int firstYear = static_cast<int>(first.year());
    const std::int64_t step = plan.circleValue;
    switch (plan.circleType) {
        case circle::kYearly:
            wheel_.stepYears = plan.circleValue;
            AnchorAt(firstYear, plan.month, plan.day);
            break;
        case circle::kMonthly:
            wheel_.stepYears = FloorDivide(plan.circleValue, kMonthsPerYear);
            wheel_.stepMonths = plan.circleValue - wheel_.stepYears * kMonthsPerYear;
            AnchorAt(firstYear, static_cast<int>(static_cast<unsigned>(first.month())), plan.day);
            break;
        case circle::kDaily:
            at_ = begin_;
            step_ = step * kSecondsPerDay;
            // Not even a step backwards leads to a date that is left out.
            begin_ = kCalendarBegin;
            break;
        case circle::kWeekly: {
            // No day of the calendar has such a weekday: the search would run off its end.
            if (plan.week < 0 || plan.week >= kDaysPerWeek) ThrowOverflow();
            const days ahead = weekday{static_cast<unsigned>(plan.week)} - weekday{firstDay};
            at_ = DayNumber(firstDay + ahead) * kSecondsPerDay;
            step_ = step * kDaysPerWeek * kSecondsPerDay;
            break;
        }
        default:
            at_ = kCalendarBegin;
            end_ = kCalendarBegin - 1;
            break;
    }
}

void Occurrences::AnchorAt(int year, int month, int day) {
    CheckMonth(year, month);
    byMonths_ = true;
    wheel_.year = year;
    wheel_.month = month - 1;
    wheel_.Enter();
    // Later months are asked for the day that the first one has, not for the one wished for.
    day_ = day < 1 ? wheel_.Length() : std::min(day, wheel_.Length());
}

void Occurrences::Leave() {
    ThrowOverflow();
}

AlertWindow AlertWindowOf(DateTime occurrence, int type, int width) {
    switch (type) {
        case side::kAhead:
            return {ShiftWindow(occurrence, -width), occurrence};
        case side::kAfter:
            return {occurrence, ShiftWindow(occurrence, width)};
        case side::kBoth:
            return {ShiftWindow(occurrence, -width), ShiftWindow(occurrence, width)};
        default:
            return {};
    }
}

}  // namespace zv::plans
