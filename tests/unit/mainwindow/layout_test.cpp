#include <algorithm>
#include <map>

#include "main_window_fixture.h"

namespace zv::windows {
namespace {

using forms::Control;
using forms::ControlKind;
using forms::Rect;

std::string Name(const Control& control) {
    return control.Index() < 0 ? control.Name()
                               : control.Name() + "(" + std::to_string(control.Index()) + ")";
}

std::string CaptionOf(const Control& control) {
    switch (control.Kind()) {
        case ControlKind::Label:
            return static_cast<const forms::Label&>(control).Caption();
        case ControlKind::CheckBox:
            return static_cast<const forms::CheckBox&>(control).Caption();
        case ControlKind::OptionButton:
            return static_cast<const forms::OptionButton&>(control).Caption();
        case ControlKind::CommandButton:
            return static_cast<const forms::CommandButton&>(control).Caption();
        default:
            return {};
    }
}

// What the box of a check or option button, or the frame of a button, takes beside the text.
int Beside(const Control& control) {
    switch (control.Kind()) {
        case ControlKind::CheckBox:
        case ControlKind::OptionButton:
            return 18;
        case ControlKind::CommandButton:
            return 12;
        default:
            return 0;
    }
}

bool Overlap(const Rect& a, const Rect& b) {
    return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

class Layout : public MainWindow {
 protected:
    void CheckAll(frmTaskMain& window) {
        for (int tab = 0; tab < window.SSTab1.Tabs(); tab++) {
            window.SSTab1.SetTab(tab);
            for (int way = 0; way < 3; way++) {
                window.cards.cboWay.SetListIndex(way);
                CheckShown(window);
            }
        }
    }
    void CheckShown(frmTaskMain& window) {
        std::map<Control*, std::vector<Control*>> shown;
        for (Control* control : window.Controls()) {
            if (control->Kind() == ControlKind::Timer || !control->Visible()) continue;
            shown[control->Parent()].push_back(control);
            CheckInside(window, *control);
            CheckCaption(*control);
        }
        for (const auto& [parent, controls] : shown) {
            for (std::size_t i = 0; i < controls.size(); i++) {
                for (std::size_t j = i + 1; j < controls.size(); j++) {
                    EXPECT_FALSE(Overlap(controls[i]->Bounds(), controls[j]->Bounds()))
                        << Name(*controls[i]) << " and " << Name(*controls[j]);
                }
            }
        }
    }
    void CheckInside(const frmTaskMain& window, const Control& control) {
        const forms::Size client = window.ClientSize();
        const Rect area =
            control.Parent() ? control.Parent()->Bounds() : Rect{0, 0, client.width, client.height};
        const Rect& bounds = control.Bounds();
        EXPECT_GT(bounds.width, 0) << Name(control);
        EXPECT_GT(bounds.height, 0) << Name(control);
        EXPECT_GE(bounds.left, 0) << Name(control);
        EXPECT_GE(bounds.top, 0) << Name(control);
        EXPECT_LE(bounds.Right(), area.width) << Name(control);
        EXPECT_LE(bounds.Bottom(), area.height) << Name(control);
    }
    void CheckCaption(const Control& control) {
        std::string caption = CaptionOf(control);
        std::erase(caption, '&');
        const forms::Size size = stage.backend.MeasureText(caption);
        EXPECT_LE(size.width + Beside(control), control.Bounds().width)
            << Name(control) << " " << caption;
        EXPECT_LE(size.height, control.Bounds().height) << Name(control);
    }
};

TEST_F(Layout, EverythingFitsInBothScriptsAndAllSizes) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        stage.session.state.Language = language;
        frmTaskMain& window = Open();
        CheckAll(window);
        stage.user.Resize(window, window.MinimumClientSize());
        CheckAll(window);
        stage.user.Resize(window, {1600, 1000});
        CheckAll(window);
        stage.user.Close(window);
    }
}

TEST_F(Layout, FitsASmallScreen) {
    const frmTaskMain& window = Open();
    EXPECT_LE(window.ClientSize().width, 1024 - 16);
    EXPECT_LE(window.ClientSize().height, 768 - 40 - 60);
    EXPECT_LE(window.MinimumClientSize().width, window.ClientSize().width);
    EXPECT_LE(window.MinimumClientSize().height, window.ClientSize().height);
}

TEST_F(Layout, TheTreeTakesAShareOfTheWidth) {
    frmTaskMain& window = Open();
    const int before = window.tree.tvwTask.Bounds().width;
    stage.user.Resize(window, {1300, 700});
    EXPECT_GT(window.tree.tvwTask.Bounds().width, before);
    EXPECT_GT(window.SSTab1.Bounds().width, window.tree.tvwTask.Bounds().width);
}

TEST_F(Layout, TabOrderRunsFromTheTreeThroughTheEditorToTheButtons) {
    frmTaskMain& window = Open();
    EXPECT_TRUE(window.tree.tvwTask.HasFocus());
    std::vector<std::string> order;
    for (int i = 0; i < 40; i++) {
        order.push_back(Name(*window.ActiveControl()));
        stage.user.Leave(*window.ActiveControl());
        if (window.tree.tvwTask.HasFocus()) break;
    }
    EXPECT_EQ(order,
              (Lines{"tvwTask",      "cboOrder",     "chkEvent",     "txtTitle2",   "cboJbr2",
                     "txtTaskCon",   "txtUser2",     "SSTab1",       "txtOther(0)", "txtOther(1)",
                     "txtOther(2)",  "txtOther(3)",  "txtOther(4)",  "txtOther(5)", "cmdAction(0)",
                     "cmdAction(1)", "cmdAction(2)", "cmdAction(3)", "cmdSeek",     "cmdItemSet",
                     "cmdExit"}));
}

TEST_F(Layout, FieldsCarryTheirLabelsAsNames) {
    const frmTaskMain& window = Open();
    for (const Control* control : window.Controls()) {
        switch (control->Kind()) {
            case ControlKind::TextBox:
            case ControlKind::ComboBox:
            case ControlKind::DatePicker:
            case ControlKind::TreeView:
            case ControlKind::Grid:
                EXPECT_FALSE(control->AccessibleName().empty()) << Name(*control);
                break;
            default:
                break;
        }
    }
}

TEST_F(Layout, NoTwoCommandsShareAnAccessKey) {
    for (const std::int16_t language : {std::int16_t{0}, std::int16_t{1}}) {
        stage.session.state.Language = language;
        frmTaskMain& window = Open();
        for (int tab = 0; tab < window.SSTab1.Tabs(); tab++) {
            window.SSTab1.SetTab(tab);
            std::map<char, std::string> keys;
            const auto take = [&](const std::string& caption, const std::string& name) {
                const auto mark = caption.find('&');
                if (mark == std::string::npos || mark + 1 >= caption.size()) return;
                const auto [at, added] = keys.emplace(caption[mark + 1], name);
                EXPECT_TRUE(added) << name << " and " << at->second << " on page " << tab;
            };
            for (const Control* control : window.Controls()) {
                if (control->Visible()) take(CaptionOf(*control), Name(*control));
            }
            for (const forms::MenuItem* item : window.Menus()) {
                if (!item->Parent() && item->Visible()) take(item->Caption(), item->Name());
            }
        }
        stage.user.Close(window);
    }
}

}  // namespace
}  // namespace zv::windows
