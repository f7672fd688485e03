#include "windows/main/acts/rights.h"

#include "resources/fixed_texts.h"
#include "session/module_gate.h"

namespace zv::windows {

bool HasRight(Session& session, const std::string& module, std::int16_t level) {
    const std::int16_t right = CheckModule(session, module, level, 0);
    if (right > 0) return true;
    std::string reason;
    if (right == kNotRegistered) {
        reason = session.LoadText(resources::DesignText::ModuleNotRegistered) + ": " + module;
    }
    session.windows.ShowWithReason(resources::fixed::kNoRight, forms::box::kExclamation, reason);
    return false;
}

bool HasRightToItems(Session& session, const MainModel& model, std::int16_t level) {
    return HasRight(session, model.startMode == kCardMode ? "mnuCardPlan" : "mnuToolTask", level);
}

}  // namespace zv::windows
