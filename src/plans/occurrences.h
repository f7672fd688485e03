// The dates of a plan. A pure function of the plan: no database, no clock.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>

#include "base/date_time.h"
#include "plans/plan.h"

namespace zv::plans {

/// The date year/month/day, or the last day of that month when it has no such day. A year of one
/// or two digits is one of 1930 to 2029. Throws error 13 when there is no such month.
DateTime MakeDate(std::int16_t year, std::int16_t month, std::int16_t day);

/// The occurrences of a plan one after the other. Each is the anchor shifted by a multiple of the
/// step, so a short month does not shorten the later ones.
class Occurrences {
 public:
    /// Rounds that the 16-bit counter allows.
    static constexpr int kMaximumRounds = 32767;

    /// Throws error 13 when the plan's month does not exist, 6 when its weekday does not.
    explicit Occurrences(const Plan& plan);

    /// The next date within the plan, nothing behind the last. Throws error 6 when the counter or
    /// the calendar (year 100) is left.
    std::optional<DateTime> Next();

 private:
    /// Stands in a month of a year and steps by a number of months. What belongs to the year is
    /// worked out when the year changes, not for every month.
    struct MonthWheel {
        void Turn();
        void Enter();
        int Length() const { return kMonthStarts[leap][month + 1] - kMonthStarts[leap][month]; }
        /// Midnight of the day, or of the month's last when it is shorter.
        std::int64_t Seconds(int day) const;

        int year = 0;
        int month = 0;  ///< from 0
        int stepYears = 0;
        int stepMonths = 0;
        std::int64_t firstDay = 0;  ///< of the year, counted from day zero
        bool leap = false;
    };
    /// Days before each month of a year, and of the whole year.
    static constexpr std::int16_t kMonthStarts[2][13] = {
        {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365},
        {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335, 366}};
    static constexpr std::int64_t kSecondsPerDay = 86400;
    static constexpr std::int64_t kDayZero = 693593;  ///< days from year 1 on
    static constexpr std::int64_t kCalendarBegin = -657434 * kSecondsPerDay;  ///< year 100

    [[noreturn]] static void Leave();
    void AnchorAt(int year, int month, int day);

    std::int64_t begin_;  ///< seconds, like those below
    std::int64_t end_;
    std::int64_t at_ = 0;  ///< the next round's date
    std::int64_t step_ = 0;
    bool byMonths_ = false;
    int day_ = 0;  ///< by months: the day of the month
    MonthWheel wheel_;
    int rounds_ = 0;
};

inline void Occurrences::MonthWheel::Turn() {
    month += stepMonths;
    int years = stepYears;
    if (month > 11) {
        month -= 12;
        years++;
    }
    if (years == 0) return;
    year += years;
    Enter();
}

inline void Occurrences::MonthWheel::Enter() {
    // One year beyond the calendar is as good as any further one.
    const auto before = static_cast<unsigned>(std::clamp(year, 99, 10000) - 1);
    const unsigned centuries = before / 100;
    firstDay = before * 365 + before / 4 - centuries + centuries / 4 - kDayZero;
    leap = (before + 1) % 4 == 0 && ((before + 1) % 100 != 0 || (before + 1) % 400 == 0);
}

inline std::int64_t Occurrences::MonthWheel::Seconds(int day) const {
    return (firstDay + kMonthStarts[leap][month] + std::min(day, Length()) - 1) * kSecondsPerDay;
}

// Beside the calendar's arithmetic a call that hands an optional back through memory is dear.
inline std::optional<DateTime> Occurrences::Next() {
    for (;;) {
        const std::int64_t date = byMonths_ ? wheel_.Seconds(day_) : at_;
        if (date > end_) return {};
        if (date < kCalendarBegin || rounds_ == kMaximumRounds) Leave();
        rounds_++;
        if (byMonths_) {
            wheel_.Turn();
        } else {
            at_ += step_;
        }
        if (date >= begin_) return DateTime(date);
    }
}

/// The days on which an occurrence alerts; nothing for a side that is none.
struct AlertWindow {
    std::optional<DateTime> first;
    std::optional<DateTime> last;
    bool operator==(const AlertWindow&) const = default;
};
/// `type` and `width` as in Plan. Throws error 6 when the window leaves the calendar.
AlertWindow AlertWindowOf(DateTime occurrence, int type, int width);

}  // namespace zv::plans
