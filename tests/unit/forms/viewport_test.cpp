// What a window shows of a larger content, and where windows may lie.
#include "forms/viewport.h"

#include <gtest/gtest.h>

namespace zv::forms {
namespace {

constexpr int kBar = 16;

Viewport Of(Size inside, Size least) {
    Viewport view;
    view.Set(inside, least, kBar);
    return view;
}

TEST(Viewport, ContentThatFitsHasNoBarsAndFillsTheRoom) {
    const Viewport view = Of({500, 400}, {300, 200});
    EXPECT_FALSE(view.HasHorizontalBar());
    EXPECT_FALSE(view.HasVerticalBar());
    EXPECT_EQ(view.Content(), (Size{500, 400}));
    EXPECT_EQ(Of({300, 200}, {300, 200}).View(), (Size{300, 200}));
}

TEST(Viewport, OneBarStandsWhereOnlyOneDirectionIsTooSmall) {
    const Viewport low = Of({500, 150}, {300, 200});
    EXPECT_FALSE(low.HasHorizontalBar());
    EXPECT_TRUE(low.HasVerticalBar());
    EXPECT_EQ(low.View(), (Size{500 - kBar, 150}));
    EXPECT_EQ(low.Content(), (Size{500 - kBar, 200}));
    const Viewport narrow = Of({250, 400}, {300, 200});
    EXPECT_TRUE(narrow.HasHorizontalBar());
    EXPECT_FALSE(narrow.HasVerticalBar());
    EXPECT_EQ(narrow.Content(), (Size{300, 400 - kBar}));
}

TEST(Viewport, ABarTakesRoomFromTheOtherDirection) {
    const Viewport both = Of({305, 150}, {300, 200});
    EXPECT_TRUE(both.HasHorizontalBar());
    EXPECT_TRUE(both.HasVerticalBar());
    EXPECT_EQ(both.View(), (Size{305 - kBar, 150 - kBar}));
    EXPECT_EQ(both.Content(), (Size{300, 200}));
}

TEST(Viewport, NoRoomAtAllIsNoFault) {
    const Viewport none = Of({0, 0}, {300, 200});
    EXPECT_EQ(none.View(), (Size{0, 0}));
    EXPECT_EQ(none.Content(), (Size{300, 200}));
}

TEST(Viewport, ScrollsNoFurtherThanTheContent) {
    Viewport view = Of({200, 100}, {300, 200});
    EXPECT_TRUE(view.ScrollTo({1000, 1000}));
    EXPECT_EQ(view.Offset(), (Position{300 - (200 - kBar), 200 - (100 - kBar)}));
    EXPECT_FALSE(view.ScrollTo({1000, 1000}));
    EXPECT_TRUE(view.ScrollTo({-5, -5}));
    EXPECT_EQ(view.Offset(), (Position{0, 0}));
}

TEST(Viewport, AWindowThatGrowsShowsNothingBehindTheContent) {
    Viewport view = Of({200, 100}, {300, 200});
    view.ScrollTo({1000, 1000});
    view.Set({300, 200}, {300, 200}, kBar);
    EXPECT_EQ(view.Offset(), (Position{0, 0}));
}

TEST(Viewport, RevealsWithTheLeastMovement) {
    Viewport view = Of({200, 100}, {800, 600});
    EXPECT_FALSE(view.Reveal({10, 10, 50, 20}));
    EXPECT_TRUE(view.Reveal({400, 300, 50, 20}));
    EXPECT_EQ(view.Offset(), (Position{450 - view.View().width, 320 - view.View().height}));
    EXPECT_FALSE(view.Reveal({300, 290, 50, 20}));
    EXPECT_TRUE(view.Reveal({200, 290, 50, 20}));
    EXPECT_EQ(view.Offset(), (Position{200, 320 - view.View().height}));
}

TEST(Viewport, RevealsTheBeginningOfWhatIsLarger) {
    Viewport view = Of({200, 100}, {800, 600});
    view.Reveal({300, 200, 400, 300});
    EXPECT_EQ(view.Offset(), (Position{300, 200}));
}

using Axis = Viewport::Axis;
using Step = Viewport::Step;

TEST(Viewport, StepsMoveByALineAPageOrToAnEnd) {
    Viewport view = Of({200, 100}, {800, 600});
    view.ScrollTo({300, 250});
    const Size page = view.View();
    EXPECT_EQ(view.After(Axis::Vertical, Step::LineOn), (Position{300, 274}));
    EXPECT_EQ(view.After(Axis::Vertical, Step::LineBack), (Position{300, 226}));
    EXPECT_EQ(view.After(Axis::Horizontal, Step::LineOn), (Position{324, 250}));
    EXPECT_EQ(view.After(Axis::Horizontal, Step::LineBack), (Position{276, 250}));
    EXPECT_EQ(view.After(Axis::Vertical, Step::PageOn), (Position{300, 250 + page.height}));
    EXPECT_EQ(view.After(Axis::Vertical, Step::PageBack), (Position{300, 250 - page.height}));
    EXPECT_EQ(view.After(Axis::Horizontal, Step::PageOn), (Position{300 + page.width, 250}));
    EXPECT_EQ(view.After(Axis::Horizontal, Step::PageBack), (Position{300 - page.width, 250}));
    EXPECT_EQ(view.After(Axis::Vertical, Step::Start), (Position{300, 0}));
    EXPECT_EQ(view.After(Axis::Vertical, Step::End), (Position{300, 600 - page.height}));
    EXPECT_EQ(view.After(Axis::Horizontal, Step::Start), (Position{0, 250}));
    EXPECT_EQ(view.After(Axis::Horizontal, Step::End), (Position{800 - page.width, 250}));
    EXPECT_EQ(view.Offset(), (Position{300, 250})) << "asking moves nothing";
}

TEST(Viewport, ANotchOfTheWheelIsThreeLines) {
    Viewport view = Of({200, 100}, {800, 600});
    view.ScrollTo({300, 250});
    EXPECT_EQ(view.AfterWheel(Axis::Vertical, Viewport::kNotch), (Position{300, 178}));
    EXPECT_EQ(view.AfterWheel(Axis::Vertical, -Viewport::kNotch), (Position{300, 322}));
    EXPECT_EQ(view.AfterWheel(Axis::Horizontal, Viewport::kNotch), (Position{372, 250}));
    EXPECT_EQ(view.AfterWheel(Axis::Horizontal, -Viewport::kNotch), (Position{228, 250}));
    // A fine wheel turns by parts of a notch, the least of which moves too.
    EXPECT_EQ(view.AfterWheel(Axis::Vertical, 1), (Position{300, 249}));
    EXPECT_EQ(view.AfterWheel(Axis::Vertical, -1), (Position{300, 251}));
}

constexpr Rect kArea{-1280, 40, 1280, 760};

TEST(FitInto, WhatLiesInsideStays) {
    EXPECT_EQ(FitInto({-1000, 100, 400, 300}, kArea), (Rect{-1000, 100, 400, 300}));
}

TEST(FitInto, WhatLiesOutsideMovesIn) {
    EXPECT_EQ(FitInto({-1400, 0, 400, 300}, kArea), (Rect{-1280, 40, 400, 300}));
    EXPECT_EQ(FitInto({500, 5000, 400, 300}, kArea), (Rect{-400, 500, 400, 300}));
}

TEST(FitInto, WhatIsLargerIsCut) {
    EXPECT_EQ(FitInto({0, 0, 2000, 1000}, kArea), kArea);
}

}  // namespace
}  // namespace zv::forms
