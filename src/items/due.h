// Whether an item is overdue or due today, as a rule over an item at hand, as a condition of a
// statement, and counted.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/date_time.h"
#include "items/filter.h"
#include "items/item.h"

namespace zv::items {

enum class Due : std::uint8_t { Overdue, Today, NotYet };

/// What is done is not due; anything else is by its day, in hand or not, whatever the time of day:
/// `NotYet` without a day.
Due DueOn(std::optional<DateTime> day, ItemState state, DateTime today);
/// The same of the rows of `tTaskList a`: which of them DueOn answers `due` for, which is not
/// `NotYet`.
std::string DueCondition(Due due, DateTime today, const DateLiteral& dateLiteral);

struct DueCount {
    std::int64_t overdue = 0;  ///< in hand or not
    std::int64_t today = 0;    ///< likewise
    std::int64_t inHand = 0;   ///< on whatever day

    /// Counts an item as on the day of `now`.
    void Add(std::optional<DateTime> day, ItemState state, DateTime now);
    DueCount& operator+=(const DueCount& other);
    bool operator==(const DueCount&) const = default;
};

}  // namespace zv::items
