#include "windows/main/panels/card_panel.h"

#include "panel_fixture.h"

namespace zv::windows {
namespace {

class CardPanelTest : public PanelTest {
 protected:
    CardPanelTest() : panel(form, {tabs, kCardTab}, stage.session) {
        stage.Sql(
            "insert into cards(fID,CompCode,CompName,Name,telphone) "
            "values(3,'C3','甲公司','王五','010-1');"
            "insert into cards(fID,CompCode,CompName,Name) values(4,'C4','乙公司','赵六')");
        panel.LoadLists();
        panel.SetCaptions();
        panel.onLeftWithCompany = [this](const std::string& company) { left.push_back(company); };
        Show();
        tabs.SetTab(kCardTab);
    }
    CardPanel panel;
    Lines left;
};

TEST_F(CardPanelTest, ASearchPicksItsFirstHit) {
    EXPECT_FALSE(panel.Pick());
    stage.user.Type(panel.txtCompSeek, "c3");
    stage.user.Key(panel.txtCompSeek, forms::key::kEnter);
    EXPECT_EQ(panel.Pick(), 3);
    EXPECT_EQ(panel.SelectedCard(), 3);
    EXPECT_EQ(panel.txtName2.Text(), "王五");
    EXPECT_EQ(panel.txtTel[0].Text(), "010-1");
    EXPECT_TRUE(panel.cboComp2.HasFocus());
}

TEST_F(CardPanelTest, WhatTheProgramSelectsIsNoPick) {
    EXPECT_TRUE(panel.LoadCardList(""));
    panel.Select(1);
    EXPECT_NE(panel.SelectedCard(), 0);
    EXPECT_FALSE(panel.Pick());
    stage.user.Pick(panel.cboComp2, 0);
    EXPECT_EQ(panel.Pick(), panel.SelectedCard());
    panel.ForgetPick();
    EXPECT_FALSE(panel.Pick());
}

TEST_F(CardPanelTest, SaysWithWhichCompanyThePickerWasLeft) {
    panel.LoadCardList(cards::IsCard(4));
    panel.cboComp2.SetFocus();
    stage.user.Leave(panel.cboComp2);
    EXPECT_EQ(left, Lines{"乙公司"});
}

TEST_F(CardPanelTest, ASearchInVainLeavesTheCustomerEmpty) {
    panel.LoadCardList("");
    stage.user.Type(panel.txtCompSeek, "nobody");
    stage.user.Key(panel.txtCompSeek, forms::key::kEnter);
    EXPECT_TRUE(panel.LeftEmpty());
    EXPECT_EQ(panel.txtName2.Text(), "");
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(CardPanelTest, ShowsTheFieldsOfTheChosenWay) {
    panel.ShowWay("网页");
    EXPECT_TRUE(panel.txtHttp[0].Visible());
    EXPECT_FALSE(panel.txtTel[0].Visible());
    panel.ShowWay("传真");
    EXPECT_EQ(panel.cboWay.Text(), "传真");
    EXPECT_TRUE(panel.txtTel[0].Visible());
}

TEST_F(CardPanelTest, WithoutACardItsBoxesLookLockedAndStillTakeANumber) {
    EXPECT_TRUE(panel.txtTel[0].LooksLocked());
    stage.user.Type(panel.txtTel[0], "139");
    EXPECT_FALSE(panel.txtTel[0].LooksLocked());
    EXPECT_TRUE(panel.txtTel[1].LooksLocked());
    panel.LoadCardList("fid=3");
    for (int i = 0; i < panel.txtTel.Count(); i++) EXPECT_FALSE(panel.txtTel[i].LooksLocked());
    panel.ClearCardDetail();
    for (const forms::TextBox* box : {&panel.txtTel[3], &panel.txtEmail[0], &panel.txtHttp[1]}) {
        EXPECT_TRUE(box->LooksLocked());
        EXPECT_FALSE(box->Locked());
    }
}

}  // namespace
}  // namespace zv::windows
