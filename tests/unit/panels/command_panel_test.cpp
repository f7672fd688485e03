#include "windows/main/panels/command_panel.h"

#include <algorithm>

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

TEST_F(CommandPanelTest, WhatTheReminderTakesAwayStandsTogetherAtOneEnd) {
    for (const int width : {900, 1200}) {
        panel.Place({8, 8, width, panel.Height()});
        int lastOfVanishing = 0;
        int firstOfStaying = width;
        std::vector<forms::Rect> before;
        const auto buttons = {&panel.cmdAction[1], &panel.cmdAction[2], &panel.cmdAction[3],
                              &panel.cmdTaskOK,    &panel.cmdSeek,      &panel.cmdSave,
                              &panel.cmdAction[0], &panel.cmdPrint,     &panel.cmdItemSet,
                              &panel.cmdExit};
        for (const auto* button : buttons) before.push_back(button->Bounds());
        panel.ShowFor(true);
        std::size_t at = 0;
        for (const auto* button : buttons) {
            EXPECT_EQ(button->Bounds().left, before[at++].left) << button->DisplayName();
            if (button->Visible())
                firstOfStaying = std::min(firstOfStaying, button->Bounds().left);
            else
                lastOfVanishing = std::max(lastOfVanishing, button->Bounds().Right());
        }
        EXPECT_LT(lastOfVanishing, firstOfStaying);
        EXPECT_EQ(panel.cmdExit.Bounds().Right(), width);
        panel.ShowFor(false);
    }
}

TEST_F(CommandPanelTest, WithoutAnyNodeThereIsNothingToDeleteOrGoBackTo) {
    panel.EnableActs(false);
    EXPECT_FALSE(panel.cmdAction[3].Enabled());
    EXPECT_FALSE(panel.cmdAction[0].Enabled());
    EXPECT_TRUE(panel.cmdAction[1].Enabled());
    model.OpenEditor(items::ItemKind::Task, EditMode::Adding);
    EXPECT_TRUE(panel.cmdAction[0].Enabled());
    model.editMode = EditMode::None;
    model.LockEditor();
    EXPECT_FALSE(panel.cmdAction[0].Enabled());
    panel.EnableActs(true);
    EXPECT_TRUE(panel.cmdAction[0].Enabled());
    EXPECT_TRUE(panel.cmdAction[3].Enabled());
}

}  // namespace
}  // namespace zv::windows
