// Windows that come up by themselves: unseen until they have something to say, and then without
// taking the keyboard or waiting for a modal window.
#include "forms/buttons.h"
#include "forms/text_box.h"
#include "forms/timer.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct WorkForm : TestForm {
    explicit WorkForm(WindowSystem& windows) : TestForm(windows, "frmWork") {}
    TextBox txtWork{*this, "txtWork"};
};

struct CallingForm : TestForm {
    explicit CallingForm(WindowSystem& windows) : TestForm(windows, "frmCalling") {
        SetComesByItself(true);
        cmdOK.onClick = [this] { clicks++; };
        timer.onTimer = [this] { ticks++; };
    }
    CommandButton cmdOK{*this, "cmdOK"};
    Timer timer{*this, "timer", 1000};
    int clicks = 0;
    int ticks = 0;
    int clockChanges = 0;

 protected:
    void Form_ClockChange() override { clockChanges++; }
};

class OwnAccord : public Contract {
 protected:
    template <class Form>
    Form& Make() {
        auto& form = windows_.Create<Form>();
        Arrange(form);
        return form;
    }
    CallingForm& calling = Make<CallingForm>();
};

TEST_F(OwnAccord, AWindowLoadedUnseenTicksAndReportsNoEnd) {
    std::vector<std::string> closed;
    windows_.onClosed = [&](const std::string& name) { closed.push_back(name); };
    calling.LoadUnseen();
    EXPECT_TRUE(calling.IsLoaded());
    EXPECT_FALSE(calling.IsShown());
    EXPECT_FALSE(calling.WasSeen());
    EXPECT_FALSE(calling.cmdOK.Visible());
    calling.timer.SetRunning(true);
    driver().Tick(calling.timer);
    EXPECT_EQ(calling.ticks, 1);
    calling.Unload();
    EXPECT_EQ(closed, std::vector<std::string>{});
    windows_.onClosed = nullptr;
}

TEST_F(OwnAccord, ComingUpTakesNoFocusFromWhereTheUserWorks) {
    auto& work = Make<WorkForm>();
    work.Show(false);
    driver().Type(work.txtWork, "abc");
    calling.Surface();
    EXPECT_TRUE(calling.IsShown());
    EXPECT_TRUE(calling.cmdOK.Visible());
    EXPECT_TRUE(work.txtWork.HasFocus());
    EXPECT_EQ(work.ActiveControl(), &work.txtWork);
    EXPECT_EQ(calling.ActiveControl(), &calling.cmdOK);
    driver().Click(calling.cmdOK);
    EXPECT_EQ(calling.clicks, 1);
}

TEST_F(OwnAccord, ItComesUpOnceAndAgainAfterItWasHidden) {
    calling.Surface();
    calling.Surface();
    EXPECT_TRUE(calling.IsShown());
    calling.Hide();
    EXPECT_FALSE(calling.IsShown());
    calling.Surface();
    EXPECT_TRUE(calling.IsShown());
}

TEST_F(OwnAccord, NoModalWindowHoldsItBackOrBlocksIt) {
    auto& work = Make<WorkForm>();
    // One stands already when the modal window comes, the other comes up beside it.
    auto& second = Make<CallingForm>();
    calling.Surface();
    second.LoadUnseen();
    stand_->SetModalLoop([&](Form& modal) {
        driver().Click(calling.cmdOK);
        second.Surface();
        driver().Click(second.cmdOK);
        driver().Close(modal);
    });
    windows_.FromHost([&] { work.Show(true); });
    EXPECT_EQ(calling.clicks, 1);
    EXPECT_EQ(second.clicks, 1);
    EXPECT_TRUE(calling.IsShown());
}

TEST_F(OwnAccord, AChangedClockIsReportedToAWindowThatIsLoaded) {
    calling.ClockChanged();
    EXPECT_EQ(calling.clockChanges, 0);
    calling.LoadUnseen();
    calling.ClockChanged();
    EXPECT_EQ(calling.clockChanges, 1);
}

}  // namespace
}  // namespace zv::contract
