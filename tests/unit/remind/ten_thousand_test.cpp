// Ten thousand items that are due at once, answered all together.
#include <gtest/gtest.h>

#include "application/test_application.h"
#include "progress/long_work.h"
#include "windows/remind/frm_remind.h"

namespace zv::windows {
namespace {

constexpr int kMany = 10'000;

/// Answers are kept in the database or, without a table for them, on the workstation.
class TenThousandDue : public testing::TestWithParam<bool> {
 protected:
    TenThousandDue() {
        if (GetParam()) stage.AddSideTables();
        stage.session.state.myPower = std::string(350, '1');
        stage.Sql(
            "insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask');"
            "delete from tTaskList;"
            "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) "
            "with recursive n(i) as (select 1 union all select i+1 from n where i<" +
            std::to_string(kMany) +
            ") select 0,'item '||i,'2003-03-07 00:00:00','2003-03-07 00:00:00',"
            "'2003-03-07 00:00:00',0 from n");
        // Whoever waits for the end watches it come.
        stage.backend.modalLoop = [this](forms::Form& form) {
            auto& shown = static_cast<progress::frmProgress&>(form);
            for (; shown.IsShown() && ticks < stopAfter; ticks++) {
                percent = shown.ProgressBar1.Percent();
                stage.user.Tick(shown.Timer1);
            }
            if (shown.IsShown()) stage.user.Click(shown.cmdCancel);
        };
        stage.control.StartReminders();
        window = stage.windows.Find<frmRemind>(frmRemind::kName);
    }

    void Press(forms::CommandButton& button) {
        window->grdDue.SelectAll();
        stage.dialogs.answers = {forms::Answer::Ok};
        stage.user.Click(button);
        // The question at most.
        EXPECT_LE(stage.dialogs.messages.size(), 1u);
    }

    test::TestApplication stage;
    frmRemind* window = nullptr;
    int stopAfter = kMany;
    int ticks = 0;
    std::optional<int> percent;  ///< that the user saw last
};

TEST_P(TenThousandDue, AreListedWithinTheScreen) {
    EXPECT_EQ(window->DueCount(), kMany);
    EXPECT_EQ(window->grdDue.DataRowCount(), kMany);
    EXPECT_TRUE(window->IsShown());
    EXPECT_LT(window->ClientSize().height, 600);
}

TEST_P(TenThousandDue, ArePutOffAtOnceAndComeAgain) {
    Press(window->cmdLater);
    EXPECT_EQ(window->DueCount(), 0);
    stage.clock.Set(stage.clock.Now().AddSeconds(5 * 60));
    window->LookAgain();
    EXPECT_EQ(window->DueCount(), kMany);
}

TEST_P(TenThousandDue, AreDismissedAtOnceAndTakenBackAtOnce) {
    Press(window->cmdDismiss);
    EXPECT_EQ(window->DueCount(), 0);
    stage.clock.Set(stage.clock.Now().AddDays(1));
    window->LookAgain();
    EXPECT_EQ(window->DueCount(), 0);
    stage.session.takeBack.TakeNewest();
    EXPECT_EQ(window->DueCount(), kMany);
}

// Each costs several statements: enough of them are done for the window that shows how far it is.
TEST_P(TenThousandDue, WhatIsStoppedLeavesTheRestAsItIs) {
    stopAfter = 5;
    Press(window->cmdDone);
    EXPECT_EQ(percent, 14);
    EXPECT_EQ(stage.Query("select count(*) from tTaskList where tDone=1"), "1500");
    EXPECT_EQ(window->DueCount(), kMany - 1500);
    // What was done is taken back at once.
    stage.session.takeBack.TakeNewest();
    EXPECT_EQ(stage.Query("select count(*) from tTaskList where tDone=0"), std::to_string(kMany));
    EXPECT_EQ(window->DueCount(), kMany);
}

INSTANTIATE_TEST_SUITE_P(Kept, TenThousandDue, testing::Bool(), [](const auto& of) {
    return of.param ? "InTheDatabase" : "OnTheWorkstation";
});

}  // namespace
}  // namespace zv::windows
