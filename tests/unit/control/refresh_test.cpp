#include <gtest/gtest.h>

#include "application/test_application.h"
#include "windows/completion/frm_task_done.h"
#include "windows/plan_editor/frm_task_set.h"
#include "windows/staff/frm_list.h"

namespace zv {
namespace {

using Messages = std::vector<std::string>;

constexpr int kTypeMismatch = static_cast<int>(ErrorNumber::TypeMismatch);
constexpr int kOverflow = static_cast<int>(ErrorNumber::Overflow);

class Refresh : public testing::Test {
 protected:
    const windows::frmTaskDone* CompletionDialog() {
        using windows::frmTaskDone;
        return stage.windows.Find<frmTaskDone>(frmTaskDone::kName);
    }
    void AddDueItem() {
        stage.Sql(
            "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone) values"
            "(0,'报表','2003-03-07 00:00:00','2003-03-05 00:00:00','2003-03-07 00:00:00',0)");
    }
    test::TestApplication stage;
};

TEST_F(Refresh, AnAlertPassWithFewerThanFourNodesShowsNothing) {
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(stage.Window(), nullptr);
    EXPECT_FALSE(stage.session.database.IsOpen());
}

TEST_F(Refresh, AnAlertPassWithFourNodesShowsTheWindow) {
    AddDueItem();
    EXPECT_EQ(stage.Refresh(0), 0);
    ASSERT_NE(stage.Window(), nullptr);
    EXPECT_TRUE(stage.Window()->IsShown());
    EXPECT_EQ(stage.Window()->Caption(), "任务报警器");
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
}

TEST_F(Refresh, AnAlertPassSendsOnlyTheListQuery) {
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(stage.statements.Take(),
              Messages{"select distinct a.fID,a.fType,a.taskTime,a.taskTitle,a.tDone,a.taskID from "
                       "tTaskList a  Where 1=1 And a.tDuring1<=#03/07/2003# and "
                       "a.tDuring2>=#03/07/2003# And a.tDone<>1 Order by a.fType,a.taskTime "
                       "desc,a.taskTitle"});
}

TEST_F(Refresh, ATaskInHandRaisesAnAlert) {
    AddDueItem();
    stage.Sql("update tTaskList set tDone=2");
    EXPECT_EQ(stage.Refresh(0), 0);
    ASSERT_NE(stage.Window(), nullptr);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
}

TEST_F(Refresh, AWindowLeftOpenOvernightShowsTheNewDay) {
    for (const std::int32_t mode : {0, 1, 9}) {
        stage.clock.Set(DateTime(2003, 3, 7, 9, 30));
        AddDueItem();
        EXPECT_EQ(stage.Refresh(mode), 0);
        stage.clock.Set(DateTime(2003, 3, 8, 7, 0));
        stage.statements.Take();
        EXPECT_EQ(stage.Refresh(mode), 0);
        const Messages sent = stage.statements.Take();
        ASSERT_EQ(sent.size(), 1u) << mode;
        EXPECT_NE(sent[0].find(" and a.tDuring2>=#03/08/2003#"), std::string::npos) << sent[0];
        EXPECT_EQ(stage.Window()->birthdays.lblBirthDay.Caption(), "2003-03-08") << mode;
        // On the same day nothing is filled again but by an alert pass.
        EXPECT_EQ(stage.Refresh(mode), 0);
        EXPECT_EQ(stage.statements.Take().size(), mode == 0 ? 1u : 0u);
        stage.Window()->Unload();
    }
}

TEST_F(Refresh, ANewDayThatCannotBeShownIsTriedAgain) {
    EXPECT_EQ(stage.Refresh(1), 0);
    stage.clock.Set(DateTime(2003, 3, 8, 7, 0));
    stage.statements.failing = "tTaskList";
    EXPECT_NE(stage.Refresh(1), 0);
    EXPECT_EQ(stage.Window()->filter.DTPicker0.Value(), DateTime(2003, 3, 7));
    stage.statements.failing.clear();
    AddDueItem();
    stage.Sql(
        "update tTaskList set taskTime='2003-03-08 00:00:00',tDuring1='2003-03-08 00:00:00',"
        "tDuring2='2003-03-08 00:00:00'");
    EXPECT_EQ(stage.Refresh(1), 0);
    EXPECT_EQ(stage.Window()->filter.DTPicker0.Value(), DateTime(2003, 3, 8));
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
}

TEST_F(Refresh, TheNewDayWaitsForAnEditToEnd) {
    EXPECT_EQ(stage.Refresh(1), 0);
    stage.Window()->model.editMode = windows::EditMode::Adding;
    stage.clock.Set(DateTime(2003, 3, 8, 7, 0));
    stage.statements.Take();
    EXPECT_EQ(stage.Refresh(1), 0);
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Refresh, ATaskThatIsDoneRaisesNoAlert) {
    AddDueItem();
    stage.Sql("update tTaskList set tDone=1");
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(stage.Window(), nullptr);
}

TEST_F(Refresh, AnIntervalOfOneForcesTheAlertModeless) {
    AddDueItem();
    stage.settings.values["zvTask.TimeSetting"] = "1";
    EXPECT_EQ(stage.Refresh(0, 1), 0);
    EXPECT_FALSE(stage.Window()->IsModal());
    EXPECT_EQ(stage.session.state.showMode, 0);
}

TEST_F(Refresh, AnIntervalOfOneLeavesTheManagerModal) {
    stage.settings.values["zvTask.TimeSetting"] = "1";
    bool modal = false;
    stage.backend.modalLoop = [&](forms::Form& form) {
        modal = form.IsModal();
        form.UserClose();
    };
    EXPECT_EQ(stage.Refresh(1, 1), 0);
    EXPECT_TRUE(modal);
    EXPECT_EQ(stage.Window(), nullptr);
}

TEST_F(Refresh, AnAlertIsModalWhenTheHostAsksForIt) {
    AddDueItem();
    bool modal = false;
    stage.backend.modalLoop = [&](forms::Form& form) {
        modal = form.IsModal();
        form.UserClose();
    };
    EXPECT_EQ(stage.Refresh(0, 1), 0);
    EXPECT_TRUE(modal);
}

TEST_F(Refresh, WithoutAnyPathItReturnsAtOnce) {
    stage.session.state.UserPath = {};
    for (const int mode : {0, 1, 2, 4, 9}) EXPECT_EQ(stage.Refresh(mode), 0);
    EXPECT_EQ(stage.opener.openings, 0);
    EXPECT_EQ(stage.Window(), nullptr);
}

TEST_F(Refresh, ADataPathThatExistsReplacesTheUserPath) {
    stage.session.state.UserPath = "nowhere";
    stage.settings.values["zvTask.DataPath"] = stage.Path("t.db");
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(stage.session.state.UserPath, stage.Path("t.db"));
}

TEST_F(Refresh, ADataPathThatIsMissingIsIgnoredSilently) {
    stage.settings.values["zvTask.DataPath"] = stage.Path("missing.mdb");
    EXPECT_EQ(stage.Refresh(8), 0);
    EXPECT_EQ(stage.session.state.UserPath, stage.Path("t.db"));
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(Refresh, OtherModesOnlyReadSettingsAndConnect) {
    for (const std::int32_t mode : {8, 10, 12, 40000, -1}) {
        stage.session.database.Close();
        EXPECT_EQ(stage.Refresh(mode), 0);
        EXPECT_TRUE(stage.session.database.IsOpen());
        EXPECT_TRUE(stage.statements.Take().empty());
        EXPECT_TRUE(stage.windows.Windows().empty());
    }
}

TEST_F(Refresh, ASettingThatIsNoNumberIsATypeMismatch) {
    stage.settings.values["zvTask.TimeSetting"] = "often";
    EXPECT_EQ(stage.Refresh(8), kTypeMismatch);
    EXPECT_EQ(stage.Refresh(1), kTypeMismatch);
    EXPECT_EQ(stage.Window(), nullptr);
}

TEST_F(Refresh, ByATimerWhileItsRefusalStandsShowsNoSecondBox) {
    stage.session.state.UserPath = stage.Path("missing.db");
    int depth = 0;
    int inner = 0;
    stage.dialogs.whileStanding = [&](const std::string&) {
        if (++depth < 20) inner = stage.Refresh(0);
    };
    const int outer = stage.Refresh(0);
    EXPECT_NE(outer, 0);
    EXPECT_EQ(inner, outer);
    EXPECT_NE(stage.errorText.find("missing.db"), std::string::npos);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    stage.dialogs.whileStanding = nullptr;
    EXPECT_EQ(stage.Refresh(0), outer);
    EXPECT_EQ(stage.dialogs.messages.size(), 2u);
}

TEST_F(Refresh, ByATimerWhileTheFillsFailureStandsShowsNoSecondBox) {
    EXPECT_EQ(stage.Refresh(1), 0);
    AddDueItem();
    stage.Sql("update tTaskList set fType=9");
    int inner = 0;
    int depth = 0;
    stage.dialogs.whileStanding = [&](const std::string&) {
        if (++depth < 20) inner = stage.Refresh(0);
    };
    stage.user.Click(stage.Window()->commands.cmdSeek);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_EQ(inner, static_cast<int>(ErrorNumber::ModalFormShown));
}

TEST_F(Refresh, ByATimerWhileItsQuestionStandsAsksNothingMore) {
    stage.Sql("insert into tTaskSet(TaskID,taskTitle,Type,TypeValue) values(5,'a',1,0)");
    stage.session.state.myTaskID = 5;
    stage.session.state.myDate = 37687;
    stage.dialogs.answers = {forms::Answer::Ok};
    int inner = 0;
    int depth = 0;
    stage.dialogs.whileStanding = [&](const std::string&) {
        if (++depth == 1) inner = stage.Refresh(6);
    };
    EXPECT_EQ(stage.Refresh(6), 0);
    EXPECT_EQ(inner, static_cast<int>(ErrorNumber::ModalFormShown));
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_EQ(stage.Query("select count(*) from tTaskList"), "1");
}

TEST_F(Refresh, ModeTwoOpensThePlanEditorForANewPlan) {
    EXPECT_EQ(stage.Refresh(2), 0);
    auto* editor = stage.windows.Find<windows::frmTaskSet>(windows::frmTaskSet::kName);
    ASSERT_NE(editor, nullptr);
    EXPECT_TRUE(editor->IsShown());
    EXPECT_FALSE(editor->IsModal());
    EXPECT_EQ(editor->txtTaskID.Text(), "1");
}

TEST_F(Refresh, ModeThreeOpensTheStaffListWithActionFour) {
    EXPECT_EQ(stage.Refresh(3), 0);
    auto* list = stage.windows.Find<windows::frmList>(windows::frmList::kName);
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(list->IsShown());
    EXPECT_EQ(list->Action, 4);
}

TEST_F(Refresh, ModesSixAndSevenAddTheItemOfAPlan) {
    stage.Sql("insert into tTaskSet(TaskID,taskTitle,Type,TypeValue) values(5,'a',1,0)");
    stage.session.state.myTaskID = 5;
    for (const std::int32_t mode : {6, 7}) {
        stage.Sql("delete from tTaskList");
        stage.session.state.myDate = DateTime(2003, 3, 10).ToAutomation();
        EXPECT_EQ(stage.Refresh(mode), 0);
        EXPECT_EQ(stage.Query("select TaskID||taskTime from tTaskList"), "52003-03-10 00:00:00");
    }
}

TEST_F(Refresh, ModeSixWithoutThePlanOnlyWarns) {
    stage.session.state.myTaskID = 9;
    EXPECT_EQ(stage.Refresh(6), 0);
    EXPECT_EQ(stage.dialogs.messages, Messages{"48|任务号 [9] 已不存在!"});
    EXPECT_TRUE(stage.windows.Windows().empty());
}

TEST_F(Refresh, ModeSevenAsksWhenNoItemWasAdded) {
    stage.session.state.myTaskID = 9;
    EXPECT_EQ(stage.Refresh(7), 0);
    const auto* dialog = CompletionDialog();
    ASSERT_TRUE(dialog);
    EXPECT_FALSE(dialog->Completes());
}

TEST_F(Refresh, ModeSixOverflowsBeyondSixteenBitsAndTheCalendar) {
    stage.session.state.myTaskID = 32768;
    EXPECT_EQ(stage.Refresh(6), kOverflow);
    stage.session.state.myTaskID = 5;
    for (const double date : {1e300, -1e300, 2958466.0, -657435.0}) {
        stage.session.state.myDate = date;
        EXPECT_EQ(stage.Refresh(6), kOverflow) << date;
    }
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Refresh, ModeFourMarksTheItem) {
    AddDueItem();
    stage.session.state.myTaskID = 1;
    stage.session.state.myDate = 1.4;
    EXPECT_EQ(stage.Refresh(4), 0);
    EXPECT_EQ(stage.statements.Take(),
              Messages{"Update tTaskList Set tDone=1,tDoneMan = '张三' where fID =1"});
    EXPECT_EQ(stage.Query("select tDone||tDoneMan from tTaskList"), "1张三");
}

TEST_F(Refresh, ModeFourRoundsTheFlagHalvesToEven) {
    stage.session.state.myTaskID = 1;
    stage.session.state.myDate = 2.5;
    EXPECT_EQ(stage.Refresh(4), 0);
    EXPECT_EQ(stage.statements.Take(),
              Messages{"Update tTaskList Set tDone=2,tDoneMan = '张三' where fID =1"});
}

TEST_F(Refresh, ModeFourReadsADateThatWasNeverSetAsZero) {
    stage.session.state.myTaskID = 3;
    EXPECT_EQ(stage.Refresh(4), 0);
    EXPECT_EQ(stage.statements.Take(),
              Messages{"Update tTaskList Set tDone=0,tDoneMan = '张三' where fID =3"});
}

TEST_F(Refresh, ModeFourWithoutAnItemSendsNothing) {
    EXPECT_EQ(stage.Refresh(4), 0);
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Refresh, ModeFourOverflowsBeyondSixteenBits) {
    stage.session.state.myTaskID = 32768;
    EXPECT_EQ(stage.Refresh(4), kOverflow);
    stage.session.state.myTaskID = 1;
    stage.session.state.myDate = 37000;
    EXPECT_EQ(stage.Refresh(4), kOverflow);
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Refresh, ModeFiveMarksOrAsks) {
    stage.session.state.myTaskID = 1;
    EXPECT_EQ(stage.Refresh(5), 0);
    stage.session.state.myTaskID = 0;
    EXPECT_FALSE(CompletionDialog());
    EXPECT_EQ(stage.Refresh(5), 0);
    const auto* dialog = CompletionDialog();
    ASSERT_TRUE(dialog);
    EXPECT_TRUE(dialog->Completes());
}

TEST_F(Refresh, ModeFiveAsksWhateverTheDateIs) {
    stage.session.state.myDate = 37000;
    EXPECT_EQ(stage.Refresh(5), 0);
    EXPECT_TRUE(CompletionDialog());
}

TEST_F(Refresh, AUserNameWithAnApostropheMarksThroughTheRow) {
    AddDueItem();
    stage.session.state.UserName = "O'Brien";
    stage.session.state.myTaskID = 1;
    stage.session.state.myDate = 1;
    EXPECT_EQ(stage.Refresh(4), 0);
    EXPECT_EQ(stage.statements.Take(), Messages{"select * from tTaskList where fID=1"});
    EXPECT_EQ(stage.Rows("select tDone,tDoneMan from tTaskList"), "1|O'Brien");
}

TEST_F(Refresh, AStoreThatCannotBeOpenedIsShownOnceAndIsAnErrorForTheHost) {
    stage.session.state.UserPath = stage.Path("没有 这个.mdb");
    EXPECT_NE(stage.Refresh(1), 0);
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_TRUE(stage.dialogs.messages[0].starts_with("48|"));
    EXPECT_NE(stage.dialogs.messages[0].find("没有 这个.mdb"), std::string::npos);
    EXPECT_NE(stage.errorText.find("没有 这个.mdb"), std::string::npos);
    EXPECT_TRUE(stage.windows.Windows().empty());
}

TEST_F(Refresh, AFailedOpeningLeavesAWindowThatExists) {
    EXPECT_EQ(stage.Refresh(1), 0);
    stage.session.database.Close();
    stage.session.state.UserPath = stage.Path("missing.mdb");
    EXPECT_NE(stage.Refresh(1), 0);
    ASSERT_NE(stage.Window(), nullptr);
    EXPECT_TRUE(stage.Window()->IsShown());
}

TEST_F(Refresh, AMissingTableReachesTheHostAndLeavesNoWindow) {
    stage.Sql("drop table tTaskList");
    EXPECT_NE(stage.Refresh(1), 0);
    EXPECT_EQ(stage.Window(), nullptr);
    EXPECT_NE(stage.Refresh(0), 0);
    EXPECT_EQ(stage.Window(), nullptr);
}

TEST_F(Refresh, ALanguageWithoutTextsIsAnErrorForTheHost) {
    stage.session.state.Language = 3;
    EXPECT_EQ(stage.Refresh(1), static_cast<int>(ErrorNumber::ResourceNotFound));
    stage.session.state.Language = 4;
    EXPECT_EQ(stage.Refresh(1), kOverflow);
    EXPECT_EQ(stage.Window(), nullptr);
}

TEST_F(Refresh, TheManagerComesToTheFrontInsteadOfOpeningTwice) {
    EXPECT_EQ(stage.Refresh(1), 0);
    stage.Window()->filter.txtTitle0.SetText("kept");
    stage.statements.Take();
    EXPECT_EQ(stage.Refresh(1), 0);
    EXPECT_EQ(stage.windows.Windows().size(), 1u);
    EXPECT_EQ(stage.Window()->filter.txtTitle0.Text(), "kept");
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(stage.Refresh(1, 1), static_cast<int>(ErrorNumber::FormAlreadyShown));
}

TEST_F(Refresh, AnAlertPassRefillsAWindowThatIsOpenAndNeverClosesIt) {
    EXPECT_EQ(stage.Refresh(1), 0);
    EXPECT_EQ(stage.NodeKeys(), "A1 B2 C3");
    AddDueItem();
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
    EXPECT_EQ(stage.Window()->Caption(), "任务管理器");
    stage.Sql("delete from tTaskList");
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(stage.NodeKeys(), "A1 B2 C3");
    EXPECT_TRUE(stage.Window()->IsShown());
}

TEST_F(Refresh, AnAlertPassLeavesAnEditAlone) {
    EXPECT_EQ(stage.Refresh(1), 0);
    stage.Window()->model.editMode = windows::EditMode::Adding;
    AddDueItem();
    stage.statements.Take();
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(stage.NodeKeys(), "A1 B2 C3");
}

TEST_F(Refresh, TheManagerTakesOverAnAlertWindow) {
    AddDueItem();
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_EQ(stage.Refresh(1), 0);
    EXPECT_EQ(stage.windows.Windows().size(), 1u);
    EXPECT_EQ(stage.Window()->Caption(), "任务管理器");
    EXPECT_EQ(stage.Window()->filter.cboState.ListIndex(), Row(items::Filter::States::All));
}

TEST_F(Refresh, AnAlertPassWithNothingDueLeavesEditorAndConnection) {
    EXPECT_EQ(stage.Refresh(2), 0);
    EXPECT_EQ(stage.Refresh(0), 0);
    ASSERT_EQ(stage.windows.Windows().size(), 1u);
    EXPECT_TRUE(stage.windows.Find(windows::frmTaskSet::kName)->IsShown());
    EXPECT_TRUE(stage.session.database.IsOpen());
}

TEST_F(Refresh, AnAlertPassTakesNoWindowForTheUsersThatWasNeverShown) {
    using windows::frmTaskMain;
    auto& hidden = stage.windows.Create<frmTaskMain>(stage.session);
    hidden.TaskAlert(1);
    hidden.Load();
    EXPECT_EQ(stage.Refresh(0), 0);
    EXPECT_TRUE(stage.windows.Windows().empty());
    AddDueItem();
    stage.windows.Create<frmTaskMain>(stage.session);
    EXPECT_EQ(stage.Refresh(0), 0);
    ASSERT_EQ(stage.windows.Windows().size(), 1u);
    EXPECT_TRUE(stage.Window()->IsShown());
    EXPECT_EQ(stage.Window()->Caption(), "任务报警器");
}

TEST_F(Refresh, AnAlertPassDuringTheLoadingOfAnotherDoesNothing) {
    AddDueItem();
    stage.Sql("update tTaskList set fType=7");
    int inside = -1;
    stage.dialogs.whileStanding = [&](const std::string&) { inside = stage.Refresh(0); };
    EXPECT_EQ(stage.Refresh(1), 0);
    EXPECT_EQ(inside, 0);
    ASSERT_EQ(stage.windows.Windows().size(), 1u);
    EXPECT_TRUE(stage.Window()->IsShown());
}

TEST_F(Refresh, CardModeLeavesAMaximisedWindowAsItIs) {
    EXPECT_EQ(stage.Refresh(9), 0);
    stage.Window()->SetState(forms::WindowState::Maximised);
    EXPECT_EQ(stage.Refresh(9), 0);
    EXPECT_EQ(stage.Window()->State(), forms::WindowState::Maximised);
}

TEST_F(Refresh, CardModeRestoresAMinimisedWindow) {
    EXPECT_EQ(stage.Refresh(9), 0);
    stage.Window()->SetState(forms::WindowState::Minimised);
    EXPECT_EQ(stage.Refresh(9), 0);
    EXPECT_EQ(stage.Window()->State(), forms::WindowState::Normal);
}

}  // namespace
}  // namespace zv
