// Input that would be lost with its window, and the end of the session.
#include "forms/text_box.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct InputForm : TestForm {
    using TestForm::TestForm;
    bool HoldsUnsavedInput() const override { return !txtTitle.Text().empty(); }
    TextBox txtTitle{*this, "txtTitle"};
};

class UnsavedInput : public Contract {
 protected:
    UnsavedInput() : form(windows_.Create<InputForm>()) {
        Arrange(form);
        windows_.askToDropInput = [this] {
            events_.push_back("asked");
            if (whileAsked) whileAsked();
            return agrees;
        };
    }
    bool Exists() const { return windows_.Find("frmTest") != nullptr; }
    InputForm& form;
    bool agrees = false;
    std::function<void()> whileAsked;
};

TEST_F(UnsavedInput, WithoutAnyNobodyIsAsked) {
    form.Show(false);
    driver().Close(form);
    EXPECT_FALSE(Exists());
    EXPECT_TRUE(events_.empty());
}

TEST_F(UnsavedInput, TheFrameAsksAndKeepsTheWindowUnlessTheUserAgrees) {
    form.Show(false);
    driver().Type(form.txtTitle, "报表");
    driver().Close(form);
    ASSERT_TRUE(Exists());
    EXPECT_EQ(Read(form.txtTitle, "text"), "报表");
    agrees = true;
    driver().Close(form);
    EXPECT_FALSE(Exists());
    EXPECT_EQ(events_.size(), 2U);
}

TEST_F(UnsavedInput, TheEndOfTheSessionAsksToo) {
    form.Show(false);
    driver().Type(form.txtTitle, "报表");
    driver().EndSession(windows_);
    ASSERT_TRUE(Exists());
    EXPECT_EQ(events_.size(), 1U);
    agrees = true;
    driver().EndSession(windows_);
    EXPECT_FALSE(Exists());
    EXPECT_EQ(events_.size(), 2U);
}

TEST_F(UnsavedInput, TheSessionEndsWithoutAWordWhereNothingIsLost) {
    form.Show(false);
    windows_.Create<TestForm>("frmOther").Show(false);
    driver().EndSession(windows_);
    EXPECT_TRUE(windows_.IsEmpty());
    EXPECT_TRUE(events_.empty());
}

TEST_F(UnsavedInput, OneObjectionKeepsAllWindows) {
    TestForm& other = windows_.Create<TestForm>("frmOther");
    Arrange(other);
    other.Show(false);
    form.Show(false);
    driver().Type(form.txtTitle, "报表");
    driver().EndSession(windows_);
    EXPECT_EQ(windows_.Windows().size(), 2U);
}

TEST_F(UnsavedInput, WhileTheUserIsAskedHeIsNotAskedAgain) {
    form.Show(false);
    driver().Type(form.txtTitle, "报表");
    whileAsked = [this] { driver().Close(form); };
    driver().EndSession(windows_);
    EXPECT_EQ(events_.size(), 1U);
    EXPECT_TRUE(Exists());
}

TEST_F(UnsavedInput, AProgramThatUnloadsTheWindowAsksNobody) {
    form.Show(false);
    driver().Type(form.txtTitle, "报表");
    form.Unload();
    EXPECT_FALSE(Exists());
    EXPECT_TRUE(events_.empty());
}

TEST_F(UnsavedInput, WithoutSomebodyWhoAsksItIsGivenUp) {
    windows_.askToDropInput = nullptr;
    form.Show(false);
    driver().Type(form.txtTitle, "报表");
    driver().Close(form);
    EXPECT_FALSE(Exists());
}

}  // namespace
}  // namespace zv::contract
