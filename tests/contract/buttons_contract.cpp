#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/label.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct ButtonsForm : TestForm {
    explicit ButtonsForm(WindowSystem& windows) : TestForm(windows) {}
    Label lblHint{*this, "lblHint"};
    CommandButton cmdOK{*this, "cmdOK"};
    CheckBox chkA{*this, "chkA"};
    Frame fraGroup{*this, "fraGroup"};
    ControlArray<OptionButton> optKind{*this, "optKind", &fraGroup, 3};
    OptionButton optAlone{*this, "optAlone"};
};

class Buttons : public Contract {
 protected:
    Buttons() : form(windows_.Create<ButtonsForm>()) {
        Arrange(form);
        for (int i = 0; i < 3; i++) form.optKind[i].Move({8, 24 + 30 * i, 200, 26});
        form.chkA.onClick = [this] { events_.push_back("chkA"); };
        for (int i = 0; i < 3; i++) {
            form.optKind[i].onClick = [this, i] { events_.push_back("opt" + std::to_string(i)); };
        }
        form.cmdOK.onClick = [this] { events_.push_back("cmdOK"); };
    }
    ButtonsForm& form;
};

TEST_F(Buttons, CaptionsAreShownInBothScripts) {
    form.lblHint.SetCaption("任务管理器");
    form.cmdOK.SetCaption("確定 && 退出(&X)");
    form.Show(false);
    EXPECT_EQ(Read(form.lblHint, "caption"), "任务管理器");
    EXPECT_EQ(Read(form.cmdOK, "caption"), "確定 && 退出(&X)");
    form.lblHint.SetCaption("任務");
    EXPECT_EQ(Read(form.lblHint, "caption"), "任務");
}

TEST_F(Buttons, AToolTipFollowsItsControl) {
    form.cmdOK.SetToolTip("保存 (Ctrl+S)");
    form.lblHint.SetToolTip("被截短的文字");
    form.Show(false);
    EXPECT_EQ(Read(form.cmdOK, "tooltip"), "保存 (Ctrl+S)");
    EXPECT_EQ(Read(form.lblHint, "tooltip"), "被截短的文字");
    EXPECT_EQ(Read(form.chkA, "tooltip"), "");
    form.chkA.SetToolTip("later");
    form.cmdOK.SetToolTip("確定");
    form.lblHint.SetToolTip("");
    EXPECT_EQ(Read(form.chkA, "tooltip"), "later");
    EXPECT_EQ(Read(form.cmdOK, "tooltip"), "確定");
    EXPECT_EQ(Read(form.lblHint, "tooltip"), "");
}

TEST_F(Buttons, PressingAButtonRaisesClick) {
    form.Show(false);
    driver().Click(form.cmdOK);
    EXPECT_EQ(events_, std::vector<std::string>{"cmdOK"});
    EXPECT_EQ(Read(form.cmdOK, "focus"), "true");
}

TEST_F(Buttons, SettingACheckBoxFromCodeRaisesClickOnlyWhenItChanges) {
    form.Show(false);
    form.chkA.SetValue(1);
    form.chkA.SetValue(1);
    EXPECT_EQ(events_, std::vector<std::string>{"chkA"});
    EXPECT_EQ(Read(form.chkA, "value"), "1");
}

TEST_F(Buttons, SettingACheckBoxOfAHiddenWindowRaisesClickToo) {
    form.Load();
    form.chkA.SetValue(1);
    EXPECT_EQ(events_, std::vector<std::string>{"chkA"});
    form.Show(false);
    EXPECT_EQ(events_.size(), 1u);
    EXPECT_EQ(Read(form.chkA, "value"), "1");
}

TEST_F(Buttons, TheUserTogglesACheckBox) {
    form.Show(false);
    driver().Click(form.chkA);
    EXPECT_EQ(form.chkA.Value(), 1);
    EXPECT_EQ(Read(form.chkA, "value"), "1");
    driver().Click(form.chkA);
    EXPECT_EQ(form.chkA.Value(), 0);
    EXPECT_EQ(events_.size(), 2u);
}

TEST_F(Buttons, ACheckBoxTakesNoOtherValue) {
    EXPECT_THROW(form.chkA.SetValue(2), RuntimeError);
    EXPECT_THROW(form.chkA.SetValue(-1), RuntimeError);
}

TEST_F(Buttons, OneOptionOfAGroupIsSet) {
    form.Show(false);
    driver().Click(form.optKind[1]);
    driver().Click(form.optAlone);
    EXPECT_TRUE(form.optKind[1].Value()) << "another group must not clear this one";
    driver().Click(form.optKind[2]);
    EXPECT_EQ(Read(form.optKind[1], "value"), "0");
    EXPECT_EQ(Read(form.optKind[2], "value"), "1");
    EXPECT_EQ(events_, (std::vector<std::string>{"opt1", "opt2"}));
}

TEST_F(Buttons, SettingAnOptionFromCodeRaisesItsClickAndNoOther) {
    form.Show(false);
    form.optKind[0].SetValue(true);
    form.optKind[0].SetValue(true);
    form.optKind[2].SetValue(true);
    EXPECT_EQ(events_, (std::vector<std::string>{"opt0", "opt2"}));
    EXPECT_EQ(Read(form.optKind[0], "value"), "0");
}

TEST_F(Buttons, FocusMovingToAnOptionDoesNotSetIt) {
    form.Show(false);
    form.optKind[1].SetFocus();
    EXPECT_FALSE(form.optKind[1].Value());
    EXPECT_TRUE(events_.empty());
}

TEST_F(Buttons, ADisabledOrInvisibleButtonCannotBePressed) {
    form.Show(false);
    form.cmdOK.SetEnabled(false);
    EXPECT_EQ(Read(form.cmdOK, "enabled"), "false");
    EXPECT_THROW(driver().Click(form.cmdOK), driver::DriverError);
    form.cmdOK.SetEnabled(true);
    form.cmdOK.SetVisible(false);
    EXPECT_EQ(Read(form.cmdOK, "visible"), "false");
    EXPECT_THROW(driver().Click(form.cmdOK), driver::DriverError);
    EXPECT_TRUE(events_.empty());
}

TEST_F(Buttons, AControlOfADisabledFrameCannotBeUsed) {
    form.Show(false);
    form.fraGroup.SetEnabled(false);
    EXPECT_THROW(driver().Click(form.optKind[0]), driver::DriverError);
    form.fraGroup.SetEnabled(true);
    driver().Click(form.optKind[0]);
    EXPECT_EQ(events_, std::vector<std::string>{"opt0"});
}

TEST_F(Buttons, ARightPressRaisesMouseDownAndNoClick) {
    form.cmdOK.onMouseDown = [this](const MouseEvent& event) {
        if (event.button == MouseButton::Right) events_.push_back("right");
    };
    form.Show(false);
    driver().RightPress(form.cmdOK);
    EXPECT_EQ(events_, std::vector<std::string>{"right"});
}

TEST_F(Buttons, EscapePressesTheCancelButton) {
    form.cancelButton = &form.cmdOK;
    form.Show(false);
    driver().Key(form.chkA, key::kEscape);
    EXPECT_EQ(events_, std::vector<std::string>{"cmdOK"});
}

TEST_F(Buttons, EnterPressesTheDefaultButton) {
    form.defaultButton = &form.cmdOK;
    form.Show(false);
    driver().Key(form.chkA, key::kEnter);
    EXPECT_EQ(events_, std::vector<std::string>{"cmdOK"});
}

}  // namespace
}  // namespace zv::contract
