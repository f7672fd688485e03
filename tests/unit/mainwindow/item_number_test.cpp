// Which card or plan an item is stored with.
#include "save_item_fixture.h"

namespace zv::windows {
namespace {

using ItemNumber = SaveItem;

TEST_F(ItemNumber, WhateverItsKindItTakesTheCardThatIsPickedMeanwhile) {
    stage.Sql("insert into cards(fID,CompCode,CompName) values(9,'C9','某公司')");
    frmTaskMain& window = Change();
    const auto lookUp = [&] {
        ShowTab(kCardTab);
        stage.user.Type(window.cards.txtCompSeek, "C9");
        stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
        EXPECT_EQ(stage.session.state.cardId, 9);
    };
    lookUp();
    Save();
    EXPECT_EQ(Row("fType||'|'||TaskID"), "0|9");
    stage.user.Choose(window.commands.menus.mnuDailyAdd);
    lookUp();
    Save();
    EXPECT_EQ(Row("TaskID", "tTaskList where fType=2"), "9");
}

TEST_F(ItemNumber, AKindChangedToAVisitAndBackKeepsThePlan) {
    frmTaskMain& window = Change();
    stage.user.Pick(window.item.cboType2, kGuest);
    EXPECT_EQ(stage.session.state.cardId, 0);
    stage.user.Pick(window.item.cboType2, 0);
    Save();
    EXPECT_EQ(Row("fType||'|'||TaskID"), "0|7");
}

TEST_F(ItemNumber, AVisitThatWasLookedAtBeforeIsNoPickForATask) {
    stage.Sql(
        "insert into cards(fID,CompName) values(5,'某公司');"
        "insert into tTaskList(fType,TaskID,taskTitle,taskTime,tDuring1,tDuring2,tDone) "
        "values(1,5,'访','2003-03-07 00:00:00','2003-03-07 00:00:00','2003-03-07 00:00:00',0)");
    frmTaskMain& window = Open();
    ClickNode("Z2");
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuTaskChg);
    stage.user.Pick(window.item.cboType2, kGuest);
    EXPECT_EQ(window.cards.SelectedCard(), 0);
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|请输入客户资料！"});
    EXPECT_EQ(Row("fType||'|'||TaskID"), "0|7");
    // Chosen from the same list it is one.
    stage.user.Pick(window.cards.cboComp2, 0);
    Save();
    EXPECT_EQ(Row("fType||'|'||TaskID"), "1|5");
}

TEST_F(ItemNumber, APickStaysWhateverTheKindBecomes) {
    stage.Sql("insert into cards(fID,CompCode,CompName) values(9,'C9','某公司')");
    frmTaskMain& window = Change();
    ShowTab(kCardTab);
    stage.user.Type(window.cards.txtCompSeek, "C9");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    for (const int kind : {kGuest, kDiary, kTask, kGuest}) {
        stage.user.Pick(window.item.cboType2, kind);
        EXPECT_EQ(stage.session.state.cardId, 9);
    }
    Save();
    EXPECT_EQ(Row("fType||'|'||TaskID"), "1|9");
}

TEST_F(ItemNumber, WithoutAPickTheNumberOfAVisitMeansNothingToATask) {
    stage.Sql(
        "insert into cards(fID,CompName) values(5,'某公司');"
        "update tTaskList set fType=1,TaskID=5");
    frmTaskMain& window = Change();
    window.filter.DTPicker1.SetValue(DateTime(2003, 3, 8));
    stage.user.Pick(window.item.cboType2, kTask);
    stage.user.Pick(window.item.cboType2, kGuest);
    Save();
    EXPECT_EQ(Row("fType||'|'||TaskID"), "1|5");
    ClickNode("Z1");
    stage.user.Choose(window.commands.menus.mnuGuestChg);
    stage.user.Pick(window.item.cboType2, kDiary);
    Save();
    EXPECT_EQ(Row("fType||'|'||TaskID"), "2|0");
}

TEST_F(ItemNumber, ASearchInVainTakesATaskFromNoPlan) {
    frmTaskMain& window = Change();
    ShowTab(kCardTab);
    stage.user.Type(window.cards.txtCompSeek, "nobody");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    Save();
    EXPECT_EQ(Row("fType||'|'||TaskID"), "0|7");
}

TEST_F(ItemNumber, ATaskWithACardOfAPlansNumberIsAskedAbout) {
    stage.Sql(
        "insert into cards(fID,CompCode,CompName) values(9,'C9','某公司');"
        "insert into tTaskSet(TaskID,taskTitle) values(9,'月报')");
    frmTaskMain& window = Change();
    ShowTab(kCardTab);
    stage.user.Type(window.cards.txtCompSeek, "C9");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    stage.dialogs.answers = {forms::Answer::Cancel};
    Save();
    ASSERT_EQ(stage.dialogs.messages.size(), 1u);
    EXPECT_TRUE(stage.dialogs.messages[0].starts_with("49|管理事件 [9 - 月报]: "))
        << stage.dialogs.messages[0];
    EXPECT_NE(stage.dialogs.messages[0].find("将属于该事件"), std::string::npos);
    EXPECT_EQ(Row("TaskID"), "7");
    EXPECT_TRUE(window.model.Editing());
    // A visit under that number is nobody's.
    stage.user.Pick(window.item.cboType2, kGuest);
    Save();
    EXPECT_EQ(stage.dialogs.messages.size(), 2u);
    EXPECT_EQ(Row("fType||'|'||TaskID"), "1|9");
    stage.user.Choose(window.commands.menus.mnuTaskAdd);
    ShowTab(kCardTab);
    stage.user.Type(window.cards.txtCompSeek, "C9");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    stage.dialogs.answers = {forms::Answer::Ok};
    Save();
    EXPECT_EQ(Row("TaskID", "tTaskList where fType=0"), "9");
}

TEST_F(ItemNumber, AGuestItemNeedsACard) {
    frmTaskMain& window = Open();
    stage.user.Choose(window.commands.menus.mnuGuestAdd);
    ShowTab(kItemTab);
    stage.statements.Take();
    Save();
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|请输入客户资料！"});
    EXPECT_TRUE(window.cards.txtCompSeek.HasFocus());
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_TRUE(window.model.Editing());
    // A number below 1 is no card either.
    stage.session.state.cardId = -5;
    Save();
    EXPECT_EQ(stage.dialogs.messages.size(), 2u);
    EXPECT_EQ(Row("count(*)", "tTaskList"), "1");
}

TEST_F(ItemNumber, AGuestItemTakesTheCardAsItsOwner) {
    stage.Sql(
        "insert into cards(fID,CompCode,CompName,\"Name\") values(70000,'C7','某公司','孙七')");
    frmTaskMain& window = Open();
    stage.user.Choose(window.commands.menus.mnuGuestAdd);
    stage.user.Type(window.cards.txtCompSeek, "c7");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    stage.user.Key(window.cards.cboComp2, forms::key::kEnter);
    EXPECT_EQ(window.item.txtTitle2.Text(), "某公司--拜访记录");
    Save();
    EXPECT_EQ(Row("TaskID||'|'||fGuest||'|'||taskTitle||'|'||fWay", "tTaskList where fType=1"),
              "70000|孙七|某公司--拜访记录|电话");
}

TEST_F(ItemNumber, KeepsWhatTheItemBelongsTo) {
    Change();
    Save();
    EXPECT_EQ(Row("TaskID"), "7");
}

}  // namespace
}  // namespace zv::windows
