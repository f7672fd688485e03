#include "playback.h"

#include <utility>

#include "failure.h"
#include "forms/form.h"
#include "forms/menu.h"
#include "interludes.h"
#include "scenario_stage.h"

namespace zv::script {

void Playback::Run(ScenarioStage& stage) {
    while (!AtEnd()) PlayNext(stage);
    if (Stopped()) return;
    const Interlude* missed = stage.interludes.First();
    if (missed && !TakesFailure(false)) {
        Fail(missed->line, std::string("expected a ") + NameOf(missed->kind) +
                               " to stand got none until the end");
    }
    if (watcher_ && !Failed()) watcher_->AllPlayed(stage);
}

void Playback::RunInside(ScenarioStage& stage, forms::Form& form) {
    while (!AtEnd() && form.IsShown()) PlayNext(stage);
    if (!form.IsShown()) return;
    const int line = part_->steps.empty() ? 1 : part_->steps.back().line;
    if (!Failed() && !Stopped()) Attempt(stage, line, [&] { stage.driver.Close(form); });
    // A window that does not want to close must not hold up the other files.
    if (form.IsShown()) Attempt(stage, line, [&] { form.Unload(); });
    if (form.IsShown()) form.Hide();
}

void Playback::RunWhileStanding(ScenarioStage& stage, const StandingBox& box) {
    if (watcher_) watcher_->BoxStands(stage, box);
    RunInterlude(stage, box.kind);
}

void Playback::RunInterlude(ScenarioStage& stage, Standing kind) {
    if (Failed() || Stopped()) return;
    const std::optional<Interlude> interlude = stage.interludes.Take(kind);
    if (!interlude) return;
    Part part{*interlude->steps};
    Part* const outer = std::exchange(part_, &part);
    stage.InFront(kind, [&] {
        while (!AtEnd()) PlayNext(stage);
    });
    part_ = outer;
}

void Playback::RunInMenu(ScenarioStage& stage) {
    RunInterlude(stage, Standing::Menu);
    while (!AtEnd() && Next().openMenu == OpenMenu::Stays) PlayNext(stage);
    if (AtEnd() || Next().openMenu != OpenMenu::Chooses) return;
    const Target& target = *Next().entry;
    const forms::Form* form = stage.windows.Find(target.window);
    const forms::MenuItem* entry = form ? form->FindMenu(target.control, target.index) : nullptr;
    if (entry && entry->IsBelow(*stage.windows.StandingMenu())) PlayNext(stage);
}

void Playback::PlayNext(ScenarioStage& stage) {
    const Step& step = part_->steps[part_->next++];
    if (watcher_) watcher_->LineBegins(stage, step.line);
    Attempt(stage, step.line, [&] {
        step.action(stage);
        stage.stand->Settle();
    });
    if (watcher_) watcher_->LineEnded(stage);
}

void Playback::Attempt(ScenarioStage& stage, int line, const std::function<void()>& act) {
    // Nothing is thrown on: between here and the runner there may be a message loop.
    try {
        act();
    } catch (const ScriptError& error) {
        if (!Failed()) wrong_ = true;
        Fail(line, error.Reason());
    } catch (const RuntimeError& error) {
        const std::string& text = error.Text();
        if (!TakesFailure(true))
            Fail(line, "error " + std::to_string(static_cast<std::int32_t>(error.Number())) +
                           (text.empty() ? "" : ' ' + Quote(text)));
    } catch (const Failure& failure) {
        if (!TakesFailure(false)) Fail(line, failure.Text());
    } catch (const driver::DriverError& error) {
        if (!TakesFailure(false)) Fail(line, error.what());
    } catch (const std::exception& error) {
        Fail(line, error.what());
    }
    const auto problem = stage.TakeProblem();
    if (problem && !(watcher_ && watcher_->TakesProblems())) Fail(line, *problem);
}

void Playback::Fail(int line, std::string reason) {
    // A failure inside a modal window comes before that of the line which opened it.
    if (Failed()) return;
    line_ = line;
    reason_ = std::move(reason);
}

}  // namespace zv::script
