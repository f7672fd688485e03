#include "items/urgency.h"

#include <cstdlib>

#include "items/due.h"
#include "items/names.h"
#include "resources/texts.h"

namespace zv::items {
namespace {

using resources::StatusText;

constexpr std::array<std::uint32_t, kUrgencies.size()> kColors = {0xB00020, 0x9A4A00, 0x1F5C99,
                                                                  0x333333, 0x2E6B30};

std::int64_t DaysBetween(DateTime from, DateTime to) {
    constexpr std::int64_t kSecondsOfDay = 86400;
    return (to.Date().Seconds() - from.Date().Seconds()) / kSecondsOfDay;
}

std::string StateName(ItemState state, std::int16_t language) {
    return StateNames(language)[Position(state)];
}

}  // namespace

Urgency UrgencyOf(std::optional<DateTime> day, ItemState state, DateTime today) {
    if (state == ItemState::Done) return Urgency::Done;
    const Due due = DueOn(day, state, today);
    if (due == Due::Overdue) return Urgency::Overdue;
    if (state == ItemState::InHand) return Urgency::InHand;
    return due == Due::Today ? Urgency::Today : Urgency::Later;
}

std::uint32_t ColorOf(Urgency urgency) {
    return kColors[Position(urgency)];
}

std::string NameOf(Urgency urgency, std::int16_t language) {
    switch (urgency) {
        case Urgency::Overdue:
            return LoadText(StatusText::Overdue, language);
        case Urgency::Today:
            return LoadText(StatusText::Today, language);
        case Urgency::InHand:
            return StateName(ItemState::InHand, language);
        case Urgency::Later:
            return LoadText(StatusText::Later, language);
        default:
            return StateName(ItemState::Done, language);
    }
}

std::string DueOf(std::optional<DateTime> day, ItemState state, DateTime today,
                  std::int16_t language) {
    if (!day || state == ItemState::Done) return {};
    const std::int64_t days = DaysBetween(today, *day);
    if (days == 0) return NameOf(Urgency::Today, language);
    return resources::LoadText(days < 0 ? StatusText::OverdueBy : StatusText::DaysLater, language,
                               std::to_string(std::abs(days)));
}

std::string SignOf(std::optional<DateTime> day, ItemState state, DateTime today,
                   std::int16_t language) {
    std::string due = DueOf(day, state, today, language);
    std::string name = StateName(state, language);
    if (due.empty()) return name;
    if (state != ItemState::InHand) return due;
    // How far off the day of what is in hand is matters once it has come.
    return day->Date() > today.Date() ? name : due + " " + name;
}

}  // namespace zv::items
