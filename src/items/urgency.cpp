#include "items/urgency.h"

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
    if (day && day->Date() < today.Date()) return Urgency::Overdue;
    if (state == ItemState::InHand) return Urgency::InHand;
    return day && day->Date() == today.Date() ? Urgency::Today : Urgency::Later;
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

std::string SignOf(std::optional<DateTime> day, ItemState state, DateTime today,
                   std::int16_t language) {
    const Urgency urgency = UrgencyOf(day, state, today);
    const std::string days = day ? std::to_string(DaysBetween(today, *day)) : std::string();
    const std::string inHand = " " + StateName(ItemState::InHand, language);
    const bool isInHand = state == ItemState::InHand;
    switch (urgency) {
        case Urgency::Overdue:
            return resources::LoadText(StatusText::OverdueBy, language, days.substr(1)) +
                   (isInHand ? inHand : "");
        case Urgency::InHand:
            return day && day->Date() == today.Date() ? NameOf(Urgency::Today, language) + inHand
                                                      : NameOf(urgency, language);
        case Urgency::Later:
            return day ? resources::LoadText(StatusText::DaysLater, language, days)
                       : StateName(state, language);
        default:
            return NameOf(urgency, language);
    }
}

}  // namespace zv::items
