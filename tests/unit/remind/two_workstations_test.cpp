// A user at two workstations, and two users: what is answered at one holds at the other where the
// database has a table for it, and what is done is done for all.
#include <gtest/gtest.h>

#include "application/test_application.h"
#include "windows/remind/frm_remind.h"

namespace zv::windows {
namespace {

class TwoWorkstations : public testing::Test {
 protected:
    TwoWorkstations() {
        here.Sql("insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask')");
        here.Sql("delete from tTaskList");
        for (const char* title : {"a", "b"}) {
            here.Sql(
                "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) "
                "values(0,'" +
                std::string(title) +
                "','2003-03-07 00:00:00','2003-03-07 00:00:00','2003-03-07 00:00:00',0)");
        }
        for (test::TestApplication* one : {&here, &there}) {
            one->session.state.UserPath = here.Path("t.db");
            one->session.state.UserName = "O'Brien";
            one->session.state.myPower = std::string(350, '1');
        }
    }
    static frmRemind& Start(test::TestApplication& workstation) {
        workstation.control.StartReminders();
        return *workstation.windows.Find<frmRemind>(frmRemind::kName);
    }

    test::TestApplication here;
    test::TestApplication there;
};

TEST_F(TwoWorkstations, WhatIsDoneAtOneIsGoneAtTheOther) {
    frmRemind& window = Start(here);
    frmRemind& other = Start(there);
    EXPECT_EQ(other.DueCount(), 2);
    here.user.Click(window.cmdDone);
    other.LookAgain();
    EXPECT_EQ(other.DueCount(), 1);
    EXPECT_TRUE(there.dialogs.messages.empty());
}

TEST_F(TwoWorkstations, WithTheTableWhatIsPutOffHoldsAtBoth) {
    here.AddSideTables();
    frmRemind& window = Start(here);
    frmRemind& other = Start(there);
    here.user.Click(window.cmdLater);
    here.user.Click(window.cmdDismiss);
    EXPECT_EQ(window.DueCount(), 0);
    other.LookAgain();
    EXPECT_EQ(other.DueCount(), 0);
    EXPECT_FALSE(other.IsShown());
    // What was put off comes again at both, what was dismissed at none.
    for (test::TestApplication* one : {&here, &there}) one->clock.Advance(5 * 60);
    window.LookAgain();
    other.LookAgain();
    EXPECT_EQ(window.DueCount(), 1);
    EXPECT_EQ(other.DueCount(), 1);
}

TEST_F(TwoWorkstations, WithoutTheTableEachWorkstationHasItsOwn) {
    frmRemind& window = Start(here);
    frmRemind& other = Start(there);
    here.user.Click(window.cmdDismiss);
    other.LookAgain();
    EXPECT_EQ(window.DueCount(), 1);
    EXPECT_EQ(other.DueCount(), 2);
}

TEST_F(TwoWorkstations, WhatOneUserDismissesTheOtherIsRemindedOf) {
    here.AddSideTables();
    there.session.state.UserName = "Li";
    frmRemind& window = Start(here);
    frmRemind& other = Start(there);
    here.user.Click(window.cmdDismiss);
    other.LookAgain();
    EXPECT_EQ(window.DueCount(), 1);
    EXPECT_EQ(other.DueCount(), 2);
}

TEST_F(TwoWorkstations, ATableThatIsDroppedInUseLosesWhatWasInItAndNothingElse) {
    here.AddSideTables();
    frmRemind& window = Start(here);
    here.user.Click(window.cmdDismiss);
    EXPECT_EQ(window.DueCount(), 1);
    here.Sql("drop table zvReminder");
    window.LookAgain();
    EXPECT_EQ(window.DueCount(), 2);
    here.user.Click(window.cmdDismiss);
    EXPECT_EQ(window.DueCount(), 1);
    EXPECT_TRUE(here.dialogs.messages.empty());
}

}  // namespace
}  // namespace zv::windows
