// What the scenarios of the window of reminders cannot reach: the pauses while the store is away,
// and a calendar that ends.
#include <gtest/gtest.h>

#include "application/test_application.h"
#include "windows/remind/frm_remind.h"
#include "windows/remind/reminding.h"

namespace zv::windows {
namespace {

class RemindWindow : public testing::Test {
 protected:
    frmRemind& Start() {
        stage.control.StartReminders();
        return *stage.windows.Find<frmRemind>(frmRemind::kName);
    }
    void AddItem(const std::string& moment) {
        stage.Sql(
            "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) "
            "values(0,'item','" +
            moment + "','" + moment + "','" + moment + "',0)");
    }

    test::TestApplication stage;
};

TEST_F(RemindWindow, PausesGrowWhileTheStoreIsAwayAndEndWithIt) {
    frmRemind& window = Start();
    stage.opener.open = [](const store::ConnectionSettings&) -> std::unique_ptr<store::Connection> {
        throw RuntimeError(ErrorNumber::DatabaseFailure, "away");
    };
    stage.session.database.Leave();
    for (const int minutes : {1, 2, 4, 8, 16, 30, 30}) {
        window.LookAgain();
        EXPECT_EQ(window.tmrLook.IntervalMs(), minutes * 60'000);
        EXPECT_TRUE(window.tmrLook.Running());
    }
    EXPECT_TRUE(stage.dialogs.messages.empty());
    stage.opener.open = nullptr;
    window.LookAgain();
    EXPECT_LE(window.tmrLook.IntervalMs(), 5 * 60'000);
    EXPECT_EQ(window.lblOld.Caption().find("数据库"), std::string::npos);
}

TEST_F(RemindWindow, TheNextLookIsNoLaterThanTheIntervalAndTheNextReminder) {
    stage.Sql("delete from tTaskList");
    stage.clock.Set(DateTime(2003, 3, 7, 9, 30, 0));
    frmRemind& window = Start();
    EXPECT_EQ(window.tmrLook.IntervalMs(), 5 * 60'000);
    stage.session.SaveSetting("zvTask", "RemindInterval", "30");
    AddItem("2003-03-07 09:42:30");
    window.LookAgain();
    EXPECT_EQ(window.tmrLook.IntervalMs(), (12 * 60 + 30) * 1000);
}

TEST_F(RemindWindow, AtTheEndOfTheCalendarNothingCanBePutOff) {
    stage.Sql("delete from tTaskList");
    stage.clock.Set(DateTime(9999, 12, 31, 23, 58, 0));
    AddItem("9999-12-31 00:00:00");
    frmRemind& window = Start();
    ASSERT_EQ(window.DueCount(), 1);
    stage.dialogs.answers = {forms::Answer::Ok};
    stage.user.Click(window.cmdLater);
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_NE(stage.dialogs.messages[0].find("请选择今后的时间"), std::string::npos);
    EXPECT_EQ(window.DueCount(), 1);
}

TEST_F(RemindWindow, AnotherUserIsRemindedAnew) {
    stage.Sql("delete from tTaskList");
    AddItem("2003-03-07 00:00:00");
    stage.session.state.UserName = "first";
    frmRemind& window = Start();
    window.Hide();
    window.LookAgain();
    EXPECT_FALSE(window.IsShown());
    stage.session.state.UserName = "second";
    EXPECT_EQ(&Start(), &window);
    EXPECT_TRUE(window.IsShown());
}

TEST_F(RemindWindow, StartedAgainItSpeaksThePresentLanguage) {
    frmRemind& window = Start();
    EXPECT_EQ(window.cmdInHand.Caption(), "办理中");
    stage.session.state.Language = 1;
    Start();
    EXPECT_EQ(window.cmdInHand.Caption(), "辦理中");
    EXPECT_EQ(window.cboLater.List(0), "5 分鐘後");
    EXPECT_EQ(window.grdDue.GetColumn(2).heading, "類型");
}

TEST_F(RemindWindow, WhatIsOlderIsCountedAnewWhenTheChoiceOfOwnOrAllChanges) {
    stage.Sql("delete from tTaskList");
    AddItem("2003-03-07 00:00:00");
    stage.session.state.UserName = "Li";
    stage.Sql(
        "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone,tDoneMan) "
        "values(0,'old','2003-03-01','2003-03-01','2003-03-01',0,'somebody else')");
    frmRemind& window = Start();
    EXPECT_NE(window.lblOld.Caption(), "");
    stage.session.SaveSetting("zvTask", "JbrName", "1");
    window.LookAgain();
    EXPECT_EQ(window.lblOld.Caption(), "");
}

TEST_F(RemindWindow, WhatWasDoneBeforeAnErrorIsGoneFromTheListAtOnce) {
    stage.Sql("insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask')");
    stage.session.state.myPower = std::string(350, '1');
    stage.Sql("delete from tTaskList");
    for (int i = 0; i < 3; i++) AddItem("2003-03-07 00:00:00");
    frmRemind& window = Start();
    ASSERT_EQ(window.DueCount(), 3);
    window.grdDue.SelectAll();
    stage.statements.failing = "fID =" + stage.Query("select max(fID) from tTaskList");
    stage.dialogs.answers = {forms::Answer::Ok, forms::Answer::Ok};
    stage.user.Click(window.cmdDone);
    EXPECT_EQ(stage.Query("select count(*) from tTaskList where tDone=1"), "2");
    EXPECT_EQ(window.DueCount(), 1);
}

TEST_F(RemindWindow, GoesWithTheSessionWithoutAQuestion) {
    Start();
    stage.windows.EndSession();
    EXPECT_FALSE(stage.control.Reminding());
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

}  // namespace
}  // namespace zv::windows
