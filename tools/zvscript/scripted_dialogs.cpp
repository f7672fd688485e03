#include "scripted_dialogs.h"

#include <algorithm>

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

std::string Name(Answer answer) {
    switch (answer) {
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

}  // namespace

std::optional<Answer> ParseAnswer(const std::string& word) {
    for (const Answer answer : {Answer::Ok, Answer::Cancel, Answer::Yes, Answer::No}) {
        if (Name(answer) == word) return answer;
    }
    return {};
}

Answer ScriptedDialogs::Choose(const std::string& text, int style) {
    const std::vector<Answer> buttons = Buttons(style);
    if (answers_.empty()) {
        if (buttons.size() > 1) onProblem("no answer is queued for the message box " + Quote(text));
        return buttons.back();
    }
    const Answer answer = answers_.front();
    answers_.pop_front();
    if (std::find(buttons.begin(), buttons.end(), answer) == buttons.end()) {
        onProblem("no button \"" + Name(answer) + "\" in the message box " + Quote(text));
        return buttons.back();
    }
    return answer;
}

Answer ScriptedDialogs::ShowMessage(forms::Form*, const std::string& text, int style,
                                    const std::string&) {
    const Answer answer = Choose(text, style);
    messages.push_back(std::to_string(style) + '|' + text + '|' + Name(answer));
    return answer;
}

std::optional<std::string> ScriptedDialogs::TakeInput(const std::string& box) {
    if (inputs_.empty()) {
        onProblem("no input is queued for " + box);
        return {};
    }
    std::optional<std::string> text = std::move(inputs_.front());
    inputs_.pop_front();
    return text;
}

std::optional<std::string> ScriptedDialogs::AskText(forms::Form*, const std::string& prompt,
                                                    const std::string&, bool) {
    return TakeInput("the input box " + Quote(prompt));
}

std::optional<std::string> ScriptedDialogs::ChooseFile(forms::Form*,
                                                       const forms::FileRequest& request) {
    return TakeInput("the file dialog " + Quote(request.title));
}

}  // namespace zv::script
