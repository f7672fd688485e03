// Boxes that are answered from queues and keep what they said.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/dialogs.h"

namespace zv::doubles {

class QueuedDialogs : public forms::Dialogs {
 public:
    forms::Answer ShowMessage(forms::Form* owner, const forms::MessageRequest& request) override;
    std::optional<std::string> AskText(forms::Form* owner, const std::string& prompt,
                                       const std::string& title, bool secret) override;
    /// Takes its path from the inputs.
    std::optional<std::string> ChooseFile(forms::Form* owner,
                                          const forms::FileRequest& request) override;

    /// Of message boxes.
    std::deque<forms::Answer> answers;
    /// A question that finds no answer in the queue throws std::logic_error, and a message takes
    /// none; otherwise it is OK.
    bool mustHaveAnswers = false;
    /// Of input boxes and file dialogs; nothing, as an empty queue: cancelled.
    std::deque<std::optional<std::string>> inputs;
    /// Runs while a box stands, with its text, its prompt or its title; may be empty.
    std::function<void(const std::string&)> whileStanding;
    /// Asked for before a message is kept, and held until it is; may be empty.
    std::function<std::shared_ptr<void>()> guard;

    std::vector<std::string> messages;  ///< "STYLE|TEXT"
    /// Of the box that came up last.
    forms::DefaultButton standard = forms::DefaultButton::First;
    std::vector<std::string> prompts;  ///< titles of file dialogs among them
    std::vector<forms::FileRequest> fileRequests;
};

}  // namespace zv::doubles
