#include "scripted_dialogs.h"

#include <algorithm>
#include <utility>

#include "script_text.h"

namespace zv::script {
namespace {

using forms::Answer;

// In the order in which a box shows them.
std::vector<Answer> Buttons(int style) {
    constexpr int kButtonMask = 0xF;
    switch (style & kButtonMask) {
        case forms::box::kOkCancel:
            return {Answer::Ok, Answer::Cancel};
        case forms::box::kYesNoCancel:
            return {Answer::Yes, Answer::No, Answer::Cancel};
        case forms::box::kYesNo:
            return {Answer::Yes, Answer::No};
        default:
            return {Answer::Ok};
    }
}

}  // namespace

std::string NameOf(Answer answer) {
    switch (answer) {
        case Answer::None:
            return "none";
        case Answer::Ok:
            return "ok";
        case Answer::Cancel:
            return "cancel";
        case Answer::Yes:
            return "yes";
        case Answer::No:
            return "no";
    }
    return {};
}

std::optional<Answer> ParseAnswer(const std::string& word) {
    for (const Answer answer : {Answer::Ok, Answer::Cancel, Answer::Yes, Answer::No}) {
        if (NameOf(answer) == word) return answer;
    }
    return {};
}

// What was queued when the box came up belongs to it; a box that comes up while it stands takes
// what is queued behind. Only without one it takes what is queued while it stands.
template <typename Entry>
std::optional<Entry> ScriptedDialogs::TakeWhileStanding(StandingBox box, std::deque<Entry>& queue) {
    std::optional<Entry> taken;
    const auto take = [&] {
        if (taken || queue.empty()) return;
        taken = std::move(queue.front());
        queue.pop_front();
    };
    take();
    box.answered = taken.has_value();
    const StandingBox* const behind = std::exchange(standing_, &box);
    if (whileStanding) whileStanding(box);
    standing_ = behind;
    take();
    return taken;
}

Answer ScriptedDialogs::Choose(StandingBox box, Answer standard) {
    const std::string text = box.text;
    const std::vector<Answer> buttons = box.buttons;
    std::optional<Answer> answer = TakeWhileStanding(std::move(box), answers_);
    if (answer == Answer::None) answer = standard;
    if (!answer) {
        if (buttons.size() > 1) onProblem("no answer is queued for the message box " + Quote(text));
        return buttons.back();
    }
    if (std::find(buttons.begin(), buttons.end(), *answer) == buttons.end()) {
        onProblem("no button \"" + NameOf(*answer) + "\" in the message box " + Quote(text));
        return buttons.back();
    }
    return *answer;
}

Answer ScriptedDialogs::ShowMessage(forms::Form* owner, const forms::MessageRequest& request) {
    const std::string text(request.text);
    const std::vector<Answer> buttons = Buttons(request.style);
    const Answer standard =
        request.standard == forms::DefaultButton::First ? buttons.front() : buttons.back();
    const auto ask = [&](forms::Dialogs& others) { others.ShowMessage(owner, request); };
    const Answer answer = Choose({Standing::Box, text, false, buttons, ask}, standard);
    defaults.push_back(NameOf(standard));
    reasons.emplace_back(request.reason);
    messages.push_back(std::to_string(request.style) + '|' + text + '|' + NameOf(answer));
    if (onAnswered) onAnswered(messages.back());
    return answer;
}

std::optional<std::string> ScriptedDialogs::TakeInput(const std::string& box,
                                                      std::function<void(forms::Dialogs&)> ask) {
    auto input = TakeWhileStanding({Standing::Input, box, false, {}, std::move(ask)}, inputs_);
    if (!input) onProblem("no input is queued for " + box);
    return input.value_or(std::nullopt);
}

std::optional<std::string> ScriptedDialogs::AskText(forms::Form* owner, const std::string& prompt,
                                                    const std::string& title, bool secret) {
    return TakeInput("the input box " + Quote(prompt),
                     [&](forms::Dialogs& others) { others.AskText(owner, prompt, title, secret); });
}

std::optional<std::string> ScriptedDialogs::ChooseFile(forms::Form* owner,
                                                       const forms::FileRequest& request) {
    return TakeInput("the file dialog " + Quote(request.title),
                     [&](forms::Dialogs& others) { others.ChooseFile(owner, request); });
}

}  // namespace zv::script
