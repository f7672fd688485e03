#include "items/due.h"

#include <gtest/gtest.h>

namespace zv::items {
namespace {

const DateTime kNow(2003, 3, 7, 9, 30);
const DateTime kMidnight(2003, 3, 7);

TEST(DueOn, TheDayBeginsAndEndsAtMidnight) {
    EXPECT_EQ(DueOn(DateTime(2003, 3, 6, 23, 59, 59), ItemState::NotDone, kNow), Due::Overdue);
    EXPECT_EQ(DueOn(kMidnight, ItemState::NotDone, kNow), Due::Today);
    EXPECT_EQ(DueOn(DateTime(2003, 3, 7, 23, 59, 59), ItemState::NotDone, kNow), Due::Today);
    EXPECT_EQ(DueOn(DateTime(2003, 3, 8), ItemState::NotDone, kNow), Due::NotYet);
}

TEST(DueOn, BeingInHandChangesNothing) {
    EXPECT_EQ(DueOn(kMidnight.AddDays(-1), ItemState::InHand, kNow), Due::Overdue);
    EXPECT_EQ(DueOn(kMidnight, ItemState::InHand, kNow), Due::Today);
}

TEST(DueOn, WhatIsDoneOrHasNoDayIsNotDue) {
    EXPECT_EQ(DueOn(kMidnight.AddDays(-1), ItemState::Done, kNow), Due::NotYet);
    EXPECT_EQ(DueOn(kMidnight, ItemState::Done, kNow), Due::NotYet);
    EXPECT_EQ(DueOn(std::nullopt, ItemState::NotDone, kNow), Due::NotYet);
}

TEST(DueCondition, HasNoneForWhatIsNotDue) {
    const auto literal = [](DateTime date) { return date.IsoDate(); };
    EXPECT_EQ(DueCondition(Due::Overdue, kNow, literal), "a.tDone<>1 And a.taskTime<2003-03-07");
    EXPECT_EQ(DueCondition(Due::Today, kNow, literal),
              "a.tDone<>1 And a.taskTime>=2003-03-07 And a.taskTime<2003-03-08");
    EXPECT_THROW(DueCondition(Due::NotYet, kNow, literal), std::logic_error);
}

TEST(DueCount, CountsWhatIsInHandOnWhateverDayBesideWhatIsDue) {
    DueCount count;
    count.Add(kMidnight.AddDays(-1), ItemState::InHand, kNow);
    count.Add(kMidnight, ItemState::NotDone, kNow);
    count.Add(kMidnight, ItemState::InHand, kNow);
    count.Add(std::nullopt, ItemState::InHand, kNow);
    count.Add(kMidnight.AddDays(-1), ItemState::Done, kNow);
    count.Add(kMidnight.AddDays(1), ItemState::NotDone, kNow);
    EXPECT_EQ(count, (DueCount{1, 2, 3}));
}

TEST(DueCount, SumsEachOfItsNumbers) {
    DueCount sum{1, 2, 3};
    sum += {10, 20, 30};
    EXPECT_EQ(sum, (DueCount{11, 22, 33}));
}

}  // namespace
}  // namespace zv::items
