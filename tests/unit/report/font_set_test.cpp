#include "report/font_set.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "base/errors.h"
#include "report_stage.h"

namespace zv::report {
namespace {

constexpr char kLatin[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr char kChinese[] = "/usr/share/fonts/truetype/wqy/wqy-microhei.ttc";

TEST(FontSet, FindsBothScripts) {
    EXPECT_FALSE(TestFonts().Find(U'务').isReplacement);
    EXPECT_FALSE(TestFonts().Find(U'務').isReplacement);
    EXPECT_FALSE(TestFonts().Find(U'a').isReplacement);
}

TEST(FontSet, AsksTheFontsInOrder) {
    const FontSet fonts({{kLatin, 0, ""}, {kChinese, 0, ""}});
    EXPECT_EQ(fonts.Find(U'a').font, 0);
    EXPECT_EQ(fonts.Find(U'务').font, 1);
}

TEST(FontSet, ACharacterThatNoFontHasIsABox) {
    const Glyph& glyph = TestFonts().Find(0x2A6D6);
    EXPECT_TRUE(glyph.isReplacement);
    EXPECT_NE(glyph.index, 0);
    EXPECT_GT(glyph.advance, 0);
}

TEST(FontSet, LeavesOutWhatIsNoFont) {
    const std::string path = testing::TempDir() + "no_font.ttf";
    std::ofstream(path) << "nothing like a font";
    const FontSet fonts({{path, 0, ""}, {"/no/such/file.ttf", 0, ""}, {kChinese, 0, ""}});
    EXPECT_EQ(fonts.Fonts().size(), 1u);
}

TEST(FontSet, LeavesOutWhatHasMoreWidthsThanGlyphs) {
    std::ifstream stream(kLatin, std::ios::binary);
    std::string font{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    const std::size_t entry = font.find("hhea");
    ASSERT_NE(entry, std::string::npos);
    std::size_t table = 0;
    for (std::size_t i = 8; i < 12; i++) {
        table = table << 8 | static_cast<unsigned char>(font[entry + i]);
    }
    constexpr std::size_t kCountAt = 34;
    font.replace(table + kCountAt, 2, "\xFF\xFF");
    const std::string path = testing::TempDir() + "more_widths.ttf";
    std::ofstream(path, std::ios::binary) << font;
    const FontSet fonts({{path, 0, ""}, {kChinese, 0, ""}});
    EXPECT_EQ(fonts.Fonts().size(), 1u);
}

TEST(FontSet, WithoutAnyFontIsAnError) {
    try {
        const FontSet fonts({{"/no/such/file.ttf", 0, ""}});
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_NE(error.Text().find("/no/such/file.ttf"), std::string::npos);
    }
}

TEST(FontSet, WidthsAddUp) {
    const FontSet& fonts = TestFonts();
    EXPECT_NEAR(fonts.Width("任务", 10), fonts.Width("任", 10) + fonts.Width("务", 10), 1e-6);
    EXPECT_NEAR(fonts.Width("任", 20), 20, 0.01);  // a wide character is as wide as it is high
}

}  // namespace
}  // namespace zv::report
