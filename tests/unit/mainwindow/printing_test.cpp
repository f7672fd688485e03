#include "windows/main/acts/printing.h"

#include "main_window_fixture.h"
#include "windows/query/layout_chooser.h"

namespace zv::windows {
namespace {

class PrintingTest : public MainWindow {
 protected:
    using Printed = platform::scripted::ScriptedReports::Printed;

    const Printed& Last() {
        EXPECT_FALSE(stage.reports.printed.empty());
        static const Printed none;
        return stage.reports.printed.empty() ? none : stage.reports.printed.back();
    }
    /// The titles of the items that a printed list holds, in its order, joined by blanks.
    std::string ListedTitles() {
        std::string sql = "select taskTitle from tTaskList a ";
        const platform::ReportJob& job = Last().job;
        if (!job.filter.empty()) sql += "where " + job.filter;
        if (!job.order.empty()) sql += "Order By " + job.order;
        const auto rows = stage.session.database.Open(sql);
        std::string titles;
        for (; !rows->Eof(); rows->MoveNext()) {
            titles += (titles.empty() ? "" : " ") + rows->Field(0).ToText();
        }
        return titles;
    }
    std::string TreeTitles(const frmTaskMain& window) {
        std::string titles;
        for (int node = 0; node < window.tree.tvwTask.Count(); node++) {
            const std::string text(window.tree.tvwTask.Text(node));
            const auto tab = text.find('\t');
            if (tab == std::string::npos) continue;
            titles += (titles.empty() ? "" : " ") + text.substr(tab + 1);
        }
        return titles;
    }
    void AddBirthday() {
        stage.Sql(
            "insert into cards(fID,CompCode,name,compname,Birthday) values"
            "(5,'A1','王五','天地公司','1970-03-07 00:00:00')");
    }
};

TEST_F(PrintingTest, PrintItemHandsOverTheEditorsFieldsInTheirOrder) {
    stage.Sql(
        "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,tDone,tDoneMan,fContent,"
        "fOther0,fOther5) values(0,'报表','2003-03-07 10:30:00','2003-03-07 00:00:00',"
        "'2003-03-07 00:00:00',2,'李四','第一行','地点','末')");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.statements.Take();
    window.printing.PrintItem(1);
    EXPECT_EQ(stage.statements.Take(),
              Lines{"select top 1 * from tTaskList a Order By a.fType,a.taskTitle,a.taskTime"});
    const platform::ReportJob& job = Last().job;
    EXPECT_EQ(job.printMode, 1);
    EXPECT_EQ(job.reportName, "zvTask01");
    EXPECT_EQ(job.title, "Customer Report");
    EXPECT_EQ(job.filter, "");
    EXPECT_EQ(job.order, "a.fType,a.taskTitle,a.taskTime");
    EXPECT_TRUE(Last().hadRecordset);
    EXPECT_EQ(job.parameters,
              (Lines{"(主题)\tTaskTitle",    "报表",       "(执行人)\tTaskJbr",    "李四",
                     "(日期)\tTaskDate",     "2003-03-07", "(类型)\tTaskType",     "任务",
                     "(内容)\tTaskContent",  "第一行",     "(状况)\tTaskState",    "办理中",
                     "(备注 1)\tTaskOther0", "地点",       "(备注 2)\tTaskOther1", "",
                     "(备注 3)\tTaskOther2", "",           "(备注 4)\tTaskOther3", "",
                     "(备注 5)\tTaskOther4", "",           "(备注 6)\tTaskOther5", "末"}));
}

TEST_F(PrintingTest, PrintItemTakesTheTextsAsTheyStandInTheEditor) {
    AddItem(0, "报表");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Click(window.commands.cmdAction[2]);
    window.item.txtTitle2.SetText("还没有保存");
    window.printing.PrintItem(0);
    EXPECT_EQ(Last().job.parameters[1], "还没有保存");
}

TEST_F(PrintingTest, PrintItemTakesTheCaptionsOfTheDatabaseLetterByLetter) {
    AddItem(0, "报表");
    stage.Sql(
        "insert into rptListDetail(fTable,FieldName,FieldName_0) values"
        "('ttasklist','TASKTITLE','名称(&N)'),('ttasklist','fOther0','R&&D &')");
    frmTaskMain& window = Open();
    window.printing.PrintItem(0);
    EXPECT_EQ(Last().job.parameters[0], "(名称(&N))\tTaskTitle");
    EXPECT_EQ(Last().job.parameters[12], "(R&&D &)\tTaskOther0");
}

TEST_F(PrintingTest, PrintItemOfAWindowThatWasNeverShownHasTheCaptionsToo) {
    AddItem(0, "报表");
    stage.Sql(
        "insert into rptListDetail(fTable,FieldName,FieldName_0) values"
        "('ttasklist','taskTitle','名称')");
    auto& window = stage.windows.Create<frmTaskMain>(stage.session);
    window.Load();
    window.printing.PrintItem(0);
    EXPECT_EQ(Last().job.parameters[0], "(名称)\tTaskTitle");
}

TEST_F(PrintingTest, PrintItemInTraditionalCharacters) {
    AddItem(0, "报表");
    stage.session.state.Language = 1;
    frmTaskMain& window = Open();
    ClickNode("Z1");
    window.printing.PrintItem(0);
    EXPECT_EQ(Last().job.parameters[0], "(任務名)\tTaskTitle");
    EXPECT_EQ(Last().job.parameters[6], "(類型)\tTaskType");
    EXPECT_EQ(Last().job.title, "Customer Report");
    EXPECT_EQ(Last().job.language, 1);
}

TEST_F(PrintingTest, PrintItemStartsFromAnEmptyCollection) {
    AddItem(0, "报表");
    frmTaskMain& window = Open();
    stage.session.state.reportParameters = {"left", "over"};
    window.printing.PrintItem(0);
    window.printing.PrintItem(0);
    EXPECT_EQ(Last().job.parameters.size(), 24u);
    EXPECT_EQ(Last().job.parameters[0], "(主题)\tTaskTitle");
}

TEST_F(PrintingTest, WithoutAnyItemEvenTheItemPrintHasNothingToPrint) {
    frmTaskMain& window = Open();
    stage.user.Choose(window.commands.menus.mnuPrintItem);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|未有可供打印的数据记录！"});
    EXPECT_TRUE(stage.reports.printed.empty());
}

TEST_F(PrintingTest, AMissingComponentIsReportedToTheUserAndTheWindowGoesOn) {
    AddItem(0, "报表");
    frmTaskMain& window = Open();
    stage.reports.missing = true;
    stage.user.Choose(window.commands.menus.mnuPrintItem);
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    stage.reports.missing = false;
    stage.user.Choose(window.commands.menus.mnuPrintItem);
    EXPECT_EQ(stage.reports.printed.size(), 1u);
}

TEST_F(PrintingTest, TheButtonPrintsTheItemShown) {
    AddItem(0, "报表");
    frmTaskMain& window = Open();
    EXPECT_FALSE(window.commands.cmdPrint.Enabled());
    ClickNode("Z1");
    stage.user.Click(window.commands.cmdPrint);
    EXPECT_EQ(Last().job.reportName, "zvTask01");
    EXPECT_EQ(Last().job.printMode, 0);
    EXPECT_EQ(Last().job.parameters[1], "报表");
}

TEST_F(PrintingTest, TheButtonPrintsTheBirthdaysWhileTheyAreSeen) {
    AddBirthday();
    AddItem(0, "报表");
    frmTaskMain& window = Open();
    ShowTab(kCardTab);
    EXPECT_FALSE(window.commands.cmdPrint.Enabled());
    window.birthdays.chkBirthDay0.SetValue(1);
    ASSERT_TRUE(window.commands.cmdPrint.Enabled());
    stage.user.Click(window.commands.cmdPrint);
    EXPECT_EQ(Last().job.reportName, "");
    EXPECT_EQ(Last().job.title, "客户生日报警");
    EXPECT_EQ(Last().job.subTitle, "");
    EXPECT_EQ(Last().headings, (Lines{"编号", "姓名", "客户", "生日", "还有（天）"}));
    EXPECT_EQ(Last().cells, (std::vector<Lines>{{"A1", "王五", "天地公司", "1970-03-07", "0"}}));
    // Behind another page they are not what the user means.
    ShowTab(kItemTab);
    EXPECT_FALSE(window.commands.cmdPrint.Enabled());
    ClickNode("Z1");
    stage.user.Click(window.commands.cmdPrint);
    EXPECT_EQ(Last().job.reportName, "zvTask01");
    ShowTab(kCardTab);
    window.birthdays.chkBirthDay0.SetValue(0);
    EXPECT_TRUE(window.commands.cmdPrint.Enabled());
    ClickNode("A1");
    EXPECT_FALSE(window.commands.cmdPrint.Enabled());
}

TEST_F(PrintingTest, TheListHasTheItemsOfTheTreeInItsOrder) {
    AddItem(0, "b", 0, "2003-03-05");
    AddItem(0, "a", 1, "2003-03-07");
    AddItem(2, "c", 0, "2003-03-06");
    AddItem(1, "d", 0, "2003-03-06");
    frmTaskMain& window = Open();
    window.filter.DTPicker0.SetValue(std::nullopt);
    window.filter.DTPicker1.SetValue(std::nullopt);
    window.filter.chkType[1].SetValue(0);
    stage.user.Choose(window.commands.menus.mnuSeek1);
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(Last().job.reportName, "zvTask02");
    EXPECT_EQ(Last().job.title, "任务列表");
    EXPECT_TRUE(Last().job.parameters.empty());
    EXPECT_EQ(Last().job.filter, "1=1 And a.fType<>1 ");
    EXPECT_EQ(Last().job.order, "a.fType,a.taskTime desc,a.taskTitle");
    EXPECT_EQ(ListedTitles(), "a b c");
    EXPECT_EQ(ListedTitles(), TreeTitles(window));
    window.tree.cboOrder.SetListIndex(1);
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(Last().job.order, "a.fType,a.taskTitle,a.taskTime desc");
    EXPECT_EQ(ListedTitles(), TreeTitles(window));
}

TEST_F(PrintingTest, TheListHasTheChosenColumns) {
    AddItem(0, "报表");
    stage.settings.values["zvTask.PrintColumns"] = "taskTitle,fOther0";
    frmTaskMain& window = Open();
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(Last().job.columns, (Lines{"(主题)\ttaskTitle", "(备注 1)\tfOther0"}));
}

TEST_F(PrintingTest, AListThatIsFilteredByCompanyNeedsNoOtherTable) {
    stage.Sql("insert into cards(fID,compname) values(5,'天地公司'),(6,'别的公司')");
    stage.Sql(
        "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2,taskID) values"
        "(1,'有','2003-03-07 00:00:00','2003-03-07 00:00:00','2003-03-07 00:00:00',5),"
        "(1,'无','2003-03-07 00:00:00','2003-03-07 00:00:00','2003-03-07 00:00:00',6)");
    frmTaskMain& window = Open();
    window.filter.txtComp.SetText("天地");
    stage.user.Choose(window.commands.menus.mnuSeek1);
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(TreeTitles(window), "有");
    EXPECT_EQ(ListedTitles(), "有");
}

TEST_F(PrintingTest, TheListIsWhatTheTreeShowsAndNotWhatIsTypedMeanwhile) {
    AddItem(0, "a");
    AddItem(0, "b");
    frmTaskMain& window = Open();
    window.filter.txtTitle0.SetText("b");
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(ListedTitles(), "a b");
    stage.user.Choose(window.commands.menus.mnuSeek1);
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(ListedTitles(), "b");
}

TEST_F(PrintingTest, AConditionOfTheUsersOwnIsTakenOver) {
    AddItem(0, "a");
    AddItem(2, "b");
    frmTaskMain& window = Open();
    window.listing.LoadItemList("fType=2 And taskTitle='b'");
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(ListedTitles(), "b");
    window.listing.LoadItemList("1=1");
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(Last().job.filter, "");
    EXPECT_EQ(ListedTitles(), "a b");
}

TEST_F(PrintingTest, WhilePlansAreShownTheListHasTheItemsShownLast) {
    AddItem(0, "a");
    frmTaskMain& window = Open();
    stage.user.Click(window.tree.chkEvent);
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(ListedTitles(), "a");
}

TEST_F(PrintingTest, AListOfNothingSaysSo) {
    AddItem(0, "a");
    frmTaskMain& window = Open();
    window.filter.txtTitle0.SetText("none");
    stage.user.Choose(window.commands.menus.mnuSeek1);
    stage.user.Choose(window.commands.menus.mnuPrintList);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|未有可供打印的数据记录！"});
    EXPECT_TRUE(stage.reports.printed.empty());
}

TEST_F(PrintingTest, ChoosingColumnsPrintsTheListWithThem) {
    AddItem(0, "报表");
    frmTaskMain& window = Open();
    stage.backend.modalLoop = [this](forms::Form& form) {
        auto& chooser = static_cast<windows::frmItemSet&>(form);
        stage.user.Pick(chooser.lstChosen, 0);
        stage.user.Click(chooser.cmdDrop);
        stage.user.Click(chooser.cmdOK);
    };
    stage.user.Click(window.commands.cmdItemSet);
    EXPECT_EQ(Last().job.reportName, "zvTask02");
    EXPECT_EQ(Last().job.columns.front(), "(主题)\ttaskTitle");
    EXPECT_EQ(Last().job.columns.size(), 6u);
}

TEST_F(PrintingTest, ACancelledChoiceOfColumnsPrintsNothing) {
    AddItem(0, "报表");
    frmTaskMain& window = Open();
    stage.backend.modalLoop = [](forms::Form& form) { form.UserClose(); };
    stage.user.Click(window.commands.cmdItemSet);
    EXPECT_TRUE(stage.reports.printed.empty());
}

TEST_F(PrintingTest, WhereListsMayNotBePrintedTheChoiceIsOnlyKept) {
    AddItem(1, "拜访");
    stage.session.state.AlertType = 1;
    frmTaskMain& window = Open(kCardMode);
    EXPECT_FALSE(window.commands.menus.mnuPrintList.Enabled());
    stage.backend.modalLoop = [this](forms::Form& form) {
        stage.user.Click(static_cast<windows::frmItemSet&>(form).cmdOK);
    };
    stage.user.Click(window.commands.cmdItemSet);
    EXPECT_TRUE(stage.reports.printed.empty());
    EXPECT_FALSE(stage.settings.values["zvTask.PrintColumns"].empty());
}

}  // namespace
}  // namespace zv::windows
