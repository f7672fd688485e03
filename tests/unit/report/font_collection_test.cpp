#include "report/font_collection.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace zv::report {
namespace {

void Append(std::string& file, std::uint32_t number, int bytes) {
    for (int i = bytes - 1; i >= 0; i--) file += static_cast<char>(number >> (8 * i));
}

// Two fonts of one table each.
std::string Collection() {
    std::string file = "ttcf";
    Append(file, 0x10000, 4);
    Append(file, 2, 4);
    Append(file, 20, 4);
    Append(file, 48, 4);
    for (const std::uint32_t names : {76u, 80u}) {
        Append(file, 0x10000, 4);
        Append(file, 1, 2);
        Append(file, 0, 4);
        Append(file, 0, 2);
        file += "name";
        Append(file, 0, 4);
        Append(file, names, 4);
        Append(file, 4, 4);
    }
    return file + "AAAABBBB";
}

TEST(FindInCollection, DistinguishesTheFontsByTheirNames) {
    EXPECT_EQ(FindInCollection(Collection(), "AAAA"), 0);
    EXPECT_EQ(FindInCollection(Collection(), "BBBB"), 1);
    EXPECT_EQ(FindInCollection(Collection(), "CCCC"), -1);
}

TEST(FindInCollection, AFileOfOneFontIsThatFont) {
    EXPECT_EQ(FindInCollection(std::string("\0\1\0\0rest", 8), "AAAA"), 0);
}

TEST(FindInCollection, ABrokenFileHoldsNothing) {
    const std::string whole = Collection();
    for (std::size_t length = 4; length < whole.size() - 4; length++) {
        const int found = FindInCollection(whole.substr(0, length), "BBBB");
        EXPECT_EQ(found, -1) << length;
    }
}

}  // namespace
}  // namespace zv::report
