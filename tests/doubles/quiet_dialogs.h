// Boxes that nobody sees: messages are read, everything else is cancelled. They take no memory, so
// that they stand where there is none.
#pragma once

#include <optional>
#include <string>

#include "forms/dialogs.h"

namespace zv::doubles {

class QuietDialogs : public forms::Dialogs {
 public:
    forms::Answer ShowMessage(forms::Form*, const forms::MessageRequest&) override {
        return forms::Answer::Ok;
    }
    std::optional<std::string> AskText(forms::Form*, const std::string&, const std::string&,
                                       bool) override {
        return {};
    }
    std::optional<std::string> ChooseFile(forms::Form*, const forms::FileRequest&) override {
        return {};
    }
};

}  // namespace zv::doubles
