#include "windows/main/panels/options_panel.h"

#include "panel_fixture.h"
#include "store/sqlite/create_database.h"

namespace zv::windows {
namespace {

class OptionsPanelTest : public PanelTest {
 protected:
    OptionsPanelTest()
        : panel(form, {tabs, kOptionsTab}, stage.session,
                {.editUnderWay = [this] { return editing; },
                 .storeChanged = [this] { stores++; },
                 .staffSourceChanged =
                     [this](int source, bool byUser) {
                         sources.push_back({source, byUser});
                     },
                 .daysAhead = [this] { return days; },
                 .showDaysAhead = [this](const std::string& text) { days = text; }}) {
        panel.LoadDatabase();
        panel.LoadStartup();
        panel.LoadStaffSource();
        Show();
        tabs.SetTab(kOptionsTab);
    }
    bool editing = false;
    int stores = 0;
    std::string days;
    std::vector<std::pair<int, bool>> sources;
    OptionsPanel panel;
};

TEST_F(OptionsPanelTest, HandsOnWhatIsStored) {
    EXPECT_EQ(days, "5");
    EXPECT_EQ(sources, (std::vector<std::pair<int, bool>>{{0, false}}));
    EXPECT_EQ(panel.txtAccess.Text(), stage.Path("t.db"));
}

TEST_F(OptionsPanelTest, MinutesAreTypedWithoutAnInputMethod) {
    EXPECT_TRUE(panel.txtTimeSet.NumericKeyboard());
    EXPECT_FALSE(panel.txtAccess.NumericKeyboard());
}

TEST_F(OptionsPanelTest, AnotherStoreIsSaidOnceItIsOpen) {
    store::CreateSqliteDatabase(stage.Path("b.db"));
    stage.user.Type(panel.txtAccess, stage.Path("b.db"));
    stage.user.Leave(panel.txtAccess);
    EXPECT_EQ(stores, 1);
    stage.user.Type(panel.txtAccess, stage.Path("missing.db"));
    stage.user.Leave(panel.txtAccess);
    EXPECT_EQ(stores, 1);
    EXPECT_EQ(stage.dialogs.messages.size(), 1u);
}

TEST_F(OptionsPanelTest, InputHoldsTheStore) {
    editing = true;
    stage.user.Type(panel.txtAccess, stage.Path("b.db"));
    stage.user.Leave(panel.txtAccess);
    EXPECT_EQ(stores, 0);
    EXPECT_EQ(panel.txtAccess.Text(), stage.Path("t.db"));
}

TEST_F(OptionsPanelTest, TheUsersChoiceOfTheStaffIsKept) {
    stage.user.Click(panel.optJBR[1]);
    EXPECT_EQ(sources.back(), (std::pair<int, bool>{1, true}));
    EXPECT_EQ(stage.settings.values["zv2000.JbrFrom"], "1");
}

TEST_F(OptionsPanelTest, TheReminderAtTheStartLooksAsFarAsIsTyped) {
    days = "9";
    stage.user.Click(panel.chkBirthDay);
    EXPECT_EQ(stage.settings.values["zvTask.StartupBirthDay"], "9");
}

}  // namespace
}  // namespace zv::windows
