#include "plans/plan_rules.h"

#include <gtest/gtest.h>

#include <set>

#include "plans/plan_saving.h"

#include "base/errors.h"

namespace zv::plans {

void PrintTo(const Refusal& refusal, std::ostream* out) {
    *out << "field " << static_cast<int>(refusal.field) << " message";
    for (const auto id : refusal.message) *out << ' ' << id;
}

namespace {

using Answer = std::optional<Refusal>;

PlanEntry Valid() {
    PlanEntry entry;
    entry.taskId = "1";
    entry.title = "报表";
    entry.begin = DateTime(2003, 3, 7);
    entry.end = DateTime(2004, 3, 6);
    entry.circleType = circle::kMonthly;
    entry.circleValue = "1";
    entry.month = "1";
    entry.day = "1";
    entry.typeValue = "0";
    entry.setMan = "张三";
    return entry;
}

TEST(CheckFieldOnLeaving, RefusesASingleQuoteInTextsAndNumbers) {
    for (const PlanField field :
         {PlanField::Title, PlanField::SetMan, PlanField::DoneMan, PlanField::TaskID,
          PlanField::CircleValue, PlanField::Month, PlanField::Day, PlanField::TypeValue}) {
        EXPECT_EQ(CheckFieldOnLeaving(field, "1'"), 131) << static_cast<int>(field);
        EXPECT_EQ(CheckFieldOnLeaving(field, "1"), 0) << static_cast<int>(field);
    }
}

TEST(CheckFieldOnLeaving, TakesDoubleQuotesInTexts) {
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::Title, "a \"b\""), 0);
}

TEST(CheckFieldOnLeaving, TakesAnyContent) {
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::Content, "it's\r\n\"so\""), 0);
}

TEST(CheckFieldOnLeaving, RefusesNumbersThatAreNone) {
    for (const PlanField field : {PlanField::TaskID, PlanField::CircleValue, PlanField::Month,
                                  PlanField::Day, PlanField::TypeValue}) {
        for (const char* text : {"a", "1a", "一", "1 2", "-", " "}) {
            EXPECT_EQ(CheckFieldOnLeaving(field, text), 130) << text;
        }
        EXPECT_EQ(CheckFieldOnLeaving(field, ""), 0);
        EXPECT_EQ(CheckFieldOnLeaving(field, " 7 "), 0);
    }
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::Title, "a"), 0);
}

TEST(CheckFieldOnLeaving, RefusesNumbersAboveTheFieldsBound) {
    const auto check = [](PlanField field, const char* within, const char* beyond) {
        EXPECT_EQ(CheckFieldOnLeaving(field, within), 0) << within;
        EXPECT_EQ(CheckFieldOnLeaving(field, beyond), 140) << beyond;
    };
    check(PlanField::CircleValue, "999", "1000");
    check(PlanField::Day, "31", "32");
    check(PlanField::Month, "12", "13");
    check(PlanField::TypeValue, "99", "100");
    check(PlanField::TaskID, "32767", "32768");
}

TEST(CheckFieldOnLeaving, JudgesTheNumberAsTypedAgainstItsBound) {
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::Month, "11.6"), 0);
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::Month, "12.4"), 140);
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::CircleValue, "999.4"), 140);
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::TypeValue, "99.1"), 140);
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::CircleValue, "1,000"), 140);
}

TEST(CheckFieldOnLeaving, RefusesAWidthBelowZero) {
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::TypeValue, "0"), 0);
    EXPECT_EQ(CheckFieldOnLeaving(PlanField::TypeValue, "-1"), 140);
}

TEST(CheckDateOnLeaving, RefusesABeginBehindTheEnd) {
    const DateTime day(2003, 3, 7);
    EXPECT_EQ(CheckDateOnLeaving(PlanField::Begin, day, day), 0);
    EXPECT_EQ(CheckDateOnLeaving(PlanField::Begin, day.AddDays(1), day), 119);
}

TEST(CheckDateOnLeaving, RefusesAnEndBeforeTheBegin) {
    const DateTime day(2003, 3, 7);
    EXPECT_EQ(CheckDateOnLeaving(PlanField::End, day, day), 0);
    EXPECT_EQ(CheckDateOnLeaving(PlanField::End, day, day.AddDays(-1)), 120);
}

TEST(CheckDateOnLeaving, ComparesDaysNotTimes) {
    const DateTime morning(2003, 3, 7, 10, 0, 0);
    EXPECT_EQ(CheckDateOnLeaving(PlanField::Begin, morning, morning.Date()), 0);
}

TEST(CheckEntry, TakesAPlanThatBreaksNoRule) {
    EXPECT_EQ(CheckEntry(Valid()), Answer());
}

TEST(CheckEntry, RefusesAYearlyMonthOutsideTheYear) {
    PlanEntry entry = Valid();
    entry.circleType = circle::kYearly;
    for (const char* text : {"1", "12"}) {
        entry.month = text;
        EXPECT_EQ(CheckEntry(entry), Answer()) << text;
    }
    for (const char* text : {"0", "13", "", "-1"}) {
        entry.month = text;
        EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::Month, {15, 109}})) << text;
    }
}

TEST(CheckEntry, RefusesADayOutsideTheMonthOfYearlyAndMonthlyPlans) {
    for (const int kind : {circle::kYearly, circle::kMonthly}) {
        PlanEntry entry = Valid();
        entry.circleType = kind;
        for (const char* text : {"1", "31"}) {
            entry.day = text;
            EXPECT_EQ(CheckEntry(entry), Answer()) << text;
        }
        for (const char* text : {"0", "32", ""}) {
            entry.day = text;
            EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::Day, {14, 109}})) << text;
        }
    }
}

TEST(CheckEntry, LooksAtTheMonthBeforeTheDay) {
    PlanEntry entry = Valid();
    entry.circleType = circle::kYearly;
    entry.month = "0";
    entry.day = "0";
    EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::Month, {15, 109}}));
}

TEST(CheckEntry, IgnoresMonthAndDayWhereTheKindDoesNotUseThem) {
    PlanEntry entry = Valid();
    entry.month = "0";
    EXPECT_EQ(CheckEntry(entry), Answer());
    entry.day = "0";
    for (const int kind : {circle::kDaily, circle::kWeekly}) {
        entry.circleType = kind;
        EXPECT_EQ(CheckEntry(entry), Answer());
    }
}

// The widest window that passes and the narrowest that does not.
void CheckOverlap(int kind, const char* step, int type, int widest) {
    PlanEntry entry = Valid();
    entry.circleType = kind;
    entry.circleValue = step;
    entry.type = type;
    entry.typeValue = std::to_string(widest);
    EXPECT_EQ(CheckEntry(entry), Answer()) << kind << ' ' << type;
    entry.typeValue = std::to_string(widest + 1);
    EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::TypeValue, {117}}))
        << kind << ' ' << type;
}

TEST(CheckEntry, RefusesAlertWindowsThatOverlap) {
    for (const int type : {side::kAhead, side::kAfter}) {
        CheckOverlap(circle::kYearly, "1", type, 365);
        CheckOverlap(circle::kMonthly, "1", type, 28);
        CheckOverlap(circle::kMonthly, "3", type, 84);
        CheckOverlap(circle::kDaily, "5", type, 5);
        CheckOverlap(circle::kWeekly, "2", type, 14);
    }
    CheckOverlap(circle::kYearly, "1", side::kBoth, 182);
    CheckOverlap(circle::kMonthly, "1", side::kBoth, 14);
    CheckOverlap(circle::kDaily, "3", side::kBoth, 1);
    CheckOverlap(circle::kDaily, "4", side::kBoth, 2);
    CheckOverlap(circle::kWeekly, "1", side::kBoth, 3);
}

TEST(CheckEntry, RefusesPlansOfMoreThanFiveYears) {
    PlanEntry entry = Valid();
    entry.begin = DateTime(2003, 1, 1);
    entry.end = DateTime(2008, 12, 31);
    EXPECT_EQ(CheckEntry(entry), Answer());
    entry.end = DateTime(2009, 1, 1);
    EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::End, {118}}));
}

TEST(CheckEntry, RefusesAnEmptyTitle) {
    PlanEntry entry = Valid();
    for (const char* text : {"", "   "}) {
        entry.title = text;
        EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::Title, {7, 108}}));
    }
}

TEST(CheckEntry, TakesDigitsOnlyForTheNumberAndNotZero) {
    PlanEntry entry = Valid();
    for (const char* text : {"1", " 12 ", "007", "32767"}) {
        entry.taskId = text;
        EXPECT_EQ(CheckEntry(entry), Answer()) << text;
    }
    for (const char* text : {"0", "000", "", " ", "-1", "1.5", "1e3", "1,000", "1 2"}) {
        entry.taskId = text;
        EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::TaskID, {124}})) << text;
    }
}

TEST(CheckEntry, NamesTheFieldOfANumberBeyondItsBound) {
    PlanEntry entry = Valid();
    for (const char* text : {"32768", "2147483648", "99999999999999999999"}) {
        entry.taskId = text;
        EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::TaskID, {8, 140}})) << text;
    }
    entry = Valid();
    entry.circleValue = "999.4";
    EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::CircleValue, {34, 140}}));
}

TEST(CheckEntry, RefusesAStepOfZero) {
    PlanEntry entry = Valid();
    for (const char* text : {"0", "", "0.4"}) {
        entry.circleValue = text;
        EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::CircleValue, {123}})) << text;
    }
    entry.circleValue = "999";
    EXPECT_EQ(CheckEntry(entry), Answer());
}

TEST(CheckEntry, RefusesANegativeStepForItsOverlap) {
    PlanEntry entry = Valid();
    entry.circleValue = "-1";
    EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::TypeValue, {117}}));
}

TEST(CheckEntry, RefusesAnEmptyWidth) {
    PlanEntry entry = Valid();
    for (const char* text : {"", "  "}) {
        entry.typeValue = text;
        EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::TypeValue, {125}}));
    }
}

TEST(CheckEntry, RefusesAKindOrWeekdayThatIsNone) {
    PlanEntry entry = Valid();
    entry.circleType = -1;
    EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::CircleType, {34, 109}}));
    entry.circleType = circle::kWeekly;
    entry.week = -1;
    EXPECT_EQ(CheckEntry(entry), Answer(Refusal{PlanField::Week, {34, 109}}));
    entry.circleType = circle::kDaily;
    EXPECT_EQ(CheckEntry(entry), Answer());
}

// Breaks every rule, then mends them one by one: the next one answers.
TEST(CheckEntry, AnswersInTheOrderOfTheRules) {
    PlanEntry entry;
    entry.circleType = circle::kYearly;
    entry.typeValue = "1";
    entry.begin = DateTime(2003, 1, 1);
    entry.end = DateTime(2020, 1, 1);
    EXPECT_EQ(CheckEntry(entry)->message, (std::vector<std::int16_t>{15, 109}));
    entry.month = "1";
    EXPECT_EQ(CheckEntry(entry)->message, (std::vector<std::int16_t>{14, 109}));
    entry.day = "1";
    EXPECT_EQ(CheckEntry(entry)->message, std::vector<std::int16_t>{117});
    entry.typeValue = "";
    EXPECT_EQ(CheckEntry(entry)->message, std::vector<std::int16_t>{118});
    entry.end = DateTime(2003, 1, 1);
    EXPECT_EQ(CheckEntry(entry)->message, (std::vector<std::int16_t>{7, 108}));
    entry.title = "a";
    EXPECT_EQ(CheckEntry(entry)->message, std::vector<std::int16_t>{124});
    entry.taskId = "1";
    EXPECT_EQ(CheckEntry(entry)->message, std::vector<std::int16_t>{123});
    entry.circleValue = "1";
    EXPECT_EQ(CheckEntry(entry)->message, std::vector<std::int16_t>{125});
    entry.typeValue = "0";
    EXPECT_EQ(CheckEntry(entry), Answer());
}

TEST(AsksForSetter, WhenTheSetterIsEmpty) {
    PlanEntry entry = Valid();
    EXPECT_FALSE(AsksForSetter(entry));
    entry.setMan = "  ";
    EXPECT_TRUE(AsksForSetter(entry));
}

TEST(CheckUniqueness, RefusesANewPlanWhoseNumberExists) {
    EXPECT_EQ(CheckUniqueness(5, 0, {}), Answer());
    EXPECT_EQ(CheckUniqueness(5, 0, {true, false}), Answer(Refusal{PlanField::TaskID, {8, 110}}));
}

TEST(CheckUniqueness, RefusesAChangedPlanThatIsGone) {
    EXPECT_EQ(CheckUniqueness(5, 5, {true, false}), Answer());
    EXPECT_EQ(CheckUniqueness(5, 5, {}), Answer(Refusal{PlanField::TaskID, {8, 111}}));
}

TEST(CheckUniqueness, RefusesToChangeAnotherPlanThanTheOneOpened) {
    EXPECT_EQ(CheckUniqueness(7, 5, {true, false}), Answer(Refusal{PlanField::TaskID, {8, 110}}));
    EXPECT_EQ(CheckUniqueness(7, 5, {}), Answer(Refusal{PlanField::TaskID, {8, 111}}));
}

TEST(CheckUniqueness, RefusesATitleOfAnotherPlanWithTheWordingOfAMissingOne) {
    const Answer refused(Refusal{PlanField::Title, {7, 111}});
    EXPECT_EQ(CheckUniqueness(5, 0, {false, true}), refused);
    EXPECT_EQ(CheckUniqueness(5, 5, {true, true}), refused);
}

TEST(CheckUniqueness, LooksAtTheNumberBeforeTheTitle) {
    EXPECT_EQ(CheckUniqueness(5, 0, {true, true}), Answer(Refusal{PlanField::TaskID, {8, 110}}));
}

TEST(MakePlan, ReadsAndTrimsTheEntry) {
    PlanEntry entry = Valid();
    entry.taskId = " 12 ";
    entry.title = "  报表 ";
    entry.circleValue = "2.6";
    entry.content = " a\r\nb ";
    const Plan plan = MakePlan(entry);
    EXPECT_EQ(plan.taskId, 12);
    EXPECT_EQ(plan.title, "报表");
    EXPECT_EQ(plan.circleValue, 3);
    EXPECT_EQ(plan.content, " a\r\nb ");
}

TEST(MakePlan, RefusesANumberThatDoesNotFit) {
    PlanEntry entry = Valid();
    entry.taskId = "99999999999";
    EXPECT_THROW(MakePlan(entry), RuntimeError);
}

TEST(EntryOf, IsTheEntryThatMakesThePlan) {
    const Plan plan = MakePlan(Valid());
    EXPECT_EQ(ValuesOf(MakePlan(EntryOf(plan))), ValuesOf(plan));
}

TEST(PlanFields, ComeBackFromTheirValues) {
    Plan plan;
    plan.taskId = 9;
    plan.title = "t";
    plan.begin = DateTime(2003, 1, 2);
    plan.end = DateTime(2004, 3, 4);
    plan.circleType = circle::kWeekly;
    plan.circleValue = 11;
    plan.month = 5;
    plan.day = 6;
    plan.week = 4;
    plan.type = side::kBoth;
    plan.typeValue = 7;
    plan.setMan = "s";
    plan.doneMan = "d";
    plan.content = "c";
    const store::RowValues values = ValuesOf(plan);
    ASSERT_EQ(values.size(), kPlanFields.size());
    EXPECT_EQ(values[PlanFieldIndex("taskday")], store::Value(6));
    EXPECT_EQ(values[PlanFieldIndex("CircleValue")], store::Value(11));
    EXPECT_EQ(values[PlanFieldIndex("DoneMan")], store::Value("d"));
    EXPECT_EQ(ValuesOf(PlanOf(values)), values);
}

TEST(PlanGroups, DatesRecurrenceAndAlertEachBelongTogether) {
    const std::vector<std::size_t> groups = PlanGroups();
    const auto group = [&groups](std::string_view field) { return groups[PlanFieldIndex(field)]; };
    EXPECT_EQ(group("tbegin"), group("tEnd"));
    for (const std::string_view field : {"CircleType", "taskMonth", "taskday", "TaskWeek"}) {
        EXPECT_EQ(group(field), group("CircleValue")) << field;
    }
    EXPECT_EQ(group("Type"), group("TypeValue"));
    EXPECT_EQ(group("TaskID"), store::RowMerge::kAlwaysOwn);
    const std::set<std::size_t> different(groups.begin(), groups.end());
    EXPECT_EQ(different.size(), 8u);
}

TEST(CheckJoined, RefusesWhatAnEntryOrAFieldIsRefusedFor) {
    const Plan valid = MakePlan(Valid());
    EXPECT_EQ(CheckJoined(valid), Answer());
    Plan plan = valid;
    plan.title = " ";
    EXPECT_EQ(CheckJoined(plan), Answer(Refusal{PlanField::Title, {7, 108}}));
    plan = valid;
    plan.end = plan.begin.AddDays(-1);
    EXPECT_EQ(CheckJoined(plan), Answer(Refusal{PlanField::End, {120}}));
    plan = valid;
    plan.typeValue = -1;
    EXPECT_EQ(CheckJoined(plan), Answer(Refusal{PlanField::TypeValue, {33, 140}}));
    plan = valid;
    plan.circleType = circle::kYearly;
    plan.month = 13;
    EXPECT_EQ(CheckJoined(plan), Answer(Refusal{PlanField::Month, {15, 109}}));
}

}  // namespace
}  // namespace zv::plans
