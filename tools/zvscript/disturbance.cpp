#include "disturbance.h"

#include <algorithm>

#include "failure.h"
#include "forms/form.h"
#include "scenario_stage.h"
#include "script_text.h"
#include "stored_rows.h"

namespace zv::script {
namespace {

constexpr const char* kMainWindow = "frmTaskMain";

void CallRefresh(ScenarioStage& stage, int mode) {
    stage.AsHost([&] { stage.control.refresh(mode, 0); });
}

}  // namespace

Disturbance MakeDisturbance(const std::string& name) {
    for (const int mode : {0, 1, 9}) {
        if (name != "refresh" + std::to_string(mode)) continue;
        return {name, [mode](ScenarioStage& stage) { CallRefresh(stage, mode); }};
    }
    if (name == "close") {
        return {name, [](ScenarioStage& stage) {
                    forms::Form* form = stage.windows.Find(kMainWindow);
                    if (form && form->IsShown()) form->UserClose();
                }};
    }
    if (name == "opener") {
        return {name, [](ScenarioStage& stage) {
                    stage.opener.FailNext();
                    CallRefresh(stage, 1);
                }};
    }
    throw ScriptError("unknown disturbance " + name);
}

std::string Judge(const Outcome& undisturbed, const Outcome& disturbed) {
    if (disturbed.rows == undisturbed.rows) return {};
    if (!disturbed.error.empty() && disturbed.error != undisturbed.error) return {};
    std::vector<std::string> usual = undisturbed.boxes;
    for (const std::string& box : disturbed.boxes) {
        const auto at = std::find(usual.begin(), usual.end(), box);
        if (at == usual.end()) return {};
        usual.erase(at);
    }
    return "other rows and not a word: " + Differences(undisturbed.rows, disturbed.rows).front();
}

void QuestionWatcher::LineBegins(ScenarioStage&, int line) {
    frames_.push_back({line, {}, {}, {}});
}

void QuestionWatcher::LineEnded(ScenarioStage& stage) {
    const Frame frame = std::move(frames_.back());
    frames_.pop_back();
    const bool wanted = disturbance_ ? std::find(frame.questions.begin(), frame.questions.end(),
                                                 chosen_) != frame.questions.end()
                                     : !frame.questions.empty();
    if (!wanted) return;
    const Outcome outcome{frame.line, frame.box, StoredRows(stage), frame.boxes, stage.LastError()};
    for (const int question : frame.questions) outcomes_[question] = outcome;
    if (disturbance_) stops_ = true;
}

void QuestionWatcher::BoxStands(ScenarioStage& stage, const StandingBox& box) {
    if (disturbing_) {
        if (box.text == standing_) twice_ = box.text;
        return;
    }
    if (stops_ || frames_.empty() || !box.answered) return;
    if (stage.interludes.Waits(box.kind) || stage.statements.FailsLater()) return;
    frames_.back().questions.push_back(++questions_);
    if (frames_.back().box.empty() || questions_ == chosen_) frames_.back().box = box.text;
    if (questions_ == chosen_ && disturbance_) Disturb(stage, box);
}

void QuestionWatcher::Disturb(ScenarioStage& stage, const StandingBox& box) {
    standing_ = box.text;
    disturbing_ = true;
    const std::string before = stage.TakeError();
    disturbance_->act(stage);
    stage.TakeError();
    disturbing_ = false;
    disturbed_ = true;
}

void QuestionWatcher::BoxAnswered(const std::string& line) {
    if (!disturbing_ && !frames_.empty()) frames_.back().boxes.push_back(line);
}

}  // namespace zv::script
