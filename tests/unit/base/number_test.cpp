// Numbers in texts, at the limits of what a number can be.
#include "base/number.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/errors.h"

namespace zv::number {
namespace {

std::int32_t ErrorOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const RuntimeError& error) {
        return static_cast<std::int32_t>(error.Number());
    }
    return 0;
}

TEST(Number, OneThatIsTooLargeIsInfinite) {
    for (const std::string& text :
         {std::string("1e400"), std::string("+1E400"), std::string(400, '9'),
          "1" + std::string(500, '0') + "e-100", std::string("0.01e999"),
          "0." + std::string(150, '0') + "1e500", "0." + std::string(9600, '0') + "1e10000",
          "1" + std::string(10000, '0') + "e-9600", std::string("1e99999999999999999999")}) {
        ASSERT_TRUE(Parse(text)) << text;
        EXPECT_TRUE(std::isinf(*Parse(text))) << text;
        EXPECT_GT(*Parse(text), 0) << text;
        EXPECT_TRUE(IsNumeric(text)) << text;
    }
    EXPECT_LT(Parse("-1e400").value_or(0), -1e300);
}
TEST(Number, OneThatIsTooSmallIsZero) {
    for (const std::string& text :
         {std::string("1e-400"), std::string("-1e-400"), "0." + std::string(500, '0') + "1",
          "0." + std::string(500, '0') + "1e100", std::string("100e-999"),
          std::string("1e-99999999999999999999")}) {
        ASSERT_TRUE(Parse(text)) << text;
        EXPECT_EQ(*Parse(text), 0) << text;
        EXPECT_EQ(Val(text), 0) << text;
        EXPECT_EQ(ToInt16(text), 0) << text;
    }
    EXPECT_EQ(Parse("0e999"), 0);
}
TEST(Number, OneThatIsTooLargeOverflowsWhereItIsConverted) {
    constexpr int kOverflow = 6;
    constexpr int kNoNumber = 13;
    EXPECT_EQ(ErrorOf([] { Val("1e400"); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToDouble("1e400"); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt16("1e400"); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32("-1e400"); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToDouble("1e"); }), kNoNumber);
}

TEST(Number, ValReadsTheLongestNumberThatATextBeginsWith) {
    struct Case {
        const char* text;
        double value;
    };
    for (const Case& each : std::vector<Case>{
             {"", 0},       {"x", 0},       {"12", 12},      {"12 34", 1234}, {" 1\t2\n3", 123},
             {"12abc", 12}, {"+5", 5},      {"-5", -5},      {"+-5", 0},      {"-", 0},
             {".", 0},      {"-.", 0},      {".5", 0.5},     {"5.", 5},       {"1.5.7", 1.5},
             {"1e3", 1000}, {"1E+3", 1000}, {"1e-3", 0.001}, {"1e", 1},       {"1e+", 1},
             {"1ex", 1},    {"1e5x", 1e5},  {"e5", 0},       {"1,000", 1},    {"0.5e1", 5}}) {
        EXPECT_EQ(Val(each.text), each.value) << each.text;
    }
}
TEST(Number, ParseTakesWholeNumbersWithMarksOfThousands) {
    struct Case {
        const char* text;
        double value;
    };
    for (const Case& each : std::vector<Case>{{"12", 12},
                                              {" \t12\t ", 12},
                                              {"1,234", 1234},
                                              {"1,2,3", 123},
                                              {"1,,2", 12},
                                              {"1,", 1},
                                              {"1,234.5", 1234.5},
                                              {"+1,0", 10},
                                              {"-5", -5}}) {
        EXPECT_EQ(Parse(each.text), each.value) << each.text;
    }
    for (const char* text : {"", " ", "x", "12x", "1 2", ",1", "-,1", "1.5,0", ".,5", "1e", "1e5x",
                             "--1", "+", "1.2.3", "\n1"}) {
        EXPECT_EQ(Parse(text), std::nullopt) << text;
    }
}
TEST(Number, HalvesAreRoundedToEvenNumbers) {
    for (const auto& [value, rounded] :
         {std::pair{0.5, 0}, std::pair{1.5, 2}, std::pair{2.5, 2}, std::pair{-0.5, 0},
          std::pair{-1.5, -2}, std::pair{-2.5, -2}, std::pair{2.4999, 2}, std::pair{2.5001, 3},
          std::pair{-2.4999, -2}, std::pair{-2.5001, -3}, std::pair{7.0, 7}}) {
        EXPECT_EQ(ToInt16(value), rounded) << value;
        EXPECT_EQ(ToInt32(value), rounded) << value;
    }
}
TEST(Number, WholeNumbersOverflowBehindTheirBounds) {
    constexpr int kOverflow = 6;
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ToInt32("-2147483648"), -2147483648LL);
    EXPECT_EQ(ErrorOf([] { ToInt16(32767.5); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt16(-32768.6); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32(2147483647.5); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt32("-2147483649"); }), kOverflow);
    EXPECT_EQ(ErrorOf([] { ToInt16(std::nan("")); }), kOverflow);
    EXPECT_EQ(Add16(32766, 1), 32767);
    EXPECT_EQ(ErrorOf([] { Add16(32767, 1); }), kOverflow);
    EXPECT_EQ(Multiply16(-16384, 2), -32768);
    EXPECT_EQ(ErrorOf([] { Multiply16(16384, 2); }), kOverflow);
    EXPECT_EQ(ToInt16("12.6"), 13);
    EXPECT_EQ(ToDouble("1,5"), 15);
}

}  // namespace
}  // namespace zv::number
