#include "forms/icon.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace zv::forms {
namespace {

constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kBlue = 0xFF0000FF;

Shape Square(double left, double top, double right, double bottom, std::uint32_t color) {
    return {
        Shape::Kind::Polygon, color, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
}

std::uint32_t At(const std::vector<std::uint32_t>& pixels, int size, int x, int y) {
    return pixels.at(static_cast<std::size_t>(y * size + x));
}

TEST(Rasterize, GivesSizeTimesSizePixelsThatAreClearWhereNothingIsDrawn) {
    const auto pixels = Rasterize(Icon(), 24);
    ASSERT_EQ(pixels.size(), 24U * 24U);
    for (const std::uint32_t pixel : pixels) EXPECT_EQ(pixel, 0U);
}

TEST(Rasterize, ScalesTheGridOfSixteenToTheSize) {
    const Icon icon{{Square(0, 0, 8, 8, kRed)}};
    for (const int size : {16, 20, 24, 32, 48}) {
        const auto pixels = Rasterize(icon, size);
        EXPECT_EQ(At(pixels, size, 0, 0), kRed) << size;
        EXPECT_EQ(At(pixels, size, size / 2 - 1, size / 2 - 1), kRed) << size;
        EXPECT_EQ(At(pixels, size, size / 2, size / 2 - 1), 0U) << size;
        EXPECT_EQ(At(pixels, size, size - 1, size - 1), 0U) << size;
    }
}

TEST(Rasterize, OnePixelIsASize) {
    EXPECT_EQ(Rasterize({{Square(0, 0, 16, 16, kRed)}}, 1), std::vector<std::uint32_t>{kRed});
}

TEST(Rasterize, PutsRowsFromTheTop) {
    const auto pixels =
        Rasterize(Icon{{Square(0, 0, 16, 1, kRed), Square(0, 15, 16, 16, kBlue)}}, 16);
    EXPECT_EQ(At(pixels, 16, 7, 0), kRed);
    EXPECT_EQ(At(pixels, 16, 7, 15), kBlue);
}

TEST(Rasterize, SmoothsEdgesWithPremultipliedAlpha) {
    const auto pixels = Rasterize(Icon{{Square(0, 0, 0.5, 16, 0xFFFF8000)}}, 16);
    EXPECT_EQ(At(pixels, 16, 0, 8), 0x80804000U);
    EXPECT_EQ(At(pixels, 16, 1, 8), 0U);
}

TEST(Rasterize, LaysLaterShapesOverEarlierOnes) {
    const auto pixels =
        Rasterize(Icon{{Square(0, 0, 16, 16, kRed), Square(4, 4, 12, 12, kBlue)}}, 16);
    EXPECT_EQ(At(pixels, 16, 8, 8), kBlue);
    EXPECT_EQ(At(pixels, 16, 1, 1), kRed);
}

TEST(Rasterize, MixesAHalfTransparentColourWithWhatIsBelow) {
    const auto pixels =
        Rasterize(Icon{{Square(0, 0, 16, 16, kRed), Square(0, 0, 16, 16, 0x800000FF)}}, 16);
    EXPECT_EQ(At(pixels, 16, 8, 8), 0xFF7F0080U);
}

TEST(Rasterize, DrawsAnEllipseInsideItsCorners) {
    const Icon icon{{{Shape::Kind::Ellipse, kRed, {{0, 4}, {16, 12}}}}};
    const auto pixels = Rasterize(icon, 16);
    EXPECT_EQ(At(pixels, 16, 8, 8), kRed);
    EXPECT_EQ(At(pixels, 16, 8, 3), 0U);
    EXPECT_EQ(At(pixels, 16, 0, 4), 0U);
    EXPECT_EQ(At(pixels, 16, 15, 11), 0U);
}

TEST(Rasterize, DrawsAChainAsALineWithItsWidth) {
    const Icon icon{{{Shape::Kind::Line, kRed, {{2, 8}, {8, 8}, {8, 14}}, 2}}};
    const auto pixels = Rasterize(icon, 16);
    EXPECT_EQ(At(pixels, 16, 4, 7), kRed);
    EXPECT_EQ(At(pixels, 16, 4, 8), kRed);
    EXPECT_EQ(At(pixels, 16, 4, 6), 0U);
    EXPECT_EQ(At(pixels, 16, 7, 12), kRed);
    EXPECT_EQ(At(pixels, 16, 4, 12), 0U) << "the chain is open";
}

TEST(Rasterize, FillsAPolygonThatCrossesItself) {
    const Icon star{{{Shape::Kind::Polygon, kRed, {{8, 0}, {13, 15}, {0, 6}, {16, 6}, {3, 15}}}}};
    EXPECT_EQ(At(Rasterize(star, 16), 16, 8, 8), kRed);
}

TEST(Rasterize, ClipsWhatLeavesTheGrid) {
    const auto pixels = Rasterize(Icon{{Square(-100, -100, 100, 100, kRed)}}, 16);
    for (const std::uint32_t pixel : pixels) EXPECT_EQ(pixel, kRed);
}

TEST(Rasterize, RefusesASizeOfNothing) {
    EXPECT_THROW(Rasterize(Icon(), 0), RuntimeError);
}

TEST(ImageList, FindsAnIconByItsKeyInTheOrderAdded) {
    ImageList images;
    images.Add("task1", Icon());
    images.Add("task2", Icon{{Square(0, 0, 1, 1, kRed)}});
    EXPECT_EQ(images.Count(), 2);
    EXPECT_EQ(images.Find("task2"), 1);
    EXPECT_EQ(images.At(images.Find("task2")).shapes.size(), 1U);
    EXPECT_EQ(images.Key(0), "task1");
}

TEST(ImageList, RefusesAnUnknownKey) {
    ImageList images;
    images.Add("task1", Icon());
    try {
        images.Find("Task1");
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::KeyNotFound);
    }
}

}  // namespace
}  // namespace zv::forms
