// What a driver finds fault with in a window, and what it refuses to work.
#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/grid.h"
#include "forms/label.h"
#include "forms/lists.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;
using Lines = std::vector<std::string>;

struct LaidOut : TestForm {
    explicit LaidOut(WindowSystem& windows) : TestForm(windows) {
        lblText.SetCaption("文字");
        cmdOK.SetCaption("确定(&O)");
        chkAll.SetCaption("全部");
        fraBox.SetCaption("框");
        cmdIn.SetCaption("在内");
        lblText.Move({8, 8, 100, 24});
        cmdOK.Move({8, 40, 100, 32});
        chkAll.Move({8, 80, 100, 24});
        fraBox.Move({8, 120, 200, 80});
        cmdIn.Move({8, 30, 100, 32});
        SetClientSize({320, 240});
    }
    Label lblText{*this, "lblText"};
    CommandButton cmdOK{*this, "cmdOK"};
    CheckBox chkAll{*this, "chkAll"};
    Frame fraBox{*this, "fraBox"};
    CommandButton cmdIn{*this, "cmdIn", &fraBox};
};

class LayoutFault : public Contract {
 protected:
    LayoutFault() : form(windows_.Create<LaidOut>()) { form.Show(false); }
    /// What is wrong, without the figures: those are the backend's.
    Lines Faults() {
        Lines faults;
        for (std::string& fault : driver().ReadFaults(form)) {
            faults.push_back(fault.substr(fault.find('.') + 1));
            const auto figures = faults.back().find_first_of(":[");
            if (figures != std::string::npos) faults.back().resize(figures);
        }
        return faults;
    }
    LaidOut& form;
};

TEST_F(LayoutFault, AWindowWhoseControlsLieWellHasNone) {
    EXPECT_EQ(Faults(), Lines{});
}

TEST_F(LayoutFault, AControlWithoutExtent) {
    form.cmdOK.Move({8, 40, 0, 32});
    EXPECT_EQ(Faults().front(), "cmdOK has no extent");
    form.cmdOK.SetVisible(false);
    EXPECT_EQ(Faults(), Lines{});
}

TEST_F(LayoutFault, AControlOutsideOfItsContainerOrTheWindow) {
    form.chkAll.Move({8, 225, 100, 24});
    form.cmdIn.Move({120, 30, 100, 32});
    EXPECT_EQ(Faults(), (Lines{"chkAll lies outside", "cmdIn lies outside"}));
}

TEST_F(LayoutFault, AControlOnTheCaptionOfItsFrame) {
    form.cmdIn.Move({8, 4, 100, 32});
    EXPECT_EQ(Faults(), Lines{"cmdIn lies on the caption of fraBox"});
}

TEST_F(LayoutFault, AControlAcrossAnotherOne) {
    form.chkAll.Move({8, 60, 100, 24});
    EXPECT_EQ(Faults(), Lines{"chkAll lies across cmdOK"});
    // Those of different containers cannot, unless the containers do.
    form.chkAll.Move({8, 80, 100, 24});
    form.cmdIn.Move({8, 40, 100, 32});
    EXPECT_EQ(Faults(), Lines{});
}

TEST_F(LayoutFault, ACaptionWithoutRoom) {
    form.lblText.SetCaption("这些文字没有地方");
    form.lblText.Move({8, 8, 30, 24});
    form.cmdOK.Move({8, 40, 24, 32});
    form.chkAll.Move({8, 80, 30, 24});
    form.fraBox.SetCaption("一个很长很长很长很长很长很长很长很长很长很长的标题");
    EXPECT_EQ(Faults(), (Lines{"lblText cuts ", "cmdOK cuts ", "chkAll cuts ", "fraBox cuts "}));
}

TEST_F(LayoutFault, DataThatIsCutStandsInATip) {
    form.lblText.SetUseMnemonic(false);
    form.lblText.SetCaption("一个客户的名称");
    form.lblText.Move({8, 8, 30, 24});
    EXPECT_EQ(Faults(), Lines{"lblText cuts "});
    form.lblText.SetToolTip("一个客户的名称");
    EXPECT_EQ(Faults(), Lines{});
}

TEST_F(LayoutFault, ACaptionThatIsHigherThanItsPlace) {
    form.chkAll.Move({8, 80, 100, 6});
    EXPECT_EQ(Faults(), Lines{"chkAll is too low for "});
}

struct Listed : TestForm {
    explicit Listed(WindowSystem& windows) : TestForm(windows) {
        SSTab1.SetTabCaption(0, "一");
        SSTab1.SetTabCaption(1, "二");
        SSTab1.Move({8, 8, 300, 120});
        cboKind.SetItems({"任务", "拜访"});
        cboKind.Move({8, 8, 100, 26});
        Grid1.SetColumns({{"编号", 80, true}, {"主题", 80, true}});
        Grid1.Move({8, 140, 300, 90});
        SetClientSize({320, 240});
    }
    TabPanel SSTab1{*this, "SSTab1", nullptr, 2};
    ComboBox cboKind{*this, "cboKind", &SSTab1.Page(0), ComboStyle::ListOnly};
    Grid Grid1{*this, "Grid1"};
};

TEST_F(LayoutFault, TabsListsAndHeadingsWithoutRoom) {
    auto& listed = windows_.Create<Listed>();
    listed.Show(false);
    EXPECT_EQ(driver().ReadFaults(listed), Lines{});
    listed.SSTab1.SetTabCaption(1, "一页又一页又一页又一页又一页又一页又一页又一页又一页又一页");
    listed.cboKind.SetItems({"任务", "很多很多很多很多的任务"});
    listed.Grid1.SetColumns({{"编号", 10, true}, {"主题", 10, false}});
    const Lines faults = driver().ReadFaults(listed);
    ASSERT_EQ(faults.size(), 3u);
    EXPECT_TRUE(faults[0].starts_with("frmTest.SSTab1 has no room for its tabs"));
    EXPECT_TRUE(faults[1].starts_with("frmTest.cboKind cuts [很多很多很多很多的任务]"));
    EXPECT_TRUE(faults[2].starts_with("frmTest.Grid1 cuts the heading [编号]"));
}

TEST_F(LayoutFault, WhatTakesNoPlaceCannotBeWorked) {
    int clicks = 0;
    form.cmdOK.onClick = [&] { clicks++; };
    form.cmdIn.onClick = [&] { clicks++; };
    driver().Click(form.cmdOK);
    driver().Click(form.cmdIn);
    EXPECT_EQ(clicks, 2);
    form.cmdOK.Move({8, 40, 0, 32});
    form.cmdIn.Move({8, 90, 100, 32});
    EXPECT_THROW(driver().Click(form.cmdOK), driver::DriverError);
    EXPECT_THROW(driver().Click(form.cmdIn), driver::DriverError) << "below the end of its frame";
    form.cmdOK.Move({400, 40, 100, 32});
    EXPECT_THROW(driver().Click(form.cmdOK), driver::DriverError) << "beyond the window";
    EXPECT_EQ(clicks, 2);
}

TEST_F(LayoutFault, WhatTheWindowScrollsToCanBeWorked) {
    int clicks = 0;
    form.cmdIn.onClick = [&] { clicks++; };
    stand_->SetWorkArea({0, 0, 200, 130});
    form.Center();
    form.SetClientSize({321, 240});
    ASSERT_TRUE(form.View().HasVerticalBar());
    driver().Click(form.cmdIn);
    EXPECT_EQ(clicks, 1);
    EXPECT_GT(form.View().Offset().y, 0);
    EXPECT_EQ(Faults(), Lines{}) << "the content is laid out as before";
}

}  // namespace
}  // namespace zv::contract
