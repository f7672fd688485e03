// The WHERE text of the item list.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>

#include "base/date_time.h"
#include "items/item.h"

namespace zv::items {

/// What the list is narrowed to. An empty text narrows nothing.
struct Filter {
    /// The states that pass: one of them, all of them, or what is not done or in hand.
    enum class States { NotDone, Done, InHand, All, NotYetDone };

    bool Takes(ItemKind kind) const { return kinds[Position(kind)]; }

    bool Takes(ItemState state) const;
    /// Whether the dates take an item that alerts at that moment only.
    bool TakesMoment(DateTime moment) const;

    std::array<bool, kItemKinds.size()> kinds{true, true, true};
    std::optional<DateTime> from;
    std::optional<DateTime> until;
    std::string title;
    std::string content;
    std::string doer;
    std::string user;
    std::string guest;
    std::string company;
    States states = States::All;
};

/// Where the list of states to choose from has it.
constexpr int Row(Filter::States states) {
    return static_cast<int>(states);
}

/// Writes a date in the database's dialect.
using DateLiteral = std::function<std::string(DateTime)>;

/// Begins with " Where 1=1". Without any date the date clause is left out.
std::string FilterText(const Filter& filter, const DateLiteral& dateLiteral);

}  // namespace zv::items
