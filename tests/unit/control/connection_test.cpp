// The connection follows the properties: when refresh changes it, and when it must not.
#include <gtest/gtest.h>

#include "application/test_application.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"
#include "windows/completion/frm_task_done.h"
#include "windows/plan_editor/frm_task_set.h"
#include "windows/query/ask_window.h"

namespace zv {
namespace {

constexpr int kNotNow = static_cast<int>(ErrorNumber::FormAlreadyShown);

class Connection : public testing::Test {
 protected:
    Connection() {
        store::CreateSqliteDatabase(other);
        Add(stage.Path("t.db"), "here");
        Add(other, "beyond");
    }
    static void Run(const std::string& path, const std::string& sql) {
        store::SqliteOptions options;
        options.translate = false;
        store::OpenSqlite(path, options)->Execute(sql);
    }
    static void Add(const std::string& path, const std::string& title) {
        Run(path,
            "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) values(0,'" +
                title + "','2003-03-07 00:00:00','2003-03-07 00:00:00','2003-03-07 00:00:00',0)");
    }
    std::string Titles() { return stage.Nodes(); }
    bool Shows(const std::string& title) { return Titles().find(title) != std::string::npos; }
    std::string Using() const { return stage.session.database.OpenedWith()->dataPath.ForDriver(); }
    windows::frmTaskMain& Open() {
        EXPECT_EQ(stage.Refresh(1), 0) << stage.errorText;
        return *stage.Window();
    }

    test::TestApplication stage;
    const std::string other = stage.Path("o.db");
};

TEST_F(Connection, FollowsThePathAndFillsTheWindow) {
    Open();
    EXPECT_TRUE(Shows("here"));
    stage.control.SetUserPath(other);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_TRUE(Shows("beyond"));
    EXPECT_FALSE(Shows("here"));
    EXPECT_EQ(stage.Window()->options.txtAccess.Text(), other);
}

TEST_F(Connection, FollowsEachOfTheProperties) {
    Open();
    int expected = stage.opener.openings;
    const auto follows = [&] {
        EXPECT_EQ(stage.Refresh(8), 0);
        EXPECT_EQ(stage.opener.openings, ++expected);
        EXPECT_EQ(stage.Refresh(8), 0);
        EXPECT_EQ(stage.opener.openings, expected);
    };
    stage.session.state.Password = "p";
    follows();
    EXPECT_EQ(stage.opener.last.password.ForDriver(), "p");
    stage.session.state.UserID = "u";
    follows();
    stage.session.state.Default = "d";
    follows();
    stage.control.SetSQLData(1);
    follows();
    EXPECT_EQ(stage.session.database.DateDelimiter(), '\'');
}

TEST_F(Connection, OpensTheNewOneBeforeTheOldOneIsClosed) {
    Open();
    stage.control.SetUserPath(stage.Path("missing.db"));
    stage.control.SetSQLData(1);
    EXPECT_NE(stage.Refresh(0), 0);
    EXPECT_TRUE(stage.session.database.IsOpen());
    EXPECT_EQ(Using(), stage.Path("t.db"));
    EXPECT_EQ(stage.session.database.DateDelimiter(), '#');
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_TRUE(Shows("here"));
}

TEST_F(Connection, StaysWhileTheMainWindowIsEdited) {
    auto& window = Open();
    stage.session.state.myPower = std::string(350, '1');
    window.model.editMode = windows::EditMode::Adding;
    stage.control.SetUserPath(other);
    for (const int mode : {2, 3, 4, 5, 6, 7}) EXPECT_EQ(stage.Refresh(mode), kNotNow) << mode;
    EXPECT_FALSE(stage.errorText.empty());
    for (const int mode : {0, 1, 8, 9, 10}) EXPECT_EQ(stage.Refresh(mode), 0) << mode;
    EXPECT_EQ(Using(), stage.Path("t.db"));
    window.model.editMode = windows::EditMode::None;
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(Using(), other);
}

TEST_F(Connection, StaysWhileAPlanEditorOrACompletionDialogIsOpen) {
    EXPECT_EQ(stage.Refresh(2), 0);
    stage.control.SetUserPath(other);
    EXPECT_EQ(stage.Refresh(4), kNotNow);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(Using(), stage.Path("t.db"));
    stage.windows.UnloadAll();
    EXPECT_EQ(stage.Refresh(5), 0);
    EXPECT_EQ(Using(), other);
    ASSERT_NE(stage.windows.Find(windows::frmTaskDone::kName), nullptr);
    stage.control.SetUserPath(stage.Path("t.db"));
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(Using(), other);
}

TEST_F(Connection, StaysWhileSomethingModalStands) {
    std::vector<int> results;
    stage.backend.modalLoop = [&](forms::Form& form) {
        stage.control.SetUserPath(other);
        results = {stage.Refresh(4), stage.Refresh(0), stage.Refresh(8)};
        form.UserClose();
    };
    EXPECT_EQ(stage.Refresh(1, 1), 0);
    EXPECT_EQ(results, (std::vector<int>{kNotNow, 0, 0}));
    stage.control.SetUserPath(stage.Path("t.db"));
    stage.backend.modalLoop = nullptr;
    Open();
    stage.dialogs.whileStanding = [&](const std::string&) {
        stage.dialogs.whileStanding = nullptr;
        stage.control.SetUserPath(other);
        results = {stage.Refresh(6), stage.Refresh(8)};
    };
    stage.windows.FromUser([&] { stage.windows.ShowMessage("?", forms::box::kOkOnly); });
    EXPECT_EQ(results, (std::vector<int>{kNotNow, 0}));
    EXPECT_EQ(Using(), stage.Path("t.db"));
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(Using(), other);
}

TEST_F(Connection, WhenNothingDiffersNothingChanges) {
    Open();
    const int before = stage.opener.openings;
    stage.statements.Take();
    stage.control.SetUserPath(stage.Path("t.db"));
    stage.control.SetSQLData(0);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(stage.opener.openings, before);
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Connection, ThatRestsIsOpenedAgainWithTheSettingsItHad) {
    auto& window = Open();
    stage.session.database.Close();
    stage.control.SetUserPath(other);
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(Using(), stage.Path("t.db"));
    EXPECT_TRUE(Shows("here"));
}

TEST_F(Connection, EmptiesTheQueryWindowAndReadsItsCaptionsAnew) {
    Run(other,
        "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldType,fieldID) "
        "values('ttasklist','taskTitle','Topic',0,1)");
    auto& window = Open();
    windows::ShowAsk(stage.session, false, window.labels.Captions());
    auto& ask = *stage.windows.Find<windows::frmAsk>(windows::frmAsk::kName);
    stage.user.Click(ask.cmdAsk);
    EXPECT_EQ(ask.Grid1.DataRowCount(), 1);
    stage.control.SetUserPath(other);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(ask.Grid1.DataRowCount(), 0);
    EXPECT_EQ(ask.lblCount.Caption(), "");
    EXPECT_EQ(ask.Grid1.GetColumn(2).heading, "Topic");
    EXPECT_EQ(window.labels.Of(items::field::kTitle)->Caption(), "Topic");
}

TEST_F(Connection, AChangeLeavesNoCardOfTheFormerStore) {
    Open();
    stage.session.state.cardId = 7;
    stage.control.SetUserPath(other);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(stage.session.state.cardId, 0);
}

class Choice : public Connection {
 protected:
    Choice() { Choose(Open()); }
    void Choose(windows::frmTaskMain& window) {
        stage.user.SelectTab(window.SSTab1, windows::kOptionsTab);
        stage.user.Type(window.options.txtAccess, other);
        stage.user.Leave(window.options.txtAccess);
        EXPECT_EQ(Using(), other);
    }
};

TEST_F(Choice, OfAPathStaysWhileTheHostRepeatsItsOwn) {
    stage.control.SetUserPath(stage.Path("t.db"));
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(Using(), other);
    EXPECT_TRUE(Shows("beyond"));
}

TEST_F(Choice, OfAPathStandsAboveThatOfTheWorkstation) {
    stage.settings.values["zvTask.DataPath"] = stage.Path("t.db");
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(Using(), other);
}

TEST_F(Choice, EndsWhenTheHostSetsAnotherPath) {
    const std::string third = stage.Path("third.db");
    store::CreateSqliteDatabase(third);
    stage.control.SetUserPath(third);
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(Using(), third);
}

TEST_F(Choice, EndsWithTheWindow) {
    stage.user.Close(*stage.Window());
    EXPECT_EQ(stage.session.state.UserPath, stage.Path("t.db"));
    Open();
    EXPECT_EQ(Using(), stage.Path("t.db"));
}

TEST_F(Choice, OfAKindEndsWithTheWindowOrWithAnotherOfTheHost) {
    stage.user.Close(*stage.Window());
    stage.control.SetSQLData(1);
    auto& window = Open();
    stage.user.SelectTab(window.SSTab1, windows::kOptionsTab);
    stage.user.Click(window.options.optAccess);
    EXPECT_EQ(stage.session.state.SQLData, 0);
    EXPECT_EQ(stage.session.database.DateDelimiter(), '#');
    stage.control.SetSQLData(1);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(stage.session.state.SQLData, 0);
    stage.control.SetSQLData(2);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(stage.session.state.SQLData, 2);
    EXPECT_TRUE(window.options.optSQL.Value());
    EXPECT_EQ(stage.session.database.DateDelimiter(), '\'');
}

TEST_F(Connection, OfAServerLooksAtNoDataPathOfTheWorkstation) {
    stage.settings.values["zvTask.DataPath"] = other;
    stage.control.SetSQLData(1);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(Using(), stage.Path("t.db"));
    stage.control.SetSQLData(0);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(Using(), other);
    stage.control.SetSQLData(1);
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(Using(), stage.Path("t.db"));
}

TEST_F(Connection, ToAFileWhoseDriveIsAwayTurnsToNoOther) {
    stage.settings.values["zvTask.DataPath"] = other;
    Open();
    EXPECT_EQ(Using(), other);
    std::filesystem::remove(PathOf(other));
    stage.control.SetUserPath(stage.Path("t.db"));
    const int before = stage.opener.openings;
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(stage.opener.openings, before);
    stage.session.database.Close();
    EXPECT_NE(stage.Refresh(8), 0);
    EXPECT_EQ(Using(), other);
}

}  // namespace
}  // namespace zv
