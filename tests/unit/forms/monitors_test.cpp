// Which monitor a window lies on, and what a window does when monitors change.
#include "forms/monitors.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

#include "doubles/no_dialogs.h"
#include "forms/form.h"
#include "forms/headless/headless_backend.h"
#include "forms/text_box.h"
#include "forms/window_system.h"

namespace zv::forms {
namespace {

constexpr int kDouble = 2 * Scale::kUsualDpi;
constexpr int kHalfMore = 3 * Scale::kUsualDpi / 2;

const Monitor kMain{{0, 0, 1280, 1024}, {0, 0, 1280, 984}};
const Monitor kLeft{{-1920, 0, 1920, 1080}, {-1920, 40, 1920, 1040}, kHalfMore};

TEST(Scale, WholeUnitsSurviveTheWayToPixelsAndBack) {
    for (int dpi = Scale::kUsualDpi; dpi <= 5 * Scale::kUsualDpi; dpi++) {
        const Scale scale(dpi);
        for (int units = -700; units <= 700; units++) {
            ASSERT_EQ(scale.ToUnits(scale.ToPixels(units)), units) << dpi;
        }
    }
}

TEST(Scale, UnitsHoldTheirPixelsWhereverTheyBegin) {
    constexpr int kLongest = 60;
    for (const int dpi : {96, 110, 120, 144, 168, 192, 288}) {
        const Scale scale(dpi);
        for (int pixels = 0; pixels <= kLongest; pixels++) {
            const int units = scale.UnitsThatHold(pixels);
            for (int begin = -Scale::kUsualDpi; begin <= Scale::kUsualDpi; begin++) {
                ASSERT_GE(scale.ToPixels(begin + units) - scale.ToPixels(begin), pixels)
                    << dpi << " " << begin;
            }
        }
        EXPECT_EQ(scale.UnitsThatHold(dpi), Scale::kUsualDpi) << "no more than needed";
    }
}

TEST(Scale, HalvesAreRoundedAwayFromZero) {
    const Scale scale(kHalfMore);
    EXPECT_EQ(scale.ToPixels(1), 2);
    EXPECT_EQ(scale.ToPixels(-1), -2);
    EXPECT_EQ(scale.ToPixels(Size{2, 3}), (Size{3, 5}));
    EXPECT_EQ(scale.ToTwips(3), 30);
    EXPECT_EQ(scale.FromTwips(30), 3);
    EXPECT_EQ(scale.ToUnits(Rect{-1920, 40, 1920, 1040}), (Rect{-1280, 27, 1280, 693}));
}

TEST(Monitors, APlaceLiesOnTheOneThatHasMostOfIt) {
    const Monitors both({kMain, kLeft});
    EXPECT_EQ(both.Around({-100, 0, 300, 100}), kMain);
    EXPECT_EQ(both.Around({-200, 0, 300, 100}), kLeft);
    EXPECT_EQ(both.PositionAround({-1000, 500, 10, 10}), 1U);
}

TEST(Monitors, APlaceOutsideOfAllLiesOnTheNearest) {
    const Monitors both({kMain, kLeft});
    EXPECT_EQ(both.Around({2000, 100, 100, 100}), kMain);
    EXPECT_EQ(both.Around({-1000, 2000, 100, 100}), kLeft);
    EXPECT_EQ(both.Around({-3000, -500, 100, 100}), kLeft);
    EXPECT_EQ(both.Around({1000, -5000, 0, 0}), kMain);
}

TEST(Monitors, TheDesktopCoversAllOfThem) {
    EXPECT_EQ(Monitors({kMain, kLeft}).Desktop(), (Rect{-1920, 0, 3200, 1080}));
    EXPECT_EQ(Monitors({kLeft, kMain}).Primary(), kLeft);
    EXPECT_THROW(Monitors({}), std::invalid_argument);
}

TEST(Monitors, WhatLiesWholeIsOnOneAndCoversNoBar) {
    const Monitors both({kMain, kLeft});
    EXPECT_TRUE(LiesWhole(both, {0, 0, 1280, 984}));
    EXPECT_FALSE(LiesWhole(both, {0, 0, 1280, 985}));
    EXPECT_FALSE(LiesWhole(both, {-10, 0, 100, 100}));
    EXPECT_TRUE(LiesWhole(both, {-1920, 40, 100, 100}));
    EXPECT_FALSE(LiesWhole(both, {-1920, 39, 100, 100}));
}

struct Tested : Form {
    explicit Tested(WindowSystem& windows, std::string name = "frmTest")
        : Form(windows, std::move(name)) {
        txtLast.Move({500, 400, 80, 24});
    }
    void Form_Resize() override {
        if (onResize) onResize();
    }
    std::function<void()> onResize;
    TextBox txtLast{*this, "txtLast"};
};

class OnMonitors : public testing::Test {
 protected:
    Tested& Open(Size size, bool sizable) {
        auto& form = windows.Create<Tested>();
        form.SetSizable(sizable);
        if (sizable) form.SetMinimumClientSize({400, 300});
        form.SetClientSize(size);
        form.Center();
        form.Show(false);
        return form;
    }
    Rect PlaceOf(const Form& form) { return backend.Find(form)->Place(); }
    /// The only monitor gets another scale.
    void SetScale(int dpi) { backend.SetMonitors(Monitors({{kMain.bounds, kMain.workArea, dpi}})); }

    doubles::NoDialogs dialogs;
    headless::HeadlessBackend backend{dialogs};
    WindowSystem windows{backend};
};

TEST_F(OnMonitors, AWindowIsAsLargeAsItsContentAtTheScaleOfItsMonitor) {
    backend.SetMonitors(Monitors({kLeft, kMain}));
    const Tested& form = Open({600, 400}, true);
    EXPECT_EQ(PlaceOf(form).width, 900);
    EXPECT_EQ(PlaceOf(form).height, 600);
    EXPECT_EQ(PlaceOf(form).left, -1920 + (1920 - 900) / 2);
    EXPECT_TRUE(LiesWhole(Monitors({kLeft, kMain}), PlaceOf(form)));
}

TEST_F(OnMonitors, ANewWindowStartsWhereTheUserWorks) {
    const Monitors both({kMain, kLeft});
    backend.SetMonitors(both);
    const Tested& first = Open({600, 400}, true);
    auto& second = windows.Create<Tested>("frmSecond");
    second.Center();
    second.Show(false);
    EXPECT_EQ(both.PositionAround(PlaceOf(second)), 0U);
    backend.Drag(first, {-1800, 100});
    auto& third = windows.Create<Tested>("frmThird");
    third.Center();
    third.Show(false);
    EXPECT_EQ(both.PositionAround(PlaceOf(third)), 1U) << "beside the one that was dragged";
    EXPECT_EQ(backend.Find(third)->Dpi(), kHalfMore);
}

TEST_F(OnMonitors, AWindowDraggedToAnotherScaleIsLaidOutAnewAndLiesWhole) {
    const Monitors both({kMain, kLeft});
    backend.SetMonitors(both);
    Tested& form = Open({600, 400}, true);
    int laidOut = 0;
    form.onResize = [&] { laidOut++; };
    backend.Drag(form, {-250, 600});
    EXPECT_EQ(laidOut, 0) << "most of it lies where it came from";
    backend.Drag(form, {-500, 800});
    EXPECT_EQ(laidOut, 1);
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
    EXPECT_TRUE(LiesWhole(both, PlaceOf(form)));
    EXPECT_EQ(both.PositionAround(PlaceOf(form)), 1U);
}

TEST_F(OnMonitors, AFixedWindowThatHadNoRoomIsWholeAgainWhenItHas) {
    SetScale(Scale::kUsualDpi);
    const Tested& form = Open({900, 700}, false);
    SetScale(kDouble);
    EXPECT_TRUE(form.View().HasHorizontalBar());
    EXPECT_EQ(form.ClientSize(), (Size{900, 700}));
    EXPECT_EQ(form.WantedInside(), (Size{900, 700}));
    SetScale(Scale::kUsualDpi);
    EXPECT_FALSE(form.View().HasHorizontalBar());
    EXPECT_EQ(form.View().Inside(), (Size{900, 700}));
}

TEST_F(OnMonitors, TheSizeThatTheUserGaveAWindowComesBackWithTheRoom) {
    SetScale(Scale::kUsualDpi);
    Tested& form = Open({600, 400}, true);
    form.UserResized({0, 0, 1000, 800}, {1000, 800});
    EXPECT_EQ(form.WantedInside(), (Size{1000, 800}));
    SetScale(kDouble);
    EXPECT_EQ(form.ClientSize(), (Size{640, 492}));
    SetScale(Scale::kUsualDpi);
    EXPECT_EQ(form.ClientSize(), (Size{1000, 800}));
}

TEST_F(OnMonitors, AMaximisedSizeIsNotOneThatTheUserAskedFor) {
    Tested& form = Open({600, 400}, true);
    form.UserChangedState(WindowState::Maximised);
    form.UserResized({0, 0, 1280, 984}, {1280, 984});
    EXPECT_EQ(form.WantedInside(), (Size{600, 400}));
}

TEST_F(OnMonitors, TheFocusStaysInViewWhenRoomGoes) {
    SetScale(Scale::kUsualDpi);
    Tested& form = Open({900, 700}, false);
    ASSERT_TRUE(form.FocusTo(form.txtLast));
    SetScale(3 * Scale::kUsualDpi);
    const Viewport& view = form.View();
    ASSERT_LT(view.View().width, form.txtLast.Bounds().Right());
    EXPECT_GE(view.Offset().x + view.View().width, form.txtLast.Bounds().Right());
    EXPECT_GE(view.Offset().y + view.View().height, form.txtLast.Bounds().Bottom());
    EXPECT_EQ(form.ActiveControl(), &form.txtLast);
}

TEST_F(OnMonitors, AWindowOnAnUnpluggedOneGoesToTheNext) {
    const Monitors both({kMain, kLeft});
    backend.SetMonitors(both);
    const Tested& form = Open({600, 400}, true);
    backend.Drag(form, {-1900, 900});
    const Monitors rest({kMain});
    backend.SetMonitors(rest);
    EXPECT_TRUE(LiesWhole(rest, PlaceOf(form)));
    EXPECT_EQ(backend.Find(form)->Dpi(), Scale::kUsualDpi);
    EXPECT_EQ(form.ClientSize(), (Size{600, 400}));
}

TEST_F(OnMonitors, WhatChangesWhileAWindowIsMinimisedIsMadeUpFor) {
    SetScale(Scale::kUsualDpi);
    Tested& form = Open({900, 700}, true);
    form.SetState(WindowState::Minimised);
    const Monitor other{{0, 0, 800, 600}, {0, 0, 800, 560}, kHalfMore};
    backend.SetMonitors(Monitors({other}));
    int laidOut = 0;
    form.onResize = [&] { laidOut++; };
    form.SetState(WindowState::Normal);
    EXPECT_EQ(laidOut, 1);
    EXPECT_TRUE(LiesWhole(Monitors({other}), PlaceOf(form)));
}

TEST_F(OnMonitors, TextsNeedWholePixelsOnEachMonitorThatHadAWindow) {
    const Size before = backend.MeasureText("8888");
    backend.SetMonitors(Monitors({{kMain.bounds, kMain.workArea, 120}}));
    Open({600, 400}, true);
    // 7.5 pixels of each are 8.
    EXPECT_EQ(before.width, 24);
    EXPECT_EQ(backend.MeasureText("8888").width, 26);
    SetScale(Scale::kUsualDpi);
    EXPECT_EQ(backend.MeasureText("8888").width, 26);
}

}  // namespace
}  // namespace zv::forms
