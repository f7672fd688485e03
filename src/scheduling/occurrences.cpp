#include "scheduling/occurrences.h"

#include <chrono>

#include "base/errors.h"

namespace zv::scheduling {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr int kMonthsPerYear = 12;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;

const DateTime kCalendarBegin(kFirstYear, 1, 1);
const DateTime kCalendarEnd(kLastYear, 12, 31, 23, 59, 59);

int FullYear(int year) {
    constexpr int kLastOfThisCentury = 29;
    if (year < 0 || year > 99) return year;
    return year + (year <= kLastOfThisCentury ? 2000 : 1900);
}

DateTime MakeDateAt(int year, int month, int day) {
    return MakeDate(static_cast<std::int16_t>(year), static_cast<std::int16_t>(month),
                    static_cast<std::int16_t>(day));
}

DateTime Anchor(const Plan& plan) {
    const DateTime& begin = plan.begin;
    switch (plan.circleType) {
        case circle::kYearly:
            return MakeDateAt(begin.Year(), plan.month, plan.day);
        case circle::kMonthly:
            return MakeDateAt(begin.Year(), begin.Month(), plan.day);
        case circle::kWeekly: {
            // No day of the calendar has such a weekday: the search would run off its end.
            if (plan.week < 0 || plan.week > 6) throw RuntimeError(ErrorNumber::Overflow);
            DateTime anchor = begin.Date();
            while (anchor.Weekday() != plan.week + 1) anchor = anchor.AddDays(1);
            return anchor;
        }
        default:
            return begin;
    }
}

DateTime ShiftWindow(DateTime date, int days) {
    const DateTime shifted = date.AddDays(days);
    if (shifted < kCalendarBegin || shifted > kCalendarEnd) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return shifted;
}

}  // namespace

DateTime MakeDate(std::int16_t year, std::int16_t month, std::int16_t day) {
    const int fullYear = FullYear(year);
    if (DateTime::IsValidDate(fullYear, month, day)) return DateTime(fullYear, month, day);
    if (!DateTime::IsValidDate(fullYear, month, 1)) throw RuntimeError(ErrorNumber::TypeMismatch);
    return DateTime(fullYear, month, DateTime::DaysInMonth(fullYear, month));
}

Occurrences::Occurrences(const Plan& plan)
    : kind_(plan.circleType),
      step_(plan.circleValue),
      begin_(plan.begin),
      end_(plan.end),
      anchor_(Anchor(plan)) {
    anchorMonth_ = anchor_.Year() * kMonthsPerYear + anchor_.Month() - 1;
    anchorDay_ = anchor_.Day();
}

std::optional<DateTime> Occurrences::ShiftMonths(std::int64_t months) const {
    using namespace std::chrono;
    const std::int64_t target = anchorMonth_ + months;
    if (target >= (kLastYear + 1) * kMonthsPerYear) return {};
    if (target < kFirstYear * kMonthsPerYear) throw RuntimeError(ErrorNumber::Overflow);
    const year_month month{year{static_cast<int>(target / kMonthsPerYear)},
                           std::chrono::month{static_cast<unsigned>(target % kMonthsPerYear) + 1}};
    year_month_day date = month / day{static_cast<unsigned>(anchorDay_)};
    if (!date.ok()) date = month / last;
    constexpr sys_days kDayZero{year{1899} / December / 30};
    return DateTime((sys_days{date} - kDayZero).count() * kSecondsPerDay);
}

// The anchor of the kinds that are shifted by months stands at midnight.
std::optional<DateTime> Occurrences::AtRound(std::int64_t round) const {
    constexpr std::int64_t kDaysPerWeek = 7;
    const std::int64_t units = round * step_;
    switch (kind_) {
        case circle::kYearly:
            return ShiftMonths(units * kMonthsPerYear);
        case circle::kMonthly:
            return ShiftMonths(units);
        case circle::kDaily:
            return anchor_.AddSeconds(units * kSecondsPerDay);
        case circle::kWeekly:
            return anchor_.AddSeconds(units * kDaysPerWeek * kSecondsPerDay);
        default:
            return {};
    }
}

std::optional<DateTime> Occurrences::Next() {
    for (;;) {
        const std::optional<DateTime> date = AtRound(rounds_);
        // What would lie behind the calendar lies behind the end.
        if (!date || *date > end_) return {};
        if (*date < kCalendarBegin || rounds_ == kMaximumRounds) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
        rounds_++;
        if (*date >= begin_ || kind_ == circle::kDaily) return date;
    }
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

}  // namespace zv::scheduling
