// Plays a user and a host who do whatever can be done, chosen by a seed.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "monkey/invariants.h"
#include "monkey/random_choice.h"
#include "monkey/recorded_act.h"
#include "player.h"

namespace zv::script {

class Monkey : public Player {
 public:
    Monkey(std::uint32_t seed, int steps) : random_(seed), left_(steps) {}
    Monkey(const Monkey&) = delete;
    Monkey& operator=(const Monkey&) = delete;

    /// Runs before each line, with everything up to it; may be empty.
    std::function<void(const std::vector<RecordedAct>&)> onLine;

    const std::vector<RecordedAct>& Acts() const { return acts_; }
    /// What did not hold; empty when everything did.
    const std::string& Fault() const { return fault_; }

    void Run(ScenarioStage& stage) override;
    void RunInside(ScenarioStage& stage, forms::Form& form) override;
    void RunWhileStanding(ScenarioStage& stage, const StandingBox& box) override;
    void RunInMenu(ScenarioStage& stage) override;
    void OnAnswered(const std::string& line) override { invariants_.BoxAnswered(line); }

 private:
    bool IsOver() const { return left_ <= 0 || !fault_.empty(); }
    void Step(ScenarioStage& stage);
    void Play(ScenarioStage& stage, const std::string& line);
    void Find(std::string fault);
    std::string Answer(ScenarioStage& stage, const StandingBox& box);
    void Interrupt(ScenarioStage& stage, RecordedBox& box);

    RandomChoice random_;
    int left_;
    int boxes_ = 0;  ///< that stand
    std::vector<RecordedAct> acts_;
    std::vector<RecordedAct>* list_ = &acts_;  ///< that grows: the whole, or what a box interrupts
    Invariants invariants_;
    std::string fault_;
};

}  // namespace zv::script
