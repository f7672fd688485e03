// A backend without a display: windows are nothing but the state that their controls keep.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "forms/backend.h"

namespace zv::forms::headless {

class HeadlessBackend : public Backend {
 public:
    /// `dialogs` answers message boxes and the like; it must outlive the backend.
    explicit HeadlessBackend(Dialogs& dialogs) : dialogs_(dialogs) {}

    /// Runs while a modal window is open and must return only after it is gone, as the user's
    /// closing it would. Without one a modal window is an error, because nobody could close it.
    std::function<void(Form&)> modalLoop;
    Rect workArea{0, 0, 1280, 960};
    SystemTheme theme;

    /// Called while a popup menu is open and the user does nothing; the menu closes when it
    /// returns.
    std::function<void()> onMenuIdle;

    std::unique_ptr<FormPeer> Realize(Form& form) override;
    void RunModal(Form& form) override;
    /// By fixed widths: 12 for a wide character, 6 for any other, 16 a line.
    Size MeasureText(std::string_view text) override;
    Rect WorkArea() override { return workArea; }
    int ScrollBarSize() override { return 16; }
    SystemTheme GetTheme() override { return theme; }
    Dialogs& GetDialogs() override { return dialogs_; }
    void SetClipboardText(std::string_view text) override { clipboard_ = text; }
    std::string ClipboardText() override { return clipboard_; }

 private:
    Dialogs& dialogs_;
    std::string clipboard_;
};

}  // namespace zv::forms::headless
