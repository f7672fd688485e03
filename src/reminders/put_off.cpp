#include "reminders/put_off.h"

namespace zv::reminders {
namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kMorning = 8 * kHour;
constexpr int kMonday = 2;
constexpr int kWeek = 7;

DateTime MorningIn(int days, DateTime now) {
    return now.Date().AddDays(days).AddSeconds(kMorning);
}

int DaysToNextMonday(DateTime now) {
    const int days = (kMonday - now.Weekday() + kWeek) % kWeek;
    return days == 0 ? kWeek : days;
}

DateTime Reached(PutOff putOff, DateTime now) {
    switch (putOff) {
        case PutOff::FiveMinutes:
            return now.AddSeconds(5 * kMinute);
        case PutOff::QuarterHour:
            return now.AddSeconds(15 * kMinute);
        case PutOff::HalfHour:
            return now.AddSeconds(30 * kMinute);
        case PutOff::Hour:
            return now.AddSeconds(kHour);
        case PutOff::FourHours:
            return now.AddSeconds(4 * kHour);
        case PutOff::TomorrowMorning:
            return MorningIn(1, now);
        case PutOff::NextMonday:
            return MorningIn(DaysToNextMonday(now), now);
    }
    return now;
}

}  // namespace

std::optional<DateTime> MomentOf(PutOff putOff, DateTime now) {
    const DateTime moment = Reached(putOff, now);
    if (!CanPutOffUntil(moment, now)) return std::nullopt;
    return moment;
}

bool CanPutOffUntil(DateTime moment, DateTime now) {
    return moment > now && moment < DateTime::LastDay().AddDays(1);
}

}  // namespace zv::reminders
