#include "windows/main/panels/birthday_panel.h"

#include "main_window_fixture.h"

namespace zv::windows {
namespace {

class BirthdayTest : public MainWindow {
 protected:
    void AddCard(const std::string& name, const std::string& birthday) {
        stage.Sql("insert into cards(CompCode,Name,CompName,Birthday) values('C','" + name +
                  "','公司'," + (birthday.empty() ? "null" : "'" + birthday + " 00:00:00'") + ")");
    }
    frmTaskMain& OpenAtCards(std::int32_t mode = kManagerMode) {
        frmTaskMain& window = Open(mode);
        ShowTab(kCardTab);
        return window;
    }
    std::string Names() {
        const forms::Grid& grid = stage.Window()->birthdays.Grid1;
        std::string names;
        for (int row = 1; row <= grid.DataRowCount(); row++) names += grid.Cell(row, 2);
        return names;
    }
    std::string NamesFor(DateTime today, std::int16_t days) {
        stage.clock.Set(today);
        stage.Window()->birthdays.ListBirthdays(days);
        return Names();
    }
    std::string LeaveDays(const std::string& text) {
        frmTaskMain& window = *stage.Window();
        stage.user.Type(window.birthdays.txtBirthDay0, text);
        stage.user.Leave(window.birthdays.txtBirthDay0);
        return window.birthdays.txtBirthDay0.Text();
    }
};

TEST_F(BirthdayTest, ListsFromTodayToTheLastDay) {
    for (const char* day : {"06", "07", "08", "12", "13"}) {
        AddCard(day, std::string("1970-03-") + day);
    }
    OpenAtCards();
    EXPECT_EQ(NamesFor(DateTime(2003, 3, 7, 23, 59), 5), "070812");
    EXPECT_EQ(NamesFor(DateTime(2003, 3, 7), 0), "07");
    EXPECT_EQ(NamesFor(DateTime(2003, 3, 7), -1), "");
}

TEST_F(BirthdayTest, CrossesNewYear) {
    AddCard("a", "1970-12-27");
    AddCard("b", "1970-12-28");
    AddCard("c", "1970-01-02");
    AddCard("d", "1970-01-05");
    OpenAtCards();
    EXPECT_EQ(NamesFor(DateTime(2003, 12, 28), 7), "bc");
}

TEST_F(BirthdayTest, NeverListsACardWithoutABirthday) {
    AddCard("a", "");
    OpenAtCards();
    EXPECT_EQ(NamesFor(DateTime(2003, 1, 1), 364), "");
}

TEST_F(BirthdayTest, ComparesThe29thOfFebruaryAsTextInEveryYear) {
    AddCard("a", "1980-02-29");
    OpenAtCards();
    EXPECT_EQ(NamesFor(DateTime(2003, 2, 28), 1), "a");
    EXPECT_EQ(NamesFor(DateTime(2003, 2, 28), 0), "");
    EXPECT_EQ(NamesFor(DateTime(2003, 3, 1), 5), "");
    EXPECT_EQ(NamesFor(DateTime(2004, 2, 29), 0), "a");
}

TEST_F(BirthdayTest, FillsTheColumnsOfTheGrid) {
    stage.Sql(
        "insert into cards(fID,CompCode,Name,CompName,Birthday) "
        "values(40000,'C9','王五','某公司','1970-03-07 08:30:00')");
    const forms::Grid& grid = OpenAtCards().birthdays.Grid1;
    NamesFor(DateTime(2003, 3, 7), 0);
    ASSERT_EQ(grid.DataRowCount(), 1);
    EXPECT_EQ(grid.Cell(1, 1), "C9");
    EXPECT_EQ(grid.Cell(1, 2), "王五");
    EXPECT_EQ(grid.Cell(1, 3), "某公司");
    EXPECT_EQ(grid.Cell(1, 4), "1970-03-07");
    EXPECT_EQ(grid.Cell(1, 5), "40000");
}

TEST_F(BirthdayTest, TickingShowsTheGridAndHidesTheCommands) {
    AddCard("a", "1970-03-09");
    frmTaskMain& window = OpenAtCards();
    stage.user.Click(window.birthdays.chkBirthDay0);
    EXPECT_TRUE(window.birthdays.Grid1.Visible());
    EXPECT_EQ(window.birthdays.lblBirthDay.Caption(), "客户生日报警 （今天 2003-03-07）");
    for (const forms::Control* button :
         {&window.commands.cmdSeek, &window.commands.cmdAction[1], &window.commands.cmdAction[2],
          &window.commands.cmdAction[3], &window.commands.cmdTaskOK}) {
        EXPECT_FALSE(button->OwnVisible()) << button->Name();
    }
    EXPECT_TRUE(window.commands.cmdAction[0].OwnVisible());
    stage.user.Click(window.birthdays.chkBirthDay0);
    EXPECT_FALSE(window.birthdays.Grid1.Visible());
    EXPECT_EQ(window.birthdays.lblBirthDay.Caption(), "（今天 2003-03-07）");
    for (const forms::Control* button :
         {&window.commands.cmdSeek, &window.commands.cmdAction[1], &window.commands.cmdAction[2],
          &window.commands.cmdAction[3], &window.commands.cmdTaskOK}) {
        EXPECT_TRUE(button->OwnVisible()) << button->Name();
    }
}

TEST_F(BirthdayTest, WithoutAnyItSaysSoAndSwitchesItselfOff) {
    frmTaskMain& window = OpenAtCards();
    stage.user.Click(window.birthdays.chkBirthDay0);
    EXPECT_EQ(stage.dialogs.messages, Lines{"64|今天未有[客户生日报警] （提前5天）！"});
    EXPECT_EQ(window.birthdays.chkBirthDay0.Value(), 0);
    EXPECT_FALSE(window.birthdays.Grid1.Visible());
    EXPECT_EQ(window.birthdays.lblBirthDay.Caption(), "（今天 2003-03-07）");
}

TEST_F(BirthdayTest, AtStartUpItSwitchesItselfOffWithoutAWord) {
    stage.settings.values["zvTask.StartupBirthDay"] = "7";
    frmTaskMain& window = Open();
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_EQ(window.birthdays.chkBirthDay0.Value(), 0);
    EXPECT_EQ(window.options.chkBirthDay.Value(), 1);
    EXPECT_EQ(window.birthdays.txtBirthDay0.Text(), "7");
}

TEST_F(BirthdayTest, AFailingQueryLeavesItOff) {
    AddCard("a", "1970-03-09");
    frmTaskMain& window = OpenAtCards();
    stage.statements.failing = "from cards";
    stage.user.Click(window.birthdays.chkBirthDay0);
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|from cards"});
    EXPECT_EQ(window.birthdays.chkBirthDay0.Value(), 0);
    EXPECT_FALSE(window.birthdays.Grid1.OwnVisible());
    EXPECT_TRUE(window.commands.cmdSeek.OwnVisible());
    EXPECT_EQ(window.birthdays.Grid1.DataRowCount(), 0);
}

TEST_F(BirthdayTest, AnotherModeFillsAReminderAnewOrSwitchesItOff) {
    AddCard("a", "1970-03-09");
    stage.settings.values["zvTask.StartupBirthDay"] = "7";
    frmTaskMain& window = Open(kAlertMode + 1);
    EXPECT_EQ(window.birthdays.chkBirthDay0.Value(), 1);
    EXPECT_EQ(stage.Refresh(kCardMode), 0);
    EXPECT_EQ(window.birthdays.chkBirthDay0.Value(), 0);
    EXPECT_TRUE(window.commands.cmdTaskOK.OwnVisible());
    EXPECT_EQ(stage.Refresh(kManagerMode), 0);
    EXPECT_EQ(window.birthdays.chkBirthDay0.Value(), 1);
    EXPECT_EQ(window.birthdays.lblBirthDay.Caption(), "客户生日报警 （今天 2003-03-07）");
}

TEST_F(BirthdayTest, ABirthdayThatIsNoDateEndsNothing) {
    stage.Sql(
        "insert into cards(CompCode,Name,Birthday) values"
        "('A','坏','1970-03-08 99:00:00'),('B','好','1970-03-09 00:00:00')");
    frmTaskMain& window = OpenAtCards();
    stage.user.Click(window.birthdays.chkBirthDay0);
    EXPECT_TRUE(stage.dialogs.messages.empty());
    EXPECT_TRUE(window.birthdays.chkBirthDay0.Checked());
    std::string names;
    for (int row = 1; row <= window.birthdays.Grid1.DataRowCount(); row++)
        names += window.birthdays.Grid1.Cell(row, 2);
    EXPECT_NE(names.find("好"), std::string::npos);
}

TEST_F(BirthdayTest, TheListEndsWithTheCalendar) {
    stage.Sql("insert into cards(CompCode,Name,Birthday) values('A','除夕','1970-12-31 00:00:00')");
    frmTaskMain& window = OpenAtCards();
    stage.clock.Set(DateTime(9999, 12, 30, 9, 0));
    stage.user.Click(window.birthdays.chkBirthDay0);
    EXPECT_EQ(window.birthdays.Grid1.DataRowCount(), 1);
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(BirthdayTest, TheDayBoxKeepsAWholeNumber) {
    OpenAtCards();
    EXPECT_EQ(LeaveDays("3.0"), "3");
    EXPECT_EQ(LeaveDays("2.5"), "2");
    EXPECT_EQ(LeaveDays("0"), "0");
    EXPECT_EQ(LeaveDays(" 12 "), "12");
    EXPECT_EQ(LeaveDays("32767"), "32767");
    EXPECT_TRUE(stage.dialogs.messages.empty());
}

TEST_F(BirthdayTest, TheDayBoxKeepsItsLastCountInPlaceOfAnInvalidOne) {
    OpenAtCards();
    LeaveDays("9");
    for (const char* text : {"-1", "abc", "", "1 2", "３"}) EXPECT_EQ(LeaveDays(text), "9") << text;
    EXPECT_TRUE(stage.dialogs.messages.empty());
    stage.Window()->birthdays.txtBirthDay0.SetText("-3");
    EXPECT_EQ(LeaveDays("x"), "0");
}

TEST_F(BirthdayTest, ADayCountBeyondSixteenBitsIsAnOverflow) {
    frmTaskMain& window = OpenAtCards();
    EXPECT_EQ(LeaveDays("99999"), "5");
    EXPECT_EQ(stage.dialogs.messages, Lines{"16|数值溢出"});
    EXPECT_TRUE(window.birthdays.txtBirthDay0.HasFocus());
    stage.user.Leave(window.birthdays.txtBirthDay0);
    EXPECT_FALSE(window.birthdays.txtBirthDay0.HasFocus());
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(BirthdayTest, EnterInTheDayBoxMovesOn) {
    frmTaskMain& window = OpenAtCards();
    stage.user.Key(window.birthdays.txtBirthDay0, forms::key::kEnter);
    EXPECT_FALSE(window.birthdays.txtBirthDay0.HasFocus());
}

}  // namespace
}  // namespace zv::windows
