#include "windows/main/panels/contact_targets.h"

#include "main_window_fixture.h"

namespace zv::windows {
namespace {

TEST(MailTarget, AlwaysTakesThePrefix) {
    EXPECT_EQ(MailTarget("a@b.c"), "mailTo:a@b.c");
    EXPECT_EQ(MailTarget("mailto:a@b.c"), "mailTo:mailto:a@b.c");
    EXPECT_EQ(MailTarget("mailTo:a@b.c"), "mailTo:mailTo:a@b.c");
    EXPECT_EQ(MailTarget(" "), "mailTo: ");
    EXPECT_EQ(MailTarget(""), "");
}

TEST(MailTarget, LeavesQuotesBlanksAndControlCharactersAlone) {
    EXPECT_EQ(MailTarget("a b\"c'd & del *.*\r\n"), "mailTo:a b\"c'd & del *.*\r\n");
}

TEST(WebTarget, TakesThePrefixUnlessItIsThereInAnyCase) {
    EXPECT_EQ(WebTarget("www.a.com"), "http://www.a.com");
    EXPECT_EQ(WebTarget("http://www.a.com"), "http://www.a.com");
    EXPECT_EQ(WebTarget("HTTP://WWW.A.COM"), "HTTP://WWW.A.COM");
    EXPECT_EQ(WebTarget("https://www.a.com"), "http://https://www.a.com");
    EXPECT_EQ(WebTarget("http:/"), "http://http:/");
}

TEST(WebTarget, NothingAndTheBarePrefixOpenNothing) {
    EXPECT_EQ(WebTarget(""), "");
    EXPECT_EQ(WebTarget("http://"), "");
    EXPECT_EQ(WebTarget("HTTP://"), "HTTP://");
}

TEST(WebTarget, AProgramBecomesAnAddress) {
    EXPECT_EQ(WebTarget("C:\\Windows\\system32\\cmd.exe /c del x"),
              "http://C:\\Windows\\system32\\cmd.exe /c del x");
}

TEST(DialKeys, AreTheNumberWhenShorterThanForty) {
    EXPECT_EQ(DialKeys("010-1234"), "010-1234");
    EXPECT_EQ(DialKeys(std::string(39, '1')), std::string(39, '1'));
    EXPECT_EQ(DialKeys(std::string(40, '1')), "");
    EXPECT_EQ(DialKeys(""), "");
}

TEST(DialKeys, HoldNoKeysThatPressButtons) {
    EXPECT_EQ(DialKeys("12\r\n3\t4\x1b"), "1234");
}

class Contact : public MainWindow {
 protected:
    Contact() {
        stage.Sql(
            "insert into cards(fID,CompName,telphone,handphone,E_mail,HomeEmail,http) values"
            "(5,'某公司','111','222','a@b.c','p@q.r','www.a.com')");
        AddItem(kGuest, "拜访");
        stage.Sql("update tTaskList set TaskID=5,fGuest='赵六'");
    }
    void Way(int row) { stage.user.Pick(stage.Window()->cards.cboWay, row); }
};

TEST_F(Contact, TheWayChoosesTheFieldAndTheButton) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    const auto shown = [&] {
        return std::string() + (window.cards.cmdTel.Visible() ? 'T' : '-') +
               (window.cards.txtTel[0].Visible() ? 't' : '-') +
               (window.cards.cmdEmail.Visible() ? 'E' : '-') +
               (window.cards.txtEmail[0].Visible() ? 'e' : '-') +
               (window.cards.cmdHttp.Visible() ? 'H' : '-') +
               (window.cards.txtHttp[0].Visible() ? 'h' : '-');
    };
    EXPECT_EQ(shown(), "Tt----");
    Way(1);
    EXPECT_EQ(shown(), "--Ee--");
    Way(2);
    EXPECT_EQ(shown(), "----Hh");
    stage.user.Type(window.cards.cboWay, "书信");
    EXPECT_EQ(shown(), "Tt----");
}

TEST_F(Contact, AnItemWithAWayOfItsOwnShowsTheTelephone) {
    stage.Sql("update tTaskList set fWay='书信'");
    frmTaskMain& window = Open();
    ShowTab(kCardTab);
    Way(2);
    ClickNode("Z1");
    EXPECT_EQ(window.cards.cboWay.Text(), "书信");
    EXPECT_TRUE(window.cards.cmdTel.Visible());
}

TEST_F(Contact, DialingStartsTheDialerAndTypesTheNumber) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Click(window.cards.cmdTel);
    EXPECT_EQ(stage.shell.lines, (Lines{"C:\\Windows\\dialer.exe", "keys:111"}));
}

TEST_F(Contact, OfSeveralNumbersTheOneInUseIsDialed) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    window.cards.txtTel[1].SetFocus();
    stage.user.Click(window.cards.cmdTel);
    EXPECT_EQ(stage.shell.lines.back(), "keys:222");
    // The next card begins with its first number again.
    ClickNode("B1");
    ClickNode("Z1");
    stage.user.Click(window.cards.cmdTel);
    EXPECT_EQ(stage.shell.lines.back(), "keys:111");
}

TEST_F(Contact, TheFirstNumberThatThereIs) {
    stage.Sql("update cards set telphone=''");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Click(window.cards.cmdTel);
    EXPECT_EQ(stage.shell.lines.back(), "keys:222");
}

TEST_F(Contact, WithoutANumberTheDialerStartsAlone) {
    stage.Sql("update cards set telphone='',handphone=null");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Click(window.cards.cmdTel);
    EXPECT_EQ(stage.shell.lines, Lines{"C:\\Windows\\dialer.exe"});
}

TEST_F(Contact, AMissingDialerIsIgnored) {
    stage.shell.dialer.clear();
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Click(window.cards.cmdTel);
    EXPECT_TRUE(stage.shell.lines.empty());
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(Contact, MailAndWebGoToTheShell) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    Way(1);
    stage.user.Click(window.cards.cmdEmail);
    Way(2);
    stage.user.Click(window.cards.cmdHttp);
    EXPECT_EQ(stage.shell.lines, (Lines{"mailTo:a@b.c", "http://www.a.com"}));
}

TEST_F(Contact, WhatTheShellCannotOpenIsReportedAndTheWindowGoesOn) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.shell.failing = "no program for mailTo:a@b.c";
    Way(1);
    stage.user.Click(window.cards.cmdEmail);
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|no program for mailTo:a@b.c"});
    EXPECT_EQ(window.cards.txtEmail[0].Text(), "a@b.c");
    EXPECT_EQ(window.item.txtTitle2.Text(), "拜访");
    stage.shell.failing.clear();
    stage.user.Click(window.cards.cmdEmail);
    EXPECT_EQ(stage.shell.lines.back(), "mailTo:a@b.c");
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(Contact, EmptyFieldsOpenNothing) {
    stage.Sql("update cards set E_mail='',HomeEmail=null,http='http://'");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    Way(1);
    stage.user.Click(window.cards.cmdEmail);
    Way(2);
    stage.user.Click(window.cards.cmdHttp);
    EXPECT_TRUE(stage.shell.lines.empty());
}

TEST_F(Contact, TheContactEntryBringsTheCardOfTheVisitForward) {
    frmTaskMain& window = Open();
    ClickNode("Z1");
    ShowTab(kOptionsTab);
    stage.statements.Take();
    stage.user.Choose(window.commands.menus.mnuGuestConnect);
    EXPECT_EQ(window.SSTab1.Tab(), kCardTab);
    EXPECT_TRUE(stage.statements.Take().empty());

    // Another card had been looked at.
    stage.Sql("insert into cards(fID,CompCode,CompName) values(6,'C6','另一公司')");
    stage.user.Type(window.cards.txtCompSeek, "C6");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    EXPECT_EQ(stage.session.state.cardId, 6);
    ShowTab(kItemTab);
    stage.user.Choose(window.commands.menus.mnuGuestConnect);
    EXPECT_EQ(stage.session.state.cardId, 5);
    EXPECT_TRUE(window.cards.cboComp2.Text().starts_with("某公司 "));
}

TEST_F(Contact, TheContactEntryReportsAMissingCard) {
    stage.Sql("delete from cards");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.dialogs.messages.clear();
    stage.user.Choose(window.commands.menus.mnuGuestConnect);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|该客户资料已不存在！"});
}

TEST_F(Contact, AContactEntryThatFailsCanBeTriedAgain) {
    stage.Sql("insert into cards(fID,CompCode,CompName) values(6,'C6','另一公司')");
    frmTaskMain& window = Open();
    ClickNode("Z1");
    stage.user.Type(window.cards.txtCompSeek, "C6");
    stage.user.Key(window.cards.txtCompSeek, forms::key::kEnter);
    stage.statements.failing = "Where fid=5";
    stage.user.Choose(window.commands.menus.mnuGuestConnect);
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|Where fid=5"});
    // The number is that of the card that is shown.
    EXPECT_EQ(stage.session.state.cardId, 6);
    stage.statements.failing.clear();
    stage.user.Choose(window.commands.menus.mnuGuestConnect);
    EXPECT_EQ(stage.session.state.cardId, 5);
    EXPECT_TRUE(window.cards.cboComp2.Text().starts_with("某公司 "));
}

TEST_F(Contact, TheContactEntryNeedsAVisit) {
    frmTaskMain& window = Open();
    ClickNode("A2");
    stage.user.Choose(window.commands.menus.mnuGuestConnect);
    EXPECT_EQ(window.SSTab1.Tab(), kItemTab);
}

TEST_F(Contact, ThePictureOpensItsMenuAtOneHeightOnly) {
    frmTaskMain& window = Open();
    stage.user.MoveMouse(window.tree.picImage, 30, 7739);
    EXPECT_EQ(window.LastPopup(), "");
    stage.user.MoveMouse(window.tree.picImage, 30, 7740);
    EXPECT_EQ(window.LastPopup(), "mnuImg");
    const forms::Rect& picture = window.tree.picImage.Bounds();
    EXPECT_EQ(window.LastPopupAt(), (forms::Position{picture.left + 2, picture.top + 516}));
    stage.user.MoveMouse(window.tree.picImage, 30, 7741);
    EXPECT_EQ(window.LastPopup(), "");
}

TEST_F(Contact, ThePictureMenuRestoresAndCloses) {
    frmTaskMain& window = Open();
    window.SetState(forms::WindowState::Minimised);
    stage.user.Choose(window.commands.menus.mnuImgRestore);
    EXPECT_EQ(window.State(), forms::WindowState::Normal);
    stage.user.Choose(window.commands.menus.mnuImgClose);
    EXPECT_EQ(stage.Window(), nullptr);
}

}  // namespace
}  // namespace zv::windows
