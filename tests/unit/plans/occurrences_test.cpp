#include "plans/occurrences.h"

#include <gtest/gtest.h>

#include <functional>

#include "base/errors.h"

namespace zv::plans {
namespace {

std::string Make(int year, int month, int day) {
    return MakeDate(static_cast<std::int16_t>(year), static_cast<std::int16_t>(month),
                    static_cast<std::int16_t>(day))
        .IsoDateTime();
}

ErrorNumber ErrorOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return ErrorNumber{0};
}

TEST(MakeDate, KeepsADayThatTheMonthHas) {
    EXPECT_EQ(Make(2003, 3, 7), "2003-03-07 00:00:00");
    EXPECT_EQ(Make(2003, 1, 31), "2003-01-31 00:00:00");
    EXPECT_EQ(Make(2004, 2, 29), "2004-02-29 00:00:00");
}

TEST(MakeDate, ReadsMonthBeforeDay) {
    EXPECT_EQ(Make(2003, 3, 12), "2003-03-12 00:00:00");
    EXPECT_EQ(Make(2003, 12, 3), "2003-12-03 00:00:00");
}

TEST(MakeDate, GivesTheLastDayOfAShorterMonth) {
    EXPECT_EQ(Make(2003, 4, 31), "2003-04-30 00:00:00");
    EXPECT_EQ(Make(2003, 2, 29), "2003-02-28 00:00:00");
    EXPECT_EQ(Make(2003, 2, 31), "2003-02-28 00:00:00");
    EXPECT_EQ(Make(2004, 2, 31), "2004-02-29 00:00:00");
    EXPECT_EQ(Make(1900, 2, 30), "1900-02-28 00:00:00");
    EXPECT_EQ(Make(2000, 2, 30), "2000-02-29 00:00:00");
    EXPECT_EQ(Make(9999, 12, 32), "9999-12-31 00:00:00");
}

TEST(MakeDate, TakesADayBelowOneForOneThatDoesNotExist) {
    EXPECT_EQ(Make(2003, 4, 0), "2003-04-30 00:00:00");
    EXPECT_EQ(Make(2003, 4, -1), "2003-04-30 00:00:00");
}

TEST(MakeDate, ReadsShortYearsAsThoseAroundTwoThousand) {
    EXPECT_EQ(Make(0, 1, 1), "2000-01-01 00:00:00");
    EXPECT_EQ(Make(29, 1, 1), "2029-01-01 00:00:00");
    EXPECT_EQ(Make(30, 1, 1), "1930-01-01 00:00:00");
    EXPECT_EQ(Make(99, 1, 1), "1999-01-01 00:00:00");
    EXPECT_EQ(Make(100, 1, 1), "0100-01-01 00:00:00");
}

TEST(MakeDate, RefusesAMonthOrYearThatDoesNotExist) {
    EXPECT_EQ(ErrorOf([] { Make(2003, 13, 1); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { Make(2003, 0, 1); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { Make(10000, 1, 1); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(ErrorOf([] { Make(-1, 1, 1); }), ErrorNumber::TypeMismatch);
}

Plan TablePlan(int kind) {
    Plan plan;
    plan.circleType = kind;
    plan.begin = DateTime(2003, 1, 1);
    plan.end = DateTime(2003, 12, 31);
    return plan;
}

TEST(Occurrences, AreLazy) {
    Plan plan = TablePlan(circle::kDaily);
    plan.circleValue = 0;
    Occurrences occurrences(plan);
    EXPECT_EQ(occurrences.Next()->IsoDate(), "2003-01-01");
}

TEST(Occurrences, StayAtTheirEnd) {
    Plan plan = TablePlan(circle::kYearly);
    Occurrences occurrences(plan);
    EXPECT_TRUE(occurrences.Next());
    EXPECT_FALSE(occurrences.Next());
    EXPECT_FALSE(occurrences.Next());
}

TEST(Occurrences, OfAnUnknownKindAreNone) {
    for (const int kind : {-1, 4, 100}) {
        Occurrences occurrences(TablePlan(kind));
        EXPECT_FALSE(occurrences.Next()) << kind;
    }
}

TEST(Occurrences, OfAMonthThatDoesNotExistFail) {
    Plan plan = TablePlan(circle::kYearly);
    plan.month = 13;
    EXPECT_EQ(ErrorOf([&] { Occurrences{plan}; }), ErrorNumber::TypeMismatch);
}

TEST(Occurrences, OfAWeekdayThatDoesNotExistFail) {
    Plan plan = TablePlan(circle::kWeekly);
    for (const int week : {-1, 7}) {
        plan.week = week;
        EXPECT_EQ(ErrorOf([&] { Occurrences{plan}; }), ErrorNumber::Overflow) << week;
    }
}

TEST(Occurrences, OfANegativeStepLeaveTheCalendar) {
    for (const int kind : {circle::kYearly, circle::kMonthly, circle::kWeekly}) {
        Plan plan = TablePlan(kind);
        plan.circleValue = -999;
        Occurrences occurrences(plan);
        EXPECT_TRUE(occurrences.Next()) << kind;
        EXPECT_EQ(ErrorOf([&] { occurrences.Next(); }), ErrorNumber::Overflow) << kind;
    }
}

TEST(AlertWindowOf, RefusesAWindowOutsideTheCalendar) {
    const DateTime last(9999, 12, 31);
    EXPECT_EQ(ErrorOf([&] { AlertWindowOf(last, side::kAfter, 1); }), ErrorNumber::Overflow);
    EXPECT_EQ(ErrorOf([&] { AlertWindowOf(last, side::kBoth, 1); }), ErrorNumber::Overflow);
    EXPECT_EQ(AlertWindowOf(last, side::kAfter, 0).last, last);
    const DateTime first(100, 1, 1);
    EXPECT_EQ(ErrorOf([&] { AlertWindowOf(first, side::kAhead, 1); }), ErrorNumber::Overflow);
}

}  // namespace
}  // namespace zv::plans
