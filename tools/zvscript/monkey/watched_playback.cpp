#include "monkey/watched_playback.h"

#include "base/text.h"
#include "scenario_stage.h"

namespace zv::script {

WatchedPlayback::WatchedPlayback(const std::string& scenario)
    : playback_(CompileScript(scenario), this) {
    for (const auto& line : text::Split(scenario, "\n")) {
        lines_.emplace_back(text::Trim(line));
    }
}

void WatchedPlayback::LineBegins(ScenarioStage& stage, int line) {
    underWay_.push_back(line);
    invariants_.LineBegins(stage, lines_[static_cast<std::size_t>(line) - 1]);
}

void WatchedPlayback::LineEnded(ScenarioStage& stage) {
    const int line = underWay_.back();
    underWay_.pop_back();
    const std::string fault = invariants_.LineEnded(stage);
    if (fault.empty() || !fault_.empty()) return;
    fault_ = fault;
    faultyLine_ = line;
}

bool WatchedPlayback::TakesFailure(bool ofDatabase) const {
    return !ofDatabase ||
           (!underWay_.empty() &&
            IsOfAnotherProgram(lines_[static_cast<std::size_t>(underWay_.back()) - 1]));
}

void WatchedPlayback::AllPlayed(ScenarioStage& stage) {
    if (!fault_.empty() || playback_.Failed()) return;
    fault_ = Invariants::AtEnd(stage);
    faultyLine_ = static_cast<int>(lines_.size());
}

}  // namespace zv::script
