// The forms in which Access stores texts and rows.
#include <gtest/gtest.h>

#include <vector>

#include "zvdb/access/access_row.h"
#include "zvdb/access/access_text.h"

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

}  // namespace
}  // namespace zv::zvdb::access
