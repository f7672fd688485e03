// The user's right to what the buttons of the main window do.
#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"
#include "windows/main/main_model.h"

namespace zv::windows {

/// Asks the module gate; a user without the right sees a message. Database errors reach the caller.
bool HasRight(Session& session, const std::string& module, std::int16_t level);
/// The same for the items that the window was opened for: tasks, or plans of customer cards.
bool HasRightToItems(Session& session, const MainModel& model, std::int16_t level);

}  // namespace zv::windows
