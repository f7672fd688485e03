// What is done to many reminders, in pieces so that the user can watch and stop it.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "progress/long_work.h"
#include "reminders/look.h"

namespace zv::windows {

/// Does something to some of them; answers to how many. The others were gone.
using RemindersAct = std::function<std::size_t(const std::vector<reminders::Due>&)>;

class ActingOnReminders final : public progress::LongWork {
 public:
    /// Marking costs several statements each; answers are kept together.
    static constexpr std::size_t kMarksInPiece = 100;
    static constexpr std::size_t kAnswersInPiece = 500;

    /// `act` gets `inPiece` of them at a time, as long as `goesOn`: between two pieces anything may
    /// happen.
    ActingOnReminders(std::vector<reminders::Due> dues, std::size_t inPiece, RemindersAct act,
                      std::function<bool()> goesOn)
        : dues_(std::move(dues)),
          inPiece_(inPiece),
          act_(std::move(act)),
          goesOn_(std::move(goesOn)) {}

    bool Continue() override;
    std::optional<int> Percent() const override;

    std::size_t Count() const { return dues_.size(); }
    std::size_t Acted() const { return acted_; }
    std::size_t Gone() const { return next_ - acted_; }

 private:
    std::vector<reminders::Due> dues_;
    std::size_t inPiece_;
    RemindersAct act_;
    std::function<bool()> goesOn_;
    std::size_t next_ = 0;
    std::size_t acted_ = 0;
};

}  // namespace zv::windows
