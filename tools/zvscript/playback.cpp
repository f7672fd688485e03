#include "playback.h"

#include "failure.h"
#include "forms/form.h"
#include "stage.h"

namespace zv::script {

void Playback::Run(Stage& stage) {
    while (!AtEnd()) PlayNext(stage);
}

void Playback::RunInside(Stage& stage, forms::Form& form) {
    while (!AtEnd() && form.IsShown()) PlayNext(stage);
    if (!form.IsShown()) return;
    const int line = steps_.empty() ? 1 : steps_.back().line;
    if (!Failed()) Attempt(stage, line, [&] { stage.driver.Close(form); });
    // A window that does not want to close must not hold up the other files.
    if (form.IsShown()) Attempt(stage, line, [&] { form.Unload(); });
    if (form.IsShown()) form.Hide();
}

void Playback::PlayNext(Stage& stage) {
    const Step& step = steps_[next_++];
    Attempt(stage, step.line, [&] {
        step.action(stage);
        stage.stand->Settle();
    });
}

void Playback::Attempt(Stage& stage, int line, const std::function<void()>& act) {
    // Nothing is thrown on: between here and the runner there may be a message loop.
    try {
        act();
    } catch (const ScriptError& error) {
        if (!Failed()) wrong_ = true;
        Fail(line, error.Reason());
    } catch (const RuntimeError& error) {
        const std::string& text = error.Text();
        Fail(line, "error " + std::to_string(static_cast<std::int32_t>(error.Number())) +
                       (text.empty() ? "" : ' ' + Quote(text)));
    } catch (const Failure& failure) {
        Fail(line, failure.Text());
    } catch (const std::exception& error) {
        Fail(line, error.what());
    }
    if (const auto problem = stage.TakeProblem()) Fail(line, *problem);
}

void Playback::Fail(int line, std::string reason) {
    // A failure inside a modal window comes before that of the line which opened it.
    if (Failed()) return;
    line_ = line;
    reason_ = std::move(reason);
}

}  // namespace zv::script
