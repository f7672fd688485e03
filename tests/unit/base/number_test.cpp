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
          std::string("1e99999999999999999999")}) {
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

}  // namespace
}  // namespace zv::number
