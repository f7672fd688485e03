#include "mainwindow/item_record.h"

#include <gtest/gtest.h>

namespace zv::mainwindow {
namespace {

using Fields = std::vector<std::size_t>;
using store::Value;

ItemRecord Row() {
    ItemRecord row;
    row[ItemFieldIndex("taskTitle")] = Value("甲");
    row[ItemFieldIndex("taskTime")] = Value(DateTime(2003, 3, 7, 8, 15));
    row[ItemFieldIndex("tDone")] = Value(0);
    return row;
}

ItemEntry EntryOf(const ItemRecord& row) {
    ItemEntry entry;
    for (std::size_t i = 0; i < row.size(); i++) entry[i] = row[i];
    return entry;
}

TEST(FindConflicts, NothingChangedInTheDatabaseIsNoConflict) {
    ItemEntry entry = EntryOf(Row());
    entry[ItemFieldIndex("taskTitle")] = Value("乙");
    EXPECT_TRUE(FindConflicts(Row(), Row(), entry).empty());
}

TEST(FindConflicts, AFieldThatSomebodyElseChangedIsOne) {
    ItemRecord now = Row();
    now[ItemFieldIndex("tDone")] = Value(1);
    EXPECT_EQ(FindConflicts(Row(), now, EntryOf(Row())), Fields{ItemFieldIndex("tDone")});
}

TEST(FindConflicts, TheSameChangeByBothIsNone) {
    ItemRecord now = Row();
    now[ItemFieldIndex("taskTitle")] = Value("丙");
    EXPECT_TRUE(FindConflicts(Row(), now, EntryOf(now)).empty());
}

TEST(FindConflicts, ComparesTheRowAndNotItsText) {
    ItemRecord asRead = Row();
    asRead[ItemFieldIndex("fContent")] = Value();
    ItemRecord now = Row();
    now[ItemFieldIndex("fContent")] = Value("");
    // No value and an empty text look alike; the entry would make neither of them different.
    EXPECT_TRUE(FindConflicts(asRead, now, EntryOf(asRead)).empty());
    now[ItemFieldIndex("taskTime")] = Value(DateTime(2003, 3, 7, 8, 15, 1));
    EXPECT_EQ(FindConflicts(asRead, now, EntryOf(asRead)), Fields{ItemFieldIndex("taskTime")});
}

TEST(FindConflicts, AFieldThatIsNotWrittenIsNone) {
    ItemRecord now = Row();
    now[ItemFieldIndex("tDone")] = Value(7);
    ItemEntry entry = EntryOf(Row());
    entry[ItemFieldIndex("tDone")].reset();
    EXPECT_TRUE(FindConflicts(Row(), now, entry).empty());
}

TEST(ItemFieldIndex, AnswersBehindTheLastForAnUnknownField) {
    EXPECT_EQ(ItemFieldIndex("fID"), kItemFields.size());
}

}  // namespace
}  // namespace zv::mainwindow
