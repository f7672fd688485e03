// The forms in which Access stores texts, rows, pages and values.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <vector>

#include "access_rows_file.h"
#include "zvdb/access/access_row.h"
#include "zvdb/access/access_text.h"
#include "zvdb/access/access_value.h"

namespace zv::zvdb::access {
namespace {

DecodedText Decode(const std::vector<std::uint8_t>& bytes) {
    return DecodeText(Bytes(bytes.data(), bytes.size()));
}

TEST(DecodeText, TwoBytesACharacter) {
    EXPECT_EQ(Decode({0x1A, 0x4F, 0x41, 0x00}).utf8, "会A");
    EXPECT_EQ(Decode({}).utf8, "");
}

TEST(DecodeText, OneByteACharacterAfterTheMark) {
    EXPECT_EQ(Decode({0xFF, 0xFE, 'a', 0xE9, 'z'}).utf8, "aéz");
    EXPECT_EQ(Decode({0xFF, 0xFE}).utf8, "");
}

TEST(DecodeText, ZeroBytesSwitchBetweenBothForms) {
    EXPECT_EQ(Decode({0xFF, 0xFE, 'a', 0x00, 0x1A, 0x4F, 0xAE, 0x8B, 0x00, 'b'}).utf8,
              "a\u4F1A\u8BAEb");
}

TEST(DecodeText, SurrogatePairsBecomeOneCharacter) {
    const DecodedText text = Decode({0x3D, 0xD8, 0x00, 0xDE});
    EXPECT_EQ(text.utf8, "😀");
    EXPECT_EQ(text.halves, 0);
}

TEST(DecodeText, HalvesOfPairsAreReplacedAndCounted) {
    const DecodedText text = Decode({0x3D, 0xD8, 0x41, 0x00, 0x00, 0xDE});
    EXPECT_EQ(text.utf8, "\uFFFDA\uFFFD");
    EXPECT_EQ(text.halves, 2);
}

TEST(DecodeText, HalfACharacterIsDamage) {
    EXPECT_THROW(Decode({0x1A, 0x4F, 0x41}), Damage);
    EXPECT_THROW(Decode({0xFF, 0xFE, 'a', 0x00, 0x1A}), Damage);
}

/// Three columns: a long at a fixed place, a text of variable length, a boolean.
class AccessRowTest : public testing::Test {
 protected:
    std::optional<Bytes> Field(const AccessColumn& column) const {
        return AccessRow(Bytes(row_.data(), row_.size()), true).Field(column);
    }

    std::vector<std::uint8_t> row_ = {3, 0, 7, 0, 0, 0, 'h', 0, 8, 0, 6, 0, 1, 0, 0b111};
    AccessColumn long_{"a", FieldType::Long, 4, 0, true, 0, 0, 0};
    AccessColumn text_{"b", FieldType::Text, 20, 0, false, 0, 0, 1};
    AccessColumn boolean_{"c", FieldType::Boolean, 0, 0, true, 0, 0, 2};
};

TEST_F(AccessRowTest, FieldsLieWhereTheRowSays) {
    EXPECT_EQ(Field(long_)->U32(0), 7U);
    EXPECT_EQ(Field(text_)->Size(), 2U);
    EXPECT_EQ(Field(boolean_)->Size(), 1U);
}

TEST_F(AccessRowTest, ACleanBitIsNull) {
    row_.back() = 0b010;
    EXPECT_FALSE(Field(long_).has_value());
    EXPECT_TRUE(Field(text_).has_value());
    EXPECT_EQ(Field(boolean_)->Size(), 0U);
}

TEST_F(AccessRowTest, AnEmptyTextIsNotNull) {
    row_ = {3, 0, 7, 0, 0, 0, 6, 0, 6, 0, 1, 0, 0b111};
    ASSERT_TRUE(Field(text_).has_value());
    EXPECT_EQ(Field(text_)->Size(), 0U);
}

TEST_F(AccessRowTest, ColumnsThatTheRowIsOlderThanAreNull) {
    AccessColumn later = text_;
    later.number = 3;
    later.variable = 1;
    EXPECT_FALSE(Field(later).has_value());
}

TEST_F(AccessRowTest, FieldsOutsideOfTheRowAreDamage) {
    row_[8] = 60;
    EXPECT_THROW(Field(text_), Damage);
    row_ = {3, 0, 1, 0, 0b111};
    EXPECT_THROW(Field(long_), Damage);
    row_ = {200, 0};
    EXPECT_THROW(Field(long_), Damage);
    row_ = {};
    EXPECT_THROW(Field(long_), Damage);
}

TEST_F(AccessRowTest, AFieldOfAFixedTypeHasTheSizeOfItsTypeWhateverTheColumnSays) {
    long_.size = 2;
    EXPECT_EQ(Field(long_)->Size(), 4U);
    // One whose type leaves it open has that of its column.
    AccessColumn text = long_;
    text.type = FieldType::Text;
    EXPECT_EQ(Field(text)->Size(), 2U);
}

TEST(FixedSize, IsThatOfTheType) {
    struct Case {
        FieldType type;
        std::size_t size;
    };
    for (const Case& each : std::vector<Case>{{FieldType::Boolean, 1},
                                              {FieldType::Byte, 1},
                                              {FieldType::Integer, 2},
                                              {FieldType::Long, 4},
                                              {FieldType::Single, 4},
                                              {FieldType::Complex, 4},
                                              {FieldType::Money, 8},
                                              {FieldType::Double, 8},
                                              {FieldType::Date, 8},
                                              {FieldType::Guid, 16},
                                              {FieldType::Decimal, 17},
                                              {FieldType::Binary, 0},
                                              {FieldType::Text, 0},
                                              {FieldType::Object, 0},
                                              {FieldType::Memo, 0}}) {
        EXPECT_EQ(FixedSize(each.type), each.size) << static_cast<int>(each.type);
    }
}

/// What is wrong with a row of these bytes; empty when nothing is.
std::string DamageOf(const std::vector<std::uint8_t>& row, const AccessColumn& column,
                     bool hasVariableColumns = true) {
    try {
        AccessRow(Bytes(row.data(), row.size()), hasVariableColumns).Field(column);
    } catch (const Damage& damage) {
        return damage.what();
    }
    return "";
}

TEST_F(AccessRowTest, WhatARowNeedsAtLeastIsThere) {
    const AccessColumn flag{"c", FieldType::Boolean, 0, 0, true, 0, 0, 0};
    // A count and a mask, and nothing else.
    EXPECT_EQ(DamageOf({1, 0, 1}, flag, false), "");
    EXPECT_EQ(DamageOf({1, 0}, flag, false), "a row is cut short");
    EXPECT_EQ(DamageOf({8, 0, 1}, flag, false), "");
    EXPECT_EQ(DamageOf({9, 0, 1}, flag, false), "a row is cut short");
    EXPECT_EQ(DamageOf({9, 0, 1, 0}, flag, false), "");
    EXPECT_EQ(DamageOf({0, 0, 1}, flag, false), "a row is cut short");
    // With the count of variable fields, and the end of the last one.
    EXPECT_EQ(DamageOf({1, 0, 2, 0, 0, 0, 1}, flag), "");
    EXPECT_EQ(DamageOf({1, 0, 0, 0, 1}, flag), "a row has more fields than bytes");
    EXPECT_EQ(DamageOf({1, 0, 0, 1}, flag), "a row is cut short");
    EXPECT_EQ(DamageOf({1, 0, 2, 0, 2, 0, 1, 0, 1}, flag), "");
    EXPECT_EQ(DamageOf({1, 0, 2, 0, 1, 0, 1}, flag), "a row has more fields than bytes");
    EXPECT_EQ(DamageOf({1, 0, 2, 0, 2, 0, 2, 0, 2, 0, 1}, flag),
              "a row has more fields than bytes");
}

TEST_F(AccessRowTest, FieldsMayReachTheirBoundsAndNotBeyond) {
    // The long ends where the mask begins.
    const std::vector<std::uint8_t> longs = {1, 0, 7, 0, 0, 0, 1};
    EXPECT_EQ(DamageOf(longs, long_, false), "");
    AccessColumn behind = long_;
    behind.fixedOffset = 1;
    EXPECT_EQ(DamageOf(longs, behind, false), "a field lies outside of its row");
    // The text ends where the offsets begin.
    EXPECT_EQ(DamageOf(row_, text_), "");
    row_[8] = 9;
    EXPECT_EQ(DamageOf(row_, text_), "a field lies outside of its row");
    row_[8] = 5;
    EXPECT_EQ(DamageOf(row_, text_), "a field ends before it begins");
}

/// A data page with rows of these sizes, the first at the end of the page.
Page PageWith(const std::vector<std::size_t>& sizes) {
    Page page;
    auto& bytes = page.Storage();
    bytes[0] = 1;
    bytes[12] = static_cast<std::uint8_t>(sizes.size());
    std::size_t at = kPageSize;
    for (std::size_t row = 0; row < sizes.size(); ++row) {
        at -= sizes[row];
        bytes[14 + 2 * row] = static_cast<std::uint8_t>(at & 0xFF);
        bytes[15 + 2 * row] = static_cast<std::uint8_t>(at >> 8);
    }
    return page;
}

std::string DamageOf(const Page& page, std::size_t row) {
    try {
        page.Row(row);
    } catch (const Damage& damage) {
        return damage.what();
    }
    return "";
}

TEST(DataPage, RowsFillItFromTheEnd) {
    Page page = PageWith({10, 0, 7});
    EXPECT_TRUE(page.IsData());
    page.Storage()[4] = 9;
    EXPECT_EQ(page.Owner(), 9U);
    EXPECT_EQ(page.RowCount(), 3U);
    EXPECT_EQ(page.Row(0).Size(), 10U);
    EXPECT_EQ(page.Row(0).Data(), page.All().Data() + kPageSize - 10);
    EXPECT_EQ(page.Row(1).Size(), 0U);
    EXPECT_EQ(page.Row(2).Size(), 7U);
    EXPECT_EQ(page.Row(2).Data(), page.All().Data() + kPageSize - 17);
    EXPECT_EQ(DamageOf(page, 3), "row 3 is not on its page");
    page.Storage()[0] = 2;
    EXPECT_FALSE(page.IsData());
}

TEST(DataPage, ARowMayBeMovedOrDeleted) {
    Page page = PageWith({10});
    const auto state = [&](std::uint8_t marks) {
        page.Storage()[15] = static_cast<std::uint8_t>((page.Storage()[15] & 0x1F) | marks);
        return page.StateOf(0);
    };
    EXPECT_EQ(state(0x00), Page::RowState::Present);
    EXPECT_EQ(state(0x40), Page::RowState::Moved);
    EXPECT_EQ(state(0x80), Page::RowState::MovedHere);
    EXPECT_EQ(state(0xC0), Page::RowState::Deleted);
    EXPECT_EQ(page.Row(0).Size(), 10U);
}

TEST(DataPage, ARowLiesBehindTheDirectoryAndBeforeTheRowAbove) {
    EXPECT_EQ(DamageOf(PageWith({kPageSize - 16}), 0), "");
    EXPECT_EQ(DamageOf(PageWith({kPageSize - 15}), 0), "row 0 lies outside of its page");
    Page page = PageWith({10, 7});
    page.Storage()[16] = page.Storage()[14];
    page.Storage()[17] = page.Storage()[15];
    EXPECT_EQ(DamageOf(page, 1), "");
    ++page.Storage()[16];
    EXPECT_EQ(DamageOf(page, 1), "row 1 lies outside of its page");
    // The first row ends with the page, and none behind it.
    page.Storage()[14] = 0x01;
    page.Storage()[15] = 0x10;
    EXPECT_EQ(DamageOf(page, 0), "row 0 lies outside of its page");
    EXPECT_EQ(DamageOf(page, 1), "row 1 lies outside of its page");
}

/// A value of a fixed or variable field as an import reads it.
class AccessValue : public testing::Test {
 protected:
    /// The value of these bytes; `remark` tells the rest.
    store::Value Decode(FieldType type, const std::vector<std::uint8_t>& bytes,
                        std::size_t scale = 0) {
        std::vector<std::uint8_t> row = {1, 0};
        row.insert(row.end(), bytes.begin(), bytes.end());
        row.push_back(1);
        AccessColumn column{"c", type, bytes.size(), scale, true, 0, 0, 0};
        store::Value value;
        remark = {};
        told = DecodeField(file_, AccessRow(Bytes(row.data(), row.size()), false), column, value,
                           remark);
        return value;
    }
    store::Value Moment(double day) {
        std::vector<std::uint8_t> bytes(sizeof day);
        std::memcpy(bytes.data(), &day, sizeof day);
        return Decode(FieldType::Date, bytes);
    }

    CellRemark remark;
    bool told = false;

 private:
    MdbFile file_{AccessFixture("taskAlert-2000.mdb")};
};

TEST_F(AccessValue, NumbersHaveTheirSigns) {
    using store::Value;
    EXPECT_EQ(Decode(FieldType::Byte, {200}), Value(200));
    EXPECT_EQ(Decode(FieldType::Integer, {0xFE, 0xFF}), Value(-2));
    EXPECT_EQ(Decode(FieldType::Long, {0xFD, 0xFF, 0xFF, 0xFF}), Value(-3));
    EXPECT_EQ(Decode(FieldType::Single, {0, 0, 0xC0, 0xBF}), Value(-1.5));
    EXPECT_EQ(Decode(FieldType::Double, {0, 0, 0, 0, 0, 0, 0xF8, 0x3F}), Value(1.5));
    EXPECT_FALSE(told);
}
TEST_F(AccessValue, MoneyHasFourDecimals) {
    using store::Value;
    EXPECT_EQ(Decode(FieldType::Money, {0x10, 0x27, 0, 0, 0, 0, 0, 0}), Value(1));
    EXPECT_EQ(Decode(FieldType::Money, {0x98, 0x3A, 0, 0, 0, 0, 0, 0}), Value(1.5));
    EXPECT_EQ(Decode(FieldType::Money, {0xF0, 0xD8, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}),
              Value(-1));
}
TEST_F(AccessValue, DecimalsHaveASignFourGroupsAndAScale) {
    using store::Value;
    std::vector<std::uint8_t> bytes(17, 0);
    bytes[13] = 15;
    EXPECT_EQ(Decode(FieldType::Decimal, bytes), Value(15));
    EXPECT_EQ(Decode(FieldType::Decimal, bytes, 1), Value(1.5));
    bytes[0] = 0x80;
    EXPECT_EQ(Decode(FieldType::Decimal, bytes), Value(-15));
    bytes[0] = 0x7F;
    bytes[9] = 1;
    EXPECT_EQ(Decode(FieldType::Decimal, bytes), Value(std::int64_t{4294967311}));
    // A whole number that a number of this size does not hold stays a real one.
    bytes[1] = 1;
    EXPECT_TRUE(std::holds_alternative<double>(Decode(FieldType::Decimal, bytes).Data()));
}
TEST_F(AccessValue, DatesAreThoseOfTheCalendar) {
    using store::Value;
    EXPECT_EQ(Moment(37687.5), Value(DateTime(2003, 3, 7, 12)));
    EXPECT_FALSE(told);
    EXPECT_EQ(Moment(-657434), Value(DateTime(100, 1, 1)));
    EXPECT_EQ(Moment(-657434.5), Value(DateTime(100, 1, 1, 12)));
    EXPECT_EQ(Moment(2958465.5), Value(DateTime(9999, 12, 31, 12)));
    EXPECT_FALSE(remark.lost);
    for (const double day : {-657435.0, -657435.5, 2958466.0, 2958465.999999, 1e300,
                             std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_TRUE(Moment(day).IsNull()) << day;
        EXPECT_TRUE(told && remark.lost) << day;
        EXPECT_EQ(remark.text, "a date outside of the calendar") << day;
    }
}
TEST_F(AccessValue, PartsOfASecondAreTold) {
    constexpr double kSecond = 1.0 / 86400;
    EXPECT_EQ(Moment(37687 + 8.25 * kSecond), store::Value(DateTime(2003, 3, 7, 0, 0, 8)));
    EXPECT_TRUE(told);
    EXPECT_FALSE(remark.lost);
    EXPECT_EQ(remark.text, "dates with parts of a second, rounded to whole ones");
    EXPECT_EQ(Moment(37687 + 8.0 * kSecond), store::Value(DateTime(2003, 3, 7, 0, 0, 8)));
    EXPECT_FALSE(told);
    Moment(37687 + 8.0005 * kSecond);
    EXPECT_FALSE(told);
    Moment(37687 + 8.0015 * kSecond);
    EXPECT_TRUE(told);
}
TEST_F(AccessValue, BinaryValuesAreLost) {
    for (const FieldType type :
         {FieldType::Binary, FieldType::Object, FieldType::Guid, FieldType::Complex}) {
        EXPECT_TRUE(Decode(type, std::vector<std::uint8_t>(16, 1)).IsNull());
        EXPECT_TRUE(told && remark.lost);
        EXPECT_EQ(remark.text, "binary values are not copied");
    }
}
TEST_F(AccessValue, WhatCannotBeReadIsLostWithTheReason) {
    EXPECT_TRUE(Decode(FieldType::Text, {0x41, 0x00, 0x42}).IsNull());
    EXPECT_TRUE(remark.lost);
    EXPECT_EQ(remark.text, "cannot be read: a text ends in the middle of a character");
    EXPECT_EQ(Decode(FieldType::Text, {0x3D, 0xD8}), store::Value("\uFFFD"));
    EXPECT_FALSE(remark.lost);
    EXPECT_EQ(remark.text, "texts with halves of characters, written as U+FFFD");
}
TEST_F(AccessValue, AMemoMayLieInItsRow) {
    const auto memo = [&](std::vector<std::uint8_t> bytes) {
        return Decode(FieldType::Memo, bytes);
    };
    EXPECT_EQ(memo({}), store::Value(""));
    EXPECT_EQ(memo({2, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0x41, 0x00}), store::Value("A"));
    EXPECT_TRUE(memo({4, 0, 0, 0x80, 0, 0, 0, 0, 0, 0, 0, 0, 0x41, 0x00}).IsNull());
    EXPECT_TRUE(remark.lost);
    EXPECT_TRUE(memo({0xFF, 0xFF, 0xFF, 0xBF, 0, 0, 0, 0, 0, 0, 0, 0}).IsNull());
    EXPECT_EQ(remark.text, "cannot be read: it is longer than the file");
    EXPECT_EQ(memo({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}), store::Value(""));
    EXPECT_TRUE(memo({2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}).IsNull());
    EXPECT_EQ(remark.text, "cannot be read: it has 0 of 2 bytes");
}

}  // namespace
}  // namespace zv::zvdb::access
