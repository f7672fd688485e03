#include "windows/main/acts/item_view.h"

#include "main_window_fixture.h"

namespace zv::windows {
namespace {

class Editor : public MainWindow {
 protected:
    Editor() {
        AddItem(kTask, "甲");
        AddItem(kDiary, "乙");
        stage.Sql("insert into cards(fID,CompCode,CompName) values(5,'C5','某公司')");
        AddItem(kGuest, "拜访");
        stage.Sql(
            "update tTaskList set TaskID=5 where fType=1; "
            "update tTaskList set TaskID=7 where fType=0");
    }
    frmTaskMain& W() { return *stage.Window(); }
};

TEST_F(Editor, IsLockedUntilAnAddOrAChange) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    EXPECT_TRUE(window.item.txtTitle2.Locked());
    EXPECT_TRUE(window.item.cboJbr2.Locked());
    EXPECT_TRUE(window.content.txtTaskCon.Locked());
    for (int i = 0; i < 6; i++) EXPECT_TRUE(window.content.txtOther[i].Locked());
    EXPECT_FALSE(window.item.DTPicker2.Enabled());
    EXPECT_FALSE(window.item.cboType2.Enabled());
    EXPECT_FALSE(window.item.cboDone2.Enabled());
    EXPECT_FALSE(window.commands.cmdSave.Enabled());
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    EXPECT_FALSE(window.item.txtTitle2.Locked());
    EXPECT_FALSE(window.item.cboJbr2.Locked());
    EXPECT_FALSE(window.content.txtTaskCon.Locked());
    for (int i = 0; i < 6; i++) EXPECT_FALSE(window.content.txtOther[i].Locked());
    EXPECT_TRUE(window.item.DTPicker2.Enabled());
    EXPECT_TRUE(window.item.cboType2.Enabled());
    EXPECT_TRUE(window.item.cboDone2.Enabled());
    EXPECT_TRUE(window.commands.cmdSave.Enabled());
    EXPECT_TRUE(window.item.txtUser2.Locked());
}

TEST_F(Editor, ClearingSelectsTheFirstRowsAndTheKindInTheTree) {
    frmTaskMain& window = Open();
    ClickNode("Z3");
    ShowTab(kCardTab);
    stage.user.Pick(window.cards.cboWay, 2);
    ClickNode("C3");
    EXPECT_EQ(window.item.cboDone2.ListIndex(), kNotDone);
    EXPECT_EQ(window.cards.cboWay.ListIndex(), 0);
    EXPECT_EQ(window.item.cboType2.ListIndex(), kDiary);
    EXPECT_EQ(window.item.txtUser2.Text(), "张三");
    EXPECT_EQ(window.cards.cboComp2.ListIndex(), -1);
    EXPECT_EQ(stage.session.state.cardId, 0);
    EXPECT_EQ(window.cards.txtCompSeek.Text(), "");
}

TEST_F(Editor, AnItemWithoutADateShowsThePresentOne) {
    stage.Sql("update tTaskList set taskTime=null where fID=2");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.clock.Set(DateTime(2003, 3, 7, 11, 0));
    ClickNode("Z2");
    EXPECT_EQ(window.item.DTPicker2.Value(), DateTime(2003, 3, 7, 11, 0));
}

TEST_F(Editor, MissingValuesShowAsEmptyTexts) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    EXPECT_EQ(window.item.cboJbr2.Text() + window.item.txtUser2.Text() +
                  window.cards.cboWay.Text() + window.cards.txtName2.Text() +
                  window.content.txtOther[3].Text(),
              "");
}

TEST_F(Editor, AFailedLoadLeavesNeitherHalfAnItemNorTheOneBefore) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.statements.failing = "where fID=2";
    ClickNode("Z2");
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|where fID=2"});
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
    EXPECT_FALSE(window.view.RowAsRead());
    // With a value that the editor cannot show the same.
    stage.statements.failing.clear();
    stage.Sql("update tTaskList set TaskID=99999999999 where fID=2");
    ClickNode("Z2");
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(stage.dialogs.messages.size(), 2u);
}

TEST_F(Editor, APlanThatIsGoneOrCannotBeReadLeavesNotTheOneBefore) {
    stage.Sql(
        "insert into tTaskSet(TaskID,taskTitle) values(7,'计划');"
        "insert into tTaskSet(TaskID,taskTitle) values(8,'另一')");
    frmTaskMain& window = Open();
    stage.user.Click(window.tree.chkEvent);
    ClickNode("Z7");
    EXPECT_EQ(window.item.txtTitle2.Text(), "计划");
    stage.statements.failing = "where taskID=8";
    ClickNode("Z8");
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
    stage.statements.failing.clear();
    ClickNode("Z7");
    stage.Sql("delete from tTaskSet where TaskID=8");
    ClickNode("Z8");
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
    stage.user.Choose(window.commands.menus.mnuEventDel);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(Editor, RemembersTheRowAsRead) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    ASSERT_TRUE(window.view.RowAsRead());
    EXPECT_EQ((*window.view.RowAsRead())[items::field::kTitle], store::Value("甲"));
    window.view.NoteStored(items::field::kState, 1);
    EXPECT_EQ((*window.view.RowAsRead())[items::field::kState], store::Value(1));
    ClickNode("A1");
    EXPECT_FALSE(window.view.RowAsRead());
    window.view.NoteStored(items::field::kState, 1);
    EXPECT_FALSE(window.view.RowAsRead());
}

TEST_F(Editor, ATaskThatBecomesAVisitNeedsACardOfItsOwn) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    EXPECT_EQ(stage.session.state.cardId, 7);
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.Pick(window.item.cboType2, kGuest);
    EXPECT_EQ(stage.session.state.cardId, 0);
    // And back it belongs to its plan again.
    stage.user.Pick(window.item.cboType2, kTask);
    EXPECT_EQ(stage.session.state.cardId, 7);
}

TEST_F(Editor, AVisitThatBecomesADiaryEntryLosesItsCard) {
    frmTaskMain& window = Open();
    ClickNode("Z3");
    stage.user.Choose(window.commands.menus.mnuGuestChg);
    stage.user.Pick(window.item.cboType2, kDiary);
    EXPECT_EQ(stage.session.state.cardId, 0);
    stage.user.Pick(window.item.cboType2, kGuest);
    EXPECT_EQ(stage.session.state.cardId, 5);
}

TEST_F(Editor, AVisitWithoutACardShowsNothingOfTheCardBefore) {
    AddItem(kGuest, "无客户");
    stage.Sql("update cards set telphone='111',CompAdd='一路' where fID=5");
    for (const char* card : {"0", "-5", "null"}) {
        stage.Sql("update tTaskList set fGuest='客人',TaskID=" + std::string(card) +
                  " where taskTitle='无客户'");
        frmTaskMain& window = Open();
        ClickNode("Z3");
        EXPECT_EQ(window.cards.txtTel[0].Text(), "111");
        stage.dialogs.messages.clear();
        ClickNode("Z4");
        EXPECT_EQ(stage.dialogs.messages, Lines{"48|该客户资料不存在！"}) << card;
        EXPECT_EQ(window.cards.cboComp2.ListIndex(), -1);
        EXPECT_EQ(window.cards.txtTel[0].Text(), "");
        EXPECT_EQ(window.cards.txtAdd2.Text(), "");
        EXPECT_EQ(window.cards.txtName2.Text(), "客人");
        EXPECT_EQ(window.item.txtTitle2.Text(), "无客户");
        window.Unload();
    }
}

TEST_F(Editor, AVisitWhoseCardCannotBeReadIsNotShownInHalf) {
    frmTaskMain& window = Open();
    for (const char* statement : {"Order by compname,name", "from cards where fID=5"}) {
        ClickNode("Z1");
        stage.dialogs.messages.clear();
        stage.statements.failing = statement;
        ClickNode("Z3");
        EXPECT_EQ(stage.dialogs.messages, Lines{std::string("16|") + statement});
        EXPECT_EQ(window.item.txtTitle2.Text(), "");
        EXPECT_EQ(window.model.currentId, 0);
        EXPECT_FALSE(window.view.RowAsRead());
        stage.statements.failing.clear();
        ClickNode("Z3");
        EXPECT_EQ(window.item.txtTitle2.Text(), "拜访");
        EXPECT_EQ(stage.session.state.cardId, 5);
    }
}

TEST_F(Editor, AnOwnerBeyondThirtyTwoBitsIsAnOverflow) {
    stage.Sql("update tTaskList set TaskID=5000000000 where fType=1");
    frmTaskMain& window = Open();
    ClickNode("Z3");
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|数值溢出"});
    EXPECT_EQ(window.model.currentId, 0);
    EXPECT_EQ(window.item.txtTitle2.Text(), "");
}

TEST_F(Editor, EnterMovesOnInItsFields) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.Key(window.item.txtTitle2, forms::key::kEnter);
    EXPECT_FALSE(window.item.txtTitle2.HasFocus());
    stage.user.Key(window.content.txtOther[0], forms::key::kEnter);
    EXPECT_TRUE(window.content.txtOther[1].HasFocus());
    window.item.txtTitle2.SetFocus();
    EXPECT_EQ(window.item.txtTitle2.SelLength(), 1);
}

TEST_F(Editor, LeavingTheCustomerProposesTheTitleWhileAVisitIsEdited) {
    frmTaskMain& window = Open();
    ClickNode("Z3");
    stage.user.Leave(window.cards.cboComp2);
    EXPECT_EQ(window.item.txtTitle2.Text(), "拜访");
    stage.user.Choose(window.commands.menus.mnuGuestChg);
    stage.user.Leave(window.cards.cboComp2);
    EXPECT_EQ(window.item.txtTitle2.Text(), "某公司--拜访记录");
    stage.user.Pick(window.cards.cboComp2, -1);
    stage.user.Type(window.item.txtTitle2, "自己写的");
    stage.user.Leave(window.cards.cboComp2);
    EXPECT_EQ(window.item.txtTitle2.Text(), "自己写的");
}

TEST_F(Editor, EnterInTheCustomerMovesToTheTitle) {
    frmTaskMain& window = Open();
    ClickNode("Z3");
    stage.user.Key(window.cards.cboComp2, forms::key::kEnter);
    EXPECT_TRUE(window.item.txtTitle2.HasFocus());
}

}  // namespace
}  // namespace zv::windows
