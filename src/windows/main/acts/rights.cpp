#include "windows/main/acts/rights.h"

#include "resources/fixed_texts.h"
#include "session/module_gate.h"

namespace zv::windows {

bool HasRight(Session& session, const std::string& module, std::int16_t level) {
    if (CheckModule(session, module, level, 0) > 0) return true;
    session.windows.ShowMessage(resources::fixed::kNoRight, forms::box::kExclamation);
    return false;
}

bool HasRightToItems(Session& session, const MainModel& model, std::int16_t level) {
    return HasRight(session, model.startMode == kCardMode ? "mnuCardPlan" : "mnuToolTask", level);
}

}  // namespace zv::windows
