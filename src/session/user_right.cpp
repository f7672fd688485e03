#include "session/user_right.h"

#include "resources/design_texts.h"
#include "resources/fixed_texts.h"
#include "session/module_gate.h"

namespace zv {

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

}  // namespace zv
