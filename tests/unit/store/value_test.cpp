#include "store/value.h"

#include <gtest/gtest.h>

#include "database_fixture.h"

namespace zv::store {
namespace {

TEST(Value, ShowsNullAsNothingAndZero) {
    EXPECT_TRUE(Value().IsNull());
    EXPECT_EQ(Value().ToText(), "");
    EXPECT_EQ(Value().ToInt32(), 0);
    EXPECT_EQ(Value().ToDouble(), 0.0);
}
TEST(Value, ShowsNumbersAsPlainDecimals) {
    EXPECT_EQ(Value(-7).ToText(), "-7");
    EXPECT_EQ(Value(2.5).ToText(), "2.5");
    EXPECT_EQ(Value(3.0).ToText(), "3");
}
TEST(Value, ShowsDatesInStoredForm) {
    EXPECT_EQ(Value(DateTime(2003, 3, 7, 9, 30)).ToText(), "2003-03-07 09:30:00");
}
TEST(Value, RoundsHalvesToEven) {
    EXPECT_EQ(Value(2.5).ToInt32(), 2);
    EXPECT_EQ(Value(3.5).ToInt16(), 4);
}
TEST(Value, ReadsATextWhole) {
    EXPECT_EQ(Value(" 12 ").ToInt32(), 12);
    EXPECT_EQ(ErrorOf([] { Value("12x").ToInt32(); }).Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { Value("").ToInt32(); }).Number(), ErrorNumber::TypeMismatch);
}
TEST(Value, RefusesNumbersThatDoNotFit) {
    EXPECT_EQ(Value(32767).ToInt16(), 32767);
    EXPECT_EQ(ErrorOf([] { Value(32768).ToInt16(); }).Number(), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([] { Value(3e9).ToInt32(); }).Number(), ErrorNumber::Overflow);
}
TEST(Value, ReadsDatesFromTextsAndNumbers) {
    EXPECT_EQ(Value("2003-03-07 09:30:00").ToDate(), DateTime(2003, 3, 7, 9, 30));
    EXPECT_EQ(Value(37687.5).ToDate(), DateTime(2003, 3, 7, 12));
    EXPECT_EQ(ErrorOf([] { Value("soon").ToDate(); }).Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { Value().ToDate(); }).Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { Value(1e300).ToDate(); }).Number(), ErrorNumber::TypeMismatch);
}
TEST(Value, TakesANewTextInPlace) {
    Value value("a rather long text that needs memory of its own");
    const char* memory = value.TextIf()->data();
    value.AssignText("another text, also not a short one");
    EXPECT_EQ(value.ToText(), "another text, also not a short one");
    EXPECT_EQ(value.TextIf()->data(), memory);
    Value number(7);
    number.AssignText("x");
    EXPECT_EQ(number, Value("x"));
}

}  // namespace
}  // namespace zv::store
