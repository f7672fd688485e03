#include "windows/main/panels/birthday_panel.h"

#include "panel_fixture.h"

namespace zv::windows {
namespace {

class BirthdayPanelTest : public PanelTest {
 protected:
    BirthdayPanelTest() : panel(form, tabs.Page(kCardTab), stage.session) {
        panel.LoadGrid();
        panel.SetCaptions();
        panel.ShowDay();
        panel.SetDaysAhead("5");
        panel.onSwitched = [this](bool on) { switches.push_back(on); };
        Show();
        tabs.SetTab(kCardTab);
    }
    BirthdayPanel panel;
    std::vector<bool> switches;
};

TEST_F(BirthdayPanelTest, ShowsTheCardsOfTheComingDays) {
    stage.Sql("insert into cards(fID,Name,CompName,Birthday) values(1,'王五','甲','1970-03-10')");
    stage.user.Click(panel.chkBirthDay0);
    EXPECT_TRUE(panel.ShowsGrid());
    ASSERT_EQ(panel.Grid1.DataRowCount(), 1);
    EXPECT_EQ(panel.Grid1.Cell(1, 2), "王五");
    EXPECT_EQ(switches, std::vector<bool>{true});
}

TEST_F(BirthdayPanelTest, IsOffAgainWhenThereAreNone) {
    stage.user.Click(panel.chkBirthDay0);
    EXPECT_FALSE(panel.IsOn());
    EXPECT_FALSE(panel.ShowsGrid());
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(BirthdayPanelTest, FollowsTheDayWhileItIsOn) {
    stage.Sql("insert into cards(fID,Name,CompName,Birthday) values(1,'王五','甲','1970-03-10')");
    stage.Sql("insert into cards(fID,Name,CompName,Birthday) values(2,'赵六','乙','1970-03-13')");
    stage.user.Click(panel.chkBirthDay0);
    stage.clock.Set(DateTime(2003, 3, 8, 9, 0));
    panel.FollowTheDay();
    EXPECT_EQ(panel.Grid1.DataRowCount(), 2);
    EXPECT_EQ(panel.ShownDay(), DateTime(2003, 3, 8));
}

}  // namespace
}  // namespace zv::windows
