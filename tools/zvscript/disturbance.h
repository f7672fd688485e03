// Replays a scenario with something put in while a question of its own stands, and judges what came
// of the act that asked: the rows are those of the undisturbed act, or the user sees a message.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "playback.h"
#include "scripted_dialogs.h"

namespace zv::script {

class ScenarioStage;

/// What is done to the control while a box or an input box stands.
struct Disturbance {
    std::string name;
    std::function<void(ScenarioStage&)> act;
};

/// "refresh0", "refresh1", "refresh9": the host's call; "close": the main window is closed by its
/// frame; "opener": the host's call while no connection can be opened. Throws ScriptError for any
/// other name.
Disturbance MakeDisturbance(const std::string& name);

/// What one question led to: everything that the line which asked it left behind.
struct Outcome {
    int line = 0;
    std::string box;                 ///< what asked
    std::string rows;                ///< of all tables, after the line
    std::vector<std::string> boxes;  ///< message boxes of the line, without the disturbance's own
    std::string error;               ///< of the line, when it reached the host
};

/// What is wrong with a disturbed act, compared with the same act undisturbed; empty when nothing
/// is. Other rows are right only where a box or an error said more than in the undisturbed act.
std::string Judge(const Outcome& undisturbed, const Outcome& disturbed);

/// Watches one playing of a scenario. Questions are the boxes and input boxes that have a queued
/// answer of their own, counted from 1; those for which the scenario itself has a "during", or a
/// failure of the database to come, are left out.
class QuestionWatcher : public PlaybackWatcher {
 public:
    /// Records what every question leads to.
    QuestionWatcher() = default;
    /// Disturbs the question of that number and stops when its line is over.
    QuestionWatcher(int question, const Disturbance& disturbance)
        : chosen_(question), disturbance_(&disturbance) {}

    const std::map<int, Outcome>& Outcomes() const { return outcomes_; }
    /// A box that came up although one of the same text stood; empty when there was none.
    const std::string& Twice() const { return twice_; }

    void LineBegins(ScenarioStage& stage, int line) override;
    void LineEnded(ScenarioStage& stage) override;
    bool Stops() const override { return stops_; }
    void BoxStands(ScenarioStage& stage, const StandingBox& box) override;
    void BoxAnswered(const std::string& line) override;
    bool TakesProblems() const override { return disturbing_ || disturbed_; }

 private:
    struct Frame {
        int line;
        std::vector<int> questions;
        std::string box;
        std::vector<std::string> boxes;
    };
    void Disturb(ScenarioStage& stage, const StandingBox& box);

    int chosen_ = 0;  ///< 0: none
    const Disturbance* disturbance_ = nullptr;
    int questions_ = 0;
    bool disturbing_ = false;
    bool disturbed_ = false;
    bool stops_ = false;
    std::string standing_;
    std::string twice_;
    std::vector<Frame> frames_;
    std::map<int, Outcome> outcomes_;
};

}  // namespace zv::script
