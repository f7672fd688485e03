// When an item is due, as its reminder says it.
#pragma once

#include <cstdint>
#include <string>

#include "reminders/look.h"

namespace zv::windows {

/// Overdue by some days, today, tomorrow or in some days: how its day lies to that of `now`, and
/// the time of day where it has one and the day is near. Throws like resources::LoadText.
std::string DueWords(const reminders::Due& due, DateTime now, std::int16_t language);

}  // namespace zv::windows
