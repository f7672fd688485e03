// The user's right to an act, and what he reads when it is missing.
#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"

namespace zv {

/// Asks the module gate; a user without the right sees a message. Database errors reach the caller.
bool HasRight(Session& session, const std::string& module, std::int16_t level);

}  // namespace zv
