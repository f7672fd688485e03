// A user who is not to be asked: a box ends what brought it up, with its text.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "forms/dialogs.h"

namespace zv::doubles {

class NoDialogs : public forms::Dialogs {
 public:
    forms::Answer ShowMessage(forms::Form*, const forms::MessageRequest& request) override {
        throw std::runtime_error("a message box: " + std::string(request.text));
    }
    std::optional<std::string> AskText(forms::Form*, const std::string& prompt, const std::string&,
                                       bool) override {
        throw std::runtime_error("an input box: " + prompt);
    }
    std::optional<std::string> ChooseFile(forms::Form*, const forms::FileRequest&) override {
        throw std::runtime_error("a file dialog");
    }
};

}  // namespace zv::doubles
