#include "scenario_stage.h"

#include <algorithm>

#include "failure.h"
#include "script_text.h"
#include "values.h"

namespace zv::script {

ScenarioStage::ScenarioStage(const std::filesystem::path& folder, BackendKind backend,
                             ScriptEngine& engine, Loops loops)
    : machine(folder),
      settings(folder / "settings.ini"),
      opener(machine.files, engine),
      host(machine.files, engine),
      stand(MakeStand(backend, dialogs, std::move(loops))),
      windows(stand->GetBackend()),
      session(machine.machine, settings, opener, windows, &statements),
      control(session),
      driver(stand->GetDriver()) {
    session.listener = &events;
    dialogs.onProblem = [this](const std::string& text) {
        if (!problem_) problem_ = text;
    };
}

ScenarioStage::~ScenarioStage() {
    try {
        windows.UnloadAll();
    } catch (const std::exception&) {
        // The windows go with the window system all the same; the scenario is over.
    }
}

void ScenarioStage::AsHost(const std::function<void()>& act) {
    try {
        windows.FromHost(act);
    } catch (const RuntimeError& error) {
        error_ = std::to_string(static_cast<std::int32_t>(error.Number())) + ' ' +
                 session.Describe(error);
    }
}

std::string ScenarioStage::TakeError() {
    std::string text = error_.value_or("");
    error_.reset();
    return text;
}

void ScenarioStage::InFront(Standing kind, const std::function<void()>& act) {
    Front& front = fronts_.emplace_back(Front{kind, {}});
    for (const forms::Form* form : windows.Windows()) {
        if (form->IsShown()) front.behind.push_back(form);
    }
    try {
        act();
    } catch (...) {
        fronts_.pop_back();
        throw;
    }
    fronts_.pop_back();
}

void ScenarioStage::RequireReachable(const forms::Form& form) const {
    for (const Front& front : fronts_) {
        if (std::find(front.behind.begin(), front.behind.end(), &form) == front.behind.end()) {
            continue;
        }
        throw Failure(form.Name() + " is behind the " + NameOf(front.kind) + " that stands");
    }
}

const StandingBox& ScenarioStage::RequireBox() const {
    const StandingBox* box = dialogs.Innermost();
    if (!box) throw Failure("no box stands");
    return *box;
}

std::optional<std::string> ScenarioStage::TakeProblem() {
    return std::exchange(problem_, std::nullopt);
}

std::string ScenarioStage::TakeOpened() {
    std::vector<std::string> lines = std::move(machine.shell.lines);
    machine.shell.lines.clear();
    for (const platform::ModuleStart& start : machine.modules.started) {
        lines.push_back("module:" + start.moduleName + '|' + start.heading);
    }
    machine.modules.started.clear();
    return JoinLines(lines);
}

std::string ScenarioStage::PrintedFor() const {
    std::vector<std::string> lines;
    for (const auto& printed : machine.reports.printed) lines.push_back(printed.job.asked);
    return JoinLines(lines);
}

std::string ScenarioStage::TakePrinted() {
    std::vector<std::string> lines;
    for (const auto& printed : machine.reports.printed) {
        lines.push_back(printed.job.reportName);
        lines.push_back(printed.job.title);
        lines.insert(lines.end(), printed.job.parameters.begin(), printed.job.parameters.end());
    }
    machine.reports.printed.clear();
    return JoinLines(lines);
}

}  // namespace zv::script
