// A user who agrees to every question of two buttons and reads every message. Any other box throws.
#pragma once

#include "doubles/no_dialogs.h"

namespace zv::doubles {

class AgreeingDialogs : public NoDialogs {
 public:
    forms::Answer ShowMessage(forms::Form* owner, const forms::MessageRequest& request) override {
        constexpr int kButtons = 15;
        const int buttons = request.style & kButtons;
        const bool toRead =
            request.style == forms::box::kOkOnly || request.style == forms::box::kInformation;
        if (toRead || buttons == forms::box::kOkCancel) return forms::Answer::Ok;
        return NoDialogs::ShowMessage(owner, request);
    }
};

}  // namespace zv::doubles
