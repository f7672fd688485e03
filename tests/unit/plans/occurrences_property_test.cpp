// The engine against a definition that looks at every single day and knows nothing of anchors,
// shifts and calendar libraries.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <random>

#include "plans/occurrences.h"

namespace zv::plans {
namespace {

struct Day {
    int year;
    int month;
    int day;
    int weekday;  // 0 = Sunday
    int number;   // days since 1 January 1890

    int MonthLength() const { return LengthOf(year, month); }
    static int LengthOf(int y, int m) {
        constexpr std::array kLengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        const bool leap = y % 4 == 0 && (y % 100 != 0 || y % 400 == 0);
        return kLengths.at(static_cast<std::size_t>(m - 1)) + (m == 2 && leap ? 1 : 0);
    }
    void Advance() {
        number++;
        weekday = (weekday + 1) % 7;
        if (++day <= MonthLength()) return;
        day = 1;
        if (++month <= 12) return;
        month = 1;
        year++;
    }
    std::string Text() const {
        char text[40];
        std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
        return text;
    }
};

// Every day of 1890 to 2120; 1 January 1890 was a Wednesday.
const std::vector<Day>& AllDays() {
    static const std::vector<Day> days = [] {
        std::vector<Day> result;
        for (Day day{1890, 1, 1, 3, 0}; day.year <= 2120; day.Advance()) result.push_back(day);
        return result;
    }();
    return days;
}

struct Wish {
    Plan plan;
    Day begin;
    Day end;
};

bool Falls(const Day& day, const Wish& wish) {
    const Plan& plan = wish.plan;
    const Day& begin = wish.begin;
    const int step = plan.circleValue;
    if (day.number < begin.number || day.number > wish.end.number) return false;
    switch (plan.circleType) {
        case circle::kYearly: {
            const int wanted = std::min(plan.day, Day::LengthOf(begin.year, plan.month));
            return day.month == plan.month && (day.year - begin.year) % step == 0 &&
                   day.day == std::min(wanted, day.MonthLength());
        }
        case circle::kMonthly: {
            const int wanted = std::min(plan.day, begin.MonthLength());
            const int months = (day.year - begin.year) * 12 + day.month - begin.month;
            return months % step == 0 && day.day == std::min(wanted, day.MonthLength());
        }
        case circle::kDaily:
            return (day.number - begin.number) % step == 0;
        default: {
            const int toFirst = (plan.week - begin.weekday + 7) % 7;
            return day.number >= begin.number + toFirst &&
                   (day.number - begin.number - toFirst) % (7 * step) == 0;
        }
    }
}

class AnyPlan {
 public:
    explicit AnyPlan(unsigned seed) : random_(seed) {}

    Wish Draw() {
        const auto& days = AllDays();
        Wish wish;
        wish.begin =
            days.at(static_cast<std::size_t>(Number(0, static_cast<int>(days.size()) - 2200)));
        wish.end = days.at(static_cast<std::size_t>(wish.begin.number + Number(0, 2191)));
        Plan& plan = wish.plan;
        plan.circleType = Number(0, 3);
        plan.circleValue = Number(0, 3) == 0 ? Number(1, 999) : Number(1, 14);
        plan.month = Number(1, 12);
        plan.day = Number(0, 1) == 0 ? Number(1, 31) : Number(28, 31);
        plan.week = Number(0, 6);
        plan.begin = DateTime(wish.begin.year, wish.begin.month, wish.begin.day);
        plan.end = DateTime(wish.end.year, wish.end.month, wish.end.day);
        return wish;
    }

    int Number(int first, int last) {
        return std::uniform_int_distribution<int>(first, last)(random_);
    }

 private:
    std::mt19937 random_;
};

std::vector<DateTime> AllOf(const Plan& plan) {
    std::vector<DateTime> result;
    Occurrences occurrences(plan);
    while (const auto date = occurrences.Next()) result.push_back(*date);
    return result;
}

std::string Describe(const Plan& plan) {
    return "kind " + std::to_string(plan.circleType) + " step " + std::to_string(plan.circleValue) +
           " month " + std::to_string(plan.month) + " day " + std::to_string(plan.day) + " week " +
           std::to_string(plan.week) + " begin " + plan.begin.ShortIso() + " end " +
           plan.end.ShortIso();
}

constexpr int kPlans = 4000;

TEST(OccurrencesProperty, AreTheDaysThatTheDefinitionPicks) {
    AnyPlan any(20030307);
    for (int i = 0; i < kPlans; i++) {
        const Wish wish = any.Draw();
        std::vector<std::string> expected;
        const auto& days = AllDays();
        for (int n = wish.begin.number; n <= wish.end.number; n++) {
            const Day& day = days.at(static_cast<std::size_t>(n));
            if (Falls(day, wish)) expected.push_back(day.Text());
        }
        std::vector<std::string> found;
        for (const DateTime date : AllOf(wish.plan)) found.push_back(date.ShortIso());
        ASSERT_EQ(found, expected) << Describe(wish.plan);
    }
}

TEST(OccurrencesProperty, IncreaseStrictlyWithinBeginAndEnd) {
    AnyPlan any(1);
    for (int i = 0; i < kPlans; i++) {
        const Plan plan = any.Draw().plan;
        const auto dates = AllOf(plan);
        for (std::size_t at = 0; at < dates.size(); at++) {
            ASSERT_GE(dates[at], plan.begin) << Describe(plan);
            ASSERT_LE(dates[at], plan.end) << Describe(plan);
            if (at > 0) {
                ASSERT_LT(dates[at - 1], dates[at]) << Describe(plan);
            }
        }
    }
}

TEST(OccurrencesProperty, FallOnTheWantedDayOrTheMonthsLast) {
    AnyPlan any(2);
    for (int i = 0; i < kPlans; i++) {
        Plan plan = any.Draw().plan;
        if (plan.circleType != circle::kYearly) plan.circleType = circle::kMonthly;
        const int anchorMonth =
            plan.circleType == circle::kYearly ? plan.month : plan.begin.Month();
        const int wanted = std::min(plan.day, Day::LengthOf(plan.begin.Year(), anchorMonth));
        for (const DateTime date : AllOf(plan)) {
            ASSERT_EQ(date.Day(), std::min(wanted, Day::LengthOf(date.Year(), date.Month())))
                << Describe(plan);
        }
    }
}

TEST(OccurrencesProperty, OfAShorterPlanAreThoseOfTheLongerOneUpToItsEnd) {
    AnyPlan any(3);
    for (int i = 0; i < kPlans; i++) {
        Plan plan = any.Draw().plan;
        auto longer = AllOf(plan);
        plan.end = plan.begin.AddDays(
            any.Number(0, static_cast<int>((plan.end.Seconds() - plan.begin.Seconds()) / 86400)));
        std::erase_if(longer, [&](DateTime date) { return date > plan.end; });
        ASSERT_EQ(AllOf(plan), longer) << Describe(plan);
    }
}

TEST(OccurrencesProperty, KeepTheTimeOfDayOfADailyPlan) {
    AnyPlan any(4);
    for (int i = 0; i < kPlans; i++) {
        Plan plan = any.Draw().plan;
        plan.circleType = circle::kDaily;
        const int seconds = any.Number(0, 86399);
        plan.begin = plan.begin.AddSeconds(seconds);
        plan.end = plan.end.AddSeconds(86399);
        for (const DateTime date : AllOf(plan)) {
            ASSERT_EQ(date.Seconds() - date.Date().Seconds(), seconds) << Describe(plan);
        }
    }
}

}  // namespace
}  // namespace zv::plans
