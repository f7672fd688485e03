// The lines of one scenario, played one after the other; while a modal window is open from inside
// the operation that opened it.
#pragma once

#include <string>
#include <vector>

#include "command.h"
#include "player.h"

namespace zv::forms {
class Form;
}

namespace zv::script {

/// Watches a playing as it goes on.
class PlaybackWatcher {
 public:
    virtual ~PlaybackWatcher() = default;
    /// Lines nest while something modal stands.
    virtual void LineBegins(ScenarioStage& stage, int line) = 0;
    virtual void LineEnded(ScenarioStage& stage) = 0;
    /// No further line is played.
    virtual bool Stops() const = 0;
    /// Something stands that is answered from the queues. Runs before the lines of a "during".
    virtual void BoxStands(ScenarioStage& stage, const StandingBox& box) = 0;
    virtual void BoxAnswered(const std::string& line) = 0;
    /// What a box lacks is none of the scenario's fault.
    virtual bool TakesProblems() const = 0;
    /// A line that could not be done, or failed with an error, is passed over.
    virtual bool TakesFailure(bool /*ofDatabase*/) const { return false; }
    /// Nothing is left to play, and nothing has failed.
    virtual void AllPlayed(ScenarioStage&) {}
};

class Playback : public Player {
 public:
    /// `watcher` may be null.
    explicit Playback(std::vector<Step> steps, PlaybackWatcher* watcher = nullptr)
        : steps_(std::move(steps)), watcher_(watcher) {}
    Playback(const Playback&) = delete;
    Playback& operator=(const Playback&) = delete;

    void Run(ScenarioStage& stage) override;
    /// Plays on until the window is gone; when the lines end or fail before, closes it.
    void RunInside(ScenarioStage& stage, forms::Form& form) override;
    /// Plays the lines that wait for such a thing to stand, when there are any.
    void RunWhileStanding(ScenarioStage& stage, const StandingBox& box) override;
    /// Plays on while a popup menu is open: what waits for a menu, then every line that lets the
    /// menu stand, up to the one that chooses from it.
    void RunInMenu(ScenarioStage& stage) override;

    void OnAnswered(const std::string& line) override {
        if (watcher_) watcher_->BoxAnswered(line);
    }

    bool Failed() const { return line_ != 0; }
    /// The file itself turned out to be wrong.
    bool Wrong() const { return wrong_; }
    int FailedLine() const { return line_; }
    const std::string& Reason() const { return reason_; }

 private:
    /// Lines that are played from the first to the last.
    struct Part {
        const std::vector<Step>& steps;
        std::size_t next = 0;
    };
    bool AtEnd() const { return Failed() || Stopped() || part_->next == part_->steps.size(); }
    bool TakesFailure(bool ofDatabase) const {
        return watcher_ && watcher_->TakesFailure(ofDatabase);
    }
    bool Stopped() const { return watcher_ && watcher_->Stops(); }
    const Step& Next() const { return part_->steps[part_->next]; }
    void PlayNext(ScenarioStage& stage);
    void RunInterlude(ScenarioStage& stage, Standing kind);
    void Attempt(ScenarioStage& stage, int line, const std::function<void()>& act);
    void Fail(int line, std::string reason);

    std::vector<Step> steps_;
    PlaybackWatcher* watcher_;
    Part whole_{steps_};
    Part* part_ = &whole_;  ///< the one under way: the whole, or lines of a "during"
    int line_ = 0;
    bool wrong_ = false;
    std::string reason_;
};

}  // namespace zv::script
