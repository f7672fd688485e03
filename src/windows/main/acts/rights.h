// The user's right to what the buttons of the main window do.
#pragma once

#include <cstdint>

#include "session/user_right.h"
#include "windows/main/main_model.h"

namespace zv::windows {

/// The right to the items that the window was opened for: tasks, or plans of customer cards. Asks
/// and answers as HasRight.
bool HasRightToItems(Session& session, const MainModel& model, std::int16_t level);

}  // namespace zv::windows
