// Keys that act wherever the focus is, access keys behind captions, and an order of tabs that is
// not that of creation.
#include "forms/buttons.h"
#include "forms/date_picker.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;
using Events = std::vector<std::string>;

struct ShortcutsForm : TestForm {
    explicit ShortcutsForm(WindowSystem& windows) : TestForm(windows) {
        images.Add("task1", Icon());
        tvwTask.SetImageList(&images);
        tvwTask.Add(TreeView::kNone, "A1", "任务", "task1");
        txtNotes.SetMultiLine(true);
        lblTitle.SetCaption("主题");
        lblTitle.SetAccessKey('T');
        cmdSave.SetCaption("任务新增");
        cmdQuit.SetCaption("退出");
        cmdQuit.SetAccessKey('X');
    }
    ImageList images;
    TreeView tvwTask{*this, "tvwTask"};
    Label lblTitle{*this, "lblTitle"};
    TextBox txtTitle{*this, "txtTitle"};
    TextBox txtNotes{*this, "txtNotes"};
    ComboBox cboState{*this, "cboState", nullptr, ComboStyle::ListOnly};
    ComboBox cboName{*this, "cboName", nullptr, ComboStyle::FreeText};
    DatePicker DTPicker1{*this, "DTPicker1"};
    CommandButton cmdSave{*this, "cmdSave"};
    CommandButton cmdQuit{*this, "cmdQuit"};
};

class ShortcutKeys : public Contract {
 protected:
    ShortcutKeys() : form(windows_.Create<ShortcutsForm>()) {
        Arrange(form);
        form.cmdSave.onClick = [this] { events_.push_back("save"); };
        form.cmdQuit.onClick = [this] { events_.push_back("quit"); };
        form.shortcuts.Press({'S', true}, form.cmdSave);
        form.shortcuts.Press({key::kEnter, true}, form.cmdSave);
        form.shortcuts.PressByLetter('S', form.cmdSave);
        form.shortcuts.Do({key::kDelete}, [this] { events_.push_back("delete"); });
        form.shortcuts.Do({'Z', true}, [this] { events_.push_back("back"); });
        form.shortcuts.Do({'H', true}, [this] { events_.push_back("hand"); });
        form.shortcuts.Do(
            {key::kF5}, [this] { events_.push_back("read"); }, [this] { return mayRead; });
    }
    std::string Focus() { return form.ActiveControl() ? form.ActiveControl()->Name() : ""; }
    ShortcutsForm& form;
    bool mayRead = true;
};

TEST_F(ShortcutKeys, AKeyPressesItsButtonAndTheFocusStays) {
    form.Show(false);
    driver().ControlKey(form.txtTitle, 'S');
    driver().ControlKey(form.txtNotes, key::kEnter);
    EXPECT_EQ(events_, (Events{"save", "save"}));
    EXPECT_EQ(Focus(), "txtNotes");
    EXPECT_EQ(Read(form.txtNotes, "text"), "");
}

TEST_F(ShortcutKeys, TheFocusGoesWhereTheButtonSendsIt) {
    form.cmdSave.onClick = [this] { form.tvwTask.SetFocus(); };
    form.Show(false);
    driver().ControlKey(form.txtTitle, 'S');
    EXPECT_EQ(Focus(), "tvwTask");
}

TEST_F(ShortcutKeys, TheFieldIsValidatedFirst) {
    form.txtTitle.onValidate = [](bool& cancel) { cancel = true; };
    form.Show(false);
    driver().ControlKey(form.txtTitle, 'S');
    EXPECT_TRUE(events_.empty());
    EXPECT_EQ(Focus(), "txtTitle");
}

TEST_F(ShortcutKeys, AButtonThatCannotBePressedIsNot) {
    form.cmdSave.SetEnabled(false);
    form.Show(false);
    driver().ControlKey(form.txtTitle, 'S');
    form.cmdSave.SetEnabled(true);
    form.cmdSave.SetVisible(false);
    driver().ControlKey(form.txtTitle, 'S');
    EXPECT_TRUE(events_.empty());
    mayRead = false;
    driver().Key(form.txtTitle, key::kF5);
    EXPECT_TRUE(events_.empty());
    mayRead = true;
    driver().Key(form.txtTitle, key::kF5);
    EXPECT_EQ(events_, Events{"read"});
}

TEST_F(ShortcutKeys, AnEntryKeepsTheKeysOfEditing) {
    form.Show(false);
    driver().Type(form.txtTitle, "abc");
    for (Control* entry :
         std::initializer_list<Control*>{&form.txtTitle, &form.txtNotes, &form.cboName}) {
        driver().Key(*entry, key::kDelete);
        driver().ControlKey(*entry, 'Z');
        driver().ControlKey(*entry, 'H');
    }
    EXPECT_TRUE(events_.empty());
    driver().Key(form.DTPicker1, key::kDelete);
    driver().Key(form.cboState, key::kDelete);
    EXPECT_TRUE(events_.empty());
}

TEST_F(ShortcutKeys, ElsewhereTheyAct) {
    form.txtTitle.SetLocked(true);
    form.Show(false);
    driver().Key(form.tvwTask, key::kDelete);
    driver().ControlKey(form.tvwTask, 'Z');
    driver().ControlKey(form.txtTitle, 'Z');
    driver().ControlKey(form.txtTitle, 'H');
    EXPECT_EQ(events_, (Events{"delete", "back", "back", "hand"}));
    driver().Key(form.txtTitle, key::kDelete);
    EXPECT_EQ(events_.size(), 4U) << "nobody who reads means the whole by it";
}

TEST_F(ShortcutKeys, EscapeReturnsWhereItsButtonDoesNothing) {
    form.cancelButton = &form.cmdQuit;
    form.Show(false);
    driver().Key(form.txtTitle, key::kEscape);
    EXPECT_EQ(events_, Events{"quit"});
    EXPECT_EQ(Focus(), "txtTitle");
}

TEST_F(ShortcutKeys, ALetterPressesItsButtonWhateverTheCaptionSays) {
    form.Show(false);
    driver().PressAccessKey(form, 's');
    EXPECT_EQ(events_, Events{"save"});
}

TEST_F(ShortcutKeys, AnAccessKeyBehindACaptionIsNoPartOfIt) {
    form.Show(false);
    EXPECT_EQ(Read(form.lblTitle, "caption"), "主题");
    EXPECT_EQ(Read(form.cmdQuit, "caption"), "退出");
    driver().PressAccessKey(form, 't');
    EXPECT_EQ(Focus(), "txtTitle");
    driver().PressAccessKey(form, 'x');
    EXPECT_EQ(events_, Events{"quit"});
}

TEST_F(ShortcutKeys, TheMenuKeysPressTheSelectedNode) {
    form.tvwTask.onMouseDown = [this](const MouseEvent& event) {
        if (event.button == MouseButton::Right) events_.push_back("menu");
    };
    form.Show(false);
    driver().Key(form.tvwTask, key::kMenu);
    EXPECT_TRUE(events_.empty()) << "nothing is selected";
    form.tvwTask.Select(form.tvwTask.Find("A1"));
    driver().Key(form.tvwTask, key::kMenu);
    driver().PressKey(form.tvwTask, {key::kF10, true});
    EXPECT_EQ(events_, (Events{"menu", "menu"}));
}

TEST_F(ShortcutKeys, TabFollowsTheOrderGivenThenThatOfCreation) {
    form.SetTabOrder({&form.txtTitle, &form.cmdSave});
    form.Show(false);
    EXPECT_EQ(Focus(), "txtTitle");
    driver().Leave(form.txtTitle);
    EXPECT_EQ(Focus(), "cmdSave");
    driver().Leave(form.cmdSave);
    EXPECT_EQ(Focus(), "tvwTask");
    driver().PressKey(form.tvwTask, {key::kTab, true});
    EXPECT_EQ(Focus(), "cmdSave");
    form.cmdSave.SetEnabled(false);
    EXPECT_EQ(Focus(), "tvwTask") << "the next one in that order";
}

TEST(KeyChords, NamesAreReadAsTheyAreWritten) {
    for (const char* name : {"Ctrl+S", "F2", "Delete", "Shift+F10", "Ctrl+Shift+Tab", "Menu",
                             "Ctrl+Enter", "F12", "Ctrl+0", "Escape"}) {
        const auto chord = ParseKeyChord(name);
        ASSERT_TRUE(chord) << name;
        EXPECT_EQ(NameOf(*chord), name);
    }
    for (const char* name : {"", "S", "Ctrl+", "F13", "F0", "Alt+S", "ctrl+S", "Ctrl+s"}) {
        EXPECT_FALSE(ParseKeyChord(name)) << name;
    }
}

TEST(KeyChords, ATableFindsTheExactChord) {
    Shortcuts keys;
    keys.Do({'S', true}, [] {});
    EXPECT_TRUE(keys.Find({'S', true}));
    EXPECT_FALSE(keys.Find({'S'}));
    EXPECT_FALSE(keys.Find({'S', true, true}));
}

}  // namespace
}  // namespace zv::contract
