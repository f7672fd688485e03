// What a program without a host needs to remind its user: the store, the user, his rights and what
// opens the database, as the control had them when reminders were started.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "session/session.h"
#include "store/connection_text.h"

namespace zv {

struct HandedOver {
    store::ConnectionText path;
    std::int16_t kind = 0;
    store::Secret password;
    store::Secret login;
    store::ConnectionText database;
    std::int16_t language = 0;
    std::string user;
    std::string chief;
    std::string company;
    std::string power;
    std::string model;

    bool operator==(const HandedOver&) const = default;
};

/// Holds the secrets as they are: only for what keeps them.
std::string ToText(const HandedOver& state);
/// Nothing for a text that is not whole, or of another version of this program.
std::optional<HandedOver> HandedOverIn(std::string_view text);

/// Keeps what the session has, for this user of the machine only and unreadable for everyone else.
/// Where the system cannot do that nothing is kept, an earlier state neither: false.
bool HandOver(Session& session);
/// What was kept. Nothing when there is nothing that this user may read.
std::optional<HandedOver> ReadHandedOver(Session& session);
/// Gives a session what was kept, as a host would set it.
void TakeHandedOver(Session& session, const HandedOver& kept);

}  // namespace zv
