#include "windows/main/panels/filter_panel.h"

#include "panel_fixture.h"

namespace zv::windows {
namespace {

class FilterPanelTest : public PanelTest {
 protected:
    FilterPanelTest() : panel(form, {tabs, kFilterTab}, stage.session, model) {
        model.startMode = kManagerMode;
        panel.LoadLists();
        panel.SetCaptions();
        panel.SetStartValues();
        panel.onChanged = [this] { changes++; };
        Show();
        tabs.SetTab(kFilterTab);
    }
    FilterPanel panel;
    int changes = 0;
};

TEST_F(FilterPanelTest, StartsWithTheDayAndAllKinds) {
    const items::Filter choice = panel.Choice();
    EXPECT_EQ(choice.from, DateTime(2003, 3, 7));
    EXPECT_EQ(choice.until, DateTime(2003, 3, 8));
    for (const items::ItemKind kind : items::kItemKinds) EXPECT_TRUE(choice.Takes(kind));
    EXPECT_EQ(choice.states, items::Filter::States::All);
    EXPECT_EQ(changes, 0);
}

TEST_F(FilterPanelTest, SaysThatAKindOrTheOwnItemsWereSwitched) {
    stage.user.Click(panel.chkType[1]);
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(panel.Choice().Takes(items::ItemKind::Guest));
    stage.user.Click(panel.chkJbr);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(panel.Choice().doer, "张三");
    // What a user types waits until he searches.
    stage.user.Type(panel.txtTitle0, "报表");
    EXPECT_EQ(changes, 2);
}

TEST_F(FilterPanelTest, IsSilentWhileTheWindowSetsItsStartValues) {
    model.starting = true;
    panel.chkUser.SetValue(1);
    EXPECT_EQ(panel.Choice().user, "张三");
    EXPECT_EQ(changes, 0);
}

TEST_F(FilterPanelTest, LeadsToTheTextThatFitsNoStatement) {
    panel.txtComp.SetText("O'Brien");
    tabs.SetTab(kItemTab);
    EXPECT_FALSE(panel.TextsAreFit());
    EXPECT_EQ(tabs.Tab(), kFilterTab);
    EXPECT_TRUE(panel.txtComp.HasFocus());
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
    panel.GiveCompany("O'Brien");
    EXPECT_TRUE(panel.TextsAreFit());
}

TEST_F(FilterPanelTest, PutsBackWhatItRemembers) {
    stage.user.SetDate(panel.DTPicker0, DateTime(2003, 1, 1));
    const auto undo = panel.Remember();
    panel.SetStartValues();
    undo();
    // Touched again: the day that comes leaves it.
    stage.clock.Set(DateTime(2003, 3, 9, 8, 0));
    panel.DTPicker0.SetValue(DateTime(2003, 1, 1));
    panel.FollowTheDay();
    EXPECT_EQ(panel.Choice().from, DateTime(2003, 1, 1));
}

}  // namespace
}  // namespace zv::windows
