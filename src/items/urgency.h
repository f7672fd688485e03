// How pressing an item is on a given day, and how that is shown: by a colour and by words.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/date_time.h"
#include "items/item.h"

namespace zv::items {

enum class Urgency : std::uint8_t { Overdue, Today, InHand, Later, Done };
inline constexpr std::array kUrgencies = {Urgency::Overdue, Urgency::Today, Urgency::InHand,
                                          Urgency::Later, Urgency::Done};
constexpr std::size_t Position(Urgency urgency) {
    return static_cast<std::size_t>(urgency);
}

/// What is done presses nobody; anything else does by its day, whatever the time of day: one that
/// is past is overdue, in hand or not. Without a day nothing is due.
Urgency UrgencyOf(std::optional<DateTime> day, ItemState state, DateTime today);

/// Of the text of an item, as 0xRRGGBB on white paper: at least 4.5 to 1.
std::uint32_t ColorOf(Urgency urgency);

/// The words beside an item's text, which say by themselves what the colour says. Throw like
/// resources::LoadText.
std::string SignOf(std::optional<DateTime> day, ItemState state, DateTime today,
                   std::int16_t language);
/// The part of them that gives the day: empty for what is done and for a day that is not known.
std::string DueOf(std::optional<DateTime> day, ItemState state, DateTime today,
                  std::int16_t language);
std::string NameOf(Urgency urgency, std::int16_t language);

}  // namespace zv::items
