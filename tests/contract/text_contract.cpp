#include "forms/text_box.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct TextForm : TestForm {
    explicit TextForm(WindowSystem& windows) : TestForm(windows) { txtNotes.SetMultiLine(true); }
    TextBox txtTitle{*this, "txtTitle"};
    TextBox txtNotes{*this, "txtNotes"};
    TextBox txtLast{*this, "txtLast"};
};

class Texts : public Contract {
 protected:
    Texts() : form(windows_.Create<TextForm>()) {
        Arrange(form);
        form.txtTitle.onChange = [this] { events_.push_back("change:" + form.txtTitle.Text()); };
    }
    TextForm& form;
};

TEST_F(Texts, SettingATextRaisesChangeOnlyWhenItChanges) {
    form.Show(false);
    form.txtTitle.SetText("报表");
    form.txtTitle.SetText("报表");
    EXPECT_EQ(events_, std::vector<std::string>{"change:报表"});
    EXPECT_EQ(Read(form.txtTitle, "text"), "报表");
}

TEST_F(Texts, TypingReplacesTheTextAndKeepsTheFocus) {
    form.txtTitle.SetText("alt");
    form.Show(false);
    events_.clear();
    driver().Type(form.txtTitle, "客戶 a'b");
    EXPECT_EQ(form.txtTitle.Text(), "客戶 a'b");
    EXPECT_EQ(Read(form.txtTitle, "text"), "客戶 a'b");
    EXPECT_EQ(Read(form.txtTitle, "focus"), "true");
    ASSERT_FALSE(events_.empty());
    EXPECT_EQ(events_.back(), "change:客戶 a'b");
}

TEST_F(Texts, TypingNothingEmptiesTheBox) {
    form.txtTitle.SetText("weg");
    form.Show(false);
    driver().Type(form.txtTitle, "");
    EXPECT_EQ(form.txtTitle.Text(), "");
    EXPECT_EQ(Read(form.txtTitle, "text"), "");
}

TEST_F(Texts, CharactersOutsideTheBasicPlaneSurvive) {
    form.Show(false);
    form.txtTitle.SetText("𠮷野家");
    EXPECT_EQ(Read(form.txtTitle, "text"), "𠮷野家");
    driver().Type(form.txtTitle, "𠀀a𠀁");
    EXPECT_EQ(form.txtTitle.Text(), "𠀀a𠀁");
}

TEST_F(Texts, TheMaximumLengthCutsWhatIsSetAndTyped) {
    form.txtTitle.SetMaxLength(5);
    form.Show(false);
    form.txtTitle.SetText("1234567");
    EXPECT_EQ(form.txtTitle.Text(), "12345");
    driver().Type(form.txtTitle, "abcdefgh");
    EXPECT_EQ(form.txtTitle.Text(), "abcde");
    EXPECT_EQ(Read(form.txtTitle, "text"), "abcde");
    EXPECT_EQ(Read(form.txtTitle, "maxlength"), "5");
}

TEST_F(Texts, ALockedBoxTakesNoTyping) {
    form.txtTitle.SetText("fest");
    form.txtTitle.SetLocked(true);
    form.Show(false);
    EXPECT_EQ(Read(form.txtTitle, "locked"), "true");
    EXPECT_THROW(driver().Type(form.txtTitle, "x"), driver::DriverError);
    form.txtTitle.SetText("von innen");
    EXPECT_EQ(Read(form.txtTitle, "text"), "von innen");
}

TEST_F(Texts, LinesAreKept) {
    form.Show(false);
    form.txtNotes.SetText("一\r\n二\r\n三");
    EXPECT_EQ(Read(form.txtNotes, "text"), "一\r\n二\r\n三");
    driver().Type(form.txtNotes, "x\r\ny");
    EXPECT_EQ(form.txtNotes.Text(), "x\r\ny");
}

TEST_F(Texts, ALongTextIsKeptWhole) {
    std::string text;
    for (int i = 0; i < 40000; i++) text += "字";
    form.Show(false);
    form.txtNotes.SetText(text);
    EXPECT_EQ(Read(form.txtNotes, "text"), text);
}

TEST_F(Texts, AChangeHandlerMaySetTheTextAgain) {
    form.txtTitle.onChange = [this] {
        if (form.txtTitle.Text() == "a") form.txtTitle.SetText("b");
    };
    form.Show(false);
    form.txtTitle.SetText("a");
    EXPECT_EQ(Read(form.txtTitle, "text"), "b");
}

TEST_F(Texts, KeysReachTheHandlerWhichMayMoveTheFocus) {
    form.txtTitle.onKeyDown = [this](KeyEvent& event) {
        events_.push_back("key" + std::to_string(event.code));
        if (event.code == key::kEnter || event.code == key::kDown) {
            form.MoveFocus(+1);
            event.code = 0;
        }
    };
    form.Show(false);
    driver().Key(form.txtTitle, key::kEnter);
    EXPECT_EQ(Read(form.txtNotes, "focus"), "true");
    driver().Key(form.txtTitle, key::kDown);
    EXPECT_EQ(Read(form.txtNotes, "focus"), "true");
    EXPECT_EQ(events_, (std::vector<std::string>{"key13", "key40"}));
}

TEST_F(Texts, SelectingAllReachesTheWholeText) {
    form.txtTitle.SetText("𠮷ab");
    form.Show(false);
    form.txtTitle.SelectAll();
    EXPECT_EQ(form.txtTitle.SelStart(), 0);
    EXPECT_EQ(form.txtTitle.SelLength(), 4);
}

}  // namespace
}  // namespace zv::contract
