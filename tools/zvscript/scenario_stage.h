// Everything that one scenario plays with: the machine, the settings, the databases, the windows
// and the control, fresh and in a folder of its own.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "backend_stand.h"
#include "control/zv_task.h"
#include "doubles/recorded_statements.h"
#include "doubles/text_bag.h"
#include "forms/form.h"
#include "forms/window_system.h"
#include "interludes.h"
#include "platform/scripted/scripted_machine.h"
#include "resources/file_settings.h"
#include "scripted_database.h"
#include "scripted_desktop.h"
#include "scripted_dialogs.h"
#include "scripted_events.h"
#include "session/session.h"
#include "user_locale.h"

namespace zv::script {

class ScenarioStage {
 public:
    ScenarioStage(const std::filesystem::path& folder, BackendKind backend, ScriptEngine& engine,
                  Loops loops);
    /// Unloads the windows that are left; what they ask is cancelled.
    ~ScenarioStage();

    /// Does what a host does: an error that leaves `act` is kept for TakeError.
    void AsHost(const std::function<void()>& act);
    /// Number, a blank and text of the last error that reached the host; empty when none has since
    /// the last look.
    std::string TakeError();
    /// The same, left for the next look.
    std::string LastError() const { return error_.value_or(""); }
    /// Runs `act` while something of that kind stands in front of the windows shown so far.
    void InFront(Standing kind, const std::function<void()>& act);
    /// Throws Failure when the user cannot reach the window for what stands in front of it.
    void RequireReachable(const forms::Form& form) const;
    /// The box that came up last of those that stand. Throws Failure when none does.
    const StandingBox& RequireBox() const;
    /// What a message box or an input box lacked since the last call.
    std::optional<std::string> TakeProblem();
    /// What was handed to the shell and to the module runner.
    std::string TakeOpened();
    /// The print jobs since the last call: report name, title and each parameter, a line each.
    std::string TakePrinted();
    /// What the lists printed since then were asked for, a line each.
    std::string PrintedFor() const;

    platform::scripted::ScriptedMachine machine;
    resources::FileSettings settings;
    ScriptedOpener opener;
    doubles::RecordedStatements statements;
    ScriptedDialogs dialogs;
    ScriptedEvents events;
    Interludes interludes;
    HostDatabase host;
    std::unique_ptr<BackendStand> stand;
    forms::WindowSystem windows;
    Session session;
    ZvTask control;
    driver::Driver& driver;
    ScriptedDesktop desktop;
    UserLocale locale;

    doubles::TextBag bag;                           ///< as last written
    std::string result;                             ///< of the last call
    std::function<void(const std::string&)> print;  ///< takes what "show" asks for; may be empty
    std::filesystem::path pictures;  ///< where "picture" writes to; empty: it writes nothing

 private:
    struct Front {
        Standing kind;
        std::vector<const forms::Form*> behind;
    };
    std::vector<Front> fronts_;
    std::optional<std::string> error_;
    std::optional<std::string> problem_;
};

}  // namespace zv::script
