#include "main_window_fixture.h"

namespace zv::windows {
namespace {

class FilterPage : public MainWindow {
 protected:
    FilterPage() : window(Open()) { ShowTab(kFilterTab); }
    std::string Sent() {
        const auto statements = stage.statements.Take();
        return statements.size() == 1 ? statements[0]
                                      : std::to_string(statements.size()) + " statements";
    }
    frmTaskMain& window;
};

constexpr const char* kSelect =
    "select distinct a.fID,a.fType,a.taskTime,a.taskTitle,a.tDone,a.taskID from tTaskList a ";
constexpr const char* kByDate = " Order by a.fType,a.taskTime desc,a.taskTitle";

TEST_F(FilterPage, StartsWithTodayAllKindsAndAllStates) {
    EXPECT_EQ(window.filter.BuildItemFilter(),
              " Where 1=1 And a.tDuring1<=#03/08/2003# and a.tDuring2>=#03/07/2003#");
}

TEST_F(FilterPage, PickersThatNobodyTouchedFollowTheDay) {
    stage.clock.Set(DateTime(2003, 3, 8, 0, 5));
    stage.user.Pick(window.tree.cboOrder, 1);
    EXPECT_EQ(window.filter.DTPicker0.Value(), DateTime(2003, 3, 8));
    EXPECT_EQ(window.filter.DTPicker1.Value(), DateTime(2003, 3, 9));
    EXPECT_NE(Sent().find(" And a.tDuring1<=#03/09/2003# and a.tDuring2>=#03/08/2003#"),
              std::string::npos);
    // Even one that holds the day that it would hold anyway is the user's choice.
    stage.user.SetDate(window.filter.DTPicker0, std::nullopt);
    stage.user.SetDate(window.filter.DTPicker0, DateTime(2003, 3, 8));
    stage.clock.Set(DateTime(2003, 3, 9, 0, 5));
    stage.user.Pick(window.tree.cboOrder, 0);
    EXPECT_EQ(window.filter.DTPicker0.Value(), DateTime(2003, 3, 8));
    EXPECT_EQ(window.filter.DTPicker1.Value(), DateTime(2003, 3, 10));
}

TEST_F(FilterPage, ThereIsNoDayBehindTheLastOne) {
    stage.clock.Set(DateTime(9999, 12, 31, 9, 30));
    stage.user.Pick(window.tree.cboOrder, 1);
    EXPECT_EQ(window.filter.DTPicker0.Value(), DateTime(9999, 12, 31));
    EXPECT_FALSE(window.filter.DTPicker1.Value());
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(FilterPage, SearchingWithBothPickersEmptyListsEverything) {
    stage.user.SetDate(window.filter.DTPicker0, std::nullopt);
    stage.user.SetDate(window.filter.DTPicker1, std::nullopt);
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(Sent(), std::string(kSelect) + " Where 1=1" + kByDate);
}

TEST_F(FilterPage, ACompanyAloneNeedsTheJoinAndNoMore) {
    stage.user.SetDate(window.filter.DTPicker0, std::nullopt);
    stage.user.SetDate(window.filter.DTPicker1, std::nullopt);
    stage.user.Type(window.filter.txtComp, "公司");
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(Sent(), std::string(kSelect) +
                          " Left Join cards b on a.taskID=b.fID  Where 1=1"
                          " And b.CompName like '%公司%'" +
                          kByDate);
}

TEST_F(FilterPage, ServersTakeTheirOwnDelimiter) {
    stage.session.database.SetDateDelimiter('\'');
    EXPECT_EQ(window.filter.BuildItemFilter(),
              " Where 1=1 And a.tDuring1<='03/08/2003' and a.tDuring2>='03/07/2003'");
}

TEST_F(FilterPage, AQuoteKeepsTheFocus) {
    for (forms::TextBox* box :
         {&window.filter.txtTitle0, &window.filter.txtContent0, &window.filter.txtJBR0,
          &window.filter.txtUser0, &window.filter.txtComp}) {
        stage.dialogs.messages.clear();
        stage.user.Type(*box, "O'Brien");
        stage.user.Leave(*box);
        EXPECT_TRUE(box->HasFocus()) << box->Name();
        EXPECT_EQ(stage.dialogs.messages, Lines{"48|文本错误: 文本中不可含有<引号>或<单引号> !"});
        stage.user.Type(*box, "say \"x\"");
        stage.user.Leave(*box);
        EXPECT_FALSE(box->HasFocus()) << box->Name();
    }
}

TEST_F(FilterPage, EnterAndDownMoveOnAndUpMovesBack) {
    stage.user.Key(window.filter.txtTitle0, forms::key::kEnter);
    EXPECT_TRUE(window.filter.txtContent0.HasFocus());
    stage.user.Key(window.filter.txtContent0, forms::key::kDown);
    EXPECT_TRUE(window.filter.txtJBR0.HasFocus());
    stage.user.Key(window.filter.txtJBR0, forms::key::kUp);
    EXPECT_TRUE(window.filter.txtContent0.HasFocus());
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(FilterPage, EnterSearchesFromFieldsThatDoNotUseIt) {
    stage.user.Key(window.filter.cboState, forms::key::kEnter);
    EXPECT_EQ(stage.statements.Take().size(), 1u);
}

TEST_F(FilterPage, OwnItemsTakeTheUsersNameAndLockIt) {
    stage.user.Click(window.filter.chkJbr);
    EXPECT_EQ(window.filter.txtJBR0.Text(), "张三");
    EXPECT_TRUE(window.filter.txtJBR0.Locked());
    EXPECT_NE(Sent().find(" And a.tDoneMan ='张三'"), std::string::npos);
    stage.user.Click(window.filter.chkUser);
    EXPECT_EQ(window.filter.txtUser0.Text(), "张三");
    EXPECT_TRUE(window.filter.txtUser0.Locked());
    EXPECT_NE(Sent().find(" And a.fUser ='张三'"), std::string::npos);
    stage.user.Click(window.filter.chkJbr);
    EXPECT_EQ(window.filter.txtJBR0.Text(), "");
    EXPECT_FALSE(window.filter.txtJBR0.Locked());
    EXPECT_EQ(Sent().find("tDoneMan"), std::string::npos);
}

TEST_F(FilterPage, AnApostropheInTheUsersOwnNameIsSentAsAWildcard) {
    AddItem(0, "甲");
    stage.Sql("update tTaskList set tDoneMan='O''Brien',fUser='O''Brien'");
    stage.session.state.UserName = "O'Brien";
    stage.user.Click(window.filter.chkJbr);
    EXPECT_NE(Sent().find(" And a.tDoneMan  like 'O_Brien' Order by"), std::string::npos);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
    stage.user.Click(window.filter.chkUser);
    EXPECT_NE(Sent().find(" And a.tDoneMan  like 'O_Brien' And a.fUser  like 'O_Brien' Order by"),
              std::string::npos);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
    // A user who cannot change the name must not be held in its box.
    stage.user.Leave(window.filter.txtJBR0);
    EXPECT_FALSE(window.filter.txtJBR0.HasFocus());
    EXPECT_TRUE(stage.dialogs.messages.empty());
    // The user types no such name.
    stage.user.Click(window.filter.chkJbr);
    stage.user.Type(window.filter.txtJBR0, "O'Brien");
    stage.user.Leave(window.filter.txtJBR0);
    EXPECT_TRUE(window.filter.txtJBR0.HasFocus());
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(FilterPage, AQuoteBeingTypedReachesNoStatement) {
    stage.user.Type(window.filter.txtTitle0, "x'; delete from cards; --");
    const std::string before = stage.Nodes();
    AddItem(0, "甲");
    // The host: the tree stays without a word.
    EXPECT_EQ(stage.Refresh(0), 0);
    stage.clock.Set(DateTime(2003, 3, 8, 7, 0));
    EXPECT_EQ(stage.Refresh(1), 0);
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(stage.Nodes(), before);
    // The user: a message each time, and the box is there to be mended.
    window.SSTab1.SetTab(kItemTab);
    window.tree.cboOrder.SetListIndex(1);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|文本错误: 文本中不可含有<引号>或<单引号> !"});
    EXPECT_EQ(window.SSTab1.Tab(), kFilterTab);
    EXPECT_TRUE(window.filter.txtTitle0.HasFocus());
    window.tree.chkEvent.SetValue(1);
    EXPECT_EQ(window.tree.chkEvent.Value(), 0);
    EXPECT_EQ(stage.dialogs.messages.size(), 2u);
    window.listing.FillAgain();
    EXPECT_EQ(stage.dialogs.messages.size(), 3u);
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(stage.Nodes(), before);
    stage.user.Type(window.filter.txtTitle0, "甲");
    stage.user.Click(window.commands.cmdSeek);
    EXPECT_EQ(stage.statements.Take().size(), 1u);
}

TEST_F(FilterPage, TheSearchMenuRefusesAQuoteThatHasNotBeenLeft) {
    stage.user.Type(window.filter.txtTitle0, "a'b");
    stage.user.Choose(window.commands.menus.mnuSeek1);
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(FilterPage, TheTreeFollowsTheKindBoxesOnTheirPageOnly) {
    stage.user.Click(window.filter.chkType[1]);
    EXPECT_NE(Sent().find(" And a.fType<>1"), std::string::npos);
    EXPECT_EQ(stage.NodeKeys(), "A1 C2");
    ShowTab(kItemTab);
    window.filter.chkType[1].SetValue(1);
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(FilterPage, WithoutAnyKindTheTreeIsEmpty) {
    AddItem(0, "报表");
    for (int kind = 0; kind < 3; kind++) stage.user.Click(window.filter.chkType[kind]);
    EXPECT_EQ(stage.Nodes(), "");
}

TEST_F(FilterPage, TheTreeDoesNotFollowTextsBeforeTheSearch) {
    stage.user.Type(window.filter.txtTitle0, "abc");
    stage.user.Leave(window.filter.txtTitle0);
    EXPECT_TRUE(stage.statements.Take().empty());
    stage.user.Choose(window.commands.menus.mnuSeek1);
    EXPECT_NE(Sent().find(" And a.taskTitle like '%abc%'"), std::string::npos);
}

}  // namespace
}  // namespace zv::windows
