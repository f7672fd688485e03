#include "base/text.h"
#include "doubles/written_fields.h"
#include "items/item_store.h"
#include "save_item_fixture.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::windows {
namespace {

TEST_F(SaveItem, ChangesTheRowThatWasOpened) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "乙");
    stage.user.Type(window.content.txtTaskCon, "一\r\n二");
    stage.user.Type(window.item.cboJbr2, "赵六");
    stage.user.Type(window.content.txtOther[5], "o5");
    stage.user.Pick(window.item.cboDone2, kInHand);
    Save();
    EXPECT_EQ(Row("taskTitle||'|'||fContent||'|'||tDoneMan||'|'||fOther0||fOther5||'|'||tDone"),
              "乙|一\r\n二|赵六|o0o5|2");
    EXPECT_EQ(stage.dialogs.messages, Lines{"0|[乙]: 修改完毕 ！"});
    // The row is opened once, the tree filled once: no other statement.
    const Lines sent = stage.statements.Take();
    ASSERT_EQ(sent.size(), 2u);
    EXPECT_EQ(sent[0], "select * from tTaskList where fID=1");
    EXPECT_TRUE(sent[1].starts_with("select distinct a.fID"));
}

TEST_F(SaveItem, StoresTheCurrentUserWhateverTheBoxShowed) {
    frmTaskMain& window = Change();
    EXPECT_EQ(window.item.txtUser2.Text(), "李四");
    Save();
    EXPECT_EQ(Row("fUser"), "张三");
}

TEST_F(SaveItem, TheAlertWindowBecomesTheMomentOfTheItem) {
    frmTaskMain& window = Change();
    window.filter.DTPicker1.SetValue(DateTime(2003, 3, 8));
    // Untouched, the time keeps its seconds.
    Save();
    EXPECT_EQ(Row("taskTime||'|'||tDuring1||'|'||tDuring2"),
              "2003-03-07 08:15:42|2003-03-07 08:15:42|2003-03-07 08:15:42");
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.SetDate(window.item.DTPicker2, DateTime(2003, 3, 7, 14, 30));
    Save();
    EXPECT_EQ(Row("taskTime||'|'||tDuring2"), "2003-03-07 14:30:00|2003-03-07 14:30:00");
}

TEST_F(SaveItem, AMomentIsListedBetweenTwoDaysAndAMidnightOnItsOwn) {
    frmTaskMain& window = Change();
    Save();
    EXPECT_NE(window.tree.tvwTask.Find("Z1"), forms::TreeView::kNone);
    ShowTab(kFilterTab);
    stage.user.SetDate(window.filter.DTPicker1, std::nullopt);
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(window.tree.tvwTask.Find("Z1"), forms::TreeView::kNone);
    stage.user.SetDate(window.filter.DTPicker1, DateTime(2003, 3, 8));
    stage.user.Click(window.commands.cmdSeek);
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.SetDate(window.item.DTPicker2, DateTime(2003, 3, 7));
    ShowTab(kFilterTab);
    stage.user.SetDate(window.filter.DTPicker1, std::nullopt);
    Save();
    EXPECT_NE(window.tree.tvwTask.Find("Z1"), forms::TreeView::kNone);
}

TEST_F(SaveItem, AnItemThatTheListDoesNotShowIsReported) {
    frmTaskMain& window = Open();
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    stage.user.Type(window.item.txtTitle2, "今天");
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"0|[今天]: 新增完毕 ！"});
    EXPECT_NE(window.tree.tvwTask.Find("Z2"), forms::TreeView::kNone);
    EXPECT_EQ(window.status.lblNotice.Caption(), "");
    stage.dialogs.messages.clear();
    // The twin of an item that is shown is not shown itself.
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    stage.user.Type(window.item.txtTitle2, "今天");
    ShowTab(kFilterTab);
    stage.user.Type(window.filter.txtContent0, "x");
    stage.Sql("update tTaskList set fContent='x' where fID=2");
    Save();
    EXPECT_NE(window.tree.tvwTask.Find("Z2"), forms::TreeView::kNone);
    EXPECT_EQ(stage.dialogs.messages, Lines{"0|[今天]: 新增完毕 ！"});
    EXPECT_EQ(window.status.lblNotice.Caption(), "[今天]: 已保存，但当前列表不显示该项！");
    stage.dialogs.messages.clear();
    ClickNode("Z2");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.Type(window.content.txtTaskCon, "");
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"0|[今天]: 修改完毕 ！"});
    EXPECT_EQ(window.status.lblNotice.Caption(), "[今天]: 已保存，但当前列表不显示该项！");
}

TEST_F(SaveItem, AnItemSavedWhilePlansAreShownIsReportedToo) {
    stage.session.state.Language = 1;
    frmTaskMain& window = Open();
    stage.user.Click(window.tree.chkEvent);
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    stage.user.Type(window.item.txtTitle2, "今天");
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"0|[今天]: 新增完毕 ！"});
    EXPECT_EQ(window.status.lblNotice.Caption(), "[今天]: 已儲存，但目前列表不顯示該項！");
}

TEST_F(SaveItem, AddsANewRow) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuDailyAdd);
    stage.user.Type(window.item.txtTitle2, "日记");
    stage.user.Type(window.content.txtTaskCon, "it's");
    stage.dialogs.messages.clear();
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"0|[日记]: 新增完毕 ！"});
    EXPECT_EQ(Row("fType||'|'||TaskID||'|'||taskTitle||'|'||fContent||'|'||fUser||'|'||tDone||'|'||"
                  "taskTime||'|'||tDuring1",
                  "tTaskList where fID=2"),
              "2|0|日记|it's|张三|0|2003-03-07 09:30:00|2003-03-07 09:30:00");
    EXPECT_EQ(Row("count(*)", "tTaskList"), "2");
}

TEST_F(SaveItem, FillsTheTreeAndLocksTheEditor) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "乙");
    stage.user.SetDate(window.item.DTPicker2, DateTime(2003, 3, 7));
    Save();
    EXPECT_NE(stage.Nodes().find("Z1|A1|task2|(2003-03-07)\t乙"), std::string::npos);
    EXPECT_EQ(window.model.editMode, EditMode::None);
    EXPECT_FALSE(window.model.Editing());
    EXPECT_TRUE(window.item.txtTitle2.Locked());
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.commands.cmdSave.Caption(), "保存(&S)");
}

TEST_F(SaveItem, AnItemThatAnotherUserDeletedIsReported) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "乙");
    stage.Sql("delete from tTaskList");
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|原记录未有存在，操作取消！"});
    EXPECT_EQ(Row("count(*)", "tTaskList"), "0");
    EXPECT_EQ(window.item.txtTitle2.Text(), "乙");
    EXPECT_TRUE(window.model.Editing());
}

TEST_F(SaveItem, WhatBothUsersChangedIsAskedAbout) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "我的");
    stage.Sql("update tTaskList set taskTitle='他的',tDone=1");
    stage.dialogs.answers = {forms::Answer::Cancel};
    Save();
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    const std::string& question = stage.dialogs.messages[0];
    EXPECT_TRUE(question.starts_with("35|")) << question;
    EXPECT_NE(question.find("主题: 现存 [他的], 您的 [我的]"), std::string::npos) << question;
    EXPECT_EQ(question.find("状况"), std::string::npos) << question;
    // Called off: nothing is written, and the input stays.
    EXPECT_EQ(Row("taskTitle||tDone"), "他的1");
    EXPECT_EQ(window.item.txtTitle2.Text(), "我的");
    EXPECT_TRUE(window.model.Editing());
    stage.dialogs.answers = {forms::Answer::Yes};
    Save();
    EXPECT_EQ(Row("taskTitle||tDone"), "我的1");
    EXPECT_EQ(stage.dialogs.messages.back(), "0|[我的]: 修改完毕 ！");
}

TEST_F(SaveItem, WhatThisUserDidNotTouchKeepsWhatAnotherUserStored) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "我的");
    stage.Sql(
        "update tTaskList set fWay='w',TaskID=9,fGuest='g',tDoneMan='d',"
        "taskTime='2003-03-08 01:02:03',fContent='c',fOther3='o',fUser='u',fType=2,tDone=2");
    Save();
    EXPECT_EQ(stage.dialogs.messages.at(0), "0|[我的]: 修改完毕 ！");
    EXPECT_EQ(Row("fType||'|'||fWay||'|'||TaskID||'|'||fGuest||'|'||taskTitle||'|'||tDoneMan||'|'||"
                  "taskTime||'|'||tDuring1||'|'||tDuring2"),
              "2|w|9|g|我的|d|2003-03-08 01:02:03|2003-03-08 01:02:03|2003-03-08 01:02:03");
    EXPECT_EQ(Row("fContent||'|'||fOther0||fOther3||'|'||fUser||'|'||tDone"), "c|o0o|张三|2");
}

TEST_F(SaveItem, EachConflictIsDecidedByItself) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "我的");
    stage.user.Type(window.content.txtTaskCon, "我的内容");
    stage.user.Type(window.content.txtOther[1], "o1");
    stage.Sql("update tTaskList set taskTitle='他的',fContent='他的内容',fOther2='o2'");
    stage.dialogs.answers = {forms::Answer::No, forms::Answer::Yes};
    Save();
    ASSERT_EQ(stage.dialogs.messages.size(), 3u);
    EXPECT_EQ(stage.dialogs.messages[2], "0|[他的]: 修改完毕 ！");
    EXPECT_EQ(Row("taskTitle||'|'||fContent||'|'||fOther1||fOther2"), "他的|我的内容|o1o2");
}

TEST_F(SaveItem, StateAndDoerComeFromOneUser) {
    frmTaskMain& window = Change();
    stage.user.Pick(window.item.cboDone2, kDone);
    stage.Sql("update tTaskList set tDoneMan='李四'");
    stage.dialogs.answers = {forms::Answer::Yes};
    Save();
    EXPECT_NE(stage.dialogs.messages[0].find("执行人: 现存 [李四], 您的 [王五]"), std::string::npos)
        << stage.dialogs.messages[0];
    EXPECT_NE(stage.dialogs.messages[0].find("状况: 现存 [未完成], 您的 [已完成]"),
              std::string::npos);
    EXPECT_EQ(Row("tDone||tDoneMan"), "1王五");
}

TEST_F(SaveItem, TheFieldsAreSetInTheirOrderWhateverWasChanged) {
    doubles::WrittenFields written;
    stage.opener.open = [&](const store::ConnectionSettings& settings) {
        return written.Watch(store::OpenSqlite(settings.dataPath.ForDriver()));
    };
    const Lines order{"fType",    "fWay",     "TaskID",   "fGuest",   "taskTitle", "tDoneMan",
                      "taskTime", "tDuring1", "tDuring2", "fContent", "fOther0",   "fOther1",
                      "fOther2",  "fOther3",  "fOther4",  "fOther5",  "fUser",     "tDone"};
    frmTaskMain& window = Change();
    Save();
    EXPECT_EQ(written.names, order);
    written.names.clear();
    stage.user.Choose(window.commands.menus.mnuDailyAdd);
    Save();
    EXPECT_EQ(written.names, order);
    stage.session.database.Close();
}

TEST_F(SaveItem, TheQuestionNamesEveryField) {
    frmTaskMain& window = Change();
    stage.user.Type(window.content.txtTaskCon, std::string(200, 'x'));
    ShowTab(kCardTab);
    stage.user.Type(window.cards.cboWay, "mine");
    ShowTab(kItemTab);
    stage.user.Type(window.item.cboJbr2, "m");
    stage.user.SetDate(window.item.DTPicker2, DateTime(2003, 3, 7, 9, 0));
    stage.user.Type(window.content.txtOther[3], "p");
    stage.user.Pick(window.item.cboType2, kDiary);
    stage.Sql(
        "update tTaskList set fWay='w',TaskID=9,fGuest='g',tDoneMan='d',"
        "taskTime='2003-03-08 00:00:00',tDuring1='2003-03-02 00:00:00',fContent='c',fOther3='o',"
        "fUser='u'");
    stage.dialogs.answers.assign(6, forms::Answer::Yes);
    Save();
    std::string questions;
    for (const std::string& message : stage.dialogs.messages) questions += message + "\n";
    for (const char* line : {"联络方式: 现存 [w], 您的 [mine]", "管理事件: 现存 [9], 您的 [7]",
                             "联系人: 现存 [g], 您的 []", "执行人: 现存 [d], 您的 [m]",
                             "日期: 现存 [2003-03-08 00:00:00], 您的 [2003-03-07 09:00:00]",
                             "报警范围: 现存 [2003-03-02 00:00:00]", "内容: 现存 [c], 您的 [xxxx",
                             "备注 4: 现存 [o], 您的 [p]", "类型: 现存 [任务], 您的 [工作日志]"}) {
        EXPECT_NE(questions.find(line), std::string::npos) << line << " in " << questions;
    }
    EXPECT_EQ(questions.find(std::string(61, 'x')), std::string::npos);
    EXPECT_EQ(questions.find("设置人"), std::string::npos);
}

TEST_F(SaveItem, TheQuestionNamesTheCustomersOfAVisit) {
    stage.Sql(
        "insert into cards(fID,CompCode,CompName) values(5,'C5','甲公司');"
        "insert into cards(fID,CompName) values(6,'乙公司');"
        "insert into cards(fID,CompName) values(7,'丙公司');"
        "update tTaskList set fType=1,TaskID=7");
    frmTaskMain& window = Change();
    stage.user.Type(window.cards.txtCompSeek, "C5");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    const auto ask = [&](const std::string& card) {
        stage.Sql("update tTaskList set TaskID=" + card);
        stage.dialogs.messages.clear();
        stage.dialogs.answers = {forms::Answer::Cancel};
        Save();
        return stage.dialogs.messages.at(0);
    };
    EXPECT_NE(ask("6").find("客户: 现存 [乙公司 (6)], 您的 [甲公司 (5)]"), std::string::npos);
    EXPECT_NE(ask("0").find("客户: 现存 [0], 您的 [甲公司 (5)]"), std::string::npos);
    EXPECT_NE(ask("99").find("客户: 现存 [99], 您的 [甲公司 (5)]"), std::string::npos);
    // A question that cannot be made is an error, and nothing is written.
    stage.statements.failing = "select compname";
    EXPECT_EQ(ask("6"), "16|select compname");
    EXPECT_EQ(Row("TaskID"), "6");
    EXPECT_TRUE(window.model.Editing());
}

TEST_F(SaveItem, WhatChangesWhileTheQuestionStandsIsAskedAboutToo) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "我的");
    stage.Sql("update tTaskList set taskTitle='他的'");
    stage.dialogs.answers = {forms::Answer::Yes, forms::Answer::Cancel};
    int shown = 0;
    stage.dialogs.whileStanding = [&](const std::string&) {
        if (++shown == 1) stage.Sql("update tTaskList set taskTitle='第三'");
    };
    Save();
    ASSERT_EQ(stage.dialogs.messages.size(), 2u);
    EXPECT_NE(stage.dialogs.messages[0].find("现存 [他的]"), std::string::npos);
    EXPECT_NE(stage.dialogs.messages[1].find("现存 [第三]"), std::string::npos);
    EXPECT_EQ(Row("taskTitle"), "第三");
    EXPECT_EQ(window.item.txtTitle2.Text(), "我的");
    EXPECT_TRUE(window.model.Editing());
}

TEST_F(SaveItem, ARowDeletedWhileTheQuestionStandsIsReported) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "我的");
    stage.Sql("update tTaskList set taskTitle='他的'");
    stage.dialogs.answers = {forms::Answer::Yes};
    int shown = 0;
    stage.dialogs.whileStanding = [&](const std::string&) {
        if (++shown == 1) stage.Sql("delete from tTaskList");
    };
    Save();
    EXPECT_EQ(stage.dialogs.messages.back(), "48|原记录未有存在，操作取消！");
    EXPECT_EQ(Row("count(*)", "tTaskList"), "0");
    EXPECT_EQ(window.item.txtTitle2.Text(), "我的");
}

TEST_F(SaveItem, AChangeBetweenOpeningAndWritingIsRefusedAndThenAskedAbout) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "我的");
    stage.statements.onRow = [&] { stage.Sql("update tTaskList set taskTitle='他的'"); };
    Save();
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_TRUE(stage.dialogs.messages[0].starts_with("16|")) << stage.dialogs.messages[0];
    EXPECT_EQ(Row("taskTitle"), "他的");
    EXPECT_EQ(window.item.txtTitle2.Text(), "我的");
    EXPECT_TRUE(window.model.Editing());
    stage.statements.onRow = nullptr;
    stage.dialogs.answers = {forms::Answer::Cancel};
    Save();
    EXPECT_NE(stage.dialogs.messages.back().find("现存 [他的], 您的 [我的]"), std::string::npos);
    EXPECT_EQ(Row("taskTitle"), "他的");
}

TEST_F(SaveItem, AChangeCostsOneStatementBesidesTheFill) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "乙");
    Save();
    const Lines statements = stage.statements.Take();
    ASSERT_EQ(statements.size(), 2u);
    EXPECT_EQ(statements[0], "select * from tTaskList where fID=1");
    EXPECT_TRUE(statements[1].starts_with("select distinct a.fID"));
}

TEST_F(SaveItem, AChangeAfterAFillThatFailedIsComparedWithTheRowOfNow) {
    frmTaskMain& window = Change();
    stage.statements.failing = "select distinct";
    stage.user.Type(window.item.txtTitle2, "乙");
    Save();
    stage.statements.failing.clear();
    // The old node is still there and so is the number of its item.
    stage.Sql("update tTaskList set fContent='他的'");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    EXPECT_EQ(window.content.txtTaskCon.Text(), "他的");
    stage.user.Type(window.item.txtTitle2, "丙");
    stage.user.Type(window.content.txtTaskCon, "他的和我的");
    stage.Sql("update tTaskList set fContent='又改'");
    stage.dialogs.messages.clear();
    stage.dialogs.answers = {forms::Answer::Cancel};
    Save();
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_NE(stage.dialogs.messages[0].find("现存 [又改], 您的 [他的和我的]"), std::string::npos);
    EXPECT_EQ(Row("taskTitle||fContent"), "乙又改");
}

TEST_F(SaveItem, OwnActsAreNotAskedAbout) {
    frmTaskMain& window = Change();
    stage.Sql("update tTaskList set tDone=1,tDoneMan='张三'");
    window.view.NoteStored(items::field::kState, 1);
    window.view.NoteStored(items::field::kDoer, "张三");
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"0|[甲]: 修改完毕 ！"});
}

TEST_F(SaveItem, TextsAreCutToTheBytesOfTheirBoxes) {
    frmTaskMain& window = Change();
    std::string wide;
    for (int i = 0; i < 200; i++) wide += "国";
    std::string expected;
    for (int i = 0; i < 127; i++) expected += "国";
    stage.user.Type(window.item.txtTitle2, wide);
    stage.user.Type(window.content.txtOther[0], "a" + wide);
    stage.user.Type(window.content.txtOther[1], std::string(300, 'b'));
    Save();
    EXPECT_EQ(Row("taskTitle"), expected);
    EXPECT_EQ(Row("fOther0"), "a" + expected);
    EXPECT_EQ(Row("fOther1"), std::string(255, 'b'));
    EXPECT_EQ(stage.dialogs.messages, Lines{"0|[" + expected + "]: 修改完毕 ！"});
}

TEST_F(SaveItem, NamesAndWaysAreAsLongAsTheirBoxes) {
    stage.Sql("insert into cards(fID,CompCode,CompName) values(9,'C9','某公司')");
    frmTaskMain& window = Open();
    stage.user.Choose(window.commands.menus.mnuGuestAdd);
    stage.user.Type(window.cards.txtCompSeek, "C9");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    std::string wide, limit;
    for (int i = 0; i < 150; i++) {
        wide += "国";
        if (i < 100) limit += "国";
    }
    stage.user.Type(window.cards.txtName2, wide);
    stage.user.Type(window.cards.cboWay, wide);
    stage.user.Type(window.item.cboJbr2, wide);
    ShowTab(kItemTab);
    stage.user.Type(window.content.txtTaskCon, wide + std::string(70000, 'c'));
    Save();
    const std::string row = " from tTaskList where fType=1";
    EXPECT_EQ(stage.Query("select fGuest" + row), limit);
    EXPECT_EQ(stage.Query("select fWay" + row), limit);
    EXPECT_EQ(stage.Query("select tDoneMan" + row), limit);
    EXPECT_EQ(stage.Query("select length(fContent)" + row), "70150");
}

TEST_F(SaveItem, ABoxWithoutALimitIsNotCut) {
    frmTaskMain& window = Change();
    window.item.txtTitle2.SetMaxLength(0);
    stage.user.Type(window.item.txtTitle2, std::string(400, 't'));
    stage.user.Type(window.content.txtTaskCon, std::string(5000, 'c'));
    Save();
    EXPECT_EQ(Row("length(taskTitle)||' '||length(fContent)"), "400 5000");
}

TEST_F(SaveItem, AListWithoutASelectedRowWritesNothing) {
    frmTaskMain& window = Change();
    stage.Sql("update tTaskList set tDone=2");
    stage.user.Pick(window.item.cboDone2, -1);
    stage.user.Pick(window.item.cboType2, -1);
    Save();
    EXPECT_EQ(Row("fType||'|'||tDone"), "0|2");
    EXPECT_EQ(stage.dialogs.messages, Lines{"0|[甲]: 修改完毕 ！"});
}

TEST_F(SaveItem, AFailingOpenOrWriteKeepsTheInput) {
    frmTaskMain& window = Change();
    stage.user.Type(window.item.txtTitle2, "乙");
    stage.statements.failing = "select * from tTaskList";
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|select * from tTaskList"});
    stage.statements.failing.clear();
    stage.statements.failingUpdate = "disk full";
    Save();
    EXPECT_EQ(stage.dialogs.messages.back(), "16|disk full");
    EXPECT_EQ(Row("taskTitle"), "甲");
    EXPECT_EQ(window.item.txtTitle2.Text(), "乙");
    EXPECT_TRUE(window.model.Editing());
    EXPECT_EQ(window.model.editMode, EditMode::Changing);
    stage.statements.failingUpdate.clear();
    Save();
    EXPECT_EQ(Row("taskTitle"), "乙");
}

TEST_F(SaveItem, AFillThatFailsAfterTheSaveDoesNotSaveTwice) {
    frmTaskMain& window = Open();
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    stage.user.Type(window.item.txtTitle2, "新");
    stage.statements.failing = "select distinct";
    Save();
    EXPECT_EQ(Row("count(*)", "tTaskList"), "2");
    EXPECT_EQ(stage.dialogs.messages.back(), "16|select distinct");
    EXPECT_FALSE(window.commands.cmdSave.Enabled());
    EXPECT_FALSE(window.model.Editing());
}

TEST_F(SaveItem, TheNumberOfAPlanIsNotAnItems) {
    stage.Sql("insert into tTaskSet(TaskID,taskTitle) values(1,'计划')");
    frmTaskMain& window = Open();
    stage.user.Click(window.tree.chkEvent);
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|原记录未有存在，操作取消！"});
    EXPECT_EQ(Row("taskTitle"), "甲");
}

}  // namespace
}  // namespace zv::windows
