// The controls that hold a list of texts.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/control.h"

namespace zv::forms {

/// Entries and the position of the selected one, -1 none.
class ListControl : public Control {
 public:
    int ListCount() const { return static_cast<int>(items_.size()); }
    /// Throws error 5 for a position without an entry.
    const std::string& List(int position) const;
    const std::vector<std::string>& Items() const { return items_; }
    void AddItem(std::string text);
    void SetItems(std::vector<std::string> items);
    /// Empties the list and selects nothing; raises no event.
    void Clear();
    int ListIndex() const { return listIndex_; }
    /// Raises Click when it changes; throws error 5 for a position without an entry.
    void SetListIndex(int position);
    std::function<void()> Remember() override;

    std::function<void()> onClick;
    void UserPick(int position);

 protected:
    using Control::Control;
    /// Up and Down lead to the rows beside, Home and End to the outermost ones.
    void OwnKey(KeyEvent& event) override;
    /// Home and End belong to a text that the user edits.
    virtual bool HasCaret() const { return false; }
    virtual bool MayPick() const { return true; }
    virtual void OnIndexChanged() {}
    void SetIndexOnly(int position) { listIndex_ = position; }

 private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

class ListBox : public ListControl {
 public:
    ListBox(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : ListControl(form, ControlKind::ListBox, std::move(name), parent, index) {
        SetTabStop(true);
    }
    /// The selected entry, empty when none is.
    std::string Text() const;
    std::function<void()> onDoubleClick;
    void UserDoubleClick();
};

enum class ComboStyle {
    ListOnly,  ///< one of the entries
    FreeText,  ///< an entry or any text
};

class ComboBox : public ListControl {
 public:
    ComboBox(Form& form, std::string name, Control* parent, ComboStyle style, int index = -1)
        : ListControl(form, ControlKind::ComboBox, std::move(name), parent, index), style_(style) {
        SetTabStop(true);
    }
    bool KeepsKey(const KeyEvent& event) const override {
        const bool reads = style_ == ComboStyle::ListOnly || locked_;
        return EditsText(event, reads) || ListControl::KeepsKey(event);
    }
    ComboStyle Style() const { return style_; }
    std::function<void()> Remember() override;
    /// Of a list-only box: the selected entry.
    const std::string& Text() const { return text_; }
    /// Free text: sets it, selects no entry, raises Change. List only: selects the entry with that
    /// text, throws error 5 when there is none.
    void SetText(std::string text);
    bool Locked() const { return locked_; }
    void SetLocked(bool locked);
    int MaxLength() const { return maxLength_; }
    void SetMaxLength(int units);

    std::function<void()> onChange;
    void UserText(const std::string& text);

 protected:
    void OnIndexChanged() override;
    bool HasCaret() const override { return style_ == ComboStyle::FreeText; }
    bool MayPick() const override { return !locked_; }

 private:
    ComboStyle style_;
    std::string text_;
    bool locked_ = false;
    int maxLength_ = 0;
};

}  // namespace zv::forms
