// The items that a look needs, read with one statement that costs what is due and not what the
// table holds.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "items/filter.h"
#include "reminders/reminder.h"
#include "store/database.h"

namespace zv::reminders {

/// What is not done, whose alert begins today or before and ends on the day of `firstLook` or
/// later.
std::string SubjectStatement(DateTime now, DateTime firstLook,
                             const items::DateLiteral& dateLiteral);
/// A row whose alert begins at no date, or of a kind or state that there is not, reminds of
/// nothing. Database errors reach the caller.
std::vector<Subject> ReadSubjects(store::Database& database, DateTime now, DateTime firstLook);

/// Counts what was overdue before the day of `firstLook` and is not done: what concerns the user,
/// or all of it without one.
std::string OldStatement(DateTime firstLook, std::optional<std::string_view> user,
                         const items::DateLiteral& dateLiteral);
/// Reads the whole table. Database errors reach the caller.
std::int32_t CountOld(store::Database& database, DateTime firstLook,
                      std::optional<std::string_view> user);

}  // namespace zv::reminders
