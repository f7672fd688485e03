// Keys do the same on every backend, because backends only report them.
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;
using Events = std::vector<std::string>;

struct KeysForm : TestForm {
    explicit KeysForm(WindowSystem& windows) : TestForm(windows) {
        images.Add("task1", Icon());
        tvwTask.SetImageList(&images);
        txtNotes.SetMultiLine(true);
        lblTitle.SetCaption("标题(&T)");
        cmdOK.SetCaption("确定(&O)");
        cmdQuit.SetCaption("退出(&X) && (&Y)");
        chkA.SetCaption("甲 && 乙(&A)");
        fraGroup.SetCaption("种类(&K)");
        for (int i = 0; i < 3; i++) optKind[i].SetCaption("(&" + std::to_string(i) + ")");
        SSTab1.SetTabCaption(0, "项目(&P)");
        SSTab1.SetTabCaption(1, "过滤(&F)");
        SSTab1.SetTabCaption(2, "选项");
        for (const char* text : {"未办", "在办", "已办"}) {
            cboState.AddItem(text);
            cboWay.AddItem(text);
            lstStaff.AddItem(text);
        }
    }
    ImageList images;
    Label lblTitle{*this, "lblTitle"};
    TextBox txtTitle{*this, "txtTitle"};
    TextBox txtNotes{*this, "txtNotes"};
    CheckBox chkA{*this, "chkA"};
    Frame fraGroup{*this, "fraGroup"};
    ControlArray<OptionButton> optKind{*this, "optKind", &fraGroup, 3};
    OptionButton optAlone{*this, "optAlone"};
    ComboBox cboState{*this, "cboState", nullptr, ComboStyle::ListOnly};
    ComboBox cboWay{*this, "cboWay", nullptr, ComboStyle::FreeText};
    ListBox lstStaff{*this, "lstStaff"};
    TreeView tvwTask{*this, "tvwTask"};
    TabPanel SSTab1{*this, "SSTab1", nullptr, 3};
    TextBox txtOnFirstTab{*this, "txtOnFirstTab", &SSTab1.Page(0)};
    CommandButton cmdOK{*this, "cmdOK"};
    CommandButton cmdQuit{*this, "cmdQuit"};
};

class Keys : public Contract {
 protected:
    Keys() : form(windows_.Create<KeysForm>()) {
        Arrange(form);
        for (int i = 0; i < 3; i++) {
            form.optKind[i].Move({8, 24 + 30 * i, 200, 26});
            form.SSTab1.Page(i).Move(form.SSTab1.PageBounds());
            form.optKind[i].onClick = [this, i] { events_.push_back("opt" + std::to_string(i)); };
        }
        form.cmdOK.onClick = [this] { events_.push_back("ok"); };
        form.cmdQuit.onClick = [this] { events_.push_back("quit"); };
        form.chkA.onClick = [this] { events_.push_back("chkA"); };
        form.cboState.onClick = [this] { events_.push_back("state"); };
        form.cboWay.onClick = [this] { events_.push_back("way"); };
        form.lstStaff.onClick = [this] { events_.push_back("staff"); };
        form.tvwTask.onNodeClick = [this](int node) {
            events_.push_back(std::string(form.tvwTask.Key(node)));
        };
    }
    void FillTree() {
        TreeView& tree = form.tvwTask;
        const int first = tree.Add(TreeView::kNone, "A1", "任务", "task1");
        tree.Add(first, "Z1", "报表", "task1");
        tree.Add(first, "Z2", "会议", "task1");
        tree.SetExpanded(first, true);
        const int second = tree.Add(TreeView::kNone, "B2", "客户", "task1");
        tree.Add(second, "Z3", "拜访", "task1");
    }
    /// What has the focus, natively too.
    std::string Focus() {
        const Control* active = form.ActiveControl();
        if (!active || Read(const_cast<Control&>(*active), "focus") != "true") return "nothing";
        return active->DisplayName();
    }
    void Press(Control& control, std::initializer_list<int> codes) {
        for (const int code : codes) driver().Key(control, code);
    }
    KeysForm& form;
};

TEST_F(Keys, TabLeadsForwardAndWithShiftBack) {
    form.Show(false);
    driver().Key(form.txtTitle, key::kTab);
    EXPECT_EQ(Focus(), "txtNotes");
    driver().PressKey(form.txtNotes, {key::kTab, true});
    EXPECT_EQ(Focus(), "txtTitle");
    driver().PressKey(form.txtTitle, {key::kTab, true});
    EXPECT_EQ(Focus(), "cmdQuit") << "from the first to the last";
}

TEST_F(Keys, TabIsNoKeyForHandlers) {
    form.txtTitle.onKeyDown = [this](KeyEvent&) { events_.push_back("key"); };
    form.Show(false);
    driver().Key(form.txtTitle, key::kTab);
    EXPECT_EQ(Focus(), "txtNotes");
    EXPECT_TRUE(events_.empty());
}

TEST_F(Keys, EnterPressesTheDefaultButtonUnlessAButtonHasTheFocus) {
    form.defaultButton = &form.cmdOK;
    form.Show(false);
    driver().Key(form.txtTitle, key::kEnter);
    driver().Key(form.cmdQuit, key::kEnter);
    EXPECT_EQ(events_, (Events{"ok", "quit"}));
}

TEST_F(Keys, EnterPressesNothingInABoxOfSeveralLines) {
    form.defaultButton = &form.cmdOK;
    form.Show(false);
    driver().Key(form.txtNotes, key::kEnter);
    EXPECT_TRUE(events_.empty());
    EXPECT_EQ(Focus(), "txtNotes");
}

TEST_F(Keys, EnterAndEscapeDoNothingWhereNoButtonTakesThem) {
    form.Show(false);
    Press(form.txtTitle, {key::kEnter, key::kEscape});
    EXPECT_EQ(Focus(), "txtTitle");
    EXPECT_TRUE(events_.empty());
}

TEST_F(Keys, ADisabledButtonIsNotPressed) {
    form.defaultButton = &form.cmdOK;
    form.cancelButton = &form.cmdQuit;
    form.Show(false);
    form.cmdOK.SetEnabled(false);
    form.cmdQuit.SetEnabled(false);
    Press(form.txtTitle, {key::kEnter, key::kEscape});
    EXPECT_TRUE(events_.empty());
}

TEST_F(Keys, TheFieldIsValidatedBeforeEnterPressesItsButton) {
    form.defaultButton = &form.cmdOK;
    form.txtTitle.onValidate = [this](bool& cancel) { cancel = form.txtTitle.Text() == "bad"; };
    form.Show(false);
    driver().Type(form.txtTitle, "bad");
    driver().Key(form.txtTitle, key::kEnter);
    EXPECT_TRUE(events_.empty());
    EXPECT_EQ(Focus(), "txtTitle");
}

TEST_F(Keys, AKeyThatAHandlerSwallowsGoesNoFurther) {
    form.defaultButton = &form.cmdOK;
    form.txtTitle.onKeyDown = [](KeyEvent& event) { event.code = 0; };
    form.lstStaff.onKeyDown = [](KeyEvent& event) { event.code = 0; };
    form.Show(false);
    driver().Key(form.txtTitle, key::kEnter);
    driver().Key(form.lstStaff, key::kDown);
    EXPECT_TRUE(events_.empty());
    EXPECT_EQ(Read(form.lstStaff, "index"), "-1");
}

TEST_F(Keys, AHandlerMayUnloadTheWindow) {
    form.defaultButton = &form.cmdOK;
    form.txtTitle.onKeyDown = [this](KeyEvent&) { form.Unload(); };
    form.Show(false);
    driver().Key(form.txtTitle, key::kEnter);
    EXPECT_TRUE(windows_.Windows().empty());
    EXPECT_TRUE(events_.empty());
}

TEST_F(Keys, NothingNativeGetsAKeyWhoseHandlerUnloadedTheWindow) {
    form.txtTitle.onKeyDown = [this](KeyEvent& event) {
        if (event.shift) form.Unload();
    };
    form.Show(false);
    EXPECT_FALSE(form.UserKey(form.txtTitle, {'A'}));
    EXPECT_TRUE(form.UserKey(form.txtTitle, {'A', true}));
    EXPECT_TRUE(windows_.Windows().empty());
}

TEST_F(Keys, AnErrorOfAHandlerIsShownAndTheKeyGoesOn) {
    form.defaultButton = &form.cmdOK;
    form.txtTitle.onKeyDown = [](KeyEvent&) { throw RuntimeError(ErrorNumber::TypeMismatch); };
    form.Show(false);
    driver().Key(form.txtTitle, key::kEnter);
    EXPECT_EQ(dialogs().messages.size(), 1u);
    EXPECT_EQ(events_, Events{"ok"});
}

TEST_F(Keys, ArrowsPressTheOptionsOfTheGroupRoundAndRound) {
    form.Show(false);
    driver().Key(form.optKind[0], key::kDown);
    EXPECT_EQ(Focus(), "optKind(1)");
    driver().Key(form.optKind[1], key::kRight);
    driver().Key(form.optKind[2], key::kDown);
    driver().Key(form.optKind[0], key::kLeft);
    driver().Key(form.optKind[2], key::kUp);
    EXPECT_EQ(events_, (Events{"opt1", "opt2", "opt0", "opt2", "opt1"}));
    EXPECT_EQ(Read(form.optKind[1], "value"), "1");
    EXPECT_EQ(Read(form.optKind[2], "value"), "0");
    EXPECT_FALSE(form.optAlone.Value());
}

TEST_F(Keys, ArrowsPassOptionsThatCannotBeUsed) {
    form.Show(false);
    form.optKind[1].SetEnabled(false);
    driver().Key(form.optKind[0], key::kDown);
    EXPECT_EQ(events_, Events{"opt2"});
    form.optKind[2].SetVisible(false);
    driver().Key(form.optKind[0], key::kUp);
    EXPECT_EQ(events_, (Events{"opt2", "opt0"})) << "alone, it is pressed itself";
}

TEST_F(Keys, ArrowsStepThroughAList) {
    form.Show(false);
    Press(form.lstStaff, {key::kUp, key::kDown, key::kDown, key::kUp});
    EXPECT_EQ(Read(form.lstStaff, "index"), "0");
    EXPECT_EQ(events_, (Events{"staff", "staff", "staff"})) << "nothing stands above the first";
    Press(form.cboState, {key::kDown, key::kDown, key::kDown, key::kDown});
    EXPECT_EQ(Read(form.cboState, "index"), "2") << "and nothing below the last";
    Press(form.cboWay, {key::kDown, key::kDown});
    EXPECT_EQ(Read(form.cboWay, "text"), "在办");
}

TEST_F(Keys, NothingNativeGetsAKeyThatStepsThroughAList) {
    form.Show(false);
    for (const int code : {key::kDown, key::kUp, key::kEnd, key::kHome}) {
        EXPECT_TRUE(form.UserKey(form.lstStaff, {code})) << code;
    }
    EXPECT_FALSE(form.UserKey(form.lstStaff, {'A'}));
    EXPECT_FALSE(form.UserKey(form.cboWay, {key::kHome})) << "the caret's";
}

TEST_F(Keys, HomeAndEndLeadToTheEndsOfAList) {
    form.Show(false);
    driver().Key(form.lstStaff, key::kEnd);
    EXPECT_EQ(Read(form.lstStaff, "index"), "2");
    driver().Key(form.lstStaff, key::kHome);
    EXPECT_EQ(Read(form.lstStaff, "index"), "0");
    driver().Key(form.cboState, key::kEnd);
    EXPECT_EQ(Read(form.cboState, "text"), "已办");
}

TEST_F(Keys, HomeAndEndBelongToTheCaretOfAFreeText) {
    form.Show(false);
    driver().Type(form.cboWay, "电话");
    Press(form.cboWay, {key::kEnd, key::kHome});
    EXPECT_EQ(Read(form.cboWay, "text"), "电话");
    driver().Key(form.cboWay, key::kDown);
    EXPECT_EQ(Read(form.cboWay, "text"), "未办");
}

TEST_F(Keys, ALockedListKeepsItsRow) {
    form.cboState.SetListIndex(1);
    form.cboState.SetLocked(true);
    form.Show(false);
    Press(form.cboState, {key::kDown, key::kUp, key::kEnd});
    EXPECT_EQ(Read(form.cboState, "index"), "1");
    EXPECT_EQ(events_, Events{"state"}) << "the one that code set";
}

TEST_F(Keys, ArrowsLeadThroughTheNodesThatAreShown) {
    FillTree();
    form.Show(false);
    Press(form.tvwTask, {key::kHome, key::kDown, key::kDown, key::kDown, key::kDown, key::kUp});
    EXPECT_EQ(events_, (Events{"A1", "Z1", "Z2", "B2", "Z2"})) << "what is folded is passed";
    EXPECT_EQ(Read(form.tvwTask, "selected"), "Z2");
    driver().Key(form.tvwTask, key::kEnd);
    EXPECT_EQ(Read(form.tvwTask, "selected"), "B2");
}

TEST_F(Keys, LeftAndRightFoldAndUnfold) {
    FillTree();
    form.Show(false);
    driver().ClickNode(form.tvwTask, "B2");
    events_.clear();
    driver().Key(form.tvwTask, key::kRight);
    EXPECT_TRUE(form.tvwTask.Expanded(form.tvwTask.Find("B2")));
    EXPECT_TRUE(events_.empty()) << "unfolding selects nothing";
    Press(form.tvwTask, {key::kRight, key::kRight, key::kLeft});
    EXPECT_EQ(events_, (Events{"Z3", "B2"}));
    Press(form.tvwTask, {key::kLeft, key::kLeft, key::kDown});
    EXPECT_FALSE(form.tvwTask.Expanded(form.tvwTask.Find("B2")));
    EXPECT_EQ(Read(form.tvwTask, "selected"), "B2");
}

TEST_F(Keys, TheFirstArrowInATreeSelectsItsFirstNode) {
    FillTree();
    form.Show(false);
    driver().Key(form.tvwTask, key::kDown);
    EXPECT_EQ(events_, Events{"A1"});
}

TEST_F(Keys, ANodeThatCodeSelectsIsShown) {
    FillTree();
    form.Show(false);
    form.tvwTask.Select(form.tvwTask.Find("Z3"));
    EXPECT_TRUE(form.tvwTask.Expanded(form.tvwTask.Find("B2")));
    driver().Key(form.tvwTask, key::kUp);
    EXPECT_EQ(events_, Events{"B2"});
}

TEST_F(Keys, ArrowsTurnThePagesWhileTheTabsHaveTheFocus) {
    form.Show(false);
    Press(form.SSTab1, {key::kLeft, key::kRight});
    EXPECT_EQ(Read(form.SSTab1, "tab"), "1");
    Press(form.SSTab1, {key::kRight, key::kRight});
    EXPECT_EQ(Read(form.SSTab1, "tab"), "2");
    driver().Key(form.SSTab1, key::kLeft);
    EXPECT_EQ(Read(form.SSTab1, "tab"), "1");
}

TEST_F(Keys, CtrlTabTurnsThePagesFromWithin) {
    form.Show(false);
    driver().PressKey(form.txtOnFirstTab, {key::kTab, false, true});
    EXPECT_EQ(Read(form.SSTab1, "tab"), "1");
    EXPECT_EQ(Focus(), "SSTab1");
    driver().PressKey(form.SSTab1, {key::kTab, true, true});
    driver().PressKey(form.SSTab1, {key::kTab, true, true});
    EXPECT_EQ(Read(form.SSTab1, "tab"), "2") << "round and round";
    driver().PressKey(form.txtTitle, {key::kTab, false, true});
    EXPECT_EQ(Read(form.SSTab1, "tab"), "2") << "not from outside";
    EXPECT_EQ(Focus(), "txtTitle");
}

TEST_F(Keys, AnAccessKeyPressesItsButton) {
    form.Show(false);
    driver().PressAccessKey(form, 'o');
    EXPECT_EQ(Focus(), "cmdOK");
    driver().PressAccessKey(form, 'A');
    driver().PressAccessKey(form, '2');
    driver().PressAccessKey(form, 'x');
    EXPECT_EQ(events_, (Events{"ok", "chkA", "opt2", "quit"}));
    driver().PressAccessKey(form, 'y');
    EXPECT_EQ(events_.size(), 4u) << "a caption has one access key";
}

TEST_F(Keys, TheAccessKeyOfALabelOrAFrameLeadsToWhatComesBehindIt) {
    form.Show(false);
    driver().PressAccessKey(form, 'k');
    EXPECT_EQ(Focus(), "optKind(0)");
    EXPECT_EQ(events_, Events{"opt0"});
    driver().PressAccessKey(form, 't');
    EXPECT_EQ(Focus(), "txtTitle");
}

TEST_F(Keys, TheAccessKeyOfATabBringsItsPageToTheFront) {
    form.Show(false);
    driver().PressAccessKey(form, 'f');
    EXPECT_EQ(Read(form.SSTab1, "tab"), "1");
    EXPECT_EQ(Focus(), "SSTab1");
}

TEST_F(Keys, AnAccessKeyOfWhatCannotBeUsedDoesNothing) {
    form.Show(false);
    form.cmdOK.SetEnabled(false);
    form.lblTitle.SetUseMnemonic(false);
    form.optAlone.SetFocus();
    driver().PressAccessKey(form, 'o');
    driver().PressAccessKey(form, 't');
    EXPECT_EQ(Focus(), "optAlone");
    EXPECT_TRUE(events_.empty());
}

}  // namespace
}  // namespace zv::contract
