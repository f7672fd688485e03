// What fits into a column, and what becomes of it.
#include "zvdb/import/cell_fit.h"

#include <gtest/gtest.h>

#include "zvdb/import/key_set.h"
#include "zvdb/import/table_sums.h"

namespace zv::zvdb {
namespace {

using store::Value;

TargetLimits Strict() {
    return {};
}
TargetLimits Lenient() {
    TargetLimits limits;
    limits.strict = false;
    limits.datesAreTexts = true;
    return limits;
}

std::string Fitted(ColumnKind kind, Value& value, const TargetLimits& limits,
                   std::size_t size = 0) {
    const auto misfit = CellFit({"c", kind, size, false}, limits).Fit(value);
    if (!misfit) return "";
    return (misfit->weight == Weight::Refusal ? "refused: " : "remark: ") +
           std::string(misfit->what);
}

TEST(CellFit, NullFitsEverywhere) {
    for (const ColumnKind kind :
         {ColumnKind::Whole16, ColumnKind::Whole32, ColumnKind::Text, ColumnKind::Date}) {
        Value value;
        EXPECT_EQ(Fitted(kind, value, Strict()), "");
        EXPECT_TRUE(value.IsNull());
    }
}

TEST(CellFit, NumbersAreWholeHoweverWritten) {
    for (Value value : {Value(12), Value(12.0), Value("12")}) {
        EXPECT_EQ(Fitted(ColumnKind::Whole16, value, Strict()), "");
        EXPECT_EQ(value, Value(12));
    }
    for (Value value : {Value(12.5), Value("12a"), Value(""), Value(DateTime(2003, 3, 7))}) {
        EXPECT_EQ(Fitted(ColumnKind::Whole32, value, Lenient()),
                  "refused: values that are no whole numbers");
    }
}

TEST(CellFit, NumbersBeyondTheColumnAreRefusedOrKept) {
    for (const std::int64_t limit : {-32768, 32767}) {
        Value value(limit);
        EXPECT_EQ(Fitted(ColumnKind::Whole16, value, Strict()), "");
    }
    Value large(32768);
    EXPECT_EQ(Fitted(ColumnKind::Whole16, large, Strict()),
              "refused: numbers too large for the column");
    EXPECT_EQ(Fitted(ColumnKind::Whole16, large, Lenient()),
              "remark: numbers too large for the column, kept");
    Value larger(std::int64_t{2147483648});
    EXPECT_EQ(Fitted(ColumnKind::Whole32, larger, Strict()),
              "refused: numbers too large for the column");
}

TEST(CellFit, TextsAreMeasuredInUnitsOfUtf16) {
    Value exact("会议会议");
    EXPECT_EQ(Fitted(ColumnKind::Text, exact, Strict(), 4), "");
    Value pair("会😀A");
    EXPECT_EQ(Fitted(ColumnKind::Text, pair, Strict(), 4), "");
    EXPECT_EQ(Fitted(ColumnKind::Text, pair, Strict(), 3), "refused: texts longer than the column");
    EXPECT_EQ(Fitted(ColumnKind::Text, pair, Lenient(), 3),
              "remark: texts longer than the column, kept whole");
    EXPECT_EQ(pair, Value("会😀A"));
}

TEST(CellFit, ZeroCharactersAndBrokenCharactersAreReported) {
    Value zero(std::string("a\0b", 3));
    EXPECT_EQ(Fitted(ColumnKind::Text, zero, Strict()), "refused: texts with a zero character");
    Value broken("a\xC3");
    EXPECT_EQ(Fitted(ColumnKind::Text, broken, Strict()), "refused: texts with broken characters");
    Value replacement("a\uFFFD");
    EXPECT_EQ(Fitted(ColumnKind::Text, replacement, Strict()), "");
}

TEST(CellFit, WhatNoServerTakesForACharacterIsBroken) {
    // Half of a pair, both halves one by one, longer than need be, beyond the last character.
    for (const char* text : {"\xED\xA0\x80", "\xED\xA0\xBD\xED\xB8\x80", "\xE0\x80\xAF",
                             "\xF0\x80\x80\x80", "\xF4\x90\x80\x80"}) {
        Value broken(text);
        EXPECT_EQ(Fitted(ColumnKind::Text, broken, Strict()),
                  "refused: texts with broken characters");
    }
    Value last("\uFFFF\U0010FFFF");
    EXPECT_EQ(Fitted(ColumnKind::Text, last, Strict()), "");
}

TEST(CellFit, NumbersInTextColumnsBecomeTheirDigits) {
    Value value(17);
    EXPECT_EQ(Fitted(ColumnKind::Text, value, Strict()), "");
    EXPECT_EQ(value, Value("17"));
}

TEST(CellFit, DatesTakeTheFormOfTheTarget) {
    Value text("2003-03-07");
    EXPECT_EQ(Fitted(ColumnKind::Date, text, Strict()), "");
    EXPECT_EQ(text, Value(DateTime(2003, 3, 7)));
    EXPECT_EQ(Fitted(ColumnKind::Date, text, Lenient()), "");
    EXPECT_EQ(text, Value("2003-03-07 00:00:00"));
}

TEST(CellFit, DatesOutOfRangeAndWhatIsNoDateAreRefused) {
    TargetLimits limits = Strict();
    limits.firstDate = DateTime(1753, 1, 1);
    Value early(DateTime(1752, 12, 31));
    EXPECT_EQ(Fitted(ColumnKind::Date, early, limits),
              "refused: dates that the target cannot hold");
    Value first(DateTime(1753, 1, 1));
    EXPECT_EQ(Fitted(ColumnKind::Date, first, limits), "");
    for (Value value : {Value("never"), Value("2003"), Value(5)}) {
        EXPECT_EQ(Fitted(ColumnKind::Date, value, Lenient()), "refused: values that are no dates");
    }
}

TEST(KeySet, FindsKeysAgainInAnyOrder) {
    KeySet keys;
    for (const std::int64_t key : {5, 9, 7, 1, 12}) EXPECT_TRUE(keys.Insert(key)) << key;
    for (const std::int64_t key : {5, 9, 7, 1, 12}) EXPECT_FALSE(keys.Insert(key)) << key;
    EXPECT_TRUE(keys.Insert(6));
}

TEST(KeySet, AKeyThatCameTooEarlyIsKnownWhenItsTurnComes) {
    KeySet keys;
    EXPECT_TRUE(keys.Insert(10));
    EXPECT_TRUE(keys.Insert(3));
    EXPECT_TRUE(keys.Insert(11));
    EXPECT_FALSE(keys.Insert(3));
}

std::string Difference(const std::vector<std::vector<Value>>& a,
                       const std::vector<std::vector<Value>>& b) {
    TableSums sumsA(2);
    TableSums sumsB(2);
    for (const auto& row : a) sumsA.Add(row);
    for (const auto& row : b) sumsB.Add(row);
    return sumsA.Difference(sumsB, {{"x"}, {"y"}});
}

TEST(TableSums, TheOrderOfRowsDoesNotMatter) {
    EXPECT_EQ(Difference({{1, "a"}, {2, "b"}}, {{2, "b"}, {1, "a"}}), "");
}

TEST(TableSums, EveryDifferenceIsNoticed) {
    EXPECT_EQ(Difference({{1, "a"}}, {}), "1 rows were read and 0 written");
    EXPECT_EQ(Difference({{1, "a"}}, {{2, "a"}}), "column x has another sum at the target");
    EXPECT_EQ(Difference({{1, "a"}}, {{1, "A"}}), "column y has another sum at the target");
    EXPECT_EQ(Difference({{1, ""}}, {{1, Value()}}),
              "column y has 1 values at the source and 0 at the target");
    EXPECT_EQ(Difference({{1, "a"}, {2, "b"}}, {{1, "b"}, {2, "a"}}),
              "cells are in other rows at the target");
    EXPECT_EQ(Difference({{1, "1"}}, {{"1", 1}}), "column x has another sum at the target");
}

}  // namespace
}  // namespace zv::zvdb
