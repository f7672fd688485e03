// Boxes that nobody sees.
#pragma once

#include <optional>
#include <string>

#include "forms/dialogs.h"

namespace zv::forms {

class QuietDialogs : public Dialogs {
 public:
    Answer ShowMessage(Form*, const std::string&, int, const std::string&) override {
        return Answer::Ok;
    }
    std::optional<std::string> AskText(Form*, const std::string&, const std::string&,
                                       bool) override {
        return {};
    }
    std::optional<std::string> ChooseFile(Form*, const FileRequest&) override { return {}; }
};

}  // namespace zv::forms
