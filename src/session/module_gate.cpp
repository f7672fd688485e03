#include "session/module_gate.h"

#include <string_view>

#include "base/number.h"
#include "base/text.h"
#include "resources/text_ids.h"
#include "session/session.h"
#include "suite/modules.h"

namespace zv {
namespace {

constexpr std::int16_t kLaunch = 1;
constexpr std::string_view kHeadingSeparator = ": ";

// The operations of a module are numbered as the action buttons are: 3 deletes. Every other one
// writes: adding, changing, completing.
std::string Heading(const Session& session, std::int16_t mode) {
    constexpr std::int16_t kDelete = 3;
    if (mode <= 0) return {};
    return session.LoadText(mode == kDelete ? text_id::kDelete : text_id::kChange)
        .append(kHeadingSeparator);
}

bool HasRight(const std::string& rights, std::int16_t position) {
    // A position before the first flag would turn a refusal into a grant.
    if (position < 1) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return number::Val(text::Mid(rights, static_cast<std::size_t>(position), 1)) != 0;
}

bool PasswordAccepted(Session& session, const std::string& password) {
    if (password.empty()) return true;
    const std::string entry =
        session.windows.AskText("Please input the Model password !", true).value_or("");
    if (text::Trim(entry) == text::Trim(password)) return true;
    session.windows.ShowMessage("Deny Access: The Model password is not valid!",
                                forms::box::kExclamation);
    return false;
}

}  // namespace

std::int16_t CheckModule(Session& session, const std::string& name, std::int16_t mode,
                         std::int16_t launch) {
    if (name.empty()) return 1;
    // Whatever the host sets while the password is asked for, the module starts as it was asked
    // for.
    platform::ModuleStart start;
    start.language = session.state.Language;
    start.userName = session.state.UserName;
    start.connection = session.Settings();
    const std::string heading = Heading(session, mode);
    const auto module = suite::FindModule(session.database, name, session.state.Language);
    if (!module || module->serialNo == -1 || module->serialNo == 0) return kNotRegistered;

    const std::int16_t position = number::Add16(module->serialNo, mode);
    const auto refused = static_cast<std::int16_t>(-position);
    if (!HasRight(session.state.myPower, position)) return refused;
    if (!PasswordAccepted(session, module->password)) return refused;

    if (launch == kLaunch) {
        start.moduleName = module->key;
        start.heading = heading + module->caption;
        session.machine.modules.Run(start);
    }
    return position;
}

}  // namespace zv
