#include "forms/packed_rows.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace zv::forms {
namespace {

TEST(PackedRows, KeepsTextsOfAnyLength) {
    PackedRows rows;
    rows.SetColumns(4);
    const std::string medium(127, 'm');
    const std::string longer(128, 'l');
    const std::string huge(100000, 'h');
    rows.Append(std::array<std::string_view, 4>{medium, "", huge, longer});
    EXPECT_EQ(rows.Get(0, 0), medium);
    EXPECT_EQ(rows.Get(0, 1), "");
    EXPECT_EQ(rows.Get(0, 2), huge);
    EXPECT_EQ(rows.Get(0, 3), longer);
}

TEST(PackedRows, ARowThatWasNeverWrittenIsEmpty) {
    PackedRows rows;
    rows.SetColumns(2);
    rows.Resize(3);
    EXPECT_EQ(rows.Get(2, 1), "");
    rows.Set(2, 1, "x");
    EXPECT_EQ(rows.Get(2, 0), "");
    EXPECT_EQ(rows.Get(2, 1), "x");
}

TEST(PackedRows, ACellIsWrittenFromATextOfItsOwnRow) {
    PackedRows rows;
    rows.SetColumns(2);
    rows.Append(std::array<std::string_view, 2>{"a", "bcd"});
    rows.Set(0, 0, rows.Get(0, 1));
    EXPECT_EQ(rows.Get(0, 0), "bcd");
    EXPECT_EQ(rows.Get(0, 1), "bcd");
}

TEST(PackedRows, MissingTextsAreEmptyAndThoseBeyondAreLeftOut) {
    PackedRows rows;
    rows.SetColumns(2);
    rows.Append(std::array<std::string_view, 1>{"a"});
    rows.Append(std::array<std::string_view, 3>{"a", "b", "c"});
    EXPECT_EQ(rows.Get(0, 1), "");
    EXPECT_EQ(rows.Get(1, 1), "b");
}

TEST(PackedRows, TextsStayWhenColumnsComeAndGo) {
    PackedRows rows;
    rows.SetColumns(2);
    rows.Append(std::array<std::string_view, 2>{"a", "b"});
    rows.SetColumns(3);
    EXPECT_EQ(rows.Get(0, 1), "b");
    EXPECT_EQ(rows.Get(0, 2), "");
    rows.SetColumns(1);
    EXPECT_EQ(rows.Get(0, 0), "a");
}

TEST(PackedRows, AnOrderMovesWholeRows) {
    PackedRows rows;
    rows.SetColumns(1);
    for (const std::string_view text : {"a", "b", "c"}) {
        rows.Append(std::array<std::string_view, 1>{text});
    }
    rows.Permute({2, 0, 1});
    EXPECT_EQ(rows.Get(0, 0), "c");
    EXPECT_EQ(rows.Get(1, 0), "a");
    EXPECT_EQ(rows.Get(2, 0), "b");
}

}  // namespace
}  // namespace zv::forms
