#include "doubles/text_bag.h"

#include <gtest/gtest.h>

#include "base/errors.h"

namespace zv::doubles {
namespace {

TEST(ScriptedBag, ComparesKeysWithoutRegardToCase) {
    TextBag bag;
    bag.Put("Showmode", "1");
    EXPECT_EQ(bag.Read("showmode", std::int16_t{0}), BagValue(std::int16_t{1}));
}

TEST(ScriptedBag, BringsTextsIntoTheTypeOfTheDefault) {
    TextBag bag;
    bag.Put("n", "12");
    bag.Put("b", "True");
    EXPECT_EQ(bag.Read("n", std::string()), BagValue(std::string("12")));
    EXPECT_EQ(bag.Read("n", false), BagValue(true));
    EXPECT_EQ(bag.Read("b", false), BagValue(true));
    EXPECT_EQ(bag.Read("absent", std::int16_t{7}), BagValue(std::int16_t{7}));
}

TEST(ScriptedBag, AValueOfAWrongTypeIsAnError) {
    TextBag bag;
    bag.Put("n", "many");
    bag.Put("big", "32768");
    EXPECT_THROW(bag.Read("n", std::int16_t{0}), RuntimeError);
    EXPECT_THROW(bag.Read("n", false), RuntimeError);
    EXPECT_THROW(bag.Read("big", std::int16_t{0}), RuntimeError);
}

TEST(ScriptedBag, ReportsWhatWasWrittenInItsOrder) {
    TextBag bag;
    bag.Write("b", true);
    bag.Write("a", std::int16_t{-3});
    bag.Write("c", std::string("x=y"));
    EXPECT_EQ(bag.Lines(), (std::vector<std::string>{"b=true", "a=-3", "c=x=y"}));
}

}  // namespace
}  // namespace zv::doubles
