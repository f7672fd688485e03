#include "report/paper_fit.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace zv::report {
namespace {

constexpr double kLongSide = 841.89;
constexpr double kShortSide = 595.28;  // A4

// A sheet of a size in points on a printer of that many dots per inch.
Sheet Paper(double width, double height, int dotsX, int dotsY) {
    return {
        dotsX, dotsY, static_cast<int>(width * dotsX / 72), static_cast<int>(height * dotsY / 72),
        0,     0};
}

TEST(PaperFit, APageOfThePapersSizeKeepsItsTrueSize) {
    const Placement place = FitPage(kShortSide, kLongSide, Paper(kShortSide, kLongSide, 600, 600));
    EXPECT_DOUBLE_EQ(place.scaleX, 600 / 72.0);
    EXPECT_DOUBLE_EQ(place.scaleY, 600 / 72.0);
    EXPECT_NEAR(place.left, 0, 1);
    EXPECT_NEAR(place.top, 0, 1);
}

TEST(PaperFit, EachDirectionHasItsOwnResolution) {
    const Placement place = FitPage(kShortSide, kLongSide, Paper(kShortSide, kLongSide, 360, 180));
    EXPECT_DOUBLE_EQ(place.scaleX, 5);
    EXPECT_DOUBLE_EQ(place.scaleY, 2.5);
}

TEST(PaperFit, TheUnprintableEdgeIsTakenOff) {
    Sheet sheet = Paper(kShortSide, kLongSide, 72, 72);
    sheet.unprintableLeft = 12;
    sheet.unprintableTop = 18;
    const Placement place = FitPage(kShortSide, kLongSide, sheet);
    EXPECT_NEAR(place.left, -12, 1);
    EXPECT_NEAR(place.top, -18, 1);
}

TEST(PaperFit, OnSmallerPaperAllOfThePageIsPrinted) {
    struct Case {
        const char* name;
        double pageWidth, pageHeight, paperWidth, paperHeight;
    };
    for (const Case& c :
         {Case{"letter", kShortSide, kLongSide, 612, 792},
          Case{"A5", kShortSide, kLongSide, 419.5, kShortSide},
          Case{"across on upright", kLongSide, kShortSide, kShortSide, kLongSide},
          Case{"upright on across", kShortSide, kLongSide, kLongSide, kShortSide}}) {
        const Sheet sheet = Paper(c.paperWidth, c.paperHeight, 300, 150);
        const Placement place = FitPage(c.pageWidth, c.pageHeight, sheet);
        EXPECT_NEAR(place.scaleX / 300, place.scaleY / 150, 1e-9) << c.name;
        const double right = place.left + c.pageWidth * place.scaleX;
        const double bottom = place.top + c.pageHeight * place.scaleY;
        EXPECT_GE(place.left, -0.5) << c.name;
        EXPECT_GE(place.top, -0.5) << c.name;
        EXPECT_LE(right, sheet.width + 0.5) << c.name;
        EXPECT_LE(bottom, sheet.height + 0.5) << c.name;
        // In the middle, and no smaller than it must be.
        EXPECT_NEAR(place.left, sheet.width - right, 1) << c.name;
        EXPECT_NEAR(place.top, sheet.height - bottom, 1) << c.name;
        EXPECT_NEAR(std::min(place.left, place.top), 0, 1) << c.name;
    }
}

TEST(PaperFit, OnLargerPaperThePageIsNotMagnified) {
    const Sheet a3 = Paper(kLongSide, 2 * kShortSide, 72, 72);
    const Placement place = FitPage(kShortSide, kLongSide, a3);
    EXPECT_DOUBLE_EQ(place.scaleX, 1);
    EXPECT_NEAR(place.left, (kLongSide - kShortSide) / 2, 1);
    EXPECT_NEAR(place.top, (2 * kShortSide - kLongSide) / 2, 1);
}

TEST(PaperFit, ADeviceThatReportsNoPaperGetsTheTrueSize) {
    const Placement place = FitPage(kShortSide, kLongSide, {96, 96, 0, 0, 4, 0});
    EXPECT_DOUBLE_EQ(place.scaleX, 96 / 72.0);
    EXPECT_DOUBLE_EQ(place.left, -4);
    EXPECT_DOUBLE_EQ(place.top, 0);
}

}  // namespace
}  // namespace zv::report
