#include "windows/main/panels/command_panel.h"

#include "panel_fixture.h"

namespace zv::windows {
namespace {

class CommandPanelTest : public PanelTest {
 protected:
    CommandPanelTest() : panel(form, stage.session, model) {
        panel.SetCaptions();
        panel.SetStartCaptions();
        Show();
    }
    CommandPanel panel;
};

TEST_F(CommandPanelTest, TheSaveButtonSaysWhatIsSaved) {
    const std::string plain = panel.cmdSave.Caption();
    model.OpenEditor(items::ItemKind::Diary, EditMode::Changing);
    EXPECT_EQ(panel.cmdSave.Caption(), "日志修改");
    EXPECT_TRUE(panel.cmdSave.Enabled());
    model.LockEditor();
    EXPECT_EQ(panel.cmdSave.Caption(), plain);
    EXPECT_FALSE(panel.cmdSave.Enabled());
}

TEST_F(CommandPanelTest, OnlyWhatIsNotDoneCanBeCompleted) {
    panel.EnableFor(items::ItemState::NotDone);
    EXPECT_TRUE(panel.cmdTaskOK.Enabled());
    EXPECT_TRUE(panel.menus.mnuTaskDoing.Enabled());
    panel.EnableFor(items::ItemState::InHand);
    EXPECT_TRUE(panel.cmdTaskOK.Enabled());
    EXPECT_FALSE(panel.menus.mnuTaskDoing.Enabled());
    panel.EnableFor(items::ItemState::Done);
    EXPECT_FALSE(panel.cmdTaskOK.Enabled());
    panel.EnableFor(std::nullopt);
    EXPECT_FALSE(panel.cmdTaskOK.Enabled());
}

TEST_F(CommandPanelTest, MakesWayForTheReminder) {
    panel.ShowFor(true);
    EXPECT_FALSE(panel.cmdSeek.Visible());
    EXPECT_FALSE(panel.cmdAction[1].Visible());
    EXPECT_TRUE(panel.cmdAction[0].Visible());
    panel.ShowFor(false);
    EXPECT_TRUE(panel.cmdSeek.Visible());
}

}  // namespace
}  // namespace zv::windows
