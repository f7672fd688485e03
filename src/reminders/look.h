// One look at the clock: what is due now, and when to look again.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "reminders/reminder.h"

namespace zv::reminders {

/// Whose reminders are shown.
enum class Whose : std::uint8_t { Own, All };

/// What a look rests on beside the items.
struct Circumstances {
    std::string user;
    Whose whose = Whose::Own;
    DateTime now;
    /// When this user's reminders were looked at for the first time ever.
    DateTime firstLook;
    /// The longest time between two looks, in minutes; at least one counts.
    int interval = 5;
};

struct Due {
    Subject subject;
    /// Whole days since the day of the item; 0 on that day and before.
    int daysOverdue = 0;

    bool IsOverdue() const { return daysOverdue > 0; }
};

struct Look {
    /// The longest overdue first, then what is due for the longest time.
    std::vector<Due> due;
    /// Later than now. What another program stores meanwhile is found then.
    DateTime next;
};

/// Days since the day of an item, 0 while it is not past or has none.
int DaysOverdue(std::optional<DateTime> date, DateTime now);

/// What was overdue before the first look ever is left out: it is counted, and is not a reminder
/// each. `subjects`: items that are not done, those of later today among them; `answers`: in any
/// order, of several for one key the last counts.
Look LookAt(const std::vector<Subject>& subjects, const std::vector<Answer>& answers,
            const Circumstances& circumstances);

}  // namespace zv::reminders
