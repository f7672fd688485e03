// What a control, a menu or a window tells its native counterpart: everything that this shows.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "doubles/no_dialogs.h"
#include "forms/buttons.h"
#include "forms/canvas.h"
#include "forms/containers.h"
#include "forms/date_picker.h"
#include "forms/form.h"
#include "forms/grid.h"
#include "forms/headless/headless_backend.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/menu.h"
#include "forms/picture.h"
#include "forms/progress_bar.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "forms/tree_view.h"
#include "forms/up_down.h"
#include "forms/window_system.h"

namespace zv::forms {
namespace {

using Told = std::vector<std::string>;

std::string NameOf(Aspect aspect) {
    constexpr const char* kNames[] = {"bounds",   "visible", "enabled",   "caption",  "text",
                                      "value",    "items",   "selection", "locked",   "max length",
                                      "keyboard", "image",   "z-order",   "interval", "tool tip"};
    return kNames[static_cast<std::size_t>(aspect)];
}

// Stands behind any control and writes down what it is told.
class Listener : public TreePeer {
 public:
    explicit Listener(Told& told) : told_(told) {}
    void Changed(Aspect aspect) override { told_.push_back(NameOf(aspect)); }
    void TakeFocus() override { told_.push_back("focus"); }
    void NodeAdded(int node) override { Node("added", node); }
    void NodeRemoved(int node) override { Node("removed", node); }
    void NodeChanged(int node) override { Node("changed", node); }
    void NodesCleared() override { told_.push_back("cleared"); }
    void FillBegins() override { told_.push_back("fill"); }
    void FillEnds() override { told_.push_back("filled"); }
    Position PlaceOf(int) override { return {}; }

 private:
    void Node(const char* what, int node) {
        told_.push_back(std::string(what) + " " + std::to_string(node));
    }
    Told& told_;
};

class ListeningWindow : public FormPeer {
 public:
    explicit ListeningWindow(Told& told) : told_(told) {}
    void Show() override { told_.push_back("show"); }
    void Hide() override { told_.push_back("hide"); }
    void CaptionChanged() override { told_.push_back("caption"); }
    void BoundsChanged() override { told_.push_back("bounds"); }
    void WindowStateChanged() override { told_.push_back("state"); }
    void ViewChanged() override { told_.push_back("view"); }
    void PaintNow() override { told_.push_back("paint"); }
    void MenuChanged(MenuItem& item) override { told_.push_back("menu " + item.Name()); }
    MenuItem* PopupMenu(MenuItem&, int, int) override { return nullptr; }
    void FollowMonitor() override { told_.push_back("monitor"); }

 private:
    Told& told_;
};

class ListeningBackend : public headless::HeadlessBackend {
 public:
    using HeadlessBackend::HeadlessBackend;
    std::unique_ptr<FormPeer> Realize(Form& form) override {
        for (Control* control : form.Controls()) {
            control->AttachPeer(std::make_unique<Listener>(told));
        }
        return std::make_unique<ListeningWindow>(told);
    }
    Told told;
};

// One control of each kind.
struct Everything : Form {
    explicit Everything(WindowSystem& windows) : Form(windows, "frmTest") {
        images.Add("a", {});
        images.Add("b", {});
        tree.SetImageList(&images);
    }
    ImageList images;
    MenuItem mnuTop{*this, "mnuTop", nullptr, "top"};
    MenuItem mnuEntry{*this, "mnuEntry", &mnuTop, "entry"};
    Label label{*this, "label"};
    TextBox text{*this, "text"};
    CommandButton button{*this, "button"};
    CheckBox check{*this, "check"};
    OptionButton first{*this, "first"};
    OptionButton second{*this, "second"};
    Frame frame{*this, "frame"};
    Panel panel{*this, "panel"};
    TabPanel tabs{*this, "tabs", nullptr, 2};
    ListBox list{*this, "list"};
    ComboBox combo{*this, "combo", nullptr, ComboStyle::FreeText};
    ComboBox choice{*this, "choice", nullptr, ComboStyle::ListOnly};
    Grid grid{*this, "grid"};
    TreeView tree{*this, "tree"};
    DatePicker date{*this, "date"};
    UpDown spin{*this, "spin"};
    Picture picture{*this, "picture"};
    ProgressBar progress{*this, "progress"};
    Canvas canvas{*this, "canvas"};
    Timer timer{*this, "timer", 1000};
};

class Notification : public testing::Test {
 protected:
    struct Case {
        const char* name;
        std::function<void(Everything&)> act;
        Told told;
        /// Once more says nothing, because nothing changes.
        bool quietAgain = true;
    };
    Notification() { form.Show(false); }
    void Play(const std::vector<Case>& cases) {
        for (const Case& played : cases) {
            backend.told.clear();
            played.act(form);
            EXPECT_EQ(backend.told, played.told) << played.name;
            if (!played.quietAgain) continue;
            backend.told.clear();
            played.act(form);
            EXPECT_EQ(backend.told, Told()) << played.name << ", again";
        }
    }

    doubles::NoDialogs dialogs;
    ListeningBackend backend{dialogs};
    WindowSystem windows{backend};
    Everything& form{windows.Create<Everything>()};
};

TEST_F(Notification, OfWhatEveryControlHas) {
    int played = 0;
    for (Control* control : form.Controls()) {
        const std::string name = control->DisplayName();
        const auto tells = [&](const std::function<void()>& act, const char* aspect) {
            backend.told.clear();
            act();
            EXPECT_EQ(std::count(backend.told.begin(), backend.told.end(), aspect), 1)
                << name << " " << aspect;
        };
        if (control == &form.tabs) {
            backend.told.clear();
            control->Move({1, 2, 30, 40});
            EXPECT_EQ(backend.told, (Told{"bounds", "bounds", "bounds"})) << "with both pages";
        } else {
            tells([&] { control->Move({1, 2, 31, 41}); }, "bounds");
        }
        tells([&] { control->SetVisible(false); }, "visible");
        tells([&] { control->SetVisible(true); }, "visible");
        tells([&] { control->SetEnabled(false); }, "enabled");
        tells([&] { control->SetEnabled(true); }, "enabled");
        tells([&] { control->SetAccessibleName("name"); }, "caption");
        tells([&] { control->SetAccessKey('N'); }, "caption");
        tells([&] { control->SetToolTip("tip"); }, "tool tip");
        tells([&] { control->BringToFront(); }, "z-order");
        const auto back = control->Remember();
        backend.told.clear();
        back();
        for (const char* aspect : {"visible", "enabled"}) {
            EXPECT_EQ(std::count(backend.told.begin(), backend.told.end(), aspect), 1)
                << name << " put back: " << aspect;
        }
        played++;
    }
    EXPECT_GE(played, 20);
}

TEST_F(Notification, OfCaptionsTextsAndValues) {
    Play({
        {"label", [](auto& f) { f.label.SetCaption("x"); }, {"caption"}},
        {"mnemonic", [](auto& f) { f.label.SetUseMnemonic(false); }, {"caption"}},
        {"button", [](auto& f) { f.button.SetCaption("x"); }, {"caption"}, false},
        {"check box", [](auto& f) { f.check.SetCaption("x"); }, {"caption"}, false},
        {"option", [](auto& f) { f.first.SetCaption("x"); }, {"caption"}, false},
        {"frame", [](auto& f) { f.frame.SetCaption("x"); }, {"caption"}, false},
        {"tab", [](auto& f) { f.tabs.SetTabCaption(1, "x"); }, {"items"}, false},
        {"text", [](auto& f) { f.text.SetText("abc"); }, {"text"}},
        {"locked", [](auto& f) { f.text.SetLocked(true); }, {"locked"}},
        {"unlocked", [](auto& f) { f.text.SetLocked(false); }, {"locked"}},
        {"vacant", [](auto& f) { f.text.SetVacant(true); }, {"locked"}},
        {"selected", [](auto& f) { f.text.Select(1, 1); }, {"selection"}, false},
        {"all selected", [](auto& f) { f.text.SelectAll(); }, {"selection"}, false},
        {"length", [](auto& f) { f.text.SetMaxLength(5); }, {"max length"}, false},
        {"digits", [](auto& f) { f.text.SetNumericKeyboard(true); }, {"keyboard"}},
        {"letters", [](auto& f) { f.text.SetNumericKeyboard(false); }, {"keyboard"}},
        {"cut typing", [](auto& f) { f.text.UserText("abcdefgh"); }, {"text"}},
        {"typing", [](auto& f) { f.text.UserText("ab"); }, {}},
        {"checked", [](auto& f) { f.check.SetValue(1); }, {"value"}},
        {"option chosen", [](auto& f) { f.first.SetValue(true); }, {"value"}},
        {"another option", [](auto& f) { f.second.SetValue(true); }, {"value", "value"}},
        {"tab chosen", [](auto& f) { f.tabs.SetTab(1); }, {"value"}},
        {"date", [](auto& f) { f.date.SetValue(DateTime(2003, 3, 7)); }, {"value"}},
        {"progress", [](auto& f) { f.progress.SetPercent(10); }, {"value"}},
        {"progress unknown", [](auto& f) { f.progress.SetPercent({}); }, {"value"}},
        {"picture", [](auto& f) { f.picture.SetImage({}); }, {"image"}, false},
        {"painting", [](auto& f) { f.canvas.Repaint(); }, {"image"}, false},
        {"scrolled",
         [](auto& f) {
             f.canvas.SetScroll({9, 1, 2}, {9, 1, 3});
         },
         {"value"}},
        {"scrolled down",
         [](auto& f) {
             f.canvas.SetScroll({9, 1, 2}, {9, 1, 4});
         },
         {"value"}},
        {"scrolled across",
         [](auto& f) {
             f.canvas.SetScroll({9, 1, 3}, {9, 1, 4});
         },
         {"value"}},
        {"running", [](auto& f) { f.timer.SetRunning(true); }, {"interval"}},
        {"interval", [](auto& f) { f.timer.SetIntervalMs(5); }, {"interval"}, false},
    });
}

TEST_F(Notification, OfListsGridsAndTrees) {
    Play({
        {"list",
         [](auto& f) {
             f.list.SetItems({"a", "b"});
         },
         {"items"},
         false},
        {"list entry", [](auto& f) { f.list.AddItem("c"); }, {"items"}, false},
        {"list index", [](auto& f) { f.list.SetListIndex(1); }, {"selection"}},
        {"list cleared", [](auto& f) { f.list.Clear(); }, {"items"}, false},
        {"combo",
         [](auto& f) {
             f.combo.SetItems({"a", "b"});
         },
         {"items"},
         false},
        {"combo index", [](auto& f) { f.combo.SetListIndex(1); }, {"selection"}},
        {"combo text", [](auto& f) { f.combo.SetText("x"); }, {"text"}},
        {"combo entry as text", [](auto& f) { f.combo.SetListIndex(0); }, {"selection"}},
        {"the same text", [](auto& f) { f.combo.SetText("a"); }, {"text"}},
        {"combo locked", [](auto& f) { f.combo.SetLocked(true); }, {"locked"}},
        {"combo length", [](auto& f) { f.combo.SetMaxLength(3); }, {"max length"}, false},
        {"combo cut typing", [](auto& f) { f.combo.UserText("abcdef"); }, {"text"}},
        {"choices",
         [](auto& f) {
             f.choice.SetItems({"a", "b"});
         },
         {"items"},
         false},
        {"choice", [](auto& f) { f.choice.SetText("b"); }, {"selection"}},
        {"columns",
         [](auto& f) {
             f.grid.SetColumns({{"a"}, {"b"}});
         },
         {"items"},
         false},
        {"rows", [](auto& f) { f.grid.SetDataRowCount(2); }, {"items"}, false},
        {"cell", [](auto& f) { f.grid.SetCell(1, 1, "x"); }, {"text"}, false},
        {"filling", [](auto& f) { Grid::Filling filling(f.grid); }, {"items"}, false},
        {"all rows", [](auto& f) { f.grid.SelectAll(); }, {"selection"}, false},
        {"row", [](auto& f) { f.grid.UserSelect(1); }, {"selection"}, false},
        {"sorted", [](auto& f) { f.grid.Sort(1, true); }, {"items", "selection"}, false},
    });
}

TEST_F(Notification, OfTheNodesOfATree) {
    TreeView& tree = form.tree;
    const auto tells = [&](const std::function<void()>& act, const Told& told) {
        backend.told.clear();
        act();
        EXPECT_EQ(backend.told, told);
    };
    tells([&] { tree.Add(TreeView::kNone, "r", "root", "a"); }, {"added 0"});
    tells([&] { tree.Add(0, "c", "child", "a"); }, {"added 1"});
    tells([&] { tree.Add(0, "d", "next", "a"); }, {"added 2"});
    tells([&] { tree.SetText(1, "x"); }, {"changed 1"});
    tells([&] { tree.SetImage(1, "b"); }, {"changed 1"});
    tells([&] { tree.SetExpanded(0, true); }, {"changed 0"});
    tells([&] { tree.SetExpanded(0, true); }, {});
    tells([&] { tree.SetExpanded(0, false); }, {"changed 0"});
    tells([&] { tree.Select(1); }, {"changed 0", "selection"});
    tells([&] { tree.Select(1); }, {});
    tells([&] { tree.RepaintSigns(); }, {"image"});
    const auto back = tree.Remember();
    tells([&] { tree.Remove(1); }, {"removed 1", "selection"});
    tells(
        [&] {
            const TreeView::Fill fill(tree);
            const TreeView::Fill inside(tree);
            tree.Clear();
        },
        {"fill", "cleared", "filled"});
    tells(back, {"fill", "cleared", "added 0", "added 1", "added 2", "filled", "selection",
                 "visible", "enabled"});
}

TEST_F(Notification, OfWhatIsPutBack) {
    const std::vector<std::pair<Control*, Told>> cases{
        {&form.label, {"caption"}},
        {&form.button, {"caption"}},
        {&form.check, {"caption", "value"}},
        {&form.first, {"caption", "value"}},
        {&form.frame, {"caption"}},
        {&form.text, {"text", "locked"}},
        {&form.date, {"value"}},
        {&form.grid, {"items", "selection"}},
    };
    for (const auto& [control, told] : cases) {
        const auto back = control->Remember();
        backend.told.clear();
        back();
        for (const std::string& aspect : told) {
            EXPECT_EQ(std::count(backend.told.begin(), backend.told.end(), aspect), 1)
                << control->Name() << " " << aspect;
        }
    }
}

TEST_F(Notification, OfMenus) {
    Play({
        {"caption", [](auto& f) { f.mnuEntry.SetCaption("x"); }, {"menu mnuEntry"}, false},
        {"access key", [](auto& f) { f.mnuEntry.SetAccessKey('X'); }, {"menu mnuEntry"}, false},
        {"shortcut", [](auto& f) { f.mnuEntry.SetShortcut("F2"); }, {"menu mnuEntry"}, false},
        {"enabled", [](auto& f) { f.mnuEntry.SetEnabled(false); }, {"menu mnuEntry"}, false},
        {"visible", [](auto& f) { f.mnuEntry.SetVisible(false); }, {"menu mnuEntry"}, false},
        {"checked", [](auto& f) { f.mnuEntry.SetChecked(true); }, {"menu mnuEntry"}, false},
        {"root", [](auto& f) { f.mnuTop.SetVisible(false); }, {"menu mnuTop"}, false},
    });
}

TEST_F(Notification, OfTheWindow) {
    Play({
        {"caption", [](auto& f) { f.SetCaption("x"); }, {"caption"}, false},
        {"place",
         [](auto& f) {
             f.Move({1, 2, 300, 200});
         },
         {"bounds"}},
        {"size",
         [](auto& f) {
             f.SetClientSize({500, 400});
         },
         {"view", "bounds"},
         false},
        {"sizable", [](auto& f) { f.SetSizable(true); }, {"view"}, false},
        {"least size",
         [](auto& f) {
             f.SetMinimumClientSize({9, 9});
         },
         {"view"},
         false},
        {"state", [](auto& f) { f.SetState(WindowState::Minimised); }, {"state"}},
        {"painting", [](auto& f) { f.Refresh(); }, {"paint"}, false},
        {"shown once more", [](auto& f) { f.Show(false); }, {"show"}, false},
        {"hidden", [](auto& f) { f.Hide(); }, {"hide"}},
        {"shown again", [](auto& f) { f.Show(false); }, {"show"}, false},
    });
}

TEST_F(Notification, OfTheViewWhenTheUserScrollsAndOnlyThen) {
    form.SetSizable(true);
    form.SetMinimumClientSize({800, 600});
    form.UserResized({0, 0, 300, 200}, {300, 200});
    using Axis = Viewport::Axis;
    using Step = Viewport::Step;
    Play({
        {"dragged",
         [](auto& f) {
             f.UserScrolled({30, 40});
         },
         {"view"}},
        {"line on", [](auto& f) { f.UserScrolled(Axis::Vertical, Step::LineOn); }, {"view"}, false},
        {"page on", [](auto& f) { f.UserScrolled(Axis::Vertical, Step::PageOn); }, {"view"}, false},
        {"to the end", [](auto& f) { f.UserScrolled(Axis::Vertical, Step::End); }, {"view"}},
        {"to the start", [](auto& f) { f.UserScrolled(Axis::Vertical, Step::Start); }, {"view"}},
        {"across", [](auto& f) { f.UserScrolled(Axis::Horizontal, Step::End); }, {"view"}},
        {"back", [](auto& f) { f.UserScrolled(Axis::Horizontal, Step::Start); }, {"view"}},
        {"wheel", [](auto& f) { f.UserTurnedWheel(Axis::Vertical, -120); }, {"view"}, false},
    });
    EXPECT_EQ(form.View().Offset().x, 0);
    EXPECT_GT(form.View().Offset().y, 0);
    form.UserScrolled({0, 0});
    form.button.Move({700, 500, 50, 20});
    backend.told.clear();
    form.UserFocused(form.button);
    EXPECT_EQ(backend.told, (Told{"view", "focus"})) << "what gets the focus comes into view";
}

}  // namespace
}  // namespace zv::forms
