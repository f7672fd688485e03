#include "main_window_fixture.h"
#include "mainwindow/filter_text.h"

namespace zv::mainwindow {
namespace {

std::string Literal(DateTime date) {
    return "#" + date.UsDate() + "#";
}

std::string Build(const FilterChoice& choice) {
    return BuildFilterText(choice, Literal);
}

TEST(BuildFilterText, WithoutAnyChoiceLeavesOnlyTheConstant) {
    EXPECT_EQ(Build({}), " Where 1=1");
}

TEST(BuildFilterText, EachUntickedKindIsExcluded) {
    FilterChoice choice;
    choice.kinds = {false, false, false};
    EXPECT_EQ(Build(choice), " Where 1=1 And a.fType<>0 And a.fType<>1 And a.fType<>2");
    choice.kinds = {true, false, true};
    EXPECT_EQ(Build(choice), " Where 1=1 And a.fType<>1");
}

TEST(BuildFilterText, TheDateWindowHasThreeForms) {
    FilterChoice choice;
    choice.from = DateTime(2003, 3, 7);
    EXPECT_EQ(Build(choice),
              " Where 1=1 And a.tDuring1<=#03/07/2003# and a.tDuring2>=#03/07/2003#");
    choice.until = DateTime(2003, 3, 9);
    EXPECT_EQ(Build(choice),
              " Where 1=1 And a.tDuring1<=#03/09/2003# and a.tDuring2>=#03/07/2003#");
    choice.from.reset();
    EXPECT_EQ(Build(choice), " Where 1=1 And a.tDuring1<=#03/09/2003#");
}

TEST(BuildFilterText, TextsBecomePatternsOrAreComparedAsTheyStand) {
    FilterChoice choice;
    choice.title = " abc ";
    choice.content = "a_c";
    choice.doer = "张三 ";
    choice.user = "李四";
    choice.guest = "*";
    choice.company = "  ";
    choice.state = kInHand;
    EXPECT_EQ(Build(choice),
              " Where 1=1 And a.taskTitle like '%abc%' And a.fContent like 'a_c'"
              " And a.tDoneMan ='张三 ' And a.fUser ='李四' And a.fGuest like '%'"
              " And b.CompName like '%' And a.tDone=2");
}

TEST(BuildFilterText, ACompanyOfTheHostMayHaveAnApostrophe) {
    FilterChoice choice;
    choice.company = "O'Brien & Co";
    EXPECT_EQ(Build(choice), " Where 1=1 And b.CompName like '%O_Brien & Co%'");
}

TEST(BuildFilterText, TheRowForWhatIsNotDoneTakesWhatIsInHandToo) {
    FilterChoice choice;
    choice.state = kNotYetDone;
    EXPECT_EQ(Build(choice), " Where 1=1 And a.tDone<>1");
}

TEST(BuildFilterText, OnlyTheThreeStatesFilter) {
    FilterChoice choice;
    choice.state = kNotDone;
    EXPECT_EQ(Build(choice), " Where 1=1 And a.tDone=0");
    choice.state = kDone;
    EXPECT_EQ(Build(choice), " Where 1=1 And a.tDone=1");
    for (const int state : {-1, 3, 5}) {
        choice.state = state;
        EXPECT_EQ(Build(choice), " Where 1=1");
    }
}

class Filter : public MainWindow {
 protected:
    Filter() : window(Open()) { ShowTab(kFilterTab); }
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

TEST_F(Filter, StartsWithTodayAllKindsAndAllStates) {
    EXPECT_EQ(window.filter.BuildItemFilter(),
              " Where 1=1 And a.tDuring1<=#03/08/2003# and a.tDuring2>=#03/07/2003#");
}

TEST_F(Filter, PickersThatNobodyTouchedFollowTheDay) {
    stage.clock.now = DateTime(2003, 3, 8, 0, 5);
    stage.user.Pick(window.cboOrder, 1);
    EXPECT_EQ(window.DTPicker0.Value(), DateTime(2003, 3, 8));
    EXPECT_EQ(window.DTPicker1.Value(), DateTime(2003, 3, 9));
    EXPECT_NE(Sent().find(" And a.tDuring1<=#03/09/2003# and a.tDuring2>=#03/08/2003#"),
              std::string::npos);
    // Even one that holds the day that it would hold anyway is the user's choice.
    stage.user.SetDate(window.DTPicker0, std::nullopt);
    stage.user.SetDate(window.DTPicker0, DateTime(2003, 3, 8));
    stage.clock.now = DateTime(2003, 3, 9, 0, 5);
    stage.user.Pick(window.cboOrder, 0);
    EXPECT_EQ(window.DTPicker0.Value(), DateTime(2003, 3, 8));
    EXPECT_EQ(window.DTPicker1.Value(), DateTime(2003, 3, 10));
}

TEST_F(Filter, ThereIsNoDayBehindTheLastOne) {
    stage.clock.now = DateTime(9999, 12, 31, 9, 30);
    stage.user.Pick(window.cboOrder, 1);
    EXPECT_EQ(window.DTPicker0.Value(), DateTime(9999, 12, 31));
    EXPECT_FALSE(window.DTPicker1.Value());
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(Filter, SearchingWithBothPickersEmptyListsEverything) {
    stage.user.SetDate(window.DTPicker0, std::nullopt);
    stage.user.SetDate(window.DTPicker1, std::nullopt);
    stage.user.Click(window.cmdSeek);
    EXPECT_EQ(Sent(), std::string(kSelect) + " Where 1=1" + kByDate);
}

TEST_F(Filter, ACompanyAloneNeedsTheJoinAndNoMore) {
    stage.user.SetDate(window.DTPicker0, std::nullopt);
    stage.user.SetDate(window.DTPicker1, std::nullopt);
    stage.user.Type(window.txtComp, "公司");
    stage.user.Click(window.cmdSeek);
    EXPECT_EQ(Sent(), std::string(kSelect) +
                          " Left Join cards b on a.taskID=b.fID  Where 1=1"
                          " And b.CompName like '%公司%'" +
                          kByDate);
}

TEST_F(Filter, ServersTakeTheirOwnDelimiter) {
    stage.session.database.SetDateDelimiter('\'');
    EXPECT_EQ(window.filter.BuildItemFilter(),
              " Where 1=1 And a.tDuring1<='03/08/2003' and a.tDuring2>='03/07/2003'");
}

TEST_F(Filter, AQuoteKeepsTheFocus) {
    for (forms::TextBox* box : {&window.txtTitle0, &window.txtContent0, &window.txtJBR0,
                                &window.txtUser0, &window.txtComp}) {
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

TEST_F(Filter, EnterAndDownMoveOnAndUpMovesBack) {
    stage.user.Key(window.txtTitle0, forms::key::kEnter);
    EXPECT_TRUE(window.txtContent0.HasFocus());
    stage.user.Key(window.txtContent0, forms::key::kDown);
    EXPECT_TRUE(window.txtJBR0.HasFocus());
    stage.user.Key(window.txtJBR0, forms::key::kUp);
    EXPECT_TRUE(window.txtContent0.HasFocus());
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Filter, EnterSearchesFromFieldsThatDoNotUseIt) {
    stage.user.Key(window.cboState, forms::key::kEnter);
    EXPECT_EQ(stage.statements.Take().size(), 1u);
}

TEST_F(Filter, OwnItemsTakeTheUsersNameAndLockIt) {
    stage.user.Click(window.chkJbr);
    EXPECT_EQ(window.txtJBR0.Text(), "张三");
    EXPECT_TRUE(window.txtJBR0.Locked());
    EXPECT_NE(Sent().find(" And a.tDoneMan ='张三'"), std::string::npos);
    stage.user.Click(window.chkUser);
    EXPECT_EQ(window.txtUser0.Text(), "张三");
    EXPECT_TRUE(window.txtUser0.Locked());
    EXPECT_NE(Sent().find(" And a.fUser ='张三'"), std::string::npos);
    stage.user.Click(window.chkJbr);
    EXPECT_EQ(window.txtJBR0.Text(), "");
    EXPECT_FALSE(window.txtJBR0.Locked());
    EXPECT_EQ(Sent().find("tDoneMan"), std::string::npos);
}

TEST_F(Filter, AnApostropheInTheUsersOwnNameIsSentAsAWildcard) {
    AddItem(0, "甲");
    stage.Sql("update tTaskList set tDoneMan='O''Brien',fUser='O''Brien'");
    stage.session.state.UserName = "O'Brien";
    stage.user.Click(window.chkJbr);
    EXPECT_NE(Sent().find(" And a.tDoneMan  like 'O_Brien' Order by"), std::string::npos);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
    stage.user.Click(window.chkUser);
    EXPECT_NE(Sent().find(" And a.tDoneMan  like 'O_Brien' And a.fUser  like 'O_Brien' Order by"),
              std::string::npos);
    EXPECT_EQ(stage.NodeKeys(), "A1 Z1 B2 C3");
    // Whoever cannot change the name must not be held in its box.
    stage.user.Leave(window.txtJBR0);
    EXPECT_FALSE(window.txtJBR0.HasFocus());
    EXPECT_TRUE(stage.dialogs.messages.empty());
    // The user types no such name.
    stage.user.Click(window.chkJbr);
    stage.user.Type(window.txtJBR0, "O'Brien");
    stage.user.Leave(window.txtJBR0);
    EXPECT_TRUE(window.txtJBR0.HasFocus());
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(Filter, AQuoteBeingTypedReachesNoStatement) {
    stage.user.Type(window.txtTitle0, "x'; delete from cards; --");
    const std::string before = stage.Nodes();
    AddItem(0, "甲");
    // The host: the tree stays without a word.
    EXPECT_EQ(stage.Refresh(0), 0);
    stage.clock.now = DateTime(2003, 3, 8, 7, 0);
    EXPECT_EQ(stage.Refresh(1), 0);
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(stage.Nodes(), before);
    // The user: told each time, and the box is there to be mended.
    window.SSTab1.SetTab(kItemTab);
    window.cboOrder.SetListIndex(1);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|文本错误: 文本中不可含有<引号>或<单引号> !"});
    EXPECT_EQ(window.SSTab1.Tab(), kFilterTab);
    EXPECT_TRUE(window.txtTitle0.HasFocus());
    window.chkEvent.SetValue(1);
    EXPECT_EQ(window.chkEvent.Value(), 0);
    EXPECT_EQ(stage.dialogs.messages.size(), 2u);
    window.tree.FillAgain();
    EXPECT_EQ(stage.dialogs.messages.size(), 3u);
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(stage.Nodes(), before);
    stage.user.Type(window.txtTitle0, "甲");
    stage.user.Click(window.cmdSeek);
    EXPECT_EQ(stage.statements.Take().size(), 1u);
}

TEST_F(Filter, TheSearchMenuRefusesAQuoteThatHasNotBeenLeft) {
    stage.user.Type(window.txtTitle0, "a'b");
    stage.user.Choose(window.menus.mnuSeek1);
    EXPECT_TRUE(stage.statements.Take().empty());
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(Filter, TheTreeFollowsTheKindBoxesOnTheirPageOnly) {
    stage.user.Click(window.chkType[1]);
    EXPECT_NE(Sent().find(" And a.fType<>1"), std::string::npos);
    EXPECT_EQ(stage.NodeKeys(), "A1 C2");
    ShowTab(kItemTab);
    window.chkType[1].SetValue(1);
    EXPECT_TRUE(stage.statements.Take().empty());
}

TEST_F(Filter, WithoutAnyKindTheTreeIsEmpty) {
    AddItem(0, "报表");
    for (int kind = 0; kind < 3; kind++) stage.user.Click(window.chkType[kind]);
    EXPECT_EQ(stage.Nodes(), "");
}

TEST_F(Filter, TheTreeDoesNotFollowTextsBeforeTheSearch) {
    stage.user.Type(window.txtTitle0, "abc");
    stage.user.Leave(window.txtTitle0);
    EXPECT_TRUE(stage.statements.Take().empty());
    stage.user.Choose(window.menus.mnuSeek1);
    EXPECT_NE(Sent().find(" And a.taskTitle like '%abc%'"), std::string::npos);
}

}  // namespace
}  // namespace zv::mainwindow
