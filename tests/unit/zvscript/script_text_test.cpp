#include "script_text.h"

#include <gtest/gtest.h>

#include "refusal.h"

namespace zv::script {
namespace {

std::vector<std::string> WordsOf(const std::string& line) {
    const auto lines = ReadScript(line);
    std::vector<std::string> words;
    if (lines.size() == 1) {
        for (const Word& word : lines[0].words) words.push_back(word.text);
    }
    return words;
}

using List = std::vector<std::string>;

TEST(ReadScript, SeparatesWordsAtBlanks) {
    EXPECT_EQ(WordsOf("  set \tUserName  张三 "), (List{"set", "UserName", "张三"}));
}

TEST(ReadScript, QuotedWordsHoldBlanksAndComments) {
    EXPECT_EQ(WordsOf("sql \"a # b\" # c"), (List{"sql", "a # b"}));
}

TEST(ReadScript, ReadsTheEscapes) {
    EXPECT_EQ(WordsOf(R"(x "\"\\\t\r\n")"), (List{"x", "\"\\\t\r\n"}));
}

TEST(ReadScript, ABackslashOutsideQuotesIsItself) {
    EXPECT_EQ(WordsOf(R"(set UserPath C:\new)"), (List{"set", "UserPath", "C:\\new"}));
}

TEST(ReadScript, AnEmptyQuotedWordIsAWord) {
    EXPECT_EQ(WordsOf("x \"\" y"), (List{"x", "", "y"}));
}

TEST(ReadScript, AQuoteMayFollowAnEqualsSign) {
    EXPECT_EQ(WordsOf("bag read UserName=\"张 三\" A=1"),
              (List{"bag", "read", "UserName=张 三", "A=1"}));
}

TEST(ReadScript, KnowsWhichWordsWereQuoted) {
    const auto lines = ReadScript("input \"cancel\"\ninput cancel");
    EXPECT_TRUE(lines[0].words[1].quoted);
    EXPECT_FALSE(lines[1].words[1].quoted);
}

TEST(ReadScript, SkipsBlankLinesAndCommentsButCountsThem) {
    const auto lines = ReadScript("# story\n\n   \nclock 2003-03-07\n#\nshow error");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].number, 4);
    EXPECT_EQ(lines[1].number, 6);
}

TEST(ReadScript, AcceptsByteOrderMarkAndWindowsLineEnds) {
    const auto lines = ReadScript("\xEF\xBB\xBFshow error\r\nshow bag\r\n");
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].words[0].text, "show");
    EXPECT_EQ(lines[1].words[1].text, "bag");
}

TEST(ReadScript, RefusesWhatIsWrongWithItsLine) {
    EXPECT_EQ(RefusalBy(ReadScript, "show error\nsql \"abc"), "2: a quote is not closed");
    EXPECT_EQ(RefusalBy(ReadScript, "sql \"abc\\"), "1: a quote is not closed");
    EXPECT_EQ(RefusalBy(ReadScript, "sql \"a\\x\""), "1: unknown escape \\x");
    EXPECT_EQ(RefusalBy(ReadScript, "sql a\"b\""),
              "1: a quote inside a word: quote the whole word");
    EXPECT_EQ(RefusalBy(ReadScript, "sql \"a\"b"), "1: a blank is missing behind a closing quote");
}

TEST(ReadScript, RefusesTextThatIsNotUtf8) {
    EXPECT_EQ(RefusalBy(ReadScript, "show error\nset UserName \xD5\xC5"),
              "2: the text is not UTF-8");
    EXPECT_EQ(RefusalBy(ReadScript, "x \xC0\x80"), "1: the text is not UTF-8");
    EXPECT_EQ(RefusalBy(ReadScript, "x \xE4\xBB"), "1: the text is not UTF-8");
    EXPECT_EQ(RefusalBy(ReadScript, "x \xED\xA0\x80"), "1: the text is not UTF-8");
    EXPECT_EQ(RefusalBy(ReadScript, "x \xF4\x90\x80\x80"), "1: the text is not UTF-8");
    EXPECT_EQ(RefusalBy(ReadScript, "x \xF0\x9F\x98\x80"), "accepted");
}

TEST(Quote, WritesAWordThatReadsBack) {
    const std::string text = "a \"b\"\\\t\r\n#张";
    EXPECT_EQ(WordsOf("x " + Quote(text)), (List{"x", text}));
}

TEST(ToInteger, TakesWholeNumbersOnly) {
    EXPECT_EQ(ToInteger("-12"), -12);
    EXPECT_THROW(ToInteger("1.5"), ScriptError);
    EXPECT_THROW(ToInteger(""), ScriptError);
    EXPECT_THROW(ToInteger("12x"), ScriptError);
    EXPECT_THROW(ToInteger("99999999999"), ScriptError);
}

}  // namespace
}  // namespace zv::script
