#include "report/text_lines.h"

#include <gtest/gtest.h>

#include "base/text.h"

namespace zv::report {
namespace {

// Wide characters are two units, others one.
double Units(char32_t c) {
    return c >= 0x1100 ? 2 : 1;
}

std::vector<std::string> Lines(const std::string& text, double width) {
    std::vector<std::string> result;
    for (const Line& line : BreakLines(text, width, Units)) {
        result.push_back(text.substr(line.begin, line.length));
    }
    return result;
}

using Texts = std::vector<std::string>;

TEST(BreakLines, ChineseBreaksBetweenAnyTwoCharacters) {
    EXPECT_EQ(Lines("一二三四五", 4), (Texts{"一二", "三四", "五"}));
}

TEST(BreakLines, ClosingPunctuationNeverBeginsALine) {
    EXPECT_EQ(Lines("一二三，四", 6), (Texts{"一二", "三，四"}));
    EXPECT_EQ(Lines("一二」三", 4), (Texts{"一", "二」", "三"}));
}

TEST(BreakLines, OpeningPunctuationNeverEndsALine) {
    EXPECT_EQ(Lines("一二（三", 6), (Texts{"一二", "（三"}));
}

TEST(BreakLines, LatinBreaksBetweenWords) {
    EXPECT_EQ(Lines("one two three", 8), (Texts{"one two", "three"}));
}

TEST(BreakLines, LatinBetweenChineseStaysWhole) {
    EXPECT_EQ(Lines("使用word文档", 7), (Texts{"使用", "word文", "档"}));
}

TEST(BreakLines, AWordWiderThanALineIsBroken) {
    EXPECT_EQ(Lines("a abcdefghij b", 4), (Texts{"a", "abcd", "efgh", "ij b"}));
}

TEST(BreakLines, ADateStaysWhole) {
    EXPECT_EQ(Lines("am 2003-03-07", 11), (Texts{"am", "2003-03-07"}));
}

TEST(BreakLines, BlanksAtABreakArePartOfNoLine) {
    EXPECT_EQ(Lines("one   two", 3), (Texts{"one", "two"}));
}

TEST(BreakLines, AnEmptyTextIsOneLine) {
    EXPECT_EQ(Lines("", 5), (Texts{""}));
}

TEST(BreakLines, LineBreaksOfTheTextHold) {
    EXPECT_EQ(Lines("一\n\n二\n", 10), (Texts{"一", "", "二", ""}));
}

TEST(BreakLines, PunctuationThatFillsALineIsBrokenAllTheSame) {
    EXPECT_EQ(Lines("。。。。", 4), (Texts{"。。", "。。"}));
}

TEST(BreakLines, LosesNothingOfALongText) {
    std::string text;
    for (int i = 0; i < 100000; i++) text += i % 7 == 0 ? "x" : "文";
    std::string joined;
    for (const std::string& line : Lines(text, 80)) joined += line;
    EXPECT_EQ(joined, text);
}

TEST(BreakLines, NoLineIsWiderThanItsRoom) {
    const std::string text = "ab文cd，ef（gh）ij kl-mn 2003-03-07 xyzxyzxyzxyzxyz「终」了。";
    for (int width = 2; width < 30; width++) {
        for (const std::string& line : Lines(text, width)) {
            double used = 0;
            for (std::size_t p = 0; p < line.size();) used += Units(text::NextCodePoint(line, p));
            EXPECT_LE(used, width) << line;
        }
    }
}

TEST(CleanText, LineBreaksOfEveryKindAreOne) {
    EXPECT_EQ(CleanText("a\r\nb\rc\nd\xE2\x80\xA8"
                        "e"),
              "a\nb\nc\nd\ne");
}

TEST(CleanText, ATabIsAGap) {
    EXPECT_EQ(CleanText("a\tb"), "a    b");
}

TEST(CleanText, ControlCharactersAreTakenOut) {
    EXPECT_EQ(CleanText(std::string("a\x01\x1F\x7F"
                                    "b\0c",
                                    7)),
              "abc");
    EXPECT_EQ(CleanText("a\xE2\x80\x8B\xEF\xBB\xBF\xE2\x80\xAE"
                        "b"),
              "ab");
}

TEST(CleanText, BrokenUtf8IsReplaced) {
    EXPECT_EQ(CleanText("a\xFF"
                        "b"),
              "a\xEF\xBF\xBD"
              "b");
}

TEST(WidestPart, IsTheLongestWord) {
    EXPECT_EQ(WidestPart("一二 word 三", Units), 4);
    EXPECT_EQ(WidestPart("一二", Units), 2);
}

}  // namespace
}  // namespace zv::report
