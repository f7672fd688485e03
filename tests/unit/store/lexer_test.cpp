// The words of a statement and the dates in it, each with its place.
#include "store/dialect/lexer.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace zv::store::dialect {
namespace {

/// A line of kinds, places and texts.
std::string Words(std::string_view statement) {
    static constexpr std::string_view kKinds = "nqtd0se";
    std::string line;
    for (const Token& token : Tokenise(statement)) {
        line += kKinds.at(static_cast<std::size_t>(token.kind));
        line += std::to_string(token.position) + ":" + token.text + "|";
    }
    return line;
}

std::string Refusal(std::string_view statement) {
    try {
        Tokenise(statement);
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DatabaseStatement);
        EXPECT_TRUE(TokensIfReadable(statement).empty());
        return error.Text();
    }
    return "none";
}

TEST(Tokenise, TellsNamesTextsDatesNumbersAndSymbolsApart) {
    EXPECT_EQ(Words("select a1$,[My x] from t"),
              "n1:select|n8:a1$|s11:,|q12:My x|n19:from|n24:t|e25:|");
    EXPECT_EQ(Words("x='it''s'"), "n1:x|s2:=|t3:it's|e10:|");
    EXPECT_EQ(Words("#3/7/2003#"), "d1:2003-03-07 00:00:00|e11:|");
    EXPECT_EQ(Words("''"), "t1:|e3:|");
    EXPECT_EQ(Words(""), "e1:|");
}
TEST(Tokenise, BlanksOfAnyKindSeparateAndAreNoWords) {
    EXPECT_EQ(Words(" \t\r\na\tb\rc\nd "), "n5:a|n7:b|n9:c|n11:d|e13:|");
}
TEST(Tokenise, PlacesCountCharactersAndNotBytes) {
    EXPECT_EQ(Words("报表 'é😀' x"), "n1:报表|t4:é😀|n9:x|e10:|");
}
TEST(Tokenise, ANameMayHoldDigitsAndDollarsButNotBeginWithThem) {
    EXPECT_EQ(Words("_a a_1"), "n1:_a|n4:a_1|e7:|");
    EXPECT_EQ(Words("1a"), "01:1|n2:a|e3:|");
    EXPECT_EQ(Refusal("$a"), "unexpected \"$\" at character 1");
}
TEST(Tokenise, NumbersHaveAPointAndAnExponentOnlyWhereDigitsFollow) {
    EXPECT_EQ(Words("12"), "01:12|e3:|");
    EXPECT_EQ(Words("1.5"), "01:1.5|e4:|");
    EXPECT_EQ(Words("1."), "01:1.|e3:|");
    EXPECT_EQ(Words(".5"), "01:.5|e3:|");
    EXPECT_EQ(Words("."), "s1:.|e2:|");
    EXPECT_EQ(Words("1e5"), "01:1e5|e4:|");
    EXPECT_EQ(Words("1E-25"), "01:1E-25|e6:|");
    EXPECT_EQ(Words("1.5e+10"), "01:1.5e+10|e8:|");
    EXPECT_EQ(Words("1e"), "01:1|n2:e|e3:|");
    EXPECT_EQ(Words("1e+"), "01:1|n2:e|s3:+|e4:|");
    EXPECT_EQ(Words("1e-x"), "01:1|n2:e|s3:-|n4:x|e5:|");
    EXPECT_EQ(Words("1.2.3"), "01:1.2|04:.3|e6:|");
}
TEST(Tokenise, AnOperatorOfTwoCharactersIsOneWord) {
    EXPECT_EQ(Words("<><=>=!=<>"), "s1:<>|s3:<=|s5:>=|s7:!=|s9:<>|e11:|");
    EXPECT_EQ(Words("()+-*/%,.;=<>"),
              "s1:(|s2:)|s3:+|s4:-|s5:*|s6:/|s7:%|s8:,|s9:.|s10:;|s11:=|s12:<>|e14:|");
    EXPECT_EQ(Words("= <"), "s1:=|s3:<|e4:|");
}
TEST(Tokenise, WhatCannotBeReadIsNamedWithItsPlace) {
    EXPECT_EQ(Refusal("a 'open"), "the text that begins here is not closed at character 3");
    EXPECT_EQ(Refusal("a 'open''"), "the text that begins here is not closed at character 3");
    EXPECT_EQ(Refusal("ab [open"), "the name that begins here is not closed at character 4");
    EXPECT_EQ(Refusal("a []"), "a name is missing at character 3");
    EXPECT_EQ(Refusal("a #1/2/2003"), "the date that begins here is not closed at character 3");
    EXPECT_EQ(Refusal("a #soon#"), "\"#soon#\" is not a date at character 3");
    EXPECT_EQ(Refusal("a ! b"), "unexpected \"!\" at character 3");
    EXPECT_EQ(Refusal("a \"b\""), "unexpected \"\"\" at character 3");
}
TEST(Tokenise, ControlCharactersAreNamedAsSuch) {
    EXPECT_EQ(Refusal("a \x01"), "unexpected control character at character 3");
    EXPECT_EQ(Refusal("a \x1F"), "unexpected control character at character 3");
    EXPECT_EQ(Refusal("a \x7F"), "unexpected control character at character 3");
    EXPECT_EQ(Refusal(std::string_view("a \0", 3)), "unexpected control character at character 3");
    EXPECT_EQ(Refusal(std::string_view("'b\0'", 4)), "unexpected control character at character 3");
    EXPECT_EQ(Refusal(std::string_view("[b\0]", 4)), "unexpected control character at character 3");
    EXPECT_EQ(Refusal("a ~"), "unexpected \"~\" at character 3");
    EXPECT_EQ(Refusal("a ^"), "unexpected \"^\" at character 3");
}
TEST(TokensIfReadable, AreThoseOfTheStatement) {
    EXPECT_EQ(TokensIfReadable("a b").size(), 3U);
}

TEST(StoredDate, TakesTheMonthOrTheYearFirst) {
    EXPECT_EQ(StoredDate("3/7/2003"), "2003-03-07 00:00:00");
    EXPECT_EQ(StoredDate("03/07/2003"), "2003-03-07 00:00:00");
    EXPECT_EQ(StoredDate("2003-3-7"), "2003-03-07 00:00:00");
    EXPECT_EQ(StoredDate(" 2003-03-07 "), "2003-03-07 00:00:00");
    EXPECT_EQ(StoredDate("0100-01-01"), "0100-01-01 00:00:00");
}
TEST(StoredDate, TakesATimeWithOrWithoutSeconds) {
    EXPECT_EQ(StoredDate("3/7/2003 8:05"), "2003-03-07 08:05:00");
    EXPECT_EQ(StoredDate("2003-03-07T08:05:09"), "2003-03-07 08:05:09");
    EXPECT_EQ(StoredDate("3/7/2003 23:59:59"), "2003-03-07 23:59:59");
    EXPECT_EQ(StoredDate("3/7/2003 0:00:00"), "2003-03-07 00:00:00");
}
TEST(StoredDate, OfWhatIsNoneIsEmpty) {
    for (const char* text : {"",
                             "soon",
                             "3",
                             "3/7",
                             "3/7/",
                             "3/7/03",
                             "3/7/20031",
                             "2003-3",
                             "2003-3-",
                             "2003-111-1",
                             "20031-1-1",
                             "/7/2003",
                             "3//2003",
                             "-3-7",
                             "3/7-2003",
                             "2003-3/7",
                             "2/30/2003",
                             "13/1/2003",
                             "0/1/2003",
                             "1/0/2003",
                             "2003-02-29",
                             "3/7/2003x",
                             "3/7/2003 8",
                             "3/7/2003 8:",
                             "3/7/2003 8:5",
                             "3/7/2003 :05",
                             "3/7/2003x8:05",
                             "3/7/2003 8:05:",
                             "3/7/2003 8:05:9",
                             "3/7/2003 8:05:09x",
                             "3/7/2003 8:05x",
                             "3/7/2003 24:00",
                             "3/7/2003 8:60",
                             "3/7/2003 8:05:60",
                             "3/7/2003 108:05",
                             "3/7/2003 8:055",
                             "3/7/2003  8:05"}) {
        EXPECT_EQ(StoredDate(text), "") << text;
    }
}

}  // namespace
}  // namespace zv::store::dialect
