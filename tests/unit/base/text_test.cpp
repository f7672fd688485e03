// Texts: what counts as a character, a unit, a blank.
#include "base/text.h"

#include <gtest/gtest.h>

namespace zv::text {
namespace {

using Parts = std::vector<std::string>;

TEST(Text, OnlyBlanksAreTrimmed) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\n"), "\ta\n");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("a"), "a");
    EXPECT_EQ(TrimLeft("  a  "), "a  ");
    EXPECT_EQ(TrimLeft("  "), "");
}
TEST(Text, LettersOfAsciiHaveTwoCases) {
    EXPECT_EQ(ToLower("@AZ[`az{É标"), "@az[`az{É标");
    EXPECT_EQ(ToUpper("@AZ[`az{é标"), "@AZ[`AZ{é标");
    EXPECT_TRUE(EqualsIgnoreCase("aZ[标", "Az[标"));
    EXPECT_FALSE(EqualsIgnoreCase("[", "{"));
    EXPECT_FALSE(EqualsIgnoreCase("a", "ab"));
    EXPECT_FALSE(EqualsIgnoreCase("ab", "a"));
    EXPECT_FALSE(EqualsIgnoreCase("É", "é"));
    EXPECT_TRUE(EqualsIgnoreCase("", ""));
}
TEST(Text, NamesAreMadeOfLettersDigitsAndWhatIsBeyondAscii) {
    for (const char c : std::string("azAZ09_\x80\xFF")) EXPECT_TRUE(IsWordCharacter(c)) << c;
    for (const char c : std::string("`{@[/:^ -\x7F\x01")) EXPECT_FALSE(IsWordCharacter(c)) << c;
}
TEST(Text, PartsComeBackFromWhatTheyAreJoinedTo) {
    EXPECT_EQ(Split("a,b,,c", ","), (Parts{"a", "b", "", "c"}));
    EXPECT_EQ(Split("", ","), Parts{""});
    EXPECT_EQ(Split(",", ","), (Parts{"", ""}));
    EXPECT_EQ(Split("a--b-c", "--"), (Parts{"a", "b-c"}));
    EXPECT_EQ(Join({"a", "b", ""}, ", "), "a, b, ");
    EXPECT_EQ(Join({}, ","), "");
    EXPECT_EQ(Join({"a"}, ","), "a");
    EXPECT_EQ(Replace("aXXbX", "X", "yy"), "ayyyybyy");
    EXPECT_EQ(Replace("aaa", "aa", "a"), "aa");
    EXPECT_TRUE(Contains("abc", "bc"));
    EXPECT_TRUE(Contains("abc", ""));
    EXPECT_FALSE(Contains("abc", "cb"));
}
TEST(Text, IsCutByUnitsAndNeverWithinAPair) {
    EXPECT_EQ(Length("a标😀"), 4U);
    EXPECT_EQ(Length(""), 0U);
    EXPECT_EQ(Length("\uFFFF\U00010000"), 3U);
    EXPECT_EQ(Left("a标😀b", 0), "");
    EXPECT_EQ(Left("a标😀b", 2), "a标");
    EXPECT_EQ(Left("a标😀b", 3), "a标");
    EXPECT_EQ(Left("a标😀b", 4), "a标😀");
    EXPECT_EQ(Left("a标😀b", 9), "a标😀b");
    EXPECT_EQ(Mid("a标😀b", 1, 1), "a");
    EXPECT_EQ(Mid("a标😀b", 2, 1), "标");
    EXPECT_EQ(Mid("a标😀b", 3), "😀b");
    EXPECT_EQ(Mid("a标😀b", 0, 1), "a");
    EXPECT_EQ(Mid("a标😀b", 9), "");
    EXPECT_EQ(PadTo("a标", 4), "a标  ");
    EXPECT_EQ(PadTo("a标", 1), "a");
    EXPECT_EQ(PadTo("a😀", 2), "a ");
    EXPECT_EQ(PadTo("", 0), "");
}
TEST(Text, BrokenSequencesAreOneReplacementEach) {
    const auto points = [](std::string_view text) {
        std::u32string all;
        for (std::size_t at = 0; at < text.size();) all += NextCodePoint(text, at);
        return all;
    };
    EXPECT_EQ(points("\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF"),
              U"\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF");
    EXPECT_EQ(points("\x80x"), U"\uFFFDx");
    EXPECT_EQ(points("\xBFx"), U"\uFFFDx");
    EXPECT_EQ(points("\xC1x"), U"\uFFFDx");
    EXPECT_EQ(points("\xC2x"), U"\uFFFDx");
    EXPECT_EQ(points("\xC2"), U"\uFFFD");
    EXPECT_EQ(points("\xE6\xA0x"), U"\uFFFDx");
    EXPECT_EQ(points("\xE6\xA0"), U"\uFFFD");
    EXPECT_EQ(points("\xF0\x9F\x98x"), U"\uFFFDx");
    EXPECT_EQ(points("\xF8x"), U"\uFFFDx");
    EXPECT_EQ(points("\xFFx"), U"\uFFFDx");
    // Longer than need be, half of a pair, behind the last.
    EXPECT_EQ(points("\xC0\xAFx"), U"\uFFFD\uFFFDx");
    EXPECT_EQ(points("\xE0\x9F\xBFx"), U"\uFFFDx");
    EXPECT_EQ(points("\xF0\x8F\xBF\xBFx"), U"\uFFFDx");
    EXPECT_EQ(points("\xED\xA0\x80x"), U"\uFFFDx");
    EXPECT_EQ(points("\xED\xBF\xBFx"), U"\uFFFDx");
    EXPECT_EQ(points("\xF4\x90\x80\x80x"), U"\uFFFDx");
}
TEST(Text, EveryCharacterComesBackFromUtf16) {
    for (const char32_t c : {U'\x01', U'\x7F', U'\x80', U'\u07FF', U'\u0800', U'\uD7FF', U'\uE000',
                             U'\uFFFF', U'\U00010000', U'\U0010FC00', U'\U0010FFFF'}) {
        std::string text;
        AppendCodePoint(text, c);
        const std::u16string units = ToUtf16(text);
        EXPECT_EQ(units.size(), c < 0x10000 ? 1U : 2U);
        EXPECT_EQ(FromUtf16(units), text);
        std::size_t at = 0;
        EXPECT_EQ(NextCodePoint(text, at), c);
        EXPECT_EQ(at, text.size());
    }
    EXPECT_EQ(ToUtf16("a标😀"), u"a标😀");
    EXPECT_EQ(FromUtf16(u"a标😀"), "a标😀");
}
TEST(Text, HalvesOfPairsBecomeReplacements) {
    EXPECT_EQ(FromUtf16(std::u16string{0xD800}), "\uFFFD");
    EXPECT_EQ(FromUtf16(std::u16string{0xDBFF, u'a'}), "\uFFFDa");
    EXPECT_EQ(FromUtf16(std::u16string{0xDC00, 0xD800}), "\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf16(std::u16string{0xDFFF}), "\uFFFD");
    EXPECT_EQ(FromUtf16(std::u16string{0xD800, 0xE000}), "\uFFFD\uE000");
    EXPECT_EQ(FromUtf16(std::u16string{0xDBFF, 0xDFFF}), "\U0010FFFF");
    EXPECT_EQ(FromUtf16(std::u16string{0xD7FF, 0xDC00}), "\uD7FF\uFFFD");
}

}  // namespace
}  // namespace zv::text
