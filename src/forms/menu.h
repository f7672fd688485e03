// Menu entries: a tree whose roots stand in the window's menu bar or pop up.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zv::forms {

class Form;

class MenuItem {
 public:
    /// A root when `parent` is null. A caption "-" is a separator line.
    MenuItem(Form& form, std::string name, MenuItem* parent, std::string caption = {},
             int index = -1);
    MenuItem(const MenuItem&) = delete;
    MenuItem& operator=(const MenuItem&) = delete;

    const std::string& Name() const { return name_; }
    int Index() const { return index_; }
    Form& Owner() const { return form_; }
    MenuItem* Parent() const { return parent_; }
    const std::vector<MenuItem*>& Children() const { return children_; }

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    /// As Control::SetAccessKey; a caption that ends in "..." keeps that at its end.
    void SetAccessKey(char letter);
    /// The caption with the mark of the access key, as it is shown.
    std::string Marked() const;
    /// The key that does the same, shown at the right of the entry.
    const std::string& Shortcut() const { return shortcut_; }
    void SetShortcut(std::string name);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    /// Of a root: stands in the menu bar; an invisible root can still pop up.
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    bool Checked() const { return checked_; }
    void SetChecked(bool checked);
    /// The entry and every parent but the root are visible, all are enabled.
    bool CanChoose() const;
    /// Stands below `root`, at any depth.
    bool IsBelow(const MenuItem& root) const;

    /// As Control::Remember.
    std::function<void()> Remember();

    std::function<void()> onClick;
    void UserChosen();

 private:
    void Notify();

    Form& form_;
    std::string name_;
    MenuItem* parent_;
    std::string caption_;
    std::string shortcut_;
    char accessKey_ = 0;
    int index_;
    bool enabled_ = true;
    bool visible_ = true;
    bool checked_ = false;
    std::vector<MenuItem*> children_;
};

}  // namespace zv::forms
