// The dates of a plan. A pure function of the plan: no database, no clock.
#pragma once

#include <cstdint>
#include <optional>

#include "base/date_time.h"
#include "scheduling/plan.h"

namespace zv::scheduling {

/// The date year/month/day, or the last day of that month when it has no such day. A year of one
/// or two digits is one of 1930 to 2029. Throws error 13 when there is no such month.
DateTime MakeDate(std::int16_t year, std::int16_t month, std::int16_t day);

/// The occurrences of a plan one after the other. Each is the anchor shifted by a multiple of the
/// step, never a shift of the one before, so a short month does not shorten the later ones.
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
    std::optional<DateTime> AtRound(std::int64_t round) const;
    std::optional<DateTime> ShiftMonths(std::int64_t months) const;

    int kind_;
    std::int64_t step_;
    DateTime begin_;
    DateTime end_;
    DateTime anchor_;
    int anchorMonth_ = 0;  ///< months since year 0
    int anchorDay_ = 0;
    int rounds_ = 0;
};

/// The days on which an occurrence alerts; nothing for a side that is none.
struct AlertWindow {
    std::optional<DateTime> first;
    std::optional<DateTime> last;
    bool operator==(const AlertWindow&) const = default;
};
/// `type` and `width` as in Plan. Throws error 6 when the window leaves the calendar.
AlertWindow AlertWindowOf(DateTime occurrence, int type, int width);

}  // namespace zv::scheduling
