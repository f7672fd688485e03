#pragma once

#include <string>

#include "progress/long_work.h"
#include "session/session.h"

namespace zv {

/// Does the work as progress::RunLongWork does, before the session's user.
inline progress::WorkEnd RunLongWork(Session& session, const std::string& caption,
                                     progress::LongWork& work) {
    return progress::RunLongWork(session.windows, session.machine.clock, session.state.Language,
                                 caption, work);
}

}  // namespace zv
