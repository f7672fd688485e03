#include "doubles/queued_dialogs.h"

#include <stdexcept>

namespace zv::doubles {

forms::Answer QueuedDialogs::ShowMessage(forms::Form*, const forms::MessageRequest& request) {
    const std::shared_ptr<void> held = guard ? guard() : nullptr;
    const std::string text(request.text);
    messages.push_back(std::to_string(request.style) + "|" + text);
    standard = request.standard;
    if (whileStanding) whileStanding(text);
    constexpr int kButtons = 15;
    if ((request.style & kButtons) == forms::box::kOkOnly && mustHaveAnswers)
        return forms::Answer::Ok;
    if (answers.empty()) {
        if (mustHaveAnswers) throw std::logic_error("no answer for " + text);
        return forms::Answer::Ok;
    }
    const forms::Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::optional<std::string> QueuedDialogs::AskText(forms::Form*, const std::string& prompt,
                                                  const std::string&, bool) {
    prompts.push_back(prompt);
    if (whileStanding) whileStanding(prompt);
    if (inputs.empty()) return std::nullopt;
    const auto input = inputs.front();
    inputs.pop_front();
    return input;
}

std::optional<std::string> QueuedDialogs::ChooseFile(forms::Form*,
                                                     const forms::FileRequest& request) {
    fileRequests.push_back(request);
    return AskText(nullptr, request.title, {}, false);
}

}  // namespace zv::doubles
