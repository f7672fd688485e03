// The dates of a plan as the bare calendar makes them: one loop, no plan, no limits.
#pragma once

#include <chrono>
#include <cstdint>

namespace zv::bench {

/// What a loop came to: how many dates, and a sum that keeps them from being optimised away.
struct Dates {
    int count = 0;
    std::int64_t sum = 0;
};

/// Every `step` days of six years from a day of January on.
inline Dates EveryDays(unsigned first, int step) {
    using namespace std::chrono;
    Dates dates;
    const sys_days end = year{2026} / 12 / 31;
    for (sys_days at = year{2021} / January / day{first}; at <= end; at += days{step}) {
        const year_month_day date{at};
        dates.sum += static_cast<int>(date.year()) * 366 +
                     static_cast<int>(static_cast<unsigned>(date.month()) * 31 +
                                      static_cast<unsigned>(date.day()));
        ++dates.count;
    }
    return dates;
}

/// Every `step` months of six years, the 31st or the last day.
inline Dates EveryMonths(int step) {
    using namespace std::chrono;
    Dates dates;
    const year_month_day anchor = year{2021} / 1 / 31;
    const year_month_day end = year{2026} / 12 / 31;
    for (int round = 0;; ++round) {
        year_month_day date = anchor + months{round * step};
        if (!date.ok()) date = date.year() / date.month() / last;
        if (date > end) return dates;
        dates.sum += static_cast<int>(date.year()) * 366 +
                     static_cast<int>(static_cast<unsigned>(date.month()) * 31 +
                                      static_cast<unsigned>(date.day()));
        ++dates.count;
    }
}

}  // namespace zv::bench
