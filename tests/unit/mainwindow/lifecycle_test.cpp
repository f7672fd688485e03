#include "main_window_fixture.h"

namespace zv::windows {
namespace {

class LifecycleTest : public MainWindow {
 protected:
    std::string Setting(const std::string& key) {
        const auto found = stage.settings.values.find(key);
        return found == stage.settings.values.end() ? "absent" : found->second;
    }
    void Store(const std::string& key, const std::string& text) {
        stage.settings.values[key] = text;
    }
};

TEST_F(LifecycleTest, TheManagerSendsTheListTheStaffAndTheCaptionsOnly) {
    EXPECT_EQ(stage.Refresh(1), 0);
    const auto sent = stage.statements.Take();
    ASSERT_EQ(sent.size(), 3u);
    EXPECT_TRUE(sent[0].starts_with("select distinct a.fID"));
    EXPECT_TRUE(sent[0].ends_with(" Order by a.fType,a.taskTime desc,a.taskTitle"));
    EXPECT_EQ(sent[1], "select fCode,fName from tRsBasic Order By fName");
    EXPECT_EQ(sent[2],
              "select FieldName,FieldName_0 from rptListDetail Where fTable='ttasklist' And "
              "FieldType>-1 Order by fieldID");
}

TEST_F(LifecycleTest, StartValuesOfTheFilter) {
    frmTaskMain& window = Open();
    EXPECT_EQ(window.filter.DTPicker0.Value(), DateTime(2003, 3, 7));
    EXPECT_EQ(window.filter.DTPicker1.Value(), DateTime(2003, 3, 8));
    for (int kind = 0; kind < 3; kind++) EXPECT_TRUE(window.filter.chkType[kind].Checked());
    EXPECT_EQ(window.filter.cboState.ListIndex(), Row(items::Filter::States::All));
    EXPECT_EQ(window.tree.cboOrder.ListIndex(), 0);
    EXPECT_EQ(window.SSTab1.Tab(), kItemTab);
    EXPECT_EQ(window.Caption(), "任务管理器");
    EXPECT_EQ(window.birthdays.lblBirthDay.Caption(), "2003-03-07");
}

TEST_F(LifecycleTest, AlertModeListsWhatIsNotDone) {
    for (int i = 0; i < 2; i++) AddItem(0, "x");
    frmTaskMain& window = Open(kAlertMode);
    EXPECT_EQ(window.filter.cboState.ListIndex(), Row(items::Filter::States::NotYetDone));
    EXPECT_EQ(window.filter.cboState.Text(), "未办结");
    EXPECT_EQ(window.filter.DTPicker0.Value(), DateTime(2003, 3, 7));
    EXPECT_FALSE(window.filter.DTPicker1.Value());
    EXPECT_EQ(window.Caption(), "任务报警器");
}

TEST_F(LifecycleTest, TheCardViewStartsWithItsOwnDayAlone) {
    frmTaskMain& window = Open(kCardMode);
    EXPECT_EQ(window.filter.DTPicker0.Value(), DateTime(2003, 3, 7));
    EXPECT_FALSE(window.filter.DTPicker1.Value());
    EXPECT_EQ(window.filter.cboState.ListIndex(), Row(items::Filter::States::All));
}

TEST_F(LifecycleTest, CaptionsFollowTheLanguage) {
    stage.session.state.Language = 1;
    frmTaskMain& window = Open();
    EXPECT_EQ(window.Caption(), "任務管理器");
    EXPECT_EQ(window.tree.chkEvent.Caption(), "管理事件");
    EXPECT_EQ(window.commands.menus.mnuEventDel.Caption(), "刪除事件");
    EXPECT_EQ(window.options.optAccess.Caption(), "桌面數据路徑");
    EXPECT_EQ(window.filter.chkType[0].Caption(), "任務");
}

TEST_F(LifecycleTest, CataloguedCaptions) {
    frmTaskMain& window = Open();
    EXPECT_EQ(window.commands.menus.mnuEventAdd.Caption(), "新增事件");
    EXPECT_EQ(window.commands.menus.mnuEventChg.Caption(), "修改事件");
    EXPECT_EQ(window.commands.menus.mnuEventDel.Caption(), "删除事件");
    EXPECT_TRUE(window.commands.cmdExit.Caption().ends_with("退出"));
    EXPECT_EQ(window.commands.menus.mnuPrintList.Caption(), "打印列表");
    EXPECT_EQ(window.options.chkStartup.Caption(), "自启动报警器");
    EXPECT_EQ(window.options.chkTimeSet.Caption(), "读取网络任务时间间隔");
}

TEST_F(LifecycleTest, LoadingRestoresTheSettingsAndWritesNone) {
    Store("zvTask.Startup", "0");
    Store("zvTask.StartupBirthDay", "9");
    Store("zvTask.TimeSetting", "15");
    Store("zvTask.JbrName", "1");
    Store("zv2000.JbrFrom", "1");
    stage.Sql("insert into cards(Name,Birthday) values('a','1970-03-09 00:00:00')");
    const auto before = stage.settings.values;
    frmTaskMain& window = Open();
    EXPECT_FALSE(window.options.chkStartup.Checked());
    EXPECT_TRUE(window.options.chkBirthDay.Checked());
    EXPECT_EQ(window.birthdays.txtBirthDay0.Text(), "9");
    EXPECT_TRUE(window.options.chkTimeSet.Checked());
    EXPECT_EQ(window.options.txtTimeSet.Text(), "15");
    EXPECT_TRUE(window.options.txtTimeSet.Enabled());
    EXPECT_TRUE(window.filter.chkJbr.Checked());
    EXPECT_EQ(window.filter.txtJBR0.Text(), "张三");
    EXPECT_TRUE(window.options.optJBR[1].Value());
    EXPECT_TRUE(window.birthdays.chkBirthDay0.Checked());
    EXPECT_EQ(stage.settings.values, before);
}

TEST_F(LifecycleTest, AbsentSettingsTakeTheirDefaults) {
    frmTaskMain& window = Open();
    EXPECT_TRUE(window.options.chkStartup.Checked());
    EXPECT_FALSE(window.options.chkBirthDay.Checked());
    EXPECT_EQ(window.birthdays.txtBirthDay0.Text(), "5");
    EXPECT_FALSE(window.options.chkTimeSet.Checked());
    EXPECT_EQ(window.options.txtTimeSet.Text(), "0");
    EXPECT_FALSE(window.options.txtTimeSet.Enabled());
    EXPECT_TRUE(window.options.optJBR[0].Value());
    EXPECT_TRUE(stage.settings.values.empty());
}

TEST_F(LifecycleTest, AStaffSourceOfTwoChecksNoButton) {
    Store("zv2000.JbrFrom", "2");
    frmTaskMain& window = Open();
    EXPECT_FALSE(window.options.optJBR[0].Value());
    EXPECT_FALSE(window.options.optJBR[1].Value());
    EXPECT_EQ(window.item.cboJbr2.ListCount(), 0);
}

TEST_F(LifecycleTest, ASettingThatIsNoNumberReachesTheHost) {
    for (const std::string key : {"zvTask.Startup", "zvTask.StartupBirthDay", "zvTask.JbrName",
                                  "zvTask.TimeSetting", "zv2000.JbrFrom"}) {
        stage.settings.values = {{key, "yes"}};
        EXPECT_EQ(stage.Refresh(1), static_cast<int>(ErrorNumber::TypeMismatch)) << key;
        EXPECT_EQ(stage.Window(), nullptr);
    }
}

TEST_F(LifecycleTest, AnotherPersonInChargeLimitsTheSearch) {
    Store("zvTask.JbrName", "1");
    for (int i = 0; i < 2; i++) AddItem(0, "x");
    stage.Sql("update tTaskList set tDoneMan='张三'");
    EXPECT_FALSE(Open(kAlertMode).commands.menus.mnuSeek2.Enabled());
    stage.windows.UnloadAll();
    EXPECT_TRUE(Open(kManagerMode).commands.menus.mnuSeek2.Enabled());
    stage.windows.UnloadAll();
    stage.session.state.ZgName = "张三";
    EXPECT_TRUE(Open(kAlertMode).commands.menus.mnuSeek2.Enabled());
    stage.windows.UnloadAll();
    stage.session.state.ZgName = "李四";
    Store("zvTask.JbrName", "0");
    EXPECT_TRUE(Open(kAlertMode).commands.menus.mnuSeek2.Enabled());
}

TEST_F(LifecycleTest, LeavingByTheButtonSavesWhatChanged) {
    frmTaskMain& window = Open();
    ShowTab(kFilterTab);
    stage.user.Click(window.filter.chkUser);
    stage.user.Click(window.commands.cmdExit);
    EXPECT_EQ(Setting("zvTask.DlrName"), "1");
    EXPECT_EQ(Setting("zvTask.JbrName"), "absent");
    EXPECT_EQ(Setting("zvTask.DataPath"), "absent");
    EXPECT_EQ(stage.Window(), nullptr);
}

TEST_F(LifecycleTest, LeavingFromTheOptionsSavesThePath) {
    frmTaskMain& window = Open();
    ShowTab(kOptionsTab);
    stage.user.Click(window.commands.cmdExit);
    EXPECT_EQ(Setting("zvTask.DataPath"), stage.Path("t.db"));
}

TEST_F(LifecycleTest, ClosingByTheFrameSavesNothing) {
    frmTaskMain& window = Open();
    ShowTab(kFilterTab);
    stage.user.Click(window.filter.chkJbr);
    ShowTab(kOptionsTab);
    stage.user.Close(window);
    EXPECT_EQ(stage.Window(), nullptr);
    EXPECT_TRUE(stage.settings.values.empty());
}

TEST_F(LifecycleTest, EscapeLeavesLikeTheButton) {
    frmTaskMain& window = Open();
    stage.user.Key(window.tree.tvwTask, forms::key::kEscape);
    EXPECT_EQ(stage.Window(), nullptr);
}

TEST_F(LifecycleTest, TheEndClosesTheStoreAndTheOtherWindows) {
    frmTaskMain& window = Open();
    stage.windows.Create<forms::Form>("frmOther").Show(false);
    EXPECT_TRUE(stage.session.database.IsOpen());
    stage.user.Close(window);
    EXPECT_FALSE(stage.session.database.IsOpen());
    EXPECT_TRUE(stage.windows.Windows().empty());
}

TEST_F(LifecycleTest, AWindowThatCannotLoadClosesTheStore) {
    stage.statements.failing = "tTaskList";
    EXPECT_NE(stage.Refresh(1), 0);
    EXPECT_FALSE(stage.session.database.IsOpen());
}

TEST_F(LifecycleTest, StaffNamesAreOffered) {
    stage.Sql(
        "insert into tRsBasic(fCode,fName) values('2','乙'),('1','甲');"
        "insert into Employees(employcode,employee) values('9','丙')");
    frmTaskMain& window = Open();
    EXPECT_EQ(window.item.cboJbr2.ListCount(), 2);
    ShowTab(kOptionsTab);
    stage.user.Click(window.options.optJBR[1]);
    EXPECT_EQ(Setting("zv2000.JbrFrom"), "1");
    EXPECT_EQ(stage.statements.Take(), Lines{"select * from employees order by employcode"});
    ASSERT_EQ(window.item.cboJbr2.ListCount(), 1);
    EXPECT_EQ(window.item.cboJbr2.List(0), "丙");
    stage.user.Click(window.options.optJBR[0]);
    EXPECT_EQ(Setting("zv2000.JbrFrom"), "0");
}

TEST_F(LifecycleTest, AMissingStaffTableIsNoError) {
    stage.Sql("drop table tRsBasic");
    EXPECT_EQ(Open().item.cboJbr2.ListCount(), 0);
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

class Cards : public LifecycleTest {
 protected:
    Cards() {
        stage.session.state.myPower.assign(350, '1');
        stage.Sql(
            "insert into tSysFunc(SerialNo,model_Name) values(10,'mnuCardLimited'),"
            "(20,'mnuCardPlan');"
            "insert into cards(fID,CompName,BoxID) values(5,'甲公司',3),(6,'乙公司',4)");
    }
};

TEST_F(Cards, ShowGuestItemsAndTheCardPage) {
    frmTaskMain& window = Open(kCardMode);
    EXPECT_EQ(window.SSTab1.Tab(), kCardTab);
    EXPECT_FALSE(window.filter.chkType[0].Checked());
    EXPECT_TRUE(window.filter.chkType[1].Checked());
    EXPECT_FALSE(window.filter.chkType[2].Checked());
    EXPECT_EQ(stage.NodeKeys(), "B1");
    EXPECT_FALSE(window.filter.chkJbr.Checked());
    EXPECT_EQ(window.cards.cboComp2.ListCount(), 2);
    EXPECT_FALSE(window.birthdays.chkBirthDay0.Checked());
}

TEST_F(Cards, AMissingRightLimitsToOwnItems) {
    stage.session.state.myPower[9] = '0';
    frmTaskMain& window = Open(kCardMode);
    EXPECT_TRUE(window.filter.chkJbr.Checked());
    EXPECT_EQ(window.filter.txtJBR0.Text(), "张三");
    EXPECT_FALSE(window.commands.menus.mnuSeek2.Enabled());
    stage.user.Click(window.commands.cmdExit);
    EXPECT_EQ(Setting("zvTask.JbrName"), "absent");
}

TEST_F(Cards, TheHostsCompanyFiltersBothLists) {
    stage.session.state.myName = "甲";
    EXPECT_EQ(stage.Refresh(kCardMode), 0);
    EXPECT_EQ(stage.Window()->filter.txtComp.Text(), "甲");
    EXPECT_EQ(stage.Window()->cards.cboComp2.ListCount(), 1);
    const auto sent = stage.statements.Take();
    ASSERT_GE(sent.size(), 2u);
    EXPECT_NE(sent[1].find(" And b.CompName like '%甲%'"), std::string::npos);
}

TEST_F(Cards, AnAlertTypeShowsTheBoxAndTakesThePrintedList) {
    stage.session.state.AlertType = 4;
    frmTaskMain& window = Open(kCardMode);
    EXPECT_FALSE(window.commands.menus.mnuPrintList.Enabled());
    EXPECT_TRUE(window.item.lblCardMemo.Caption().ends_with("卡片盒 4"));
    EXPECT_EQ(window.cards.cboComp2.ListCount(), 1);
    EXPECT_EQ(stage.session.state.cardId, 6);
}

TEST_F(Cards, TheHostsCardIsOpenedWhereItMayBePlanned) {
    stage.session.state.myTaskID = 6;
    frmTaskMain& window = Open(kCardMode);
    EXPECT_EQ(stage.session.state.cardId, 6);
    EXPECT_EQ(window.cards.cboComp2.ListCount(), 1);
    EXPECT_TRUE(window.item.txtTitle2.HasFocus());
    stage.windows.UnloadAll();
    stage.session.state.myPower[20] = '0';
    EXPECT_EQ(Open(kCardMode).cards.cboComp2.ListCount(), 2);
}

TEST_F(Cards, TheHostsCardIsNotOpenedOverVisitsThatExist) {
    AddItem(1, "拜访");
    stage.session.state.myTaskID = 6;
    EXPECT_EQ(Open(kCardMode).cards.cboComp2.ListCount(), 2);
}

}  // namespace
}  // namespace zv::windows
