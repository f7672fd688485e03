#include "windows/main/panels/icons.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace zv::windows {
namespace {

TEST(TreeImages, HoldsEveryKeyOfTheTree) {
    const forms::ImageList& images = TreeImages();
    for (const std::string kind : {"task", "diary", "guest", "event"}) {
        for (const char digit : {'1', '2', '3', '4'}) {
            EXPECT_NO_THROW(images.Find(kind + digit)) << kind << digit;
        }
    }
    EXPECT_NO_THROW(images.Find("date"));
}

// Brightness of each pixel in a few steps, over white.
std::string Grey(const forms::Icon& icon, int size) {
    std::string levels;
    for (const std::uint32_t pixel : forms::Rasterize(icon, size)) {
        const std::uint32_t paper = 255 - (pixel >> 24);
        const std::uint32_t red = (pixel >> 16 & 255) + paper;
        const std::uint32_t green = (pixel >> 8 & 255) + paper;
        const std::uint32_t blue = (pixel & 255) + paper;
        levels += static_cast<char>('0' + (red * 30 + green * 59 + blue * 11) / 6400);
    }
    return levels;
}

TEST(TreeImages, StatesDifferWithoutColour) {
    const forms::ImageList& images = TreeImages();
    for (const int size : {16, 20, 24, 32}) {
        std::set<std::string> seen;
        for (const char digit : {'1', '2', '3', '4'}) {
            seen.insert(Grey(images.At(images.Find(std::string("task") + digit)), size));
        }
        EXPECT_EQ(seen.size(), 4u);
        const auto difference = [&](char a, char b) {
            const std::string x = Grey(images.At(images.Find(std::string("task") + a)), size);
            const std::string y = Grey(images.At(images.Find(std::string("task") + b)), size);
            int count = 0;
            for (std::size_t i = 0; i < x.size(); i++) count += std::abs(x[i] - y[i]) > 1;
            return count;
        };
        // A good part of the mark's quarter looks different in grey.
        EXPECT_GT(difference('2', '3'), size * size / 40);
        EXPECT_GT(difference('2', '4'), size * size / 40);
        EXPECT_GT(difference('3', '4'), size * size / 40);
    }
}

// Whether a picture has the colour of the mark of what is done.
bool LooksDone(const std::string& key) {
    constexpr std::uint32_t kDone = 0xFF3B8A3E;
    const forms::ImageList& images = TreeImages();
    const auto pixels = forms::Rasterize(images.At(images.Find(key)), 32);
    return std::find(pixels.begin(), pixels.end(), kDone) != pixels.end();
}

TEST(TreeImages, APlanDoesNotLookDone) {
    EXPECT_TRUE(LooksDone("task4"));
    EXPECT_FALSE(LooksDone("task2"));
    EXPECT_FALSE(LooksDone("event4"));
}

}  // namespace
}  // namespace zv::windows
