#include "windows/main/panels/tree_panel.h"

#include "main_window_fixture.h"

namespace zv::windows {
namespace {

TEST(KindFromKeyLetter, KnowsTheFourKindsAndKeepsThePresentOtherwise) {
    EXPECT_EQ(KindFromKeyLetter('A', NodeKind::Guest), NodeKind::Task);
    EXPECT_EQ(KindFromKeyLetter('B', NodeKind::Plan), NodeKind::Guest);
    EXPECT_EQ(KindFromKeyLetter('C', NodeKind::Guest), NodeKind::Diary);
    EXPECT_EQ(KindFromKeyLetter('E', NodeKind::Guest), NodeKind::Plan);
    for (const char letter : {'D', 'Z', 'a', '\0'})
        EXPECT_EQ(KindFromKeyLetter(letter, NodeKind::Diary), NodeKind::Diary);
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
        return {flag(w.commands.cmdPrint.Enabled()), flag(w.commands.cmdTaskOK.Enabled()),
                flag(w.commands.menus.mnuTaskDoing.Enabled()),
                flag(w.commands.menus.mnuTaskDoneOk.Enabled())};
    }
};

TEST_F(Tree, AFillDisablesCompletingAndPrinting) {
    frmTaskMain& window = Open();
    EXPECT_FALSE(window.commands.cmdTaskOK.Enabled());
    EXPECT_FALSE(window.commands.cmdPrint.Enabled());
    ClickNode("Z1");
    EXPECT_TRUE(window.commands.cmdTaskOK.Enabled());
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_FALSE(window.commands.cmdTaskOK.Enabled());
    EXPECT_FALSE(window.commands.cmdPrint.Enabled());
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
    EXPECT_EQ(window.model.currentId, 2);
    EXPECT_EQ(window.model.currentKind, NodeKind::Task);
    EXPECT_EQ(window.SSTab1.Tab(), kItemTab);
    EXPECT_EQ(window.item.txtTitle2.Text(), "在办");
    EXPECT_EQ(window.content.txtTaskCon.Text(), "内容");
    EXPECT_EQ(window.item.cboJbr2.Text(), "张三");
    EXPECT_EQ(window.item.txtUser2.Text(), "李四");
    EXPECT_EQ(window.content.txtOther[0].Text() + window.content.txtOther[5].Text(), "o0o5");
    EXPECT_EQ(window.item.cboDone2.ListIndex(), kInHand);
    EXPECT_EQ(window.item.cboType2.ListIndex(), kTask);
    EXPECT_EQ(window.item.DTPicker2.Value(), DateTime(2003, 3, 7, 8, 15));
    EXPECT_EQ(window.tree.tvwTask.tag, "Z2");
}

TEST_F(Tree, AGuestItemBringsItsCardForward) {
    frmTaskMain& window = Open();
    ClickNode("Z5");
    EXPECT_EQ(window.SSTab1.Tab(), kCardTab);
    EXPECT_EQ(window.model.currentKind, NodeKind::Guest);
    EXPECT_EQ(stage.session.state.cardId, 5);
    EXPECT_EQ(window.cards.cboComp2.ListCount(), 1);
    EXPECT_TRUE(window.cards.cboComp2.Text().starts_with("某公司 "));
    EXPECT_EQ(window.cards.txtTel[0].Text(), "123");
    EXPECT_EQ(window.cards.txtName2.Text(), "赵六");
    EXPECT_EQ(window.cards.cboWay.ListIndex(), 0);
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(Tree, AGuestItemWithoutACardIsReported) {
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
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
}

TEST_F(Tree, AnUnknownWayKeepsItsTextWithoutARow) {
    stage.Sql("update tTaskList set fWay='书信' where fID=5");
    frmTaskMain& window = Open();
    ClickNode("Z5");
    EXPECT_EQ(window.cards.cboWay.Text(), "书信");
    EXPECT_EQ(window.cards.cboWay.ListIndex(), -1);
}

TEST_F(Tree, AnItemWithoutANumberChangesNothingElse) {
    frmTaskMain& window = Open();
    ClickNode("Z3");
    window.model.currentKind = NodeKind::Diary;
    const int node = window.tree.tvwTask.Add(window.tree.tvwTask.Find("A1"), "Z0", "x", "task2");
    stage.statements.Take();
    window.selection.tvwTask_NodeClick(node);
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.model.currentKind, NodeKind::Diary);
    EXPECT_EQ(window.item.txtTitle2.Text(), "完成");
    EXPECT_EQ(window.tree.tvwTask.tag, "Z3");
    EXPECT_EQ(Switches(), "1000");
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Tree, AGroupClearsTheEditorAndSetsItsKind) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    ClickNode("C3");
    EXPECT_EQ(window.model.currentKind, NodeKind::Diary);
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
    EXPECT_EQ(window.item.cboType2.ListIndex(), kDiary);
    EXPECT_EQ(window.item.txtUser2.Text(), "张三");
    EXPECT_EQ(window.item.DTPicker2.Value(), stage.clock.Now());
}

TEST_F(Tree, APlanHidesWhatOnlyItemsHave) {
    frmTaskMain& window = Open();
    stage.user.Click(window.tree.chkEvent);
    stage.statements.Take();
    ClickNode("E0");
    EXPECT_FALSE(window.item.cboType2.Visible());
    EXPECT_FALSE(window.item.cboDone2.Visible());
    EXPECT_FALSE(window.item.lblKind.Visible());
    EXPECT_FALSE(window.content.lblOthers.Visible());
    EXPECT_EQ(Switches(), "0011");
    ClickNode("Z7");
    EXPECT_EQ(stage.statements.Take(),
              Lines{"select taskTitle,Content,DoneMan,SetMan from tTaskSet where taskID=7"});
    EXPECT_EQ(window.item.txtTitle2.Text() + window.content.txtTaskCon.Text() +
                  window.item.cboJbr2.Text() + window.item.txtUser2.Text(),
              "计划说明执行设置");
    EXPECT_EQ(window.model.currentKind, NodeKind::Plan);
    EXPECT_EQ(window.model.currentId, 7);
    EXPECT_EQ(Switches(), "1000");
    stage.user.Click(window.tree.chkEvent);
    ClickNode("A1");
    EXPECT_TRUE(window.item.cboType2.Visible());
    EXPECT_TRUE(window.item.lblState.Visible());
}

TEST_F(Tree, TheFilterGivesWayToThePlans) {
    frmTaskMain& window = Open();
    ShowTab(kFilterTab);
    EXPECT_TRUE(window.filter.fraB3.Visible());
    stage.user.Click(window.tree.chkEvent);
    EXPECT_FALSE(window.filter.fraB3.Visible());
    for (int kind = 0; kind < 3; kind++) EXPECT_FALSE(window.filter.chkType[kind].Enabled());
    stage.user.Click(window.tree.chkEvent);
    EXPECT_TRUE(window.filter.fraB3.Visible());
    for (int kind = 0; kind < 3; kind++) EXPECT_TRUE(window.filter.chkType[kind].Enabled());
    EXPECT_EQ(window.model.currentKind, NodeKind::Task);
}

TEST_F(Tree, ARightClickOpensTheMenuOfTheKind) {
    frmTaskMain& window = Open();
    const auto popup = [&](const std::string& key) {
        stage.user.RightClickNode(window.tree.tvwTask, key);
        return window.LastPopup();
    };
    EXPECT_EQ(popup("Z1"), "mnuTask");
    EXPECT_EQ(popup("A1"), "");
    EXPECT_EQ(popup("Z5"), "mnuGuest");
    EXPECT_EQ(popup("Z4"), "mnuDaily");
    EXPECT_EQ(popup("B2"), "");
    stage.user.Click(window.tree.chkEvent);
    EXPECT_EQ(popup("Z7"), "mnuEvent");
    EXPECT_EQ(popup("E0"), "");
}

TEST_F(Tree, ARightClickElsewhereDuringAChangeDoesNothing) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.Type(window.item.txtTitle2, "改");
    for (const char* key : {"Z4", "A1", "B2"}) {
        stage.user.RightClickNode(window.tree.tvwTask, key);
        EXPECT_EQ(window.LastPopup(), "") << key;
        EXPECT_EQ(window.tree.tvwTask.Key(window.tree.tvwTask.Selected()), "Z1") << key;
    }
    EXPECT_EQ(window.item.txtTitle2.Text(), "改");
    stage.user.RightClickNode(window.tree.tvwTask, "Z1");
    EXPECT_EQ(window.LastPopup(), "mnuTask");
    EXPECT_EQ(window.item.txtTitle2.Text(), "改");
    // Beside the nodes the menu key means the selected one.
    window.ForgetPopup();
    window.selection.PopupContextMenu(0, 0);
    EXPECT_EQ(window.LastPopup(), "mnuTask");
}

TEST_F(Tree, ARightClickDuringAnAddDoesNothing) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    for (const char* key : {"Z1", "Z4"}) {
        stage.user.RightClickNode(window.tree.tvwTask, key);
        EXPECT_EQ(window.LastPopup(), "") << key;
    }
    window.selection.PopupContextMenu(0, 0);
    EXPECT_EQ(window.LastPopup(), "");
}

TEST_F(Tree, TheMenuOpensAtTheMouse) {
    frmTaskMain& window = Open();
    const forms::Rect& tree = window.tree.tvwTask.Bounds();
    ASSERT_GT(tree.top, 0);
    window.tree.tvwTask.UserRightClick(window.tree.tvwTask.Find("Z1"), 30 * forms::kTwipsPerUnit,
                                       44 * forms::kTwipsPerUnit);
    EXPECT_EQ(window.LastPopup(), "mnuTask");
    EXPECT_EQ(window.LastPopupAt(), (forms::Position{tree.left + 30, tree.top + 44}));
}

TEST_F(Tree, ARightClickMakesItsItemTheCurrentOne) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.RightClickNode(window.tree.tvwTask, "Z4");
    EXPECT_EQ(window.model.currentId, 4);
    EXPECT_EQ(window.item.txtTitle2.Text(), "日记");
}

TEST_F(Tree, EnterMovesToTheTitle) {
    frmTaskMain& window = Open();
    stage.user.Key(window.tree.tvwTask, forms::key::kEnter);
    EXPECT_TRUE(window.item.txtTitle2.HasFocus());
}

TEST_F(Tree, EnterMovesToTheCustomerWhileAVisitIsEdited) {
    frmTaskMain& window = Open();
    ClickNode("Z5");
    window.model.editMode = EditMode::Changing;
    stage.user.Key(window.tree.tvwTask, forms::key::kEnter);
    EXPECT_TRUE(window.cards.cboComp2.HasFocus());
    window.model.editMode = EditMode::None;
    stage.user.Key(window.tree.tvwTask, forms::key::kEnter);
    EXPECT_TRUE(window.item.txtTitle2.HasFocus());
}

TEST_F(Tree, OtherKeysDoNothing) {
    frmTaskMain& window = Open();
    forms::KeyEvent event{forms::key::kEscape};
    window.tree.tvwTask_KeyDown(event);
    EXPECT_EQ(event.code, forms::key::kEscape);
    EXPECT_FALSE(window.item.txtTitle2.HasFocus());
}

TEST_F(Tree, CardsWithoutACompanyAndBeyondTheCap) {
    stage.Sql(
        "delete from cards; insert into cards(fID,CompName) values(1,'');"
        "with recursive n(i) as (select 2 union all select i+1 from n where i<150) "
        "insert into cards(fID,CompName) select i,'公司'||i from n");
    frmTaskMain& window = Open();
    window.cards.LoadCardList("");
    EXPECT_EQ(window.cards.cboComp2.ListCount(), 101);
    EXPECT_TRUE(window.cards.cboComp2.List(0).starts_with("（空） "));
    EXPECT_EQ(CardPanel::EntryId(window.cards.cboComp2.List(0)), 1);
    EXPECT_EQ(stage.session.state.cardId, 1);
    EXPECT_FALSE(window.cards.LoadCardList("fid=9999"));
    EXPECT_EQ(stage.session.state.cardId, 0);
    EXPECT_EQ(window.cards.cboComp2.ListCount(), 0);
}

}  // namespace
}  // namespace zv::windows
