// Reminders are kept where there is room for them, on every engine.
#include "reminders/store_memory.h"

#include "doubles/memory_settings.h"
#include "kept_answers.h"

namespace zv::reminders {
namespace {

const DateTime kToday(2003, 3, 7);

class StoreMemoryTest : public KeptAnswersTest {
 protected:
    std::vector<Answer> Answers() { return Sorted(memory_.Answers("Li")); }
    std::vector<Answer> OnWorkstation() { return SettingsMemory(settings_).Answers("Li"); }

    doubles::MemorySettings settings_;
    StoreMemory memory_{database_, settings_};
};

ZV_ON_EVERY_ENGINE(StoreMemoryTest);

TEST_P(StoreMemoryTest, WithoutTheTableIsTheWorkstations) {
    memory_.Keep("Li", {PutOffItem(1)});
    memory_.Keep("Li", {PutOffItem(2)});
    memory_.Forget("Li", {PutOffItem(2).key});
    EXPECT_EQ(Answers(), std::vector{PutOffItem(1)});
    EXPECT_EQ(OnWorkstation(), Answers());
    EXPECT_EQ(memory_.FirstLook("Li", kToday), kToday);
    EXPECT_EQ(memory_.FirstLook("Li", kToday.AddDays(1)), kToday);
}

TEST_P(StoreMemoryTest, WithTheTableHoldsOnEveryWorkstation) {
    MakeSideTables();
    memory_.Keep("Li", {PutOffItem(1)});
    EXPECT_TRUE(OnWorkstation().empty());
    doubles::MemorySettings elsewhere;
    EXPECT_EQ(StoreMemory(database_, elsewhere).Answers("Li"), std::vector{PutOffItem(1)});
}

TEST_P(StoreMemoryTest, WhatTheWorkstationKeptGoesIntoATableThatIsMade) {
    memory_.Keep("Li", {PutOffItem(1)});
    memory_.Keep("Li", {PutOffItem(2)});
    MakeSideTables();
    const Answer later = PutOffItem(2, kToday.AddDays(2));
    TableMemory(database_).Keep("Li", {later});
    EXPECT_EQ(Answers(), (std::vector{PutOffItem(1), later})) << "the table's own stays";
    EXPECT_TRUE(OnWorkstation().empty());
    EXPECT_EQ(Sorted(TableMemory(database_).Answers("Li")), Answers());
}

TEST_P(StoreMemoryTest, GoesOnWhereTheTableIsDropped) {
    MakeSideTables();
    memory_.Keep("Li", {PutOffItem(1)});
    Execute("drop table zvReminder");
    EXPECT_TRUE(Answers().empty());
    memory_.Keep("Li", {PutOffItem(2)});
    EXPECT_EQ(Answers(), std::vector{PutOffItem(2)});
}

TEST_P(StoreMemoryTest, TheEarliestFirstLookCounts) {
    EXPECT_EQ(memory_.FirstLook("Li", kToday), kToday);
    MakeSideTables();
    EXPECT_EQ(memory_.FirstLook("Li", kToday.AddDays(5)), kToday);
    doubles::MemorySettings elsewhere;
    EXPECT_EQ(StoreMemory(database_, elsewhere).FirstLook("Li", kToday.AddDays(7)), kToday);
}

TEST_P(StoreMemoryTest, OtherErrorsReachTheCaller) {
    database_.Leave();
    RefuseConnections();
    EXPECT_THROW(memory_.Answers("Li"), RuntimeError);
    EXPECT_THROW(memory_.Keep("Li", {PutOffItem(1)}), RuntimeError);
    EXPECT_THROW(memory_.Forget("Li", {PutOffItem(1).key}), RuntimeError);
    EXPECT_THROW(memory_.FirstLook("Li", kToday), RuntimeError);
    EXPECT_TRUE(OnWorkstation().empty());
}

}  // namespace
}  // namespace zv::reminders
