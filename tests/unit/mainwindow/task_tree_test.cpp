#include "mainwindow/task_tree.h"

#include "main_window_fixture.h"

namespace zv::mainwindow {
namespace {

TEST(KindFromKeyLetter, KnowsTheFourKindsAndKeepsThePresentOtherwise) {
    EXPECT_EQ(KindFromKeyLetter('A', 9), 0);
    EXPECT_EQ(KindFromKeyLetter('B', 9), 1);
    EXPECT_EQ(KindFromKeyLetter('C', 9), 2);
    EXPECT_EQ(KindFromKeyLetter('E', 9), 3);
    for (const char letter : {'D', 'Z', 'a', '\0'}) EXPECT_EQ(KindFromKeyLetter(letter, 2), 2);
}

class Tree : public MainWindow {
 protected:
    Tree() {
        AddItem(0, "报表", 0);
        AddItem(0, "在办", 2);
        AddItem(0, "完成", 1);
        AddItem(2, "日记", 0);
        stage.Sql(
            "insert into cards(fID,CompCode,CompName,\"Name\",telphone) values"
            "(5,'C5','某公司','王五','123')");
        AddItem(1, "拜访", 0);
        stage.Sql("update tTaskList set TaskID=5,fGuest='赵六',fWay='电话' where fType=1");
        stage.Sql(
            "insert into tTaskSet(TaskID,taskTitle,Content,DoneMan,SetMan) values"
            "(7,'计划','说明','执行','设置')");
    }
    std::string Switches() {
        const frmTaskMain& w = *stage.Window();
        const auto flag = [](bool on) { return on ? '1' : '0'; };
        return {flag(w.cmdPrint.Enabled()), flag(w.cmdTaskOK.Enabled()),
                flag(w.menus.mnuTaskDoing.Enabled()), flag(w.menus.mnuTaskDoneOk.Enabled())};
    }
};

TEST_F(Tree, AFillDisablesCompletingAndPrinting) {
    frmTaskMain& window = Open();
    EXPECT_FALSE(window.cmdTaskOK.Enabled());
    EXPECT_FALSE(window.cmdPrint.Enabled());
    ClickNode("Z1");
    EXPECT_TRUE(window.cmdTaskOK.Enabled());
    stage.user.Click(window.cmdSeek);
    EXPECT_FALSE(window.cmdTaskOK.Enabled());
    EXPECT_FALSE(window.cmdPrint.Enabled());
}

TEST_F(Tree, TheStateDigitChoosesTheCommands) {
    Open();
    ClickNode("Z1");
    EXPECT_EQ(Switches(), "1111");
    ClickNode("Z2");
    EXPECT_EQ(Switches(), "1101");
    ClickNode("A1");
    EXPECT_EQ(Switches(), "0001");
    ClickNode("Z3");
    EXPECT_EQ(Switches(), "1000");
    ClickNode("A1");
    EXPECT_EQ(Switches(), "0000");
}

TEST_F(Tree, AnItemIsShownInTheEditor) {
    stage.Sql(
        "update tTaskList set fContent='内容',tDoneMan='张三',fUser='李四',fOther0='o0',"
        "fOther5='o5',taskTime='2003-03-07 08:15:00' where fID=2");
    frmTaskMain& window = Open();
    ClickNode("Z2");
    EXPECT_EQ(stage.statements.Take(), Lines{"select * from tTaskList where fID=2"});
    EXPECT_EQ(window.state.currentItemId, 2);
    EXPECT_EQ(window.state.currentType, kTask);
    EXPECT_EQ(window.SSTab1.Tab(), kItemTab);
    EXPECT_EQ(window.txtTitle2.Text(), "在办");
    EXPECT_EQ(window.txtTaskCon.Text(), "内容");
    EXPECT_EQ(window.cboJbr2.Text(), "张三");
    EXPECT_EQ(window.txtUser2.Text(), "李四");
    EXPECT_EQ(window.txtOther[0].Text() + window.txtOther[5].Text(), "o0o5");
    EXPECT_EQ(window.cboDone2.ListIndex(), kInHand);
    EXPECT_EQ(window.cboType2.ListIndex(), kTask);
    EXPECT_EQ(window.DTPicker2.Value(), DateTime(2003, 3, 7, 8, 15));
    EXPECT_EQ(window.tvwTask.tag, "Z2");
}

TEST_F(Tree, AGuestItemBringsItsCardForward) {
    frmTaskMain& window = Open();
    ClickNode("Z5");
    EXPECT_EQ(window.SSTab1.Tab(), kCardTab);
    EXPECT_EQ(window.state.currentType, kGuest);
    EXPECT_EQ(stage.session.state.cardId, 5);
    EXPECT_EQ(window.cboComp2.ListCount(), 1);
    EXPECT_TRUE(window.cboComp2.Text().starts_with("某公司 "));
    EXPECT_EQ(window.txtTel[0].Text(), "123");
    EXPECT_EQ(window.txtName2.Text(), "赵六");
    EXPECT_EQ(window.cboWay.ListIndex(), 0);
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(Tree, AGuestItemWithoutACardIsTold) {
    stage.Sql("update tTaskList set TaskID=0 where fID=5");
    Open();
    ClickNode("Z5");
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|该客户资料不存在！"});
    stage.Sql("update tTaskList set TaskID=99 where fID=5");
    ClickNode("A1");
    ClickNode("Z5");
    EXPECT_EQ(stage.dialogs.messages.at(1), "48|该客户资料已不存在！");
}

TEST_F(Tree, AnItemThatAnotherUserDeletedEmptiesTheEditor) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.Sql("delete from tTaskList where fID=2");
    ClickNode("Z2");
    EXPECT_EQ(window.state.currentItemId, 0);
    EXPECT_EQ(window.txtTitle2.Text(), "");
}

TEST_F(Tree, AnUnknownWayKeepsItsTextWithoutARow) {
    stage.Sql("update tTaskList set fWay='书信' where fID=5");
    frmTaskMain& window = Open();
    ClickNode("Z5");
    EXPECT_EQ(window.cboWay.Text(), "书信");
    EXPECT_EQ(window.cboWay.ListIndex(), -1);
}

TEST_F(Tree, AnItemWithoutANumberChangesNothingElse) {
    frmTaskMain& window = Open();
    ClickNode("Z3");
    window.state.currentType = kDiary;
    const int node = window.tvwTask.Add(window.tvwTask.Find("A1"), "Z0", "x", "task2");
    stage.statements.Take();
    window.tree.tvwTask_NodeClick(node);
    EXPECT_EQ(window.state.currentItemId, 0);
    EXPECT_EQ(window.state.currentType, kDiary);
    EXPECT_EQ(window.txtTitle2.Text(), "完成");
    EXPECT_EQ(window.tvwTask.tag, "Z3");
    EXPECT_EQ(Switches(), "1000");
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Tree, AGroupClearsTheEditorAndSetsItsKind) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    ClickNode("C3");
    EXPECT_EQ(window.state.currentType, kDiary);
    EXPECT_EQ(window.state.currentItemId, 0);
    EXPECT_EQ(window.txtTitle2.Text(), "");
    EXPECT_EQ(window.cboType2.ListIndex(), kDiary);
    EXPECT_EQ(window.txtUser2.Text(), "张三");
    EXPECT_EQ(window.DTPicker2.Value(), stage.clock.now);
}

TEST_F(Tree, APlanHidesWhatOnlyItemsHave) {
    frmTaskMain& window = Open();
    stage.user.Click(window.chkEvent);
    stage.statements.Take();
    ClickNode("E0");
    EXPECT_FALSE(window.cboType2.Visible());
    EXPECT_FALSE(window.cboDone2.Visible());
    EXPECT_FALSE(window.lblList2[3].Visible());
    EXPECT_FALSE(window.lblList2[13].Visible());
    EXPECT_EQ(Switches(), "0011");
    ClickNode("Z7");
    EXPECT_EQ(stage.statements.Take(),
              Lines{"select taskTitle,Content,DoneMan,SetMan from tTaskSet where taskID=7"});
    EXPECT_EQ(window.txtTitle2.Text() + window.txtTaskCon.Text() + window.cboJbr2.Text() +
                  window.txtUser2.Text(),
              "计划说明执行设置");
    EXPECT_EQ(window.state.currentType, kPlan);
    EXPECT_EQ(window.state.currentItemId, 7);
    EXPECT_EQ(Switches(), "1000");
    stage.user.Click(window.chkEvent);
    ClickNode("A1");
    EXPECT_TRUE(window.cboType2.Visible());
    EXPECT_TRUE(window.lblList2[10].Visible());
}

TEST_F(Tree, TheFilterGivesWayToThePlans) {
    frmTaskMain& window = Open();
    ShowTab(kFilterTab);
    EXPECT_TRUE(window.fraB3.Visible());
    stage.user.Click(window.chkEvent);
    EXPECT_FALSE(window.fraB3.Visible());
    for (int kind = 0; kind < 3; kind++) EXPECT_FALSE(window.chkType[kind].Enabled());
    stage.user.Click(window.chkEvent);
    EXPECT_TRUE(window.fraB3.Visible());
    for (int kind = 0; kind < 3; kind++) EXPECT_TRUE(window.chkType[kind].Enabled());
    EXPECT_EQ(window.state.currentType, kTask);
}

TEST_F(Tree, ARightClickOpensTheMenuOfTheKind) {
    frmTaskMain& window = Open();
    const auto popup = [&](const std::string& key) {
        stage.user.RightClickNode(window.tvwTask, key);
        return window.LastPopup();
    };
    EXPECT_EQ(popup("Z1"), "mnuTask");
    EXPECT_EQ(popup("A1"), "");
    EXPECT_EQ(popup("Z5"), "mnuGuest");
    EXPECT_EQ(popup("Z4"), "mnuDaily");
    EXPECT_EQ(popup("B2"), "");
    stage.user.Click(window.chkEvent);
    EXPECT_EQ(popup("Z7"), "mnuEvent");
    EXPECT_EQ(popup("E0"), "");
}

TEST_F(Tree, ARightClickElsewhereDuringAChangeDoesNothing) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.menus.mnuTaskChg);
    stage.user.Type(window.txtTitle2, "改");
    for (const char* key : {"Z4", "A1", "B2"}) {
        stage.user.RightClickNode(window.tvwTask, key);
        EXPECT_EQ(window.LastPopup(), "") << key;
        EXPECT_EQ(window.tvwTask.Key(window.tvwTask.Selected()), "Z1") << key;
    }
    EXPECT_EQ(window.txtTitle2.Text(), "改");
    stage.user.RightClickNode(window.tvwTask, "Z1");
    EXPECT_EQ(window.LastPopup(), "mnuTask");
    EXPECT_EQ(window.txtTitle2.Text(), "改");
    // Beside the nodes the menu key means the selected one.
    window.ForgetPopup();
    window.tree.PopupContextMenu(0, 0);
    EXPECT_EQ(window.LastPopup(), "mnuTask");
}

TEST_F(Tree, ARightClickDuringAnAddDoesNothing) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.menus.mnuTaskAdd);
    for (const char* key : {"Z1", "Z4"}) {
        stage.user.RightClickNode(window.tvwTask, key);
        EXPECT_EQ(window.LastPopup(), "") << key;
    }
    window.tree.PopupContextMenu(0, 0);
    EXPECT_EQ(window.LastPopup(), "");
}

TEST_F(Tree, TheMenuOpensAtTheMouse) {
    frmTaskMain& window = Open();
    const forms::Rect& tree = window.tvwTask.Bounds();
    ASSERT_GT(tree.top, 0);
    window.tvwTask.UserRightClick(window.tvwTask.Find("Z1"), 30 * forms::kTwipsPerUnit,
                                  44 * forms::kTwipsPerUnit);
    EXPECT_EQ(window.LastPopup(), "mnuTask");
    EXPECT_EQ(window.LastPopupAt(), (forms::Position{tree.left + 30, tree.top + 44}));
}

TEST_F(Tree, ARightClickMakesItsItemTheCurrentOne) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.RightClickNode(window.tvwTask, "Z4");
    EXPECT_EQ(window.state.currentItemId, 4);
    EXPECT_EQ(window.txtTitle2.Text(), "日记");
}

TEST_F(Tree, EnterMovesToTheTitle) {
    frmTaskMain& window = Open();
    stage.user.Key(window.tvwTask, forms::key::kEnter);
    EXPECT_TRUE(window.txtTitle2.HasFocus());
}

TEST_F(Tree, EnterMovesToTheCustomerWhileAVisitIsEdited) {
    frmTaskMain& window = Open();
    ClickNode("Z5");
    window.state.editMode = 2;
    stage.user.Key(window.tvwTask, forms::key::kEnter);
    EXPECT_TRUE(window.cboComp2.HasFocus());
    window.state.editMode = 0;
    stage.user.Key(window.tvwTask, forms::key::kEnter);
    EXPECT_TRUE(window.txtTitle2.HasFocus());
}

TEST_F(Tree, OtherKeysDoNothing) {
    frmTaskMain& window = Open();
    forms::KeyEvent event{forms::key::kEscape};
    window.tree.tvwTask_KeyDown(event);
    EXPECT_EQ(event.code, forms::key::kEscape);
    EXPECT_FALSE(window.txtTitle2.HasFocus());
}

TEST_F(Tree, CardsWithoutACompanyAndBeyondTheCap) {
    stage.Sql(
        "delete from cards; insert into cards(fID,CompName) values(1,'');"
        "with recursive n(i) as (select 2 union all select i+1 from n where i<150) "
        "insert into cards(fID,CompName) select i,'公司'||i from n");
    frmTaskMain& window = Open();
    window.cards.LoadCardList("");
    EXPECT_EQ(window.cboComp2.ListCount(), 101);
    EXPECT_TRUE(window.cboComp2.List(0).starts_with("（空） "));
    EXPECT_EQ(CardPanel::EntryId(window.cboComp2.List(0)), 1);
    EXPECT_EQ(stage.session.state.cardId, 1);
    EXPECT_FALSE(window.cards.LoadCardList("fid=9999"));
    EXPECT_EQ(stage.session.state.cardId, 0);
    EXPECT_EQ(window.cboComp2.ListCount(), 0);
}

}  // namespace
}  // namespace zv::mainwindow
