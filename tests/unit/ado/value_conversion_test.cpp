#include "store/ado/value_conversion.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/errors.h"

namespace zv::store::ado {
namespace {

using win32::Variant;

template <class Set>
Value Converted(VARTYPE type, Set&& set) {
    VARIANT value{};
    set(value);
    value.vt = type;
    return FromVariant(value);
}

TEST(FromVariant, EmptyAndNullAreNull) {
    EXPECT_TRUE(FromVariant(Variant().Get()).IsNull());
    EXPECT_TRUE(FromVariant(Variant::Null().Get()).IsNull());
}

TEST(FromVariant, EveryIntegerTypeIsAWholeNumber) {
    EXPECT_EQ(Converted(VT_I1, [](VARIANT& v) { v.cVal = static_cast<char>(-128); }), Value(-128));
    EXPECT_EQ(Converted(VT_UI1, [](VARIANT& v) { v.bVal = 255; }), Value(255));
    EXPECT_EQ(Converted(VT_I2, [](VARIANT& v) { v.iVal = -32768; }), Value(-32768));
    EXPECT_EQ(Converted(VT_UI2, [](VARIANT& v) { v.uiVal = 65535; }), Value(65535));
    EXPECT_EQ(Converted(VT_I4, [](VARIANT& v) { v.lVal = -2147483647; }), Value(-2147483647));
    EXPECT_EQ(Converted(VT_UI4, [](VARIANT& v) { v.ulVal = 4294967295u; }),
              Value(std::int64_t{4294967295}));
    EXPECT_EQ(Converted(VT_INT, [](VARIANT& v) { v.intVal = -5; }), Value(-5));
    EXPECT_EQ(Converted(VT_UINT, [](VARIANT& v) { v.uintVal = 5; }), Value(5));
    EXPECT_EQ(Converted(VT_I8, [](VARIANT& v) { v.llVal = -9000000000; }),
              Value(std::int64_t{-9000000000}));
    EXPECT_EQ(Converted(VT_UI8, [](VARIANT& v) { v.ullVal = 9000000000; }),
              Value(std::int64_t{9000000000}));
}

TEST(FromVariant, AnUnsignedNumberBeyondTheWholeNumbersIsReal) {
    EXPECT_EQ(Converted(VT_UI8, [](VARIANT& v) { v.ullVal = ~0ull; }),
              Value(18446744073709551615.0));
}

TEST(FromVariant, TrueIsOneAndFalseIsZero) {
    EXPECT_EQ(FromVariant(Variant(true).Get()), Value(1));
    EXPECT_EQ(FromVariant(Variant(false).Get()), Value(0));
}

TEST(FromVariant, RealNumbersStayReal) {
    EXPECT_EQ(Converted(VT_R4, [](VARIANT& v) { v.fltVal = 0.5f; }), Value(0.5));
    EXPECT_EQ(FromVariant(Variant(2.25).Get()), Value(2.25));
}

TEST(FromVariant, CurrencyIsWholeWithoutAFractionElseReal) {
    EXPECT_EQ(Converted(VT_CY, [](VARIANT& v) { v.cyVal.int64 = 120000; }), Value(12));
    EXPECT_EQ(Converted(VT_CY, [](VARIANT& v) { v.cyVal.int64 = -125; }), Value(-0.0125));
}

TEST(FromVariant, ADecimalIsWholeWithoutAFractionElseReal) {
    const auto decimal = [](ULONGLONG digits, BYTE scale, BYTE sign) {
        VARIANT value{};
        value.decVal.Lo64 = digits;
        value.decVal.scale = scale;
        value.decVal.sign = sign;
        value.vt = VT_DECIMAL;
        return FromVariant(value);
    };
    EXPECT_EQ(decimal(1200, 2, 0), Value(12));
    EXPECT_EQ(decimal(125, 2, DECIMAL_NEG), Value(-1.25));
}

TEST(FromVariant, ADateKeepsItsTimeOfDay) {
    EXPECT_EQ(FromVariant(Variant::Date(37687.4375).Get()), Value(DateTime(2003, 3, 7, 10, 30, 0)));
}

TEST(FromVariant, ATextIsUtf8) {
    EXPECT_EQ(FromVariant(Variant(L"提醒 ok").Get()), Value("提醒 ok"));
    EXPECT_EQ(Converted(VT_BSTR, [](VARIANT& v) { v.bstrVal = nullptr; }), Value(""));
}

TEST(FromVariant, AReferenceIsFollowed) {
    Variant inner("abc");
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &inner.Ref();
    EXPECT_EQ(FromVariant(reference), Value("abc"));
}

TEST(FromVariant, ErrorsObjectsAndArraysAreATypeMismatch) {
    for (const VARTYPE type :
         {VARTYPE{VT_ERROR}, VARTYPE{VT_DISPATCH}, VARTYPE{VT_ARRAY | VT_UI1}}) {
        try {
            Converted(type, [](VARIANT&) {});
            ADD_FAILURE() << type;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
        }
    }
}

TEST(ToVariant, EveryKindComesBackAsItWas) {
    for (const Value& value :
         {Value(), Value(0), Value(-7), Value(2147483647), Value(std::int64_t{-2147483648}),
          Value(0.125), Value("提醒"), Value(""), Value(DateTime(2003, 3, 7, 23, 59, 59)),
          Value(DateTime(1899, 12, 29, 6, 0, 0)), Value(DateTime(9999, 12, 31, 23, 59, 59))}) {
        EXPECT_EQ(FromVariant(ToVariant(value).Get()), value) << value.ToText();
    }
}

TEST(ToVariant, AWideNumberIsRealWhileExactAndADecimalBeyond) {
    const Variant real = ToVariant(Value(std::int64_t{1} << 40));
    EXPECT_EQ(real.Type(), VT_R8);
    EXPECT_EQ(real.Get().dblVal, 1099511627776.0);
    const std::int64_t highest = std::numeric_limits<std::int64_t>::max();
    const Variant decimal = ToVariant(Value(highest));
    EXPECT_EQ(decimal.Type(), VT_DECIMAL);
    EXPECT_EQ(FromVariant(decimal.Get()), Value(highest));
}

TEST(ToVariant, NullIsNullAndNotEmpty) {
    EXPECT_EQ(ToVariant(Value()).Type(), VT_NULL);
}

}  // namespace
}  // namespace zv::store::ado
