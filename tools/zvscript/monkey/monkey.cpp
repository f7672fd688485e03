#include "monkey/monkey.h"

#include <utility>

#include "command.h"
#include "failure.h"
#include "forms/form.h"
#include "monkey/possible_acts.h"
#include "scenario_stage.h"
#include "script_text.h"

namespace zv::script {

void Monkey::Run(ScenarioStage& stage) {
    for (const std::string& line : OpeningLines()) Play(stage, line);
    while (!IsOver()) Step(stage);
    if (fault_.empty()) Find(Invariants::AtEnd(stage));
}

void Monkey::Step(ScenarioStage& stage) {
    constexpr std::size_t kActsForEachOfTheHost = 12;
    left_--;
    std::string line;
    if (!random_.Once(kActsForEachOfTheHost)) line = ChooseUserAct(stage, random_);
    if (line.empty()) line = ChooseHostAct(random_);
    Play(stage, line);
}

void Monkey::Play(ScenarioStage& stage, const std::string& line) {
    list_->push_back({line, {}});
    if (onLine) onLine(acts_);
    invariants_.LineBegins(stage, line);
    try {
        for (const script::Step& step : CompileScript(line)) step.action(stage);
        stage.stand->Settle();
    } catch (const Failure&) {
        // It could not be done after all.
    } catch (const driver::DriverError&) {
        // Likewise.
    } catch (const RuntimeError& error) {
        if (!IsOfAnotherProgram(line)) Find("an error left the act: " + error.Text());
    } catch (const std::exception& error) {
        Find(std::string("an exception left the act: ") + error.what());
    }
    stage.TakeProblem();
    Find(invariants_.LineEnded(stage));
}

void Monkey::Find(std::string fault) {
    if (fault_.empty()) fault_ = std::move(fault);
}

void Monkey::RunInside(ScenarioStage& stage, forms::Form& form) {
    while (!IsOver() && form.IsShown()) Step(stage);
    const auto attempt = [&](const std::function<void()>& act) {
        try {
            if (form.IsShown()) act();
        } catch (const std::exception&) {
            // What is left is taken away by the next attempt.
        }
    };
    attempt([&] { stage.driver.Close(form); });
    attempt([&] { form.Unload(); });
    attempt([&] { form.Hide(); });
}

void Monkey::RunWhileStanding(ScenarioStage& stage, const StandingBox& box) {
    constexpr std::size_t kDeepest = 2;
    constexpr std::size_t kBoxesForEachInterrupted = 4;
    RecordedBox recorded{box.kind, {}, {}};
    std::vector<RecordedAct>& list = *list_;
    boxes_++;
    if (!IsOver() && boxes_ <= static_cast<int>(kDeepest) &&
        random_.Once(kBoxesForEachInterrupted)) {
        Interrupt(stage, recorded);
    }
    boxes_--;
    recorded.answer = Answer(stage, box);
    if (!list.empty()) list.back().boxes.push_back(std::move(recorded));
}

void Monkey::Interrupt(ScenarioStage& stage, RecordedBox& box) {
    constexpr std::size_t kMostActs = 3;
    std::vector<RecordedAct>* const outer = std::exchange(list_, &box.during);
    stage.InFront(box.kind, [&] {
        Play(stage, ChooseHostAct(random_));
        for (std::size_t more = random_.Below(kMostActs); more > 0 && !IsOver(); more--) {
            Step(stage);
        }
    });
    list_ = outer;
}

std::string Monkey::Answer(ScenarioStage& stage, const StandingBox& box) {
    if (box.kind == Standing::Input) {
        if (random_.Once(2)) {
            stage.dialogs.QueueInput(std::nullopt);
            return "cancel";
        }
        std::string text = ChooseText(random_);
        stage.dialogs.QueueInput(ReadScript("input " + text)[0].words[1].text);
        return text;
    }
    const forms::Answer answer = random_.Of(box.buttons);
    stage.dialogs.QueueAnswer(answer);
    return NameOf(answer);
}

void Monkey::RunInMenu(ScenarioStage& stage) {
    constexpr std::size_t kMenusForEachLeft = 4;
    if (IsOver() || random_.Once(kMenusForEachLeft)) return;
    const std::string entry = ChooseEntry(*stage.windows.StandingMenu(), random_);
    if (!entry.empty()) Play(stage, entry);
}

}  // namespace zv::script
