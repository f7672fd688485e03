#include "windows/main/acts/rights.h"

namespace zv::windows {

bool HasRightToItems(Session& session, const MainModel& model, std::int16_t level) {
    return HasRight(session, model.startMode == kCardMode ? "mnuCardPlan" : "mnuToolTask", level);
}

}  // namespace zv::windows
