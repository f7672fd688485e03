#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/text_box.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct FocusForm : TestForm {
    explicit FocusForm(WindowSystem& windows) : TestForm(windows) {
        SSTab1.SetTabCaption(0, "项目");
        SSTab1.SetTabCaption(1, "过滤");
    }
    TextBox txtFirst{*this, "txtFirst"};
    TextBox txtSecond{*this, "txtSecond"};
    TabPanel SSTab1{*this, "SSTab1", nullptr, 2};
    TextBox txtOnFirstTab{*this, "txtOnFirstTab", &SSTab1.Page(0)};
    TextBox txtOnSecondTab{*this, "txtOnSecondTab", &SSTab1.Page(1)};
    CommandButton cmdQuit{*this, "cmdQuit"};
};

class Focus : public Contract {
 protected:
    Focus() : form(windows_.Create<FocusForm>()) {
        Arrange(form);
        for (int tab = 0; tab < 2; tab++) form.SSTab1.Page(tab).Move(form.SSTab1.PageBounds());
        Note(form.txtFirst);
        Note(form.txtSecond);
        Note(form.txtOnFirstTab);
    }
    void Note(TextBox& box) {
        box.onGotFocus = [this, &box] { events_.push_back("got " + box.Name()); };
        box.onLostFocus = [this, &box] { events_.push_back("lost " + box.Name()); };
        box.onValidate = [this, &box](bool& cancel) {
            events_.push_back("validate " + box.Name());
            cancel = box.Text() == "bad";
        };
    }
    FocusForm& form;
};

using Events = std::vector<std::string>;

TEST_F(Focus, TheFirstControlGetsTheFocusWhenTheWindowAppears) {
    form.Show(false);
    EXPECT_EQ(events_, Events{"got txtFirst"});
    EXPECT_EQ(Read(form.txtFirst, "focus"), "true");
}

TEST_F(Focus, ValidateThenLostFocusThenGotFocus) {
    form.Show(false);
    events_.clear();
    driver().Leave(form.txtFirst);
    EXPECT_EQ(events_, (Events{"validate txtFirst", "lost txtFirst", "got txtSecond"}));
}

TEST_F(Focus, ValidateCanKeepTheFocus) {
    form.Show(false);
    driver().Type(form.txtFirst, "bad");
    events_.clear();
    driver().Leave(form.txtFirst);
    EXPECT_EQ(events_, Events{"validate txtFirst"});
    EXPECT_EQ(Read(form.txtFirst, "focus"), "true");
    driver().Type(form.txtFirst, "good");
    driver().Leave(form.txtFirst);
    EXPECT_EQ(Read(form.txtSecond, "focus"), "true");
}

TEST_F(Focus, APressIsLostWhenValidationKeepsTheFocus) {
    form.cmdQuit.onClick = [this] { events_.push_back("quit"); };
    form.Show(false);
    driver().Type(form.txtFirst, "bad");
    events_.clear();
    driver().Click(form.cmdQuit);
    EXPECT_EQ(events_, Events{"validate txtFirst"});
    EXPECT_EQ(Read(form.txtFirst, "focus"), "true");
}

TEST_F(Focus, AButtonThatCausesNoValidationIsPressedAllTheSame) {
    form.cmdQuit.causesValidation = false;
    form.cmdQuit.onClick = [this] { events_.push_back("quit"); };
    form.Show(false);
    driver().Type(form.txtFirst, "bad");
    events_.clear();
    driver().Click(form.cmdQuit);
    EXPECT_EQ(events_, (Events{"lost txtFirst", "quit"}));
}

TEST_F(Focus, SettingTheFocusFromCodeFollowsTheSameRules) {
    form.Show(false);
    events_.clear();
    form.txtSecond.SetFocus();
    EXPECT_EQ(events_, (Events{"validate txtFirst", "lost txtFirst", "got txtSecond"}));
    EXPECT_EQ(Read(form.txtSecond, "focus"), "true");
    form.txtSecond.SetEnabled(false);
    form.txtSecond.SetFocus();
    EXPECT_NE(form.ActiveControl(), &form.txtSecond);
}

TEST_F(Focus, TabVisitsControlsInOrderOfCreationAndSkipsHiddenOnes) {
    form.Show(false);
    driver().Leave(form.txtSecond);
    EXPECT_EQ(Read(form.SSTab1, "focus"), "true");
    driver().Leave(form.SSTab1);
    EXPECT_EQ(Read(form.txtOnFirstTab, "focus"), "true");
    driver().Leave(form.txtOnFirstTab);
    EXPECT_EQ(Read(form.cmdQuit, "focus"), "true") << "the page behind must be skipped";
    driver().Leave(form.cmdQuit);
    EXPECT_EQ(Read(form.txtFirst, "focus"), "true");
}

TEST_F(Focus, HidingTheFocusedControlMovesTheFocusWithoutValidation) {
    form.Show(false);
    driver().Type(form.txtFirst, "bad");
    events_.clear();
    form.txtFirst.SetVisible(false);
    EXPECT_EQ(events_, (Events{"lost txtFirst", "got txtSecond"}));
    EXPECT_EQ(Read(form.txtSecond, "focus"), "true");
}

TEST_F(Focus, OnlyTheFrontPageIsVisible) {
    form.Show(false);
    EXPECT_EQ(Read(form.txtOnFirstTab, "visible"), "true");
    EXPECT_EQ(Read(form.txtOnSecondTab, "visible"), "false");
    driver().SelectTab(form.SSTab1, 1);
    EXPECT_EQ(Read(form.SSTab1, "tab"), "1");
    EXPECT_EQ(Read(form.txtOnFirstTab, "visible"), "false");
    EXPECT_EQ(Read(form.txtOnSecondTab, "visible"), "true");
    EXPECT_THROW(driver().Type(form.txtOnFirstTab, "x"), driver::DriverError);
}

TEST_F(Focus, ChangingTheTabRaisesClickFromCodeAndByTheUser) {
    form.SSTab1.onClick = [this] { events_.push_back("tab" + std::to_string(form.SSTab1.Tab())); };
    form.Show(false);
    events_.clear();
    form.SSTab1.SetTab(1);
    form.SSTab1.SetTab(1);
    driver().SelectTab(form.SSTab1, 0);
    EXPECT_EQ(std::count(events_.begin(), events_.end(), "tab1"), 1);
    EXPECT_EQ(std::count(events_.begin(), events_.end(), "tab0"), 1);
    EXPECT_THROW(form.SSTab1.SetTab(2), RuntimeError);
}

TEST_F(Focus, FocusLeavesAPageThatGoesToTheBack) {
    form.Show(false);
    form.txtOnFirstTab.SetFocus();
    form.SSTab1.SetTab(1);
    EXPECT_EQ(Read(form.txtOnFirstTab, "focus"), "false");
    ASSERT_NE(form.ActiveControl(), nullptr);
    EXPECT_TRUE(form.ActiveControl()->Visible());
}

TEST_F(Focus, AnErrorOfLostFocusLeavesTheFocusWhereItWent) {
    form.txtFirst.onLostFocus = [] { throw RuntimeError(ErrorNumber::Overflow); };
    form.Show(false);
    events_.clear();
    driver().Leave(form.txtFirst);
    EXPECT_EQ(Read(form.txtSecond, "focus"), "true");
    EXPECT_EQ(events_.back(), "got txtSecond");
    // The user goes back and types on.
    form.txtFirst.onLostFocus = nullptr;
    driver().Type(form.txtFirst, "12");
    EXPECT_EQ(Read(form.txtFirst, "text"), "12");
}

TEST_F(Focus, AHandlerOfLostFocusMaySendTheFocusElsewhere) {
    form.txtFirst.onLostFocus = [this] { form.cmdQuit.SetFocus(); };
    form.Show(false);
    driver().Leave(form.txtFirst);
    EXPECT_EQ(Read(form.cmdQuit, "focus"), "true");
}

}  // namespace
}  // namespace zv::contract
