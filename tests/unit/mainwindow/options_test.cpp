#include "main_window_fixture.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::windows {
namespace {

class Options : public MainWindow {
 protected:
    Options() : window(Open()) { ShowTab(kOptionsTab); }
    void TypePath(const std::string& path) {
        stage.user.Type(window.options.txtAccess, path);
        stage.user.Leave(window.options.txtAccess);
    }
    std::string Setting(const std::string& key) {
        const auto found = stage.settings.values.find("zvTask." + key);
        return found == stage.settings.values.end() ? "absent" : found->second;
    }
    frmTaskMain& window;
};

TEST_F(Options, ShowTheStoreOfTheControl) {
    EXPECT_TRUE(window.options.optAccess.Value());
    EXPECT_FALSE(window.options.optSQL.Value());
    EXPECT_TRUE(window.options.cmdAccess.Enabled());
    EXPECT_TRUE(window.options.txtAccess.Enabled());
    EXPECT_EQ(window.options.txtAccess.Text(), stage.Path("t.db"));
}

TEST_F(Options, AServerTakesThePathAway) {
    stage.user.Close(window);
    stage.control.SetSQLData(1);
    frmTaskMain& other = Open();
    EXPECT_TRUE(other.options.optSQL.Value());
    EXPECT_FALSE(other.options.cmdAccess.Enabled());
    EXPECT_FALSE(other.options.txtAccess.Enabled());
    EXPECT_TRUE(other.options.txtAccess.Locked());
    EXPECT_EQ(other.options.txtAccess.Text(), "");
    EXPECT_EQ(other.options.txtAccess.tag, "");
}

TEST_F(Options, AServerChosenAtExitStoresNothing) {
    store::CreateSqliteDatabase(stage.Path("b.db"));
    stage.session.state.hostSQLData = 1;
    TypePath(stage.Path("b.db"));
    stage.user.Click(window.options.optSQL);
    EXPECT_EQ(window.options.txtAccess.Text(), "");
    stage.user.Click(window.commands.cmdExit);
    EXPECT_EQ(Setting("DataPath"), "absent");
}

TEST_F(Options, AKindThatCannotBeOpenedIsNotTaken) {
    stage.session.state.hostSQLData = 1;
    const auto refuse = [&](const store::ConnectionSettings& settings) {
        if (settings.kind >= 1) throw RuntimeError(ErrorNumber::DatabaseFailure, "no server");
        return store::OpenSqlite(settings.dataPath.ForDriver());
    };
    stage.opener.open = refuse;
    stage.user.Click(window.options.optSQL);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_EQ(stage.session.state.SQLData, 0);
    EXPECT_EQ(stage.session.database.DateDelimiter(), '#');
    EXPECT_EQ(stage.Refresh(8), 0);
    stage.user.Click(window.options.optAccess);
    EXPECT_EQ(window.options.txtAccess.Text(), stage.Path("t.db"));
    EXPECT_TRUE(window.options.txtAccess.Enabled());
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(Options, AFileIsNamedBeforeAServerIsLeftForIt) {
    stage.user.Close(window);
    stage.opener.open = [&](const store::ConnectionSettings&) {
        return store::OpenSqlite(stage.Path("t.db"));
    };
    stage.control.SetUserPath("Driver=x;PWD=secret");
    stage.control.SetSQLData(1);
    frmTaskMain& other = Open();
    ShowTab(kOptionsTab);
    stage.user.Click(other.options.optAccess);
    EXPECT_EQ(other.options.txtAccess.Text(), "");
    EXPECT_EQ(stage.session.state.SQLData, 1);
    EXPECT_TRUE(stage.dialogs.messages.empty());
    stage.user.Type(other.options.txtAccess, stage.Path("t.db"));
    stage.user.Leave(other.options.txtAccess);
    EXPECT_EQ(stage.session.state.SQLData, 0);
    EXPECT_EQ(stage.opener.last.kind, 0);
    EXPECT_EQ(stage.opener.last.dataPath.ForDriver(), stage.Path("t.db"));
}

TEST_F(Options, ARefusedPathIsNeverStored) {
    stage.settings.values["zvTask.DataPath"] = "before";
    TypePath(stage.Path("missing.mdb"));
    stage.user.Click(window.commands.cmdExit);
    EXPECT_EQ(Setting("DataPath"), "before");
}

TEST_F(Options, AnAcceptedPathIsStoredWhicheverPageIsInFront) {
    store::CreateSqliteDatabase(stage.Path("b.db"));
    TypePath(stage.Path("b.db"));
    TypePath(stage.Path("missing.mdb"));
    ShowTab(kItemTab);
    stage.user.Click(window.commands.cmdExit);
    EXPECT_EQ(Setting("DataPath"), stage.Path("b.db"));
}

TEST_F(Options, AnEmptiedPathMeansTheHostsAgain) {
    store::CreateSqliteDatabase(stage.Path("b.db"));
    stage.user.Close(window);
    stage.settings.values["zvTask.DataPath"] = stage.Path("b.db");
    frmTaskMain& other = Open();
    ShowTab(kOptionsTab);
    EXPECT_EQ(other.options.txtAccess.Text(), stage.Path("b.db"));
    stage.user.Type(other.options.txtAccess, "");
    stage.user.Leave(other.options.txtAccess);
    EXPECT_EQ(stage.opener.last.dataPath.ForDriver(), stage.Path("t.db"));
    EXPECT_EQ(other.options.txtAccess.Text(), "");
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(stage.opener.last.dataPath.ForDriver(), stage.Path("t.db"));
    stage.user.Click(other.commands.cmdExit);
    EXPECT_EQ(Setting("DataPath"), "");
    Open();
    EXPECT_EQ(stage.opener.last.dataPath.ForDriver(), stage.Path("t.db"));
}

TEST_F(Options, APathTypedAndNotLeftGoesWithTheWindow) {
    store::CreateSqliteDatabase(stage.Path("b.db"));
    stage.user.Type(window.options.txtAccess, stage.Path("b.db"));
    const int before = stage.opener.openings;
    stage.user.Close(window);
    EXPECT_EQ(stage.opener.openings, before);
    EXPECT_EQ(Setting("DataPath"), "absent");
    EXPECT_EQ(stage.session.state.UserPath, stage.Path("t.db"));
}

TEST_F(Options, AnEditUnderWayKeepsItsStore) {
    store::CreateSqliteDatabase(stage.Path("b.db"));
    window.model.editMode = EditMode::Adding;
    const int before = stage.opener.openings;
    TypePath(stage.Path("b.db"));
    EXPECT_EQ(stage.opener.openings, before);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_EQ(window.options.txtAccess.Text(), stage.Path("t.db"));
    window.model.editMode = EditMode::None;
    TypePath(stage.Path("b.db"));
    EXPECT_EQ(stage.opener.openings, before + 1);
}

TEST_F(Options, TheKindFollowsTheButtons) {
    stage.session.state.hostSQLData = 2;
    stage.user.Click(window.options.optSQL);
    EXPECT_EQ(stage.session.state.SQLData, 2);
    EXPECT_FALSE(window.options.cmdAccess.Enabled());
    stage.user.Click(window.options.optAccess);
    EXPECT_EQ(stage.session.state.SQLData, 0);
    EXPECT_TRUE(window.options.cmdAccess.Enabled());
}

TEST_F(Options, LeavingThePathUnchangedDoesNotReopen) {
    const int before = stage.opener.openings;
    TypePath(stage.Path("t.db"));
    EXPECT_EQ(stage.opener.openings, before);
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Options, AnotherPathRefillsStaffAndTree) {
    store::CreateSqliteDatabase(stage.Path("另 一个.db"));
    AddItem(0, "x");
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
    stage.statements.Take();
    const int before = stage.opener.openings;
    TypePath(stage.Path("另 一个.db"));
    EXPECT_EQ(stage.opener.openings, before + 1);
    EXPECT_EQ(stage.NodeKeys(), "A1 B2 C3");
    const auto sent = stage.statements.Take();
    ASSERT_EQ(sent.size(), 3u);
    EXPECT_TRUE(sent[0].starts_with("select fCode"));
    EXPECT_TRUE(sent[1].starts_with("select FieldName"));
    EXPECT_TRUE(sent[2].starts_with("select distinct a.fID"));
    EXPECT_EQ(stage.session.state.UserPath, stage.Path("另 一个.db"));
    EXPECT_EQ(window.options.txtAccess.tag, stage.Path("另 一个.db"));
}

TEST_F(Options, APathThatCannotBeOpenedIsReportedOnceAndTheWindowGoesOn) {
    AddItem(0, "x");
    stage.user.Click(window.commands.cmdSeek);
    TypePath(stage.Path("missing.mdb"));
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_TRUE(stage.dialogs.messages[0].starts_with("48|"));
    EXPECT_NE(stage.dialogs.messages[0].find("missing.mdb"), std::string::npos);
    EXPECT_EQ(window.options.txtAccess.Text(), stage.Path("missing.mdb"));
    ClickNode("Z1");
    EXPECT_EQ(window.item.txtTitle2.Text(), "x");
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(Options, TheDialogAsksForAnExistingFile) {
    store::CreateSqliteDatabase(stage.Path("b.db"));
    stage.dialogs.inputs.push_back(stage.Path("b.db"));
    stage.user.Click(window.options.cmdAccess);
    ASSERT_EQ(stage.dialogs.fileRequests.size(), 1u);
    const forms::FileRequest& request = stage.dialogs.fileRequests[0];
    EXPECT_EQ(request.flags, 4100);
    EXPECT_EQ(request.filter, "数据库文件 (*.MDB)|*.mdb");
    EXPECT_EQ(request.initialFile, stage.Path("t.db"));
    EXPECT_EQ(request.title, "打开文件");
    EXPECT_EQ(window.options.txtAccess.Text(), stage.Path("b.db"));
    EXPECT_EQ(stage.session.state.UserPath, stage.Path("b.db"));
}

TEST_F(Options, ADialogThatIsCancelledChangesNothing) {
    const int before = stage.opener.openings;
    stage.user.Click(window.options.cmdAccess);
    EXPECT_EQ(window.options.txtAccess.Text(), stage.Path("t.db"));
    EXPECT_EQ(stage.opener.openings, before);
}

TEST_F(Options, OtherKindsOfFilesMayBeCreated) {
    EXPECT_EQ(window.getFilePath(0, "f", "n", "t", "d"), "");
    EXPECT_EQ(stage.dialogs.fileRequests.at(0).flags, 10244);
}

TEST_F(Options, StartupIsSavedAtOnce) {
    stage.user.Click(window.options.chkStartup);
    EXPECT_EQ(Setting("Startup"), "0");
    stage.user.Click(window.options.chkStartup);
    EXPECT_EQ(Setting("Startup"), "1");
}

TEST_F(Options, StartupBirthdaySavesTheDaysOrFive) {
    window.birthdays.txtBirthDay0.SetText("0");
    stage.user.Click(window.options.chkBirthDay);
    EXPECT_EQ(Setting("StartupBirthDay"), "5");
    stage.user.Click(window.options.chkBirthDay);
    EXPECT_EQ(Setting("StartupBirthDay"), "0");
    window.birthdays.txtBirthDay0.SetText("12");
    stage.user.Click(window.options.chkBirthDay);
    EXPECT_EQ(Setting("StartupBirthDay"), "12");
}

TEST_F(Options, OddDayCountsAreSavedAsTheirNumberOrNotAtAll) {
    const auto tick = [&](const std::string& days) {
        window.options.chkBirthDay.SetValue(0);
        window.birthdays.txtBirthDay0.SetText(days);
        stage.user.Click(window.options.chkBirthDay);
        return Setting("StartupBirthDay");
    };
    EXPECT_EQ(tick("-1"), "-1");
    EXPECT_EQ(tick("abc"), "5");
    EXPECT_EQ(tick(""), "5");
    EXPECT_EQ(tick("3.0"), "3");
    EXPECT_EQ(tick("2.5"), "2");
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_EQ(tick("99999"), "0");
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|数值溢出"});
}

TEST_F(Options, TheIntervalIsSavedOnlyWhenItIsSwitchedOff) {
    window.options.txtTimeSet.SetText("");
    stage.user.Click(window.options.chkTimeSet);
    EXPECT_EQ(window.options.txtTimeSet.Text(), "5");
    EXPECT_TRUE(window.options.txtTimeSet.HasFocus());
    EXPECT_EQ(Setting("TimeSetting"), "absent");
    stage.user.Click(window.options.chkTimeSet);
    EXPECT_EQ(window.options.txtTimeSet.Text(), "0");
    EXPECT_FALSE(window.options.txtTimeSet.Enabled());
    EXPECT_EQ(Setting("TimeSetting"), "0");
}

TEST_F(Options, TheIntervalBoxKeepsAWholeNumber) {
    stage.user.Click(window.options.chkTimeSet);
    const auto leave = [&](const std::string& text) {
        stage.user.Type(window.options.txtTimeSet, text);
        stage.user.Leave(window.options.txtTimeSet);
        return window.options.txtTimeSet.Text() +
               (window.options.Timer1.Running() ? " on" : " off");
    };
    EXPECT_EQ(leave("-7.5"), "8 off");
    EXPECT_EQ(leave("abc"), "0 on");
    stage.user.Tick(window.options.Timer1);
    EXPECT_FALSE(window.options.Timer1.Running());
    EXPECT_EQ(leave("2.5"), "2 off");
}

TEST_F(Options, TheIntervalBoxRoundsHalvesToEvenWithinSixteenBits) {
    stage.user.Click(window.options.chkTimeSet);
    const auto leave = [&](const std::string& text) {
        stage.user.Type(window.options.txtTimeSet, text);
        stage.user.Leave(window.options.txtTimeSet);
        return window.options.txtTimeSet.Text();
    };
    EXPECT_EQ(leave("3.5"), "4");
    EXPECT_EQ(leave("-0.5"), "0");
    EXPECT_EQ(leave("32767.4"), "32767");
    EXPECT_TRUE(stage.dialogs.messages.empty());
    window.options.Timer1.SetRunning(false);
    const DateTime before = window.options.LastRead();
    stage.clock.Advance(60);
    EXPECT_EQ(leave("32767.5"), "32767.5");
    EXPECT_EQ(leave("-40000"), "-40000");
    EXPECT_EQ(stage.dialogs.messages, (Lines{"16|数值溢出", "16|数值溢出"}));
    EXPECT_FALSE(window.options.Timer1.Running());
    EXPECT_EQ(window.options.LastRead(), before);
    EXPECT_EQ(Setting("TimeSetting"), "absent");
}

TEST_F(Options, TheIntervalBoxSelectsItsTextAndEnterMovesOn) {
    stage.user.Click(window.options.chkTimeSet);
    stage.user.Type(window.options.txtTimeSet, "120");
    stage.user.Key(window.options.txtTimeSet, forms::key::kEnter);
    EXPECT_FALSE(window.options.txtTimeSet.HasFocus());
    window.options.txtTimeSet.SetFocus();
    EXPECT_EQ(window.options.txtTimeSet.SelLength(), 3);
}

TEST_F(Options, LeavingTheIntervalAtZeroStampsTheReadTime) {
    stage.user.Click(window.options.chkTimeSet);
    stage.user.Type(window.options.txtTimeSet, "abc");
    stage.clock.Advance(60);
    stage.user.Leave(window.options.txtTimeSet);
    EXPECT_EQ(window.options.LastRead(), stage.clock.Now());
}

TEST_F(Options, ATickStampsTheReadTimeWithinTheInterval) {
    window.options.txtTimeSet.SetText("0");
    window.options.txtTimeSet_LostFocus();
    ASSERT_EQ(window.options.LastRead(), stage.clock.Now());
    window.options.txtTimeSet.SetText("5");
    ASSERT_TRUE(window.options.Timer1.Running());
    stage.clock.Advance(5 * 60);
    stage.user.Tick(window.options.Timer1);
    EXPECT_EQ(window.options.LastRead(), stage.clock.Now());
    const DateTime stamped = stage.clock.Now();
    stage.clock.Advance(6 * 60);
    stage.user.Tick(window.options.Timer1);
    EXPECT_EQ(window.options.LastRead(), stamped);
    EXPECT_TRUE(window.options.Timer1.Running());
}

TEST_F(Options, AnUnfitTextOfTheFilterLeavesNothingOfTheFormerStore) {
    AddItem(kTask, "甲");
    ShowTab(kFilterTab);
    stage.user.Click(window.commands.cmdSeek);
    ASSERT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
    ClickNode("Z1");
    store::CreateSqliteDatabase(stage.Path("b.db"));
    window.filter.txtTitle0.SetText("x'");
    ShowTab(kOptionsTab);
    stage.user.Type(window.options.txtAccess, stage.Path("b.db"));
    stage.user.Leave(window.options.txtAccess);
    // The user who chose the store sees a message, and is led to the text.
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_EQ(window.SSTab1.Tab(), kFilterTab);
    EXPECT_EQ(stage.NodeKeys(), "");
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_FALSE(window.commands.cmdPrint.Enabled());
}

}  // namespace
}  // namespace zv::windows
