// Starts and ends reminding, for what wants it: the control for its host, or a program beside
// the clock.
#pragma once

#include <functional>

#include "items/item_store.h"
#include "session/session.h"

namespace zv::windows {

/// Reminds the session's user of what is due from now on, and looks at once. One that reminds
/// already looks again, with the user and the store as they are. Fails for no store that is away:
/// that is tried again. `open` shows an item in the task manager.
void StartReminding(Session& session, std::function<void(const items::SavedItem&)> open);
/// The window goes; nothing happens where nobody is reminded.
void StopReminding(Session& session);
bool IsReminding(const Session& session);

}  // namespace zv::windows
