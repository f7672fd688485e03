// Windows on several monitors of different scales.
#include <functional>

#include "forms/buttons.h"
#include "forms/grid.h"
#include "forms/menu.h"
#include "forms/text_box.h"
#include "forms/tree_view.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

constexpr int kDouble = 2 * Scale::kUsualDpi;
constexpr int kQuarterMore = 5 * Scale::kUsualDpi / 4;
const Monitor kMain{{0, 0, 1280, 1024}, {0, 0, 1280, 984}};
const Monitor kLeft{{-1920, -100, 1920, 1200}, {-1920, -60, 1920, 1160}, kDouble};

struct FullForm : TestForm {
    explicit FullForm(WindowSystem& windows, std::string name = "frmTest")
        : TestForm(windows, std::move(name)) {
        txtTitle.Move({10, 10, 200, 24});
        tvwAll.Move({10, 40, 200, 300});
        grdAll.Move({220, 40, 300, 300});
        cmdOK.Move({500, 360, 80, 28});
        grdAll.SetColumns({{"编号", 80, true}, {"名称", 120, true}});
        grdAll.SetDataRowCount(3);
        images.Add("item", Icon());
        tvwAll.SetImageList(&images);
        const int root = tvwAll.Add(TreeView::kNone, "A", "任务", "item");
        for (const char* key : {"Z1", "Z2", "Z3"}) tvwAll.Add(root, key, key, "item");
        tvwAll.SetExpanded(root, true);
        SetClientSize({600, 400});
        mnuAll.SetVisible(false);
    }
    MenuItem mnuAll{*this, "mnuAll", nullptr, "任务"};
    MenuItem mnuFirst{*this, "mnuFirst", &mnuAll, "新增"};
    ImageList images;
    TextBox txtTitle{*this, "txtTitle"};
    TreeView tvwAll{*this, "tvwAll"};
    Grid grdAll{*this, "grdAll"};
    CommandButton cmdOK{*this, "cmdOK"};
};

class OnMonitors : public Contract {
 protected:
    OnMonitors() { stand_->SetMonitors(both); }
    FullForm& Open(bool sizable) {
        auto& form = windows_.Create<FullForm>();
        form.SetSizable(sizable);
        if (sizable) form.SetMinimumClientSize({540, 390});
        form.Center();
        form.Show(false);
        return form;
    }
    void Change(const Monitor& monitor) { stand_->SetMonitors(Monitors({monitor})); }
    void ExpectWhole(Form& form, const Monitors& monitors) {
        EXPECT_TRUE(LiesWhole(monitors, driver().ReadPlace(form)))
            << driver().ReadPlace(form).left << "," << driver().ReadPlace(form).top;
        EXPECT_EQ(driver().ReadDpi(form), monitors.Around(driver().ReadPlace(form)).dpi);
        EXPECT_EQ(driver().ReadFaults(form), std::vector<std::string>());
    }

    const Monitors both{{kMain, kLeft}};
};

TEST_F(OnMonitors, AWindowStartsOnThePrimaryOneWhenNoneIsOpen) {
    auto& form = Open(true);
    EXPECT_EQ(both.PositionAround(driver().ReadPlace(form)), 0U);
    ExpectWhole(form, both);
}

TEST_F(OnMonitors, ADraggedWindowKeepsItsSizeAndLiesWholeAtTheOtherScale) {
    auto& form = Open(true);
    int laidOut = 0;
    form.onResize = [&] { laidOut++; };
    // Right beside the edge it would hang over below and at the right.
    driver().Drag(form, {-500, 900});
    EXPECT_EQ(both.PositionAround(driver().ReadPlace(form)), 1U);
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
    EXPECT_GE(laidOut, 1);
    ExpectWhole(form, both);
    driver().Drag(form, {300, 200});
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
    ExpectWhole(form, both);
}

TEST_F(OnMonitors, AWindowStartsWhereTheUserWorks) {
    auto& form = Open(true);
    driver().Drag(form, {-1800, 100});
    auto& second = windows_.Create<FullForm>("frmSecond");
    second.Center();
    second.Show(false);
    EXPECT_EQ(both.PositionAround(driver().ReadPlace(second)), 1U);
    ExpectWhole(second, both);
}

TEST_F(OnMonitors, AWindowThatGrowsWithItsScaleStaysOnItsMonitor) {
    auto& form = Open(true);
    const Monitor right{{1280, 0, 1920, 1024}, {1280, 0, 1920, 1024}};
    stand_->SetMonitors(Monitors({kMain, right}));
    driver().Drag(form, {650, 100});
    const Monitor sharp{kMain.bounds, kMain.workArea, kDouble};
    const Monitors changed({sharp, right});
    stand_->SetMonitors(changed);
    EXPECT_EQ(changed.PositionAround(driver().ReadPlace(form)), 0U);
    ExpectWhole(form, changed);
}

TEST_F(OnMonitors, AFixedWindowIsWholeAgainWhenThereIsRoomAgain) {
    auto& form = Open(false);
    const Monitor small{{0, 0, 800, 600}, {0, 0, 800, 560}, kDouble};
    Change(small);
    EXPECT_TRUE(form.View().HasHorizontalBar());
    ExpectWhole(form, Monitors({small}));
    Change(kMain);
    EXPECT_FALSE(form.View().HasHorizontalBar());
    EXPECT_FALSE(form.View().HasVerticalBar());
    EXPECT_EQ(form.View().Inside(), (Size{600, 400}));
    ExpectWhole(form, Monitors({kMain}));
}

TEST_F(OnMonitors, TheSizeThatTheUserChoseComesBackWithTheRoom) {
    auto& form = Open(true);
    driver().Resize(form, {900, 700});
    const Monitor small{{0, 0, 1280, 800}, {0, 0, 1280, 800}, kQuarterMore};
    Change(small);
    EXPECT_LT(form.ClientSize().height, 700);
    ExpectWhole(form, Monitors({small}));
    Change(kMain);
    EXPECT_EQ(form.ClientSize(), (Size{900, 700}));
}

TEST_F(OnMonitors, NothingIsLostWhenTheScaleChanges) {
    auto& form = Open(true);
    driver().ClickNode(form.tvwAll, "Z2");
    driver().SelectRow(form.grdAll, 2);
    driver().ResizeColumn(form.grdAll, 1, 130);
    driver().Type(form.txtTitle, "半句");
    const std::string nodes = Read(form.tvwAll, "nodes");
    const int width = form.grdAll.GetColumn(1).width;
    int clicks = 0;
    int selections = 0;
    form.cmdOK.onClick = [&] { clicks++; };
    form.tvwAll.onNodeClick = [&](int) { selections++; };
    for (const int dpi : {kQuarterMore, kDouble, Scale::kUsualDpi}) {
        const Monitor changed{kMain.bounds, kMain.workArea, dpi};
        Change(changed);
        ExpectWhole(form, Monitors({changed}));
        EXPECT_EQ(Read(form.txtTitle, "text"), "半句");
        EXPECT_EQ(form.ActiveControl(), &form.txtTitle);
        EXPECT_EQ(Read(form.tvwAll, "selected"), "Z2");
        EXPECT_EQ(Read(form.tvwAll, "nodes"), nodes);
        EXPECT_TRUE(form.grdAll.IsSelected(2));
        EXPECT_EQ(form.grdAll.GetColumn(1).width, width) << dpi;
    }
    EXPECT_EQ(selections, 0) << "no user did anything";
    driver().Click(form.cmdOK);
    EXPECT_EQ(clicks, 1);
}

TEST_F(OnMonitors, WhatIsScrolledIntoViewStaysWhereItCanBeClicked) {
    auto& form = Open(false);
    const Monitor small{{0, 0, 800, 600}, {0, 0, 800, 560}, kDouble};
    Change(small);
    ASSERT_TRUE(form.FocusTo(form.cmdOK));
    ASSERT_GT(form.View().Offset().x, 0);
    for (const int dpi : {kQuarterMore + kQuarterMore, kDouble}) {
        const Monitor changed{small.bounds, small.workArea, dpi};
        Change(changed);
        ExpectWhole(form, Monitors({changed}));
        int clicks = 0;
        form.cmdOK.onClick = [&] { clicks++; };
        driver().Click(form.cmdOK);
        EXPECT_EQ(clicks, 1) << dpi;
    }
}

TEST_F(OnMonitors, AWindowOnAnUnpluggedOneGoesToTheNext) {
    auto& form = Open(true);
    driver().Drag(form, {-1900, 700});
    const Monitors rest({kMain});
    stand_->SetMonitors(rest);
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
    ExpectWhole(form, rest);
}

TEST_F(OnMonitors, ABarThatComesPushesWindowsAside) {
    auto& form = Open(true);
    driver().Drag(form, {0, 500});
    const Monitor withBar{kMain.bounds, {90, 0, 1190, 800}};
    Change(withBar);
    ExpectWhole(form, Monitors({withBar}));
}

TEST_F(OnMonitors, WhatChangesWhileAWindowIsMinimisedIsMadeUpFor) {
    auto& form = Open(true);
    form.SetState(WindowState::Minimised);
    const Monitor other{{0, 0, 1280, 1000}, {0, 60, 1280, 940}, kQuarterMore};
    Change(other);
    form.SetState(WindowState::Normal);
    ExpectWhole(form, Monitors({other}));
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
}

TEST_F(OnMonitors, ASizeChosenBeforeAMissedChangeComesBackWithTheWindow) {
    auto& form = Open(true);
    driver().Resize(form, {900, 700});
    form.SetState(WindowState::Minimised);
    const Monitor small{{0, 0, 1280, 800}, {0, 0, 1280, 800}, kQuarterMore};
    Change(small);
    Change(kMain);
    form.SetState(WindowState::Normal);
    ExpectWhole(form, Monitors({kMain}));
    EXPECT_EQ(form.ClientSize(), (Size{900, 700}));
}

TEST_F(OnMonitors, AWindowMinimisedOnAnUnpluggedOneComesBackWhole) {
    auto& form = Open(true);
    driver().Drag(form, {-1900, 700});
    driver().Type(form.txtTitle, "半句");
    form.SetState(WindowState::Minimised);
    const Monitors rest({kMain});
    stand_->SetMonitors(rest);
    form.SetState(WindowState::Normal);
    ExpectWhole(form, rest);
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
    EXPECT_EQ(Read(form.txtTitle, "text"), "半句");
    EXPECT_EQ(form.ActiveControl(), &form.txtTitle);
}

TEST_F(OnMonitors, AMinimisedWindowThatIsShownAgainIsMadeUpForToo) {
    auto& form = Open(true);
    driver().Drag(form, {-1900, 700});
    form.SetState(WindowState::Minimised);
    const Monitors rest({kMain});
    stand_->SetMonitors(rest);
    form.Show(false);
    EXPECT_EQ(form.State(), WindowState::Normal);
    ExpectWhole(form, rest);
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
}

TEST_F(OnMonitors, AWindowHiddenOnAnUnpluggedOneIsShownWhole) {
    auto& form = Open(true);
    driver().Drag(form, {-1900, 700});
    driver().Type(form.txtTitle, "半句");
    form.Hide();
    const Monitors rest({kMain});
    stand_->SetMonitors(rest);
    form.Show(false);
    ExpectWhole(form, rest);
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
    EXPECT_EQ(Read(form.txtTitle, "text"), "半句");
}

TEST_F(OnMonitors, AMaximisedWindowCoversTheMonitorThatIsLeftAndIsWholeAfterwards) {
    auto& form = Open(true);
    driver().Drag(form, {-1800, 100});
    form.SetState(WindowState::Maximised);
    EXPECT_EQ(driver().ReadPlace(form), kLeft.workArea);
    const Monitors rest({kMain});
    stand_->SetMonitors(rest);
    EXPECT_EQ(driver().ReadPlace(form), kMain.workArea);
    ExpectWhole(form, rest);
    form.SetState(WindowState::Normal);
    ExpectWhole(form, rest);
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
}

// Below a box of any sort the window follows, and what was asked is answered as it would have been.
TEST_F(OnMonitors, AWindowBelowABoxFollows) {
    auto& form = Open(true);
    driver().Drag(form, {-1900, 700});
    driver().Type(form.txtTitle, "半句");
    int stood = 0;
    dialogs().whileStanding = [&](const std::string&) {
        stood++;
        const Monitor other{kMain.bounds, kMain.workArea, kQuarterMore};
        Change(other);
        ExpectWhole(form, Monitors({other}));
        Change(kMain);
        ExpectWhole(form, Monitors({kMain}));
        EXPECT_EQ(form.ActiveControl(), &form.txtTitle);
        stand_->SetMonitors(both);
    };
    dialogs().answers = {Answer::No};
    EXPECT_EQ(windows_.ShowMessage("确认?", box::kYesNo), Answer::No);
    dialogs().inputs = {"口令"};
    EXPECT_EQ(windows_.AskText("?", true), "口令");
    EXPECT_EQ(stood, 2);
    EXPECT_EQ(Read(form.txtTitle, "text"), "半句");
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
}

TEST_F(OnMonitors, AWindowOpenedFromABoxStartsWhereTheOwnerIs) {
    auto& form = Open(true);
    driver().Drag(form, {-1800, 100});
    dialogs().whileStanding = [&](const std::string&) {
        const Monitors rest({kMain});
        stand_->SetMonitors(rest);
        auto& second = windows_.Create<FullForm>("frmSecond");
        second.Center();
        second.Show(false);
        ExpectWhole(second, rest);
        ExpectWhole(form, rest);
    };
    windows_.ShowMessage("!", box::kOkOnly);
    EXPECT_NE(windows_.Find("frmSecond"), nullptr);
}

TEST_F(OnMonitors, AModalWindowAndItsOwnerFollowTogether) {
    auto& form = Open(true);
    driver().Drag(form, {-1900, 300});
    stand_->SetModalLoop([&](Form& modal) {
        auto& child = static_cast<FullForm&>(modal);
        EXPECT_EQ(both.PositionAround(driver().ReadPlace(child)), 1U);
        driver().Type(child.txtTitle, "半句");
        const Monitors rest({kMain});
        stand_->SetMonitors(rest);
        ExpectWhole(child, rest);
        ExpectWhole(form, rest);
        EXPECT_EQ(Read(child.txtTitle, "text"), "半句");
        EXPECT_EQ(child.ActiveControl(), &child.txtTitle);
        driver().Close(child);
    });
    auto& child = windows_.Create<FullForm>("frmChild");
    child.Center();
    child.Show(true);
    EXPECT_EQ(windows_.Find("frmChild"), nullptr);
}

TEST_F(OnMonitors, AMenuStandsOnAndIsAnswered) {
    auto& form = Open(true);
    int chosen = 0;
    form.mnuFirst.onClick = [&] { chosen++; };
    driver().Drag(form, {-1900, 300});
    int opened = 0;
    stand_->SetMenuLoop([&] {
        if (opened++ == 0) return stand_->SetMonitors(Monitors({kMain}));
        windows_.ChooseInStandingMenu(form.mnuFirst);
    });
    form.PopupMenu(form.mnuAll, 20, 20);
    EXPECT_EQ(opened, 2) << "it opens once more where its window is";
    EXPECT_EQ(chosen, 1);
    ExpectWhole(form, Monitors({kMain}));
}

}  // namespace
}  // namespace zv::contract
