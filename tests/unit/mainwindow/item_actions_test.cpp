#include "windows/main/acts/editing.h"

#include "main_window_fixture.h"

namespace zv::windows {
namespace {

class Actions : public MainWindow {
 protected:
    Actions() {
        stage.Sql("insert into tSysFunc(SerialNo,model_Name) values(1,'mnuToolTask')");
        stage.Sql("insert into tSysFunc(SerialNo,model_Name) values(11,'mnuCardPlan')");
        stage.Sql("insert into cards(fID,CompName) values(5,'某公司')");
        AddItem(kTask, "甲");
        AddItem(kTask, "乙");
        AddItem(kDiary, "丙");
        AddItem(kGuest, "丁");
        stage.Sql(
            "update tTaskList set TaskID=5 where fType=1; "
            "update tTaskList set TaskID=7 where fType=0; "
            "insert into tTaskSet(TaskID,taskTitle) values(7,'计划'); "
            "insert into tTaskSet(TaskID,taskTitle) values(8,'另一')");
        stage.session.state.myPower = std::string(350, '1');
    }
    std::string Count(const std::string& from = "tTaskList") {
        return stage.Query("select count(*) from " + from);
    }
    void Press(int index) { stage.user.Click(stage.Window()->commands.cmdAction[index]); }
    frmTaskMain& OpenPlans() {
        frmTaskMain& window = Open();
        stage.user.Click(window.tree.chkEvent);
        stage.statements.Take();
        return window;
    }
};

TEST_F(Actions, EveryButtonAsksTheGateWithItsIndexAsTheLevel) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    for (int index = 0; index < 4; index++) {
        stage.session.state.myPower = std::string(350, '1');
        stage.session.state.myPower[static_cast<std::size_t>(index)] = '0';
        stage.dialogs.messages.clear();
        Press(index);
        EXPECT_EQ(stage.dialogs.messages, Lines{"48|您无权进行操作 ！"}) << index;
        EXPECT_EQ(window.model.editMode, EditMode::None);
    }
    EXPECT_EQ(Count(), "4");
}

TEST_F(Actions, TheCardModeAsksForAnotherModule) {
    stage.session.state.myPower = std::string(10, '1') + std::string(340, '0');
    frmTaskMain& window = Open(kCardMode);
    Press(1);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|您无权进行操作 ！"});
    stage.session.state.myPower = std::string(350, '1');
    Press(1);
    EXPECT_EQ(window.model.editMode, EditMode::Adding);
}

TEST_F(Actions, AModuleThatIsNotRegisteredRefuses) {
    stage.Sql("delete from tSysFunc");
    Open();
    Press(1);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|您无权进行操作 ！"});
}

TEST_F(Actions, MenuEntriesDoNotAskTheGate) {
    stage.session.state.myPower = std::string(350, '0');
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    EXPECT_EQ(window.model.editMode, EditMode::Changing);
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_EQ(Count(), "3");
    for (const std::string& statement : stage.statements.Take()) {
        EXPECT_EQ(statement.find("tSysFunc"), std::string::npos);
    }
}

TEST_F(Actions, ButtonsDispatchByTheKindInTheTree) {
    frmTaskMain& window = Open();
    const std::array<std::string, 3> items = {"Z1", "Z4", "Z3"};
    for (std::uint8_t kind = 0; kind < 3; kind++) {
        ClickNode(items[kind]);
        Press(1);
        EXPECT_EQ(window.model.editMode, EditMode::Adding);
        EXPECT_EQ(Number(window.model.editedKind), kind);
        Press(0);
        EXPECT_EQ(window.model.editMode, EditMode::None);
        Press(2);
        EXPECT_EQ(window.model.editMode, EditMode::Changing);
        EXPECT_EQ(Number(window.model.editedKind), kind);
        Press(0);
    }
}

TEST_F(Actions, TheSaveButtonNamesTheKindAndTheAction) {
    frmTaskMain& window = Open();
    ClickNode("Z4");
    const auto caption = [&](forms::MenuItem& item) {
        stage.user.Choose(item);
        return window.commands.cmdSave.Caption();
    };
    EXPECT_EQ(caption(window.commands.menus.mnuTaskAdd), "任务新增");
    EXPECT_EQ(caption(window.commands.menus.mnuGuestAdd), "客户新增");
    EXPECT_EQ(caption(window.commands.menus.mnuDailyAdd), "日志新增");
    EXPECT_EQ(caption(window.commands.menus.mnuTaskChg), "任务修改");
    EXPECT_EQ(caption(window.commands.menus.mnuGuestChg), "客户修改");
    EXPECT_EQ(caption(window.commands.menus.mnuDailyChg), "日志修改");
    Press(0);
    EXPECT_EQ(window.commands.cmdSave.Caption(), "保存(&S)");
    stage.session.state.Language = 1;
    window.LoadCaptions();
    EXPECT_EQ(caption(window.commands.menus.mnuTaskAdd), "任務新增");
}

TEST_F(Actions, AnAddBeginsEmpty) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuDailyAdd);
    EXPECT_EQ(window.item.txtTitle2.Text() + window.item.cboJbr2.Text() +
                  window.content.txtTaskCon.Text(),
              "");
    EXPECT_EQ(window.item.txtUser2.Text(), "张三");
    EXPECT_EQ(window.item.cboDone2.ListIndex(), kNotDone);
    EXPECT_EQ(window.item.cboType2.ListIndex(), kDiary);
    EXPECT_EQ(window.item.DTPicker2.Value(), stage.clock.Now());
    // The plan of the task before is not that of the new item.
    EXPECT_EQ(stage.session.state.cardId, 0);
    EXPECT_EQ(window.SSTab1.Tab(), kItemTab);
    stage.user.Choose(window.commands.menus.mnuGuestAdd);
    EXPECT_EQ(window.SSTab1.Tab(), kCardTab);
}

TEST_F(Actions, AVisitInCardModeKeepsThePickedCard) {
    frmTaskMain& window = Open(kCardMode);
    EXPECT_EQ(window.cards.cboComp2.ListIndex(), 0);
    stage.user.Choose(window.commands.menus.mnuGuestAdd);
    EXPECT_EQ(stage.session.state.cardId, 5);
    EXPECT_EQ(window.cards.cboComp2.ListIndex(), 0);
}

TEST_F(Actions, AnAddPutsTheKeyboardWhereTheInputBegins) {
    frmTaskMain& window = Open();
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    EXPECT_TRUE(window.item.txtTitle2.HasFocus());
    stage.user.Choose(window.commands.menus.mnuGuestAdd);
    EXPECT_TRUE(window.cards.txtCompSeek.HasFocus());
    stage.user.Choose(window.commands.menus.mnuDailyAdd);
    EXPECT_TRUE(window.item.txtTitle2.HasFocus());
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
}

TEST_F(Actions, AVisitInCardModeBeginsWithThePickedCard) {
    frmTaskMain& window = Open(kCardMode);
    stage.user.Choose(window.commands.menus.mnuGuestAdd);
    EXPECT_TRUE(window.cards.cboComp2.HasFocus());
    stage.user.Leave(window.cards.cboComp2);
    EXPECT_EQ(window.item.txtTitle2.Text(), "某公司--拜访记录");
}

TEST_F(Actions, AnItemCanBeAddedWhilePlansAreShown) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    EXPECT_FALSE(window.item.cboType2.Visible());
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    EXPECT_TRUE(window.item.cboType2.Visible());
    EXPECT_EQ(window.item.cboType2.ListIndex(), kTask);
    stage.user.Type(window.item.txtTitle2, "新");
    stage.user.Click(window.commands.cmdSave);
    EXPECT_EQ(Count("tTaskList where taskTitle='新' and TaskID=0"), "1");
    EXPECT_EQ(window.model.currentKind, NodeKind::Plan);
}

TEST_F(Actions, AGuestChangeNeedsAnItemAndTheOthersDoNot) {
    frmTaskMain& window = Open();
    ClickNode("B2");
    stage.user.Choose(window.commands.menus.mnuGuestChg);
    EXPECT_EQ(window.model.editMode, EditMode::None);
    EXPECT_TRUE(window.item.txtTitle2.Locked());
    Press(2);
    EXPECT_EQ(window.model.editMode, EditMode::None);
    stage.user.Choose(window.commands.menus.mnuDailyChg);
    EXPECT_EQ(window.model.editMode, EditMode::Changing);
    EXPECT_EQ(window.model.editedKind, items::ItemKind::Diary);
}

TEST_F(Actions, AChangeAfterAnAddStartsFromTheStoredItem) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    stage.user.Type(window.item.txtTitle2, "新的");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    EXPECT_EQ(window.item.txtTitle2.Text(), "甲");
}

TEST_F(Actions, CancelDropsTheInput) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.Type(window.item.txtTitle2, "改了");
    Press(0);
    EXPECT_EQ(window.item.txtTitle2.Text(), "甲");
    EXPECT_TRUE(window.item.txtTitle2.Locked());
    EXPECT_EQ(window.model.editMode, EditMode::None);
    EXPECT_EQ(window.model.currentId, 1);
}

TEST_F(Actions, CancelWithoutANodeClearsTheEditor) {
    stage.Sql("delete from tTaskList");
    frmTaskMain& window = Open();
    for (int kind = 0; kind < 3; kind++) window.filter.chkType[kind].SetValue(0);
    ShowTab(kFilterTab);
    stage.user.Click(window.commands.cmdSeek);
    ASSERT_EQ(window.tree.tvwTask.Count(), 0);
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    stage.user.Type(window.item.txtTitle2, "新的");
    Press(0);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
    EXPECT_TRUE(window.item.txtTitle2.Locked());
}

TEST_F(Actions, DeletingAnItemAsksAndRemovesItsNode) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.statements.Take();
    stage.dialogs.answers = {forms::Answer::Ok};
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_EQ(stage.dialogs.messages, Lines{"49|[甲]: 是否删除 ?"});
    // The next item is shown; the list is not read again.
    EXPECT_EQ(stage.statements.Take(),
              (Lines{"Delete from tTaskList where fID =1", "select * from tTaskList where fID=2"}));
    EXPECT_EQ(stage.NodeKeys(), "A1 Z2 B2 Z4 C3 Z3");
    EXPECT_EQ(window.model.currentId, 2);
    EXPECT_EQ(window.item.txtTitle2.Text(), "乙");
    EXPECT_EQ(window.model.editMode, EditMode::None);
}

TEST_F(Actions, TheGuestEntryDeletesTheVisitAndLeavesItsCard) {
    frmTaskMain& window = Open();
    ClickNode("Z4");
    stage.statements.Take();
    stage.user.Choose(window.commands.menus.mnuGuestDel);
    EXPECT_EQ(stage.dialogs.messages, Lines{"49|[丁]: 是否删除 ?"});
    EXPECT_EQ(stage.statements.Take()[0], "Delete from tTaskList where fID =4");
    EXPECT_EQ(Count("tTaskList where fID=4"), "0");
    EXPECT_EQ(Count("cards"), "1");
    EXPECT_EQ(window.tree.tvwTask.Find("Z4"), forms::TreeView::kNone);
    // Nothing is left of the visit, so there is nothing to ask about either.
    ClickNode("B2");
    stage.user.Choose(window.commands.menus.mnuGuestDel);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(Actions, ADeleteCalledOffRunsNothing) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.statements.Take();
    stage.dialogs.answers = {forms::Answer::Cancel};
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(Count(), "4");
    EXPECT_NE(window.tree.tvwTask.Find("Z1"), forms::TreeView::kNone);
}

TEST_F(Actions, NothingSelectedDeletesNothing) {
    frmTaskMain& window = Open();
    ClickNode("A1");
    Press(3);
    stage.user.Choose(window.commands.menus.mnuDailyDel);
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_EQ(Count(), "4");
}

TEST_F(Actions, TheLastItemOfAGroupLeavesTheGroup) {
    frmTaskMain& window = Open();
    ClickNode("Z3");
    stage.user.Choose(window.commands.menus.mnuDailyDel);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z2 Z1 B2 Z4 C3");
    EXPECT_EQ(window.tree.tvwTask.Key(window.tree.tvwTask.Selected()), "C3");
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.model.currentKind, NodeKind::Diary);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
    EXPECT_FALSE(window.commands.cmdPrint.Enabled());
}

TEST_F(Actions, DeletingAPlanDeletesItsItemsOfEveryStateFirst) {
    stage.Sql("update tTaskList set tDone=1 where fID=2");
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    stage.statements.Take();
    stage.user.Choose(window.commands.menus.mnuEventDel);
    EXPECT_EQ(stage.dialogs.messages,
              Lines{"49|是否删除管理事件: "
                    "[计划]\r如果确定,同时将会删除该项任务的所有已完成和未完成的计划 !?"});
    const Lines sent = stage.statements.Take();
    ASSERT_GE(sent.size(), 3u);
    EXPECT_EQ(sent[0], "select count(*) from tTaskList Where taskID =7 And fType<>0");
    EXPECT_EQ(sent[1], "Delete from tTaskList where taskID =7");
    EXPECT_EQ(sent[2], "Delete from tTaskSet where taskID =7");
    EXPECT_EQ(Count(), "2");
    EXPECT_EQ(Count("tTaskSet"), "1");
    EXPECT_EQ(stage.NodeKeys(), "E0 Z8");
    EXPECT_EQ(window.model.currentId, 8);
}

TEST_F(Actions, DeletingAPlanLeavesAVisitThatIsEnteredWhileTheQuestionStands) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    stage.dialogs.whileStanding = [this](const std::string&) {
        stage.Sql("insert into tTaskList(fType,TaskID,taskTitle,tDone) values(1,7,'拜访',0)");
    };
    stage.user.Choose(window.commands.menus.mnuEventDel);
    EXPECT_EQ(stage.Query("select group_concat(taskTitle) from tTaskList where TaskID=7"), "拜访");
    EXPECT_EQ(Count("tTaskSet"), "1");
}

TEST_F(Actions, ItemEntriesDoNotTouchPlansNorPlanEntriesItems) {
    stage.Sql("insert into tTaskSet(TaskID,taskTitle) values(1,'一')");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuEventDel);
    stage.user.Click(window.tree.chkEvent);
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_EQ(Count(), "4");
    EXPECT_EQ(Count("tTaskSet"), "3");
}

TEST_F(Actions, AFailingDeleteKeepsTheNode) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    stage.statements.failing = "from tTaskSet where taskID =7";
    stage.user.Choose(window.commands.menus.mnuEventDel);
    EXPECT_EQ(stage.dialogs.messages.back(), "16|from tTaskSet where taskID =7");
    EXPECT_NE(window.tree.tvwTask.Find("Z7"), forms::TreeView::kNone);
    EXPECT_EQ(Count("tTaskSet"), "2");
    EXPECT_EQ(window.item.txtTitle2.Text(), "计划");
}

TEST_F(Actions, TheDeleteButtonLeavesItsModeUntilTheNextAction) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    Press(3);
    EXPECT_EQ(window.model.editMode, EditMode::Deleting);
    EXPECT_FALSE(window.model.Editing());
    Press(0);
    EXPECT_EQ(window.model.editMode, EditMode::None);
}

TEST_F(Actions, AnAddGoesOnProposingTitlesAfterADeleteCalledOff) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuGuestAdd);
    stage.dialogs.answers = {forms::Answer::Cancel};
    Press(3);
    EXPECT_EQ(window.model.editMode, EditMode::Deleting);
    stage.user.Pick(window.cards.cboComp2, 0);
    window.cards.cboComp2_LostFocus();
    EXPECT_EQ(window.item.txtTitle2.Text(), "某公司--拜访记录");
}

TEST_F(Actions, CustomersThatCannotBeReadBeginNoVisit) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.statements.failing = "from cards";
    stage.user.Choose(window.commands.menus.mnuGuestAdd);
    EXPECT_EQ(window.model.editMode, EditMode::None);
    EXPECT_TRUE(window.item.txtTitle2.Locked());
    EXPECT_EQ(window.item.txtTitle2.Text(), "甲");
    EXPECT_EQ(window.model.currentId, 1);
}

TEST_F(Actions, ADeleteCalledOffDuringAnAddDoesNotTurnItIntoAChange) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    stage.user.Type(window.item.txtTitle2, "新");
    stage.dialogs.answers = {forms::Answer::Cancel};
    Press(3);
    EXPECT_TRUE(window.model.Editing());
    stage.user.Click(window.commands.cmdSave);
    EXPECT_EQ(stage.dialogs.messages.back(), "0|[新]: 新增完毕 ！");
    EXPECT_EQ(Count(), "5");
    EXPECT_EQ(Count("tTaskList where taskTitle='甲'"), "1");
}

TEST_F(Actions, TheQuestionNamesWhatIsDeletedAlsoDuringAnAdd) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    stage.user.Type(window.item.txtTitle2, "新");
    stage.dialogs.answers = {forms::Answer::Ok};
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_EQ(stage.dialogs.messages, Lines{"49|[甲]: 是否删除 ?"});
    EXPECT_EQ(Count("tTaskList where taskTitle='甲'"), "0");
    // While one is changed it is the title that the box shows.
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.Type(window.item.txtTitle2, "改");
    stage.dialogs.answers = {forms::Answer::Cancel};
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_EQ(stage.dialogs.messages.back(), "49|[改]: 是否删除 ?");
}

TEST_F(Actions, DeletingWhatAnotherUserDeletedRemovesItsNode) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.Sql("delete from tTaskList where fID=1");
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_EQ(stage.dialogs.messages, Lines{"49|[甲]: 是否删除 ?"});
    EXPECT_EQ(window.tree.tvwTask.Find("Z1"), forms::TreeView::kNone);
    EXPECT_EQ(window.item.txtTitle2.Text(), "乙");
    stage.user.Click(window.tree.chkEvent);
    ClickNode("Z7");
    stage.Sql("delete from tTaskSet where TaskID=7");
    stage.user.Choose(window.commands.menus.mnuEventDel);
    EXPECT_EQ(window.tree.tvwTask.Find("Z7"), forms::TreeView::kNone);
    EXPECT_EQ(stage.dialogs.messages.size(), 2u);
}

TEST_F(Actions, ANextItemThatCannotBeShownLeavesTheEditorEmpty) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.statements.failing = "where fID=2";
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_EQ(stage.dialogs.messages.back(), "16|where fID=2");
    EXPECT_EQ(Count("tTaskList where fID=1"), "0");
    EXPECT_EQ(window.tree.tvwTask.Find("Z1"), forms::TreeView::kNone);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
    // Nothing is current, so nothing can be deleted by mistake.
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_EQ(stage.dialogs.messages.size(), 2u);
    EXPECT_EQ(Count("tTaskList where fID=2"), "1");
}

TEST_F(Actions, AFailingFirstStatementDeletesNothingOfAPlan) {
    frmTaskMain& window = OpenPlans();
    ClickNode("Z7");
    stage.statements.failing = "Delete from tTaskList";
    stage.user.Choose(window.commands.menus.mnuEventDel);
    EXPECT_EQ(stage.dialogs.messages.back(), "16|Delete from tTaskList");
    EXPECT_EQ(Count("tTaskList where TaskID=7"), "2");
    EXPECT_EQ(Count("tTaskSet where TaskID=7"), "1");
    EXPECT_NE(window.tree.tvwTask.Find("Z7"), forms::TreeView::kNone);
    EXPECT_EQ(window.item.txtTitle2.Text(), "计划");
}

TEST_F(Actions, AGateThatCannotBeAskedGrantsNothing) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.Type(window.item.txtTitle2, "未存");
    stage.statements.failing = "tSysFunc";
    for (int index = 0; index < 4; index++) {
        stage.dialogs.messages.clear();
        Press(index);
        ASSERT_EQ(stage.dialogs.messages.size(), 1u) << index;
        EXPECT_TRUE(stage.dialogs.messages[0].starts_with("16|")) << stage.dialogs.messages[0];
        EXPECT_EQ(window.model.editMode, EditMode::Changing);
        EXPECT_EQ(window.item.txtTitle2.Text(), "未存");
    }
    EXPECT_EQ(Count(), "4");
}

TEST_F(Actions, ADeleteFromTheButtonEndsTheEditOfTheItem) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    Press(3);
    EXPECT_TRUE(window.item.txtTitle2.Locked());
    EXPECT_FALSE(window.commands.cmdSave.Enabled());
    EXPECT_EQ(window.item.txtTitle2.Text(), "乙");
}

TEST_F(Actions, DeletingTheLastNodeClearsTheEditor) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    // The others are gone with the groups that hold them.
    for (const char* key : {"B2", "C3"}) window.tree.tvwTask.Remove(window.tree.tvwTask.Find(key));
    window.tree.tvwTask.Remove(window.tree.tvwTask.Find("A1"));
    const int root = window.tree.tvwTask.Add(forms::TreeView::kNone, "Z1", "x", "task2");
    window.tree.tvwTask.Select(root);
    stage.user.Choose(window.commands.menus.mnuTaskDel);
    EXPECT_EQ(window.tree.tvwTask.Count(), 0);
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
}

}  // namespace
}  // namespace zv::windows
