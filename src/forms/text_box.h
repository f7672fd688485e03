#pragma once

#include <functional>
#include <string>

#include "forms/control.h"

namespace zv::forms {

/// A box of text; several lines are separated by "\r\n".
class TextBox : public Control {
 public:
    TextBox(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::TextBox, std::move(name), parent, index) {
        SetTabStop(true);
    }
    const std::string& Text() const { return text_; }
    /// Cut to MaxLength; raises Change when the text changes.
    void SetText(std::string text);
    /// In UTF-16 units; 0 = no limit.
    int MaxLength() const { return maxLength_; }
    void SetMaxLength(int units);
    /// Locked: can be read and selected but not changed by the user.
    bool Locked() const { return locked_; }
    void SetLocked(bool locked);
    /// Vacant: it shows nothing that belongs here, so it looks like a locked box until somebody
    /// types into it.
    bool Vacant() const { return vacant_; }
    void SetVacant(bool vacant);
    bool LooksLocked() const { return locked_ || (vacant_ && text_.empty()); }
    bool MultiLine() const { return multiLine_; }
    void SetMultiLine(bool multiLine) { multiLine_ = multiLine; }
    std::function<void()> Remember() override;
    /// A box of one line in which a tab character shows as a gap. Set before the window is shown.
    bool ShowsTabs() const { return showsTabs_; }
    void SetShowsTabs(bool showsTabs) { showsTabs_ = showsTabs; }
    bool KeepsKey(const KeyEvent& event) const override {
        return EditsText(event, locked_) ||
               (multiLine_ && event.code == key::kEnter && !event.control);
    }
    bool NumericKeyboard() const { return numeric_; }
    void SetNumericKeyboard(bool numeric);

    int SelStart() const { return selStart_; }
    int SelLength() const { return selLength_; }
    void Select(int start, int length);
    void SelectAll();

    std::function<void()> onChange;
    /// The user changed the text; cut to MaxLength like SetText.
    void UserText(const std::string& text);
    void UserSelection(int start, int length) {
        selStart_ = start;
        selLength_ = length;
    }

 private:
    std::string Cut(std::string text) const;

    std::string text_;
    int maxLength_ = 0;
    int selStart_ = 0;
    int selLength_ = 0;
    bool locked_ = false;
    bool vacant_ = false;
    bool multiLine_ = false;
    bool numeric_ = false;
    bool showsTabs_ = false;
};

}  // namespace zv::forms
