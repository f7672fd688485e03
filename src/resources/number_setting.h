// Whole numbers among the workstation settings.
#pragma once

#include <cmath>
#include <string_view>

#include "base/number.h"

namespace zv::resources {

struct NumberSetting {
    std::string_view key;  ///< in the section of the control
    int usual;
    int least;
    int most;

    bool Takes(double number) const { return number >= least && number <= most; }
    /// What a stored text means: its whole part, or the usual number where it is none or out of
    /// bounds.
    int Of(std::string_view text) const {
        const double number = number::Parse(text).value_or(std::nan(""));
        return static_cast<int>(Takes(number) ? number : usual);
    }
};

/// The longest time between two looks for reminders, in minutes.
inline constexpr NumberSetting kRemindInterval{"RemindInterval", 5, 1, 24 * 60};
/// How many days the history is kept; 0: for ever.
inline constexpr NumberSetting kHistoryDays{"HistoryDays", 365, 0, 36500};

}  // namespace zv::resources
