#include "windows/query/layout_chooser.h"

#include <gtest/gtest.h>

#include "application/test_application.h"

namespace zv::windows {
namespace {

using Lines = std::vector<std::string>;

constexpr const char* kSetting = "zvTask.PrintColumns";

class LayoutChooser : public testing::Test {
 protected:
    LayoutChooser() {
        stage.Sql(
            "insert into rptListDetail(fTable,FieldName,FieldName_0,FieldName_1,FieldType,fieldID)"
            " values('ttasklist','taskTime','日期','日期',0,1),"
            "('ttasklist','taskTitle','主题','主題',0,2),"
            "('ttasklist','fOther0','地点','地點',0,3)");
    }
    frmItemSet& Open() {
        auto& window = stage.windows.Create<frmItemSet>(stage.session);
        window.onAccepted = [this](const std::string& layout) { accepted = layout; };
        window.Show(false);
        return window;
    }

    test::TestApplication stage;
    std::string accepted;
};

TEST_F(LayoutChooser, ShowsWhatIsChosenAndWhatIsLeft) {
    frmItemSet& window = Open();
    EXPECT_EQ(window.lstChosen.Items(), (Lines{"日期", "主题"}));
    EXPECT_EQ(window.lstAll.Items(), Lines{"地点"});
    EXPECT_EQ(window.Caption(), "列表设置");
}

TEST_F(LayoutChooser, TakesAColumnBehindTheSelectedOne) {
    frmItemSet& window = Open();
    stage.user.Pick(window.lstAll, 0);
    stage.user.Pick(window.lstChosen, 0);
    stage.user.Click(window.cmdTake);
    EXPECT_EQ(window.lstChosen.Items(), (Lines{"日期", "地点", "主题"}));
    EXPECT_EQ(window.lstChosen.ListIndex(), 1);
    EXPECT_FALSE(window.cmdTake.Enabled());
    stage.user.Click(window.cmdOK);
    EXPECT_EQ(accepted, "taskTime,fOther0,taskTitle");
}

TEST_F(LayoutChooser, OrdersTheColumns) {
    frmItemSet& window = Open();
    stage.user.Pick(window.lstChosen, 1);
    EXPECT_FALSE(window.cmdDown.Enabled());
    stage.user.Click(window.cmdUp);
    EXPECT_EQ(window.lstChosen.Items(), (Lines{"主题", "日期"}));
    EXPECT_EQ(window.lstChosen.ListIndex(), 0);
    EXPECT_FALSE(window.cmdUp.Enabled());
    stage.user.Click(window.cmdDown);
    EXPECT_EQ(window.lstChosen.Items(), (Lines{"日期", "主题"}));
}

TEST_F(LayoutChooser, TheFocusStaysOnTheFieldsAfterTheLastOneWasTaken) {
    frmItemSet& window = Open();
    window.cmdTake.SetFocus();
    stage.user.Click(window.cmdTake);
    EXPECT_FALSE(window.cmdTake.Enabled());
    EXPECT_EQ(window.ActiveControl(), &window.lstAll);
    window.cmdDrop.SetFocus();
    while (window.cmdDrop.Enabled()) stage.user.Click(window.cmdDrop);
    EXPECT_EQ(window.ActiveControl(), &window.lstChosen);
}

TEST_F(LayoutChooser, TheFocusGoesToTheColumnsWhenOneCannotMoveOn) {
    frmItemSet& window = Open();
    stage.user.Pick(window.lstChosen, 0);
    window.cmdDown.SetFocus();
    stage.user.Click(window.cmdDown);
    EXPECT_FALSE(window.cmdDown.Enabled());
    EXPECT_EQ(window.ActiveControl(), &window.lstChosen);
    window.cmdUp.SetFocus();
    stage.user.Click(window.cmdUp);
    EXPECT_EQ(window.ActiveControl(), &window.lstChosen);
}

TEST_F(LayoutChooser, APrintedListHasAtLeastOneColumn) {
    frmItemSet& window = Open();
    stage.user.Click(window.cmdDrop);
    stage.user.Click(window.cmdDrop);
    EXPECT_FALSE(window.cmdDrop.Enabled());
    stage.user.Click(window.cmdOK);
    EXPECT_EQ(stage.dialogs.messages, Lines{"48|请至少选择一列!"});
    EXPECT_TRUE(window.IsShown());
}

TEST_F(LayoutChooser, GoesBackToTheUsualColumns) {
    stage.settings.values[kSetting] = "fOther0";
    frmItemSet& window = Open();
    EXPECT_EQ(window.lstChosen.Items(), Lines{"地点"});
    stage.user.Click(window.cmdUsual);
    EXPECT_EQ(window.lstChosen.Items(), (Lines{"日期", "主题"}));
}

TEST_F(LayoutChooser, ColumnsLeftKeepTheDatabasesOrder) {
    frmItemSet& window = Open();
    stage.user.Pick(window.lstChosen, 0);
    stage.user.Click(window.cmdDrop);
    EXPECT_EQ(window.lstAll.Items(), (Lines{"日期", "地点"}));
}

TEST_F(LayoutChooser, ACancelKeepsNothing) {
    frmItemSet& window = Open();
    stage.user.Click(window.cmdDrop);
    stage.user.Click(window.cmdCancel);
    EXPECT_EQ(accepted, "");
    EXPECT_FALSE(stage.settings.values.contains(kSetting));
}

TEST_F(LayoutChooser, SpeaksTraditionalChinese) {
    stage.session.state.Language = 1;
    frmItemSet& window = Open();
    EXPECT_EQ(window.lstChosen.Items(), (Lines{"日期", "主題"}));
    EXPECT_EQ(window.lblAll.Caption(), "可選的欄");
}

}  // namespace
}  // namespace zv::windows
