// The controls that hold others.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/control.h"

namespace zv::forms {

/// A part of a window without a frame; what stands outside it is not drawn.
class Panel : public Control {
 public:
    Panel(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::Panel, std::move(name), parent, index) {}
};

/// A part of a window with a line around it and a caption in the line.
class Frame : public Control {
 public:
    Frame(Form& form, std::string name, Control* parent = nullptr, int index = -1)
        : Control(form, ControlKind::Frame, std::move(name), parent, index) {}
    std::function<void()> Remember() override;
    const std::string& Caption() const { return caption_; }
    const std::string* AccessCaption() const override { return &caption_; }
    void SetCaption(std::string caption);

 private:
    std::string caption_;
};

/// Tabs, each with a page of controls, one of them in front.
class TabPanel : public Control {
 public:
    /// Pages are panels named like this control with "_" and their position.
    TabPanel(Form& form, std::string name, Control* parent, int tabs, int index = -1);
    int Tabs() const { return static_cast<int>(pages_.size()); }
    Panel& Page(int tab) { return *pages_.at(static_cast<std::size_t>(tab)); }
    const std::string& TabCaption(int tab) const {
        return captions_.at(static_cast<std::size_t>(tab));
    }
    void SetTabCaption(int tab, std::string caption);
    int Tab() const { return tab_; }
    std::function<void()> Remember() override;
    /// Raises Click when it changes; throws error 5 for a tab that does not exist.
    void SetTab(int tab);
    std::function<void()> onClick;
    void UserSelect(int tab);

    /// Client area of a page, relative to the panel; the backend reports it when it differs.
    static constexpr int kTabHeight = 26;
    static constexpr int kMargin = 4;
    Rect PageBounds() const;

 protected:
    bool ShowsChild(const Control& child) const override;
    /// Left and right lead to the tabs beside.
    void OwnKey(KeyEvent& event) override;
    void OnMoved() override;

 private:
    std::vector<std::unique_ptr<Panel>> pages_;
    std::vector<std::string> captions_;
    int tab_ = 0;
};

/// One page of a tab panel, as what stands on it sees it.
class TabPage {
 public:
    TabPage(TabPanel& tabs, int number) : tabs_(tabs), number_(number) {}

    Panel& Content() const { return tabs_.Page(number_); }
    bool InFront() const { return tabs_.Tab() == number_; }
    void BringToFront() const { tabs_.SetTab(number_); }
    void SetCaption(std::string caption) const { tabs_.SetTabCaption(number_, std::move(caption)); }

 private:
    TabPanel& tabs_;
    int number_;
};

}  // namespace zv::forms
