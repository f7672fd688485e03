#include "alerter/alerter.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>

#include "application/test_application.h"
#include "windows/main/frm_task_main.h"
#include "windows/remind/frm_remind.h"

namespace zv::alerter {
namespace {

class ScriptedTray final : public Tray {
 public:
    void Show(const Face& face) override { faces.push_back(face); }
    void Announce(const std::string& title, const std::string& text) override {
        announced.push_back(title + "|" + text);
    }
    std::optional<Act> Choose(const std::vector<MenuEntry>& entries) override {
        menu = entries;
        if (choices.empty()) return std::nullopt;
        const Act act = choices.front();
        choices.pop_front();
        return act;
    }
    std::string Captions() const {
        std::string text;
        for (const MenuEntry& entry : menu)
            text += (entry.enabled ? "" : "-") + entry.caption + ";";
        return text;
    }

    std::vector<Face> faces;
    std::vector<std::string> announced;
    std::deque<Act> choices;
    std::vector<MenuEntry> menu;
};

class AlerterTest : public testing::Test {
 protected:
    AlerterTest() {
        alerter.onEnd = [this] { ends++; };
    }

    /// As a host does that starts reminders: from then on the state is there for the alerter, whose
    /// session begins with nothing.
    void LogIn(const std::string& user) {
        stage.session.state.UserName = user;
        ASSERT_TRUE(HandOver(stage.session));
    }
    void SetSetting(std::string_view key, std::string_view text) {
        stage.session.SaveSetting(resources::kTaskSection, key, text);
    }
    const Face& Shown() const { return tray.faces.back(); }

    test::TestApplication stage;
    ScriptedTray tray;
    Alerter alerter{stage.session, tray};
    int ends = 0;
};

TEST_F(AlerterTest, EndsAtOnceWhenTheWorkstationDoesNotWantIt) {
    LogIn("user");
    SetSetting("Startup", "0");
    EXPECT_FALSE(alerter.Start());
    EXPECT_TRUE(tray.faces.empty());
    EXPECT_FALSE(stage.control.Reminding());
}

TEST_F(AlerterTest, ASwitchThatIsNoNumberIsOn) {
    SetSetting("Startup", "yes");
    EXPECT_TRUE(alerter.Start());
}

TEST_F(AlerterTest, EndsWhenTheSwitchIsTurnedOffMeanwhile) {
    LogIn("user");
    ASSERT_TRUE(alerter.Start());
    SetSetting("Startup", "0");
    alerter.Tick();
    EXPECT_EQ(ends, 1);
    EXPECT_FALSE(stage.control.Reminding());
    alerter.Tick();
    alerter.LookAgain();
    alerter.Do(Act::Exit);
    EXPECT_EQ(ends, 1);
}

TEST_F(AlerterTest, SaysWhoMustLogInWhileNobodyHasHandedOver) {
    ASSERT_TRUE(alerter.Start());
    EXPECT_EQ(Shown(), (Face{Mood::MustLogIn, "?", "请先登录业务系统，提醒程序随后自动开始"}));
    EXPECT_FALSE(stage.control.Reminding());
    alerter.OpenMenu();
    EXPECT_EQ(tray.Captions(), "-打开任务管理;-新增任务;-暂停提醒一小时;-选项;退出提醒程序;");
    // Not even where the system lets an entry that is greyed be chosen.
    alerter.Do(Act::Open);
    EXPECT_EQ(stage.Window(), nullptr);
}

TEST_F(AlerterTest, BeginsWhenSomebodyLogsInLater) {
    ASSERT_TRUE(alerter.Start());
    LogIn("user");
    alerter.Tick();
    EXPECT_TRUE(stage.control.Reminding());
    EXPECT_EQ(Shown().mood, Mood::NothingDue);
}

TEST_F(AlerterTest, FollowsTheUserWhoLoggedInLast) {
    LogIn("first");
    ASSERT_TRUE(alerter.Start());
    LogIn("second");
    stage.session.state.UserName = "first";
    alerter.Tick();
    EXPECT_EQ(stage.session.state.UserName, "second");
    EXPECT_TRUE(stage.control.Reminding());
}

TEST_F(AlerterTest, WhatStandsOpenStaysTheFormerUsersUntilItIsClosed) {
    LogIn("first");
    ASSERT_TRUE(alerter.Start());
    alerter.Do(Act::Open);
    LogIn("second");
    stage.session.state.UserName = "first";
    alerter.Tick();
    EXPECT_EQ(stage.session.state.UserName, "first");
    stage.user.Close(*stage.Window());
    alerter.Tick();
    EXPECT_EQ(stage.session.state.UserName, "second");
}

TEST_F(AlerterTest, RemindingHandsNothingOver) {
    LogIn("user");
    const std::string kept = stage.session.GetSetting("zvTask", "HandedOver", "");
    // The workstation's file comes in the place of the host's, in this program only.
    std::filesystem::copy_file(stage.folder / "t.db", stage.folder / "other.db");
    SetSetting("DataPath", stage.Path("other.db"));
    ASSERT_TRUE(alerter.Start());
    alerter.Tick();
    EXPECT_EQ(stage.opener.last.dataPath, stage.Path("other.db"));
    EXPECT_EQ(stage.session.GetSetting("zvTask", "HandedOver", ""), kept);
}

TEST_F(AlerterTest, FollowsToAnotherStore) {
    LogIn("user");
    ASSERT_TRUE(alerter.Start());
    EXPECT_EQ(stage.opener.last.dataPath, stage.Path("t.db"));
    stage.session.state.SQLData = 1;
    stage.session.state.UserPath = "server";
    stage.session.state.hostSQLData = 1;
    ASSERT_TRUE(HandOver(stage.session));
    alerter.Tick();
    EXPECT_EQ(stage.opener.last.dataPath, "server");
}

TEST_F(AlerterTest, StopsWhereWhatWasHandedOverCannotBeReadAnyMore) {
    LogIn("user");
    ASSERT_TRUE(alerter.Start());
    stage.vault.user = "somebody else";
    alerter.Tick();
    EXPECT_FALSE(stage.control.Reminding());
    EXPECT_EQ(Shown().mood, Mood::MustLogIn);
}

TEST_F(AlerterTest, PausesForAnHour) {
    LogIn("user");
    stage.clock.Set(DateTime(2003, 3, 7, 9, 30, 0));
    ASSERT_TRUE(alerter.Start());
    tray.choices = {Act::Pause};
    alerter.OpenMenu();
    EXPECT_FALSE(stage.control.Reminding());
    EXPECT_EQ(Shown(), (Face{Mood::Paused, "", "提醒暂停到 10:30"}));
    stage.clock.Advance(59 * 60);
    alerter.Tick();
    EXPECT_EQ(Shown().mood, Mood::Paused);
    stage.clock.Advance(60);
    alerter.Tick();
    EXPECT_TRUE(stage.control.Reminding());
    EXPECT_EQ(Shown().mood, Mood::NothingDue);
}

TEST_F(AlerterTest, APauseCanBeEnded) {
    LogIn("user");
    ASSERT_TRUE(alerter.Start());
    alerter.Do(Act::Pause);
    alerter.OpenMenu();
    EXPECT_EQ(tray.Captions(), "打开任务管理;新增任务;继续提醒;选项;退出提醒程序;");
    alerter.Do(Act::GoOn);
    EXPECT_TRUE(stage.control.Reminding());
}

TEST_F(AlerterTest, AClockSetBackDoesNotLengthenAPauseForEver) {
    LogIn("user");
    ASSERT_TRUE(alerter.Start());
    alerter.Do(Act::Pause);
    stage.clock.Advance(-365 * 24 * 60 * 60);
    alerter.LookAgain();
    EXPECT_TRUE(stage.control.Reminding());
}

TEST_F(AlerterTest, OpensTheManagerANewEntryAndTheOptions) {
    stage.Sql("insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask')");
    stage.session.state.myPower = std::string(350, '1');
    LogIn("user");
    ASSERT_TRUE(alerter.Start());
    alerter.Do(Act::Open);
    ASSERT_NE(stage.Window(), nullptr);
    EXPECT_TRUE(stage.Window()->IsShown());
    alerter.Do(Act::Options);
    EXPECT_EQ(stage.Window()->SSTab1.Tab(), windows::kOptionsTab);
    alerter.Do(Act::NewEntry);
    EXPECT_TRUE(stage.Window()->model.Editing());
}

TEST_F(AlerterTest, ANewEntryAsksTheRightOfTheButton) {
    stage.Sql("insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask')");
    stage.session.state.myPower = std::string(350, '0');
    LogIn("user");
    ASSERT_TRUE(alerter.Start());
    stage.dialogs.answers = {forms::Answer::Ok};
    alerter.Do(Act::NewEntry);
    EXPECT_FALSE(stage.Window() && stage.Window()->model.Editing());
}

TEST_F(AlerterTest, TheIconShowsHowManyAreDueAndIsDrawnOnlyWhenThatChanges) {
    stage.Sql("update tTaskList set tDone=1");
    LogIn("user");
    ASSERT_TRUE(alerter.Start());
    EXPECT_EQ(Shown(), (Face{Mood::NothingDue, "", "没有到期的事项"}));
    const std::size_t drawn = tray.faces.size();
    alerter.Tick();
    alerter.LookAgain();
    EXPECT_EQ(tray.faces.size(), drawn);
}

TEST_F(AlerterTest, TheIconHoldsANumberOfTwoDigitsAtMost) {
    const auto add = [&](int count) {
        for (int i = 0; i < count; i++) {
            stage.Sql(
                "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) "
                "values(0,'t','2003-03-07 00:00:00','2003-03-07 00:00:00','2003-03-07 "
                "00:00:00',0)");
        }
        stage.windows.FromTimer([this] { alerter.LookAgain(); });
    };
    stage.Sql("delete from tTaskList");
    LogIn("user");
    ASSERT_TRUE(alerter.Start());
    add(1);
    EXPECT_EQ(Shown(), (Face{Mood::Due, "1", "1 项到期"}));
    EXPECT_EQ(tray.announced.size(), 1u);
    add(98);
    EXPECT_EQ(Shown(), (Face{Mood::Due, "99", "99 项到期"}));
    add(1);
    EXPECT_EQ(Shown(), (Face{Mood::Due, "+", "100 项到期"}));
}

TEST_F(AlerterTest, SleepsForTheIntervalAndAtLeastAMinute) {
    EXPECT_EQ(alerter.Minutes(), 5);
    SetSetting("RemindInterval", "12");
    EXPECT_EQ(alerter.Minutes(), 12);
    for (const char* wrong : {"0", "-3", "1441", "x", "", "1e99"}) {
        SetSetting("RemindInterval", wrong);
        EXPECT_EQ(alerter.Minutes(), 5) << wrong;
    }
    SetSetting("RemindInterval", "1");
    EXPECT_EQ(alerter.Minutes(), 1);
}

}  // namespace
}  // namespace zv::alerter
