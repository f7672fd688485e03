// Message boxes, input boxes and the file dialog, answered from queues that a scenario fills.
// Unlike doubles::QueuedDialogs they know the buttons of a box, can be answered while they stand,
// and report what a scenario forgot without ending it.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/dialogs.h"

namespace zv::script {

/// What stands in front of the windows and waits for the user. The file dialog is an input box.
enum class Standing { Box, Input, Menu };

struct StandingBox {
    Standing kind = Standing::Box;
    std::string text;
    bool answered = false;               ///< an answer of its own was queued when it came up
    std::vector<forms::Answer> buttons;  ///< of a message box, in the order in which it shows them
    std::function<void(forms::Dialogs&)> ask;  ///< asks the same of others
};

class ScriptedDialogs : public forms::Dialogs {
 public:
    /// Called with what the scenario should have foreseen: a box with several buttons or an input
    /// box without a queued answer, a queued answer that the box has no button for. The box is
    /// cancelled then.
    std::function<void(const std::string& problem)> onProblem;

    /// Runs while a box stands, before it is answered; may be empty.
    std::function<void(const StandingBox&)> whileStanding;
    /// Takes each line of `messages`; may be empty.
    std::function<void(const std::string&)> onAnswered;

    void QueueAnswer(forms::Answer answer) { answers_.push_back(answer); }
    /// Enter is pressed in the next box.
    void QueueEnter() { answers_.push_back(forms::Answer::None); }
    /// Nothing: cancelled. The file dialog takes its path from the same queue.
    void QueueInput(std::optional<std::string> text) { inputs_.push_back(std::move(text)); }

    /// The box that came up last of those that stand, or null.
    const StandingBox* Innermost() const { return standing_; }

    forms::Answer ShowMessage(forms::Form* owner, const forms::MessageRequest& request) override;
    std::optional<std::string> AskText(forms::Form* owner, const std::string& prompt,
                                       const std::string& title, bool secret) override;
    std::optional<std::string> ChooseFile(forms::Form* owner,
                                          const forms::FileRequest& request) override;

    /// The message boxes answered, "STYLE|TEXT|ANSWER" each.
    std::vector<std::string> messages;
    /// What Enter answers in each of them.
    std::vector<std::string> defaults;
    /// The reason below the text of each of them; mostly none.
    std::vector<std::string> reasons;

 private:
    template <typename Entry>
    std::optional<Entry> TakeWhileStanding(StandingBox box, std::deque<Entry>& queue);
    forms::Answer Choose(StandingBox box, forms::Answer standard);
    std::optional<std::string> TakeInput(const std::string& box,
                                         std::function<void(forms::Dialogs&)> ask);

    std::deque<forms::Answer> answers_;  ///< None: Enter
    std::deque<std::optional<std::string>> inputs_;
    const StandingBox* standing_ = nullptr;
};

/// "ok", "cancel", "yes" or "no"; nothing for any other word.
std::optional<forms::Answer> ParseAnswer(const std::string& word);
std::string NameOf(forms::Answer answer);

}  // namespace zv::script
