#include "base/hex.h"

#include <gtest/gtest.h>

namespace zv::hex {
namespace {

TEST(Hex, EveryByteComesBack) {
    std::string bytes;
    for (int byte = 0; byte < 256; byte++) bytes += static_cast<char>(byte);
    EXPECT_EQ(FromBytes(bytes).substr(0, 6), "000102");
    EXPECT_EQ(FromBytes(bytes).substr(506), "FDFEFF");
    EXPECT_EQ(ToBytes(FromBytes(bytes)), bytes);
    EXPECT_EQ(FromBytes(""), "");
    EXPECT_EQ(ToBytes(""), "");
}

TEST(Hex, SmallLettersAreDigitsToo) {
    EXPECT_EQ(ToBytes("0aFf"), "\x0A\xFF");
}

TEST(Hex, WhatIsNotMadeOfWholeBytesIsNothing) {
    for (const char* text : {"0", "000", "0x", "g0", " 0", "0 ", "-1", "+1"}) {
        EXPECT_EQ(ToBytes(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace zv::hex
