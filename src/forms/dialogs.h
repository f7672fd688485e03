// The boxes that stop everything until they are answered.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zv::forms {

/// Message box styles: buttons + icon, with the classic numbers.
namespace box {
inline constexpr int kOkOnly = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kCritical = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;
}  // namespace box

/// None: the box ended without the user, for example with the window that it belonged to.
enum class Answer { None = 0, Ok = 1, Cancel = 2, Yes = 6, No = 7 };

/// Which button Enter presses when nothing else was chosen.
enum class DefaultButton {
    First,
    Last,  ///< the one that changes nothing, where the first cannot be undone
};

struct MessageRequest {
    std::string_view text;
    int style = box::kOkOnly;
    std::string_view title = {};
    DefaultButton standard = DefaultButton::First;
    /// Stands below the text, where the text does not say why.
    std::string_view reason = {};
};

struct FileRequest {
    static constexpr int kFileMustExist = 4100;    ///< must exist, hide read-only
    static constexpr int kPromptToCreate = 10244;  ///< path must exist, ask to create
    int flags = kFileMustExist;
    std::string filter;  ///< "description|pattern", further pairs behind another "|"
    std::string initialFile;
    std::string title;
    std::string initialFolder;
    /// Names a file to be written; the user is asked before one that exists is chosen.
    bool forSaving = false;
    std::string extension;  ///< added to a name without one, without the point
};

class Form;

/// The port behind which the boxes stand. `owner` may be null.
class Dialogs {
 public:
    virtual ~Dialogs() = default;
    virtual Answer ShowMessage(Form* owner, const MessageRequest& request) = 0;
    /// The text entered, or nothing when cancelled. `secret` hides what is typed.
    virtual std::optional<std::string> AskText(Form* owner, const std::string& prompt,
                                               const std::string& title, bool secret) = 0;
    /// Whether the box shown last ended without the user: with its owner, the message loop or the
    /// session.
    virtual bool LastDied() const { return false; }
    /// The chosen path, or nothing when cancelled.
    virtual std::optional<std::string> ChooseFile(Form* owner, const FileRequest& request) = 0;
};

}  // namespace zv::forms
