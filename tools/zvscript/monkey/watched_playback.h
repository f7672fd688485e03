// Plays a scenario while the invariants are checked. A line that cannot be done, because another
// was left out or the system does it no more, is passed over.
#pragma once

#include <string>
#include <vector>

#include "monkey/invariants.h"
#include "playback.h"

namespace zv::script {

class WatchedPlayback : public PlaybackWatcher {
 public:
    /// Throws ScriptError.
    explicit WatchedPlayback(const std::string& scenario);

    Playback& Lines() { return playback_; }
    /// What did not hold; empty when everything did.
    std::string Fault() const { return fault_.empty() ? playback_.Reason() : fault_; }
    int FaultyLine() const { return fault_.empty() ? playback_.FailedLine() : faultyLine_; }

    void LineBegins(ScenarioStage& stage, int line) override;
    void LineEnded(ScenarioStage& stage) override;
    bool Stops() const override { return !fault_.empty(); }
    void BoxStands(ScenarioStage&, const StandingBox&) override {}
    void BoxAnswered(const std::string& line) override { invariants_.BoxAnswered(line); }
    bool TakesProblems() const override { return true; }
    bool TakesFailure(bool ofDatabase) const override;
    void AllPlayed(ScenarioStage& stage) override;

 private:
    std::vector<std::string> lines_;
    std::vector<int> underWay_;
    Invariants invariants_;
    std::string fault_;
    int faultyLine_ = 0;
    Playback playback_;
};

}  // namespace zv::script
