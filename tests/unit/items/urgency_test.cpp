#include "items/urgency.h"

#include <gtest/gtest.h>

#include <set>

#include "forms/theme.h"
#include "resources/texts.h"

namespace zv::items {
namespace {

const DateTime kToday(2003, 3, 7, 9, 30);
const DateTime kMidnight(2003, 3, 7);

TEST(UrgencyOf, TheLastSecondOfYesterdayIsOverdue) {
    EXPECT_EQ(UrgencyOf(DateTime(2003, 3, 6, 23, 59, 59), ItemState::NotDone, kToday),
              Urgency::Overdue);
}

TEST(UrgencyOf, TheWholeDayIsToday) {
    for (const DateTime time : {kMidnight, DateTime(2003, 3, 7, 0, 0, 1),
                                DateTime(2003, 3, 7, 9, 29), DateTime(2003, 3, 7, 23, 59, 59)}) {
        EXPECT_EQ(UrgencyOf(time, ItemState::NotDone, kToday), Urgency::Today);
    }
}

TEST(UrgencyOf, TomorrowIsLater) {
    EXPECT_EQ(UrgencyOf(DateTime(2003, 3, 8), ItemState::NotDone, kToday), Urgency::Later);
}

TEST(UrgencyOf, TheHourOfTheDayChangesNothing) {
    for (const DateTime now : {kMidnight, kToday, DateTime(2003, 3, 7, 23, 59, 59)}) {
        EXPECT_EQ(UrgencyOf(DateTime(2003, 3, 6, 23, 59, 59), ItemState::NotDone, now),
                  Urgency::Overdue);
        EXPECT_EQ(UrgencyOf(kMidnight, ItemState::NotDone, now), Urgency::Today);
        EXPECT_EQ(UrgencyOf(DateTime(2003, 3, 8), ItemState::NotDone, now), Urgency::Later);
    }
}

TEST(UrgencyOf, WhatIsDoneIsNeverDue) {
    for (const int days : {-400, -1, 0, 1, 400}) {
        EXPECT_EQ(UrgencyOf(kMidnight.AddDays(days), ItemState::Done, kToday), Urgency::Done);
    }
    EXPECT_EQ(UrgencyOf(std::nullopt, ItemState::Done, kToday), Urgency::Done);
}

TEST(UrgencyOf, BeingInHandIsNotBeingDone) {
    EXPECT_EQ(UrgencyOf(kMidnight.AddDays(-1), ItemState::InHand, kToday), Urgency::Overdue);
    EXPECT_EQ(UrgencyOf(kMidnight, ItemState::InHand, kToday), Urgency::InHand);
    EXPECT_EQ(UrgencyOf(kMidnight.AddDays(1), ItemState::InHand, kToday), Urgency::InHand);
}

TEST(UrgencyOf, WithoutADayNothingIsDue) {
    EXPECT_EQ(UrgencyOf(std::nullopt, ItemState::NotDone, kToday), Urgency::Later);
    EXPECT_EQ(UrgencyOf(std::nullopt, ItemState::InHand, kToday), Urgency::InHand);
}

TEST(SignOf, SaysInWordsWhatTheColourTells) {
    const auto sign = [](int days, ItemState state) {
        return SignOf(kMidnight.AddDays(days), state, kToday, resources::kSimplifiedChinese);
    };
    EXPECT_EQ(sign(-3, ItemState::NotDone), "逾期 3 天");
    EXPECT_EQ(sign(-1, ItemState::InHand), "逾期 1 天 办理中");
    EXPECT_EQ(sign(0, ItemState::NotDone), "今天");
    EXPECT_EQ(sign(0, ItemState::InHand), "今天 办理中");
    EXPECT_EQ(sign(1, ItemState::NotDone), "1 天后");
    EXPECT_EQ(sign(5, ItemState::InHand), "办理中");
    EXPECT_EQ(sign(-3, ItemState::Done), "已完成");
    EXPECT_EQ(SignOf(std::nullopt, ItemState::NotDone, kToday, resources::kSimplifiedChinese),
              "未完成");
}

TEST(SignOf, CountsDaysAcrossMonthsAndYears) {
    EXPECT_EQ(SignOf(DateTime(2003, 12, 31, 23, 0), ItemState::NotDone, DateTime(2004, 1, 1, 1, 0),
                     resources::kTraditionalChinese),
              "逾期 1 天");
    EXPECT_EQ(SignOf(DateTime(2004, 3, 1), ItemState::NotDone, DateTime(2004, 2, 28, 23, 0),
                     resources::kTraditionalChinese),
              "2 天後");
}

TEST(NameOf, NoTwoAreCalledTheSame) {
    for (std::int16_t language = 0; language < resources::LanguageCount(); language++) {
        std::set<std::string> names;
        for (const Urgency urgency : kUrgencies) names.insert(NameOf(urgency, language));
        EXPECT_EQ(names.size(), kUrgencies.size());
    }
}

TEST(ColorOf, CanBeReadOnWhite) {
    for (const Urgency urgency : kUrgencies) {
        EXPECT_GE(forms::Contrast(ColorOf(urgency), 0xFFFFFF), 4.5) << NameOf(urgency, 0);
    }
}

TEST(ColorOf, NoTwoAreTheSame) {
    std::set<std::uint32_t> colors;
    for (const Urgency urgency : kUrgencies) colors.insert(ColorOf(urgency));
    EXPECT_EQ(colors.size(), kUrgencies.size());
}

}  // namespace
}  // namespace zv::items
