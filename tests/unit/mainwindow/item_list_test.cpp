#include "main_window_fixture.h"

namespace zv::windows {
namespace {

class ItemListTest : public MainWindow {};

TEST_F(ItemListTest, CheckedKindsWithoutItemsShowEmptyFoldersInTheirOwnPictures) {
    Open();
    EXPECT_EQ(stage.Nodes(), "A1||task1|任务\nB2||guest1|客户拜访\nC3||diary1|工作日志");
}

TEST_F(ItemListTest, FilledFoldersComeFirstInTaskPictures) {
    AddItem(0, "报表");
    AddItem(2, "日记");
    Open();
    EXPECT_EQ(stage.Nodes(),
              "A1||task1|任务\nZ1|A1|task2|(2003-03-07)\t报表\n"
              "C2||task1|工作日志\nZ2|C2|task2|(2003-03-07)\t日记\n"
              "B3||guest1|客户拜访");
}

TEST_F(ItemListTest, GroupsAreNumberedAsTheyAreMade) {
    AddItem(2, "日记");
    frmTaskMain& window = Open();
    EXPECT_EQ(stage.NodeKeys(), "C1 Z1 A2 B3");
    ShowTab(kFilterTab);
    stage.user.Click(window.filter.chkType[1]);
    EXPECT_EQ(stage.NodeKeys(), "C1 Z1 A2");
}

TEST_F(ItemListTest, RowsOfDiaryOnlyWithoutTheirBoxLeaveNothing) {
    AddItem(2, "日记");
    frmTaskMain& window = Open();
    ShowTab(kFilterTab);
    stage.user.Click(window.filter.chkType[2]);
    EXPECT_EQ(stage.Nodes(), "A1||task1|任务\nB2||guest1|客户拜访");
}

TEST_F(ItemListTest, TheStateChoosesThePictureWhateverTheKind) {
    AddItem(1, "a", 0);
    AddItem(1, "b", 1);
    AddItem(1, "c", 2);
    Open();
    EXPECT_NE(stage.Nodes().find("Z1|B1|task2|"), std::string::npos);
    EXPECT_NE(stage.Nodes().find("Z2|B1|task4|"), std::string::npos);
    EXPECT_NE(stage.Nodes().find("Z3|B1|task3|"), std::string::npos);
}

TEST_F(ItemListTest, AFillSelectsTheFirstNodeAndForgetsTheItem) {
    AddItem(0, "报表");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    EXPECT_EQ(window.model.currentId, 1);
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.tree.tvwTask.Key(window.tree.tvwTask.Selected()), "A1");
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
    EXPECT_TRUE(window.tree.tvwTask.Expanded(window.tree.tvwTask.Find("A1")));
}

TEST_F(ItemListTest, TheOrderListHasThreeOrders) {
    frmTaskMain& window = Open();
    const auto order = [&](int row) {
        stage.user.Pick(window.tree.cboOrder, row);
        const auto sent = stage.statements.Take();
        return sent.empty() ? "" : sent[0].substr(sent[0].find(" Order by"));
    };
    EXPECT_EQ(order(1), " Order by a.fType,a.taskTitle,a.taskTime desc");
    EXPECT_EQ(order(2), " Order by a.fType,a.taskID,a.taskTime desc,a.taskTitle");
    EXPECT_EQ(order(0), " Order by a.fType,a.taskTime desc,a.taskTitle");
    EXPECT_EQ(order(-1), " Order by a.fType,a.taskID,a.taskTime desc,a.taskTitle");
}

TEST_F(ItemListTest, AWhereTextFromElsewhereIsQualifiedAndGetsItsWord) {
    frmTaskMain& window = Open();
    const auto where = [&](const std::string& text) {
        window.listing.LoadItemList(text);
        const std::string sql = stage.statements.Take().at(0);
        const auto begin = sql.find("tTaskList a ") + 12;
        return sql.substr(begin, sql.find(" Order by") - begin);
    };
    EXPECT_EQ(where(""), "");
    EXPECT_EQ(where("1=1"), "");
    EXPECT_EQ(where("a.fType=1"), " Where a.fType=1");
    EXPECT_EQ(where("fType=1"), " Where a.fType=1");
    EXPECT_EQ(where(" Where 1=1"), " Where 1=1");
}

TEST_F(ItemListTest, NullsShowAsNothing) {
    stage.Sql(
        "insert into tTaskList(fType,tDuring1,tDuring2,tDone) values"
        "(null,'2003-03-07 00:00:00','2003-03-07 00:00:00',null)");
    Open();
    EXPECT_NE(stage.Nodes().find("Z1|A1|task2|()\t"), std::string::npos);
}

TEST_F(ItemListTest, ARowThatCannotBeShownIsLeftOutAndReported) {
    AddItem(0, "报表");
    AddItem(7, "无此类型");
    AddItem(0, "无此状态", 5);
    Open();
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|有记录无法显示: 2"});
}

TEST_F(ItemListTest, ADateOfNoCalendarIsLeftOutBeforeItCanBeClicked) {
    for (const char* date : {"2003-13-45", "2003-02-29", "0000-00-00", "2003-03-07 25:61:00"}) {
        AddItem(0, date);
        stage.Sql("update tTaskList set taskTime='" + std::string(date) +
                  "' where fID=(select max(fID) from tTaskList)");
    }
    AddItem(0, "甲");
    stage.Sql("update tTaskList set taskTime='2004-02-29 10:00:00' where fID=5");
    Open();
    EXPECT_EQ(stage.NodeKeys(), "A1 Z5 B2 C3");
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|有记录无法显示: 4"});
    ClickNode("Z5");
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(ItemListTest, ARepeatedItemEndsTheFillAndKeepsTheNodesMade) {
    AddItem(0, "a");
    AddItem(0, "b");
    frmTaskMain& window = Open();
    // The join multiplies the item, and different titles keep the rows distinct.
    stage.Sql(
        "create table twice(n); insert into twice values('x'),('y');"
        "alter table tTaskList rename to stored;"
        "create view tTaskList as select fID,TaskID,taskTitle||n as taskTitle,fContent,"
        "taskTime,tDuring1,tDuring2,tDone,tDoneMan,fUser,fType,fGuest from stored,twice");
    stage.session.database.Close();
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1");
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_TRUE(stage.dialogs.messages[0].starts_with("48|有记录无法显示\r\n集合中的键不唯一"));
    EXPECT_EQ(window.tree.tvwTask.Key(window.tree.tvwTask.Selected()), "A1");
}

TEST_F(ItemListTest, AFailingQueryLeavesTheTreeAndIsReported) {
    AddItem(0, "报表");
    frmTaskMain& window = Open();
    const std::string before = stage.Nodes();
    stage.statements.failing = "tTaskList";
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(stage.Nodes(), before);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    stage.statements.failing.clear();
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(ItemListTest, ThePlanListAlwaysHasItsRoot) {
    frmTaskMain& window = Open();
    stage.user.Click(window.tree.chkEvent);
    EXPECT_EQ(stage.statements.Take(),
              Lines{"select distinct taskID as fID,taskTitle,DoneMan from tTaskSet Order by "
                    "taskTitle"});
    EXPECT_EQ(stage.Nodes(), "E0||event1|管理事件");
    EXPECT_EQ(window.model.currentKind, NodeKind::Plan);
}

TEST_F(ItemListTest, PlansStandUnderTheRootAsNotCompletable) {
    stage.Sql("insert into tTaskSet(TaskID,taskTitle) values(7,'乙'),(3,'丙')");
    frmTaskMain& window = Open();
    stage.user.Click(window.tree.chkEvent);
    EXPECT_NE(stage.Nodes().find("Z7|E0|event4|乙"), std::string::npos);
    EXPECT_NE(stage.Nodes().find("Z3|E0|event4|丙"), std::string::npos);
    EXPECT_TRUE(window.tree.tvwTask.Expanded(window.tree.tvwTask.Find("E0")));
}

TEST_F(ItemListTest, AHundredThousandItemsArrive) {
    stage.Sql(
        "with recursive n(i) as (select 1 union all select i+1 from n where i<100000) "
        "insert into tTaskList(fType,taskTitle,taskTime,tDuring1,tDuring2) select i%3,"
        "'项目'||i,'2003-03-07 00:00:00','2003-03-07 00:00:00','2003-03-07 00:00:00' from n");
    EXPECT_EQ(Open().tree.tvwTask.Count(), 100003);
}

}  // namespace
}  // namespace zv::windows
