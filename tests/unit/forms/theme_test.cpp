#include "forms/theme.h"

#include <gtest/gtest.h>

#include <array>

namespace zv::forms {
namespace {

constexpr std::array<std::uint32_t, 5> kMeaning = {0xB00020, 0x9A4A00, 0x1F5C99, 0x333333,
                                                   0x2E6B30};

TEST(Contrast, IsCountedAsTheGuidelinesSay) {
    EXPECT_NEAR(Contrast(0x000000, 0xFFFFFF), 21, 0.01);
    EXPECT_NEAR(Contrast(0x777777, 0xFFFFFF), 4.48, 0.01);
    EXPECT_NEAR(Contrast(0xFFFFFF, 0x777777), 4.48, 0.01);
    EXPECT_NEAR(Contrast(0x123456, 0x123456), 1, 0.001);
}

TEST(MadeReadable, LeavesWhatCanBeRead) {
    for (const std::uint32_t color : kMeaning) EXPECT_EQ(MadeReadable(color, 0xFFFFFF), color);
}

TEST(MadeReadable, IsReadableOnAnyGround) {
    for (const std::uint32_t color : kMeaning) {
        for (std::uint32_t part = 0; part <= 0xFF; part++) {
            for (const std::uint32_t ground : {part << 16 | part << 8 | part, part, part << 8}) {
                EXPECT_GE(Contrast(MadeReadable(color, ground), ground), kReadable) << ground;
            }
        }
    }
}

TEST(MadeReadable, KeepsTheColoursApartOnADarkGround) {
    const std::uint32_t overdue = MadeReadable(kMeaning[0], 0x202020);
    const std::uint32_t done = MadeReadable(kMeaning[4], 0x202020);
    EXPECT_GT(overdue >> 16, overdue & 0xFFU);
    EXPECT_GT((done >> 8) & 0xFFU, done >> 16);
}

TEST(ShownColor, IsTheSystemsOwnWhereItMustBe) {
    EXPECT_EQ(ShownColor(0xB00020, {}, false), 0xB00020U);
    EXPECT_EQ(ShownColor(0xB00020, {}, true), std::nullopt);
    EXPECT_EQ(ShownColor(0xB00020, {.window = 0, .highContrast = true}, false), std::nullopt);
    EXPECT_NE(ShownColor(0xB00020, {.window = 0x202020}, false), 0xB00020U);
}

}  // namespace
}  // namespace zv::forms
