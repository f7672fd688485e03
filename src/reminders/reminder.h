// What a user is reminded of, and what is kept of a reminder that was put off or dismissed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/date_time.h"
#include "items/item.h"

namespace zv::reminders {

/// Those who have to do with an item. A name that is empty names nobody.
struct People {
    std::string doer;
    std::string setter;
    std::string planDoer;
    std::string planSetter;

    bool NameNobody() const;
    /// Compared as the databases do, without regard to the case of letters.
    bool Name(std::string_view user) const;
};

/// An item that is not done, as reminders see it.
struct Subject {
    std::int32_t item = 0;  ///< fID
    std::int32_t plan = 0;  ///< TaskID of an item that a plan made; 0 for any other
    items::ItemKind kind = items::ItemKind::Task;
    items::ItemState state = items::ItemState::NotDone;
    std::string title{};
    std::string guest{};
    std::optional<DateTime> date{};  ///< taskTime
    DateTime from{};                 ///< tDuring1
    People people{};
};

/// Whether a user is reminded of an item: one that names nobody is everybody's.
bool Concerns(const Subject& subject, std::string_view user);

/// What a kept reminder holds on to. Generating gives the items of a plan other numbers, so theirs
/// is that of the plan; with another date or title it is another matter, and so another reminder.
struct Key {
    std::int32_t plan = 0;
    std::int32_t item = 0;  ///< 0 for an item of a plan
    std::optional<DateTime> date;
    std::string title{};

    auto operator<=>(const Key&) const = default;
};
Key KeyOf(const Subject& subject);

/// How a user answered a reminder.
struct Answer {
    Key key;
    /// When it comes again; nothing: it was dismissed and stays away.
    std::optional<DateTime> until;
    /// When it was given, by the clock of that workstation; nothing: nobody noted it.
    std::optional<DateTime> given{};

    bool operator==(const Answer&) const = default;
};

}  // namespace zv::reminders
