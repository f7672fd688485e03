#include "automation/variant_readers.h"

#include <gtest/gtest.h>

namespace zv::automation {
namespace {

using win32::Variant;

TEST(VariantReaders, Convert) {
    EXPECT_EQ(ToNumber(Variant("12"), Misfit::Result), 12);
    EXPECT_TRUE(ToFlag(Variant(std::int32_t{5}), Misfit::Result));
    EXPECT_EQ(ToText(Variant(1.5), Misfit::Result), "1.5") << "whatever the locale";
    EXPECT_EQ(ToTextOrNone(Variant::Null(), Misfit::Result), "");
    EXPECT_EQ(ToTextOrNone(Variant(), Misfit::Result), "");
    EXPECT_EQ(TryNumber(Variant("x")), std::nullopt);
    EXPECT_EQ(TryText(Variant(std::int32_t{3})), "3");
    EXPECT_EQ(TryText(Variant::Null()), std::nullopt);
}

ErrorNumber NumberOf(Variant value, Misfit misfit, bool& hasText) {
    try {
        ToNumber(std::move(value), misfit);
    } catch (const RuntimeError& error) {
        hasText = !error.Text().empty();
        return error.Number();
    }
    return ErrorNumber::InternalError;
}

TEST(VariantReaders, TellAMisfitAsTheCallerWantsIt) {
    bool hasText = false;
    EXPECT_EQ(NumberOf(Variant(1e12), Misfit::Result, hasText), ErrorNumber::Overflow);
    EXPECT_TRUE(hasText);
    EXPECT_EQ(NumberOf(Variant(1e12), Misfit::TypeMismatch, hasText), ErrorNumber::TypeMismatch);
    EXPECT_FALSE(hasText);
    EXPECT_EQ(NumberOf(Variant("x"), Misfit::Result, hasText), ErrorNumber::TypeMismatch);
}

}  // namespace
}  // namespace zv::automation
