// A user who agrees to every question of two buttons and reads every message. Any other box throws.
#pragma once

#include <string>

#include "doubles/no_dialogs.h"

namespace zv::doubles {

class AgreeingDialogs : public NoDialogs {
 public:
    forms::Answer ShowMessage(forms::Form* owner, const std::string& text, int style,
                              const std::string& title) override {
        constexpr int kButtons = 15;
        const int buttons = style & kButtons;
        const bool told = style == forms::box::kOkOnly || style == forms::box::kInformation;
        if (told || buttons == forms::box::kOkCancel) return forms::Answer::Ok;
        return NoDialogs::ShowMessage(owner, text, style, title);
    }
};

}  // namespace zv::doubles
