#include "windows/main/panels/card_panel.h"

#include "main_window_fixture.h"

namespace zv::windows {
namespace {

class CardSearchTest : public MainWindow {
 protected:
    CardSearchTest() {
        stage.Sql(
            "insert into cards(fID,CompCode,CompName,BoxID) values(5,'C5','甲公司',3);"
            "insert into cards(fID,CompCode,CompName,BoxID) values(6,'C55','乙公司',4);"
            "insert into cards(fID,CompCode,CompName) values(7,'X','Beta');"
            "insert into cards(fID,CompCode,CompName) values(8,'C5Y','')");
    }
    void Find(const std::string& text) {
        frmTaskMain& window = *stage.Window();
        ShowTab(kCardTab);
        stage.user.Type(window.cards.txtCompSeek, text);
        stage.statements.Take();
        stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    }
    static constexpr const char* kSelect =
        "select fID,CompCode,compname,name,telphone,homephone,handphone,fax,"
        "E_mail,HomeEmail,http,HomeHttp from cards  Where ";
};

TEST_F(CardSearchTest, TheExactCodeFirst) {
    frmTaskMain& window = Open();
    Find("c5");
    const Lines sent = stage.statements.Take();
    ASSERT_EQ(sent.size(), 3u);
    EXPECT_EQ(sent[0], "select count(*) from cards Where CompCode = 'C5'");
    EXPECT_EQ(sent[1], kSelect + std::string("CompCode = 'C5' Order by compname,name"));
    EXPECT_TRUE(sent[2].ends_with(" from cards where fID=5"));
    EXPECT_EQ(stage.session.state.cardId, 5);
    EXPECT_TRUE(window.cards.cboComp2.HasFocus());
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(CardSearchTest, APartOfTheCodeOrTheNameOtherwise) {
    frmTaskMain& window = Open();
    Find("公司");
    EXPECT_EQ(stage.statements.Take().at(1),
              kSelect + std::string(
                            "(CompCode like '%公司%' or CompName like '%公司%') And CompName <> ''"
                            " Order by compname,name"));
    EXPECT_EQ(window.cards.cboComp2.ListCount(), 2);
    Find("bet");
    EXPECT_EQ(stage.session.state.cardId, 7);
}

TEST_F(CardSearchTest, TheTextBecomesCapitals) {
    frmTaskMain& window = Open();
    Find("zzz");
    EXPECT_EQ(window.cards.txtCompSeek.Text(), "");
    EXPECT_TRUE(stage.dialogs.messages == Lines{"64|未有符合条件的客户资料！"});
    stage.user.Type(window.cards.txtCompSeek, "it's");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    EXPECT_EQ(window.cards.txtCompSeek.Text(), "IT'S");
}

TEST_F(CardSearchTest, NothingFoundLeavesTheListEmptyAndNoCard) {
    frmTaskMain& window = Open();
    Find("C5");
    Find("nobody");
    EXPECT_EQ(stage.dialogs.messages, Lines{"64|未有符合条件的客户资料！"});
    EXPECT_EQ(window.cards.cboComp2.ListCount(), 0);
    EXPECT_EQ(stage.session.state.cardId, 0);
    EXPECT_EQ(window.cards.txtAdd2.Text(), "");
}

TEST_F(CardSearchTest, TheCardBoxNarrowsEveryFilter) {
    stage.session.state.AlertType = 4;
    Open();
    Find("C5");
    const Lines sent = stage.statements.Take();
    EXPECT_EQ(sent.at(0), "select count(*) from cards Where CompCode = 'C5' And BoxID=4");
    EXPECT_TRUE(sent.at(1).find("And CompName <> '' And BoxID=4 Order by") != std::string::npos)
        << sent.at(1);
    EXPECT_EQ(stage.session.state.cardId, 6);
}

TEST_F(CardSearchTest, AnEmptyTextAndOtherKeysSearchNothing) {
    frmTaskMain& window = Open();
    Find("");
    EXPECT_TRUE(stage.statements.Take().empty());
    stage.user.Type(window.cards.txtCompSeek, "C5");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kDown);
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(CardSearchTest, AQuoteIsRefused) {
    frmTaskMain& window = Open();
    Find("' or '1'='1");
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|文本错误: 文本中不可含有<引号>或<单引号> !"});
    EXPECT_TRUE(window.cards.txtCompSeek.HasFocus());
    EXPECT_EQ(window.cards.txtCompSeek.SelLength(), 11);
}

TEST_F(CardSearchTest, ACountThatFailsWidensTheSearch) {
    Open();
    stage.statements.failing = "count(*)";
    Find("C55");
    EXPECT_EQ(stage.session.state.cardId, 6);
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(CardSearchTest, AFailingSearchKeepsTheListAndSaysWhy) {
    frmTaskMain& window = Open();
    Find("C55");
    stage.statements.failing = "Order by compname";
    Find("X");
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|Order by compname"});
    EXPECT_EQ(stage.session.state.cardId, 6);
    EXPECT_EQ(window.cards.cboComp2.ListCount(), 1);
    EXPECT_EQ(window.cards.txtCompSeek.Text(), "X");
}

TEST_F(CardSearchTest, ACardThatCannotBeReadLeavesNoForeignAddresses) {
    stage.Sql("update cards set telphone='111' where fID=5");
    frmTaskMain& window = Open();
    Find("C5");
    EXPECT_EQ(window.cards.txtTel[0].Text(), "111");
    stage.statements.failing = "from cards where fID=6";
    Find("C55");
    EXPECT_EQ(window.cards.txtTel[0].Text(), "");
    EXPECT_EQ(stage.session.state.cardId, 0);
    EXPECT_EQ(window.cards.cboComp2.ListIndex(), -1);
}

TEST_F(CardSearchTest, TheAddressIsJoinedFromItsParts) {
    stage.Sql("update cards set province='广东',cityname='广州',CompAdd='一路' where fID=5");
    stage.Sql("update cards set CompAdd='二路' where fID=6");
    frmTaskMain& window = Open();
    Find("C5");
    EXPECT_EQ(window.cards.txtAdd2.Text(), "广东广州,一路");
    Find("C55");
    EXPECT_EQ(window.cards.txtAdd2.Text(), "二路");
}

TEST_F(CardSearchTest, ShowingNoCardReadsNothing) {
    frmTaskMain& window = Open();
    Find("C5");
    stage.statements.Take();
    window.cards.ShowCard(0);
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(window.cards.txtCompSeek.Text(), "C5");
}

TEST_F(CardSearchTest, MissingNegativeAndLargeCardsEmptyTheDetail) {
    frmTaskMain& window = Open();
    for (const std::int32_t card : {-5, 99999, 2147483647}) {
        Find("C5");
        window.cards.ShowCard(card);
        EXPECT_EQ(window.cards.txtCompSeek.Text(), "") << card;
        EXPECT_EQ(window.cards.cboComp2.ListIndex(), -1) << card;
        EXPECT_EQ(stage.session.state.cardId, 0) << card;
    }
}

TEST_F(CardSearchTest, ACardShownIntoAnEmptyListBecomesItsEntry) {
    stage.Sql("insert into cards(fID,CompName) values(70000,'')");
    frmTaskMain& window = Open();
    window.cards.ShowCard(70000);
    ASSERT_EQ(window.cards.cboComp2.ListCount(), 1);
    EXPECT_TRUE(window.cards.cboComp2.List(0).starts_with("（空） "));
    EXPECT_EQ(CardPanel::EntryId(window.cards.cboComp2.List(0)), 70000);
}

TEST(CardEntry, HidesTheIdBehindEightyCharacters) {
    EXPECT_EQ(CardPanel::Entry("ab", 7), "ab" + std::string(78, ' ') + "7");
    EXPECT_EQ(CardPanel::Entry(std::string(90, 'x'), 7), std::string(80, 'x') + "7");
    std::string wide;
    for (int i = 0; i < 90; i++) wide += "国";
    EXPECT_EQ(CardPanel::EntryId(CardPanel::Entry(wide, 2147483647)), 2147483647);
}

}  // namespace
}  // namespace zv::windows
