#include "windows/main/panels/status_panel.h"

#include "panel_fixture.h"

namespace zv::windows {
namespace {

class StatusPanelTest : public PanelTest {
 protected:
    StatusPanelTest() : panel(form, stage.session) {
        panel.SetCaptions();
        Show();
        panel.Place({8, 500, 600, panel.Height()});
    }
    StatusPanel panel;
};

TEST_F(StatusPanelTest, TheNoticeStandsBehindTheLineAndItsButtonBehindIt) {
    panel.Show("列出 3 项");
    panel.Notify("[甲]: 已保存", true);
    EXPECT_TRUE(panel.cmdShowSaved.Visible());
    EXPECT_LT(panel.lblStatus.Bounds().Right(), panel.lblNotice.Bounds().left);
    EXPECT_LT(panel.lblNotice.Bounds().Right(), panel.cmdShowSaved.Bounds().left);
    panel.ClearNotice();
    EXPECT_FALSE(panel.cmdShowSaved.Visible());
    EXPECT_EQ(panel.lblNotice.Caption(), "");
}

TEST_F(StatusPanelTest, WhatIsCutStandsInATip) {
    panel.Show("列出 3 项");
    panel.Notify("短", true);
    EXPECT_EQ(panel.lblNotice.ToolTip(), "");
    const std::string longTitle(200, 'x');
    panel.Notify(longTitle, true);
    EXPECT_EQ(panel.lblNotice.ToolTip(), longTitle);
    EXPECT_LE(panel.cmdShowSaved.Bounds().Right(), 608);
    panel.Notify("短", true);
    EXPECT_EQ(panel.lblNotice.ToolTip(), "");
}

TEST_F(StatusPanelTest, RestComesOnceForEachCall) {
    int rests = 0;
    panel.onRest = [&] { rests++; };
    panel.CallAtRest();
    EXPECT_TRUE(panel.tmrRest.Running());
    stage.user.Tick(panel.tmrRest);
    EXPECT_EQ(rests, 1);
    EXPECT_FALSE(panel.tmrRest.Running());
}

}  // namespace
}  // namespace zv::windows
