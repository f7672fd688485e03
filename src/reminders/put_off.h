// How long a reminder may be put off.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "base/date_time.h"

namespace zv::reminders {

/// What the window offers beside a time of the user's own.
enum class PutOff : std::uint8_t {
    FiveMinutes,
    QuarterHour,
    HalfHour,
    Hour,
    FourHours,
    TomorrowMorning,  ///< at 8:00
    NextMonday,       ///< likewise; on a Monday the one in a week
};
inline constexpr std::array kPutOffs = {
    PutOff::FiveMinutes, PutOff::QuarterHour,     PutOff::HalfHour,  PutOff::Hour,
    PutOff::FourHours,   PutOff::TomorrowMorning, PutOff::NextMonday};

/// When a reminder comes again that is put off now. Nothing where the calendar ends before.
std::optional<DateTime> MomentOf(PutOff putOff, DateTime now);
/// Whether a reminder can be put off until a moment that the user chose: later than now, within the
/// calendar.
bool CanPutOffUntil(DateTime moment, DateTime now);

}  // namespace zv::reminders
