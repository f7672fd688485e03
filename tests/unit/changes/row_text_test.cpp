// A whole row as one text.
#include "changes/row_text.h"

#include <gtest/gtest.h>

#include <array>

namespace zv::changes {
namespace {

constexpr auto kColumns = std::to_array<store::Column>(
    {{"title"}, {"number", store::ColumnKind::Number}, {"day", store::ColumnKind::Date}});
constexpr Table kTable{"t", kColumns, "title", "select", "delete"};

TEST(RowText, GivesBackWhatWasPutIn) {
    const std::string awkward = "a=b\\n\r\nc\\\\'O\"中 ";
    const Fields fields{awkward, -7, DateTime(2003, 3, 7, 14, 30, 1)};
    EXPECT_EQ(FieldsOf(kTable, RowText(kTable, fields)), fields);
}

TEST(RowText, ANullANameAndNothingAreThreeThings) {
    const Fields fields{store::Value(), std::nullopt, store::Value()};
    EXPECT_EQ(RowText(kTable, fields), "title\nday");
    EXPECT_EQ(FieldsOf(kTable, "title\nday"), fields);
    EXPECT_EQ(FieldsOf(kTable, "title="), (Fields{"", std::nullopt, std::nullopt}));
    EXPECT_EQ(FieldsOf(kTable, ""), Fields(3));
}

TEST(RowText, LeavesOutWhatItDoesNotKnow) {
    EXPECT_EQ(FieldsOf(kTable, "other=1\ntitle=x\n\n=\ntitle2=y"),
              (Fields{"x", std::nullopt, std::nullopt}));
}

TEST(RowText, AValueThatDoesNotSuitItsColumnStaysAText) {
    EXPECT_EQ(FieldsOf(kTable, "number=many\nday=some"), (Fields{std::nullopt, "many", "some"}));
}

TEST(RowText, NumbersAreWholeWhereTheyCanBe) {
    EXPECT_EQ(ValueOf(kColumns[1], "12"), store::Value(12));
    EXPECT_EQ(ValueOf(kColumns[1], "1.5"), store::Value(1.5));
    EXPECT_EQ(ValueOf(kColumns[1], "1e15"), store::Value(1e15));
    EXPECT_EQ(ValueOf(kColumns[0], "12"), store::Value("12"));
}

TEST(RowText, ABackslashAtTheEndStandsForItself) {
    EXPECT_EQ(FieldsOf(kTable, "title=a\\")[0], store::Value("a\\"));
    EXPECT_EQ(FieldsOf(kTable, "title=a\\x")[0], store::Value("a\\"));
}

}  // namespace
}  // namespace zv::changes
