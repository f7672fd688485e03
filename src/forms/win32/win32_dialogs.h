// Message box, input box and file dialog of the system.
#pragma once

#include <windows.h>

#include <string>

#include "forms/dialogs.h"

namespace zv::forms::win32 {

class Win32Backend;

class Win32Dialogs : public Dialogs {
 public:
    explicit Win32Dialogs(Win32Backend& backend);

    Answer ShowMessage(Form* owner, const MessageRequest& request) override;
    std::optional<std::string> AskText(Form* owner, const std::string& prompt,
                                       const std::string& title, bool secret) override;
    std::optional<std::string> ChooseFile(Form* owner, const FileRequest& request) override;

    bool LastDied() const override { return lastDied_; }

    /// Captions of the input box's buttons; at first in the language of the system.
    std::string okCaption;
    std::string cancelCaption;

 private:
    HWND OwnerWindow(const Form* owner) const;

    Win32Backend& backend_;
    bool lastDied_ = false;
};

}  // namespace zv::forms::win32
