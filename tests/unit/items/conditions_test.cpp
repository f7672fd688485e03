#include "items/conditions.h"

#include <gtest/gtest.h>

namespace zv::items {
namespace {

using enum Comparison;

std::string Where(const std::vector<Condition>& conditions) {
    return WhereText(conditions, [](DateTime date) { return '#' + date.IsoDate() + '#'; });
}

Condition Make(std::string field, Comparison comparison, std::string value = {}) {
    Condition condition;
    condition.field = {field, field, KindOfField(field)};
    condition.comparison = comparison;
    condition.value = std::move(value);
    condition.date = DateTime(2003, 3, 7, 9, 30);
    condition.row = 2;
    return condition;
}

Condition OrElse(Condition condition) {
    condition.join = Join::Or;
    return condition;
}

TEST(WhereText, OfNoConditionFiltersNothing) {
    EXPECT_EQ(Where({}), "1=1");
}

TEST(WhereText, OfTextsLooksForPatternsAsTheFilterDoes) {
    EXPECT_EQ(Where({Make("taskTitle", Contains, " 报表 ")}), "a.taskTitle like '%报表%'");
    EXPECT_EQ(Where({Make("taskTitle", Contains, "报_表")}), "a.taskTitle like '报_表'");
    EXPECT_EQ(Where({Make("taskTitle", BeginsWith, "报")}), "a.taskTitle like '报%'");
    EXPECT_EQ(Where({Make("fUser", Equal, "张三")}), "a.fUser='张三'");
}

TEST(WhereText, AnEmptyFieldDiffersFromEveryValue) {
    EXPECT_EQ(Where({Make("fUser", NotEqual, "张三")}), "(a.fUser<>'张三' Or a.fUser is Null)");
    EXPECT_EQ(Where({Make("taskID", NotEqual, "3")}), "(a.taskID<>3 Or a.taskID is Null)");
    EXPECT_EQ(Where({Make("fUser", Empty)}), "(a.fUser is Null Or a.fUser='')");
    EXPECT_EQ(Where({Make("fUser", NotEmpty)}), "a.fUser<>''");
}

TEST(WhereText, OfDatesComparesWholeDays) {
    EXPECT_EQ(Where({Make("taskTime", Equal)}),
              "(a.taskTime>=#2003-03-07# And a.taskTime<#2003-03-08#)");
    EXPECT_EQ(Where({Make("taskTime", NotEqual)}),
              "(a.taskTime<#2003-03-07# Or a.taskTime>=#2003-03-08# Or a.taskTime is Null)");
    EXPECT_EQ(Where({Make("taskTime", Less)}), "a.taskTime<#2003-03-07#");
    EXPECT_EQ(Where({Make("taskTime", LessOrEqual)}), "a.taskTime<#2003-03-08#");
    EXPECT_EQ(Where({Make("taskTime", Greater)}), "a.taskTime>=#2003-03-08#");
    EXPECT_EQ(Where({Make("taskTime", GreaterOrEqual)}), "a.taskTime>=#2003-03-07#");
    EXPECT_EQ(Where({Make("taskTime", Empty)}), "a.taskTime is Null");
    EXPECT_EQ(Where({Make("taskTime", NotEmpty)}), "a.taskTime is not Null");
}

TEST(WhereText, OfKindsAndStatesComparesTheirNumbers) {
    EXPECT_EQ(Where({Make("tDone", Equal)}), "a.tDone=2");
    EXPECT_EQ(Where({Make("fType", NotEqual)}), "(a.fType<>2 Or a.fType is Null)");
}

TEST(WhereText, CombinesFromTheFirstToTheLast) {
    const Condition a = Make("fUser", Equal, "1");
    const Condition b = Make("fUser", Equal, "2");
    const Condition c = Make("fUser", Equal, "3");
    EXPECT_EQ(Where({a, b, c}), "a.fUser='1' And a.fUser='2' And a.fUser='3'");
    EXPECT_EQ(Where({a, OrElse(b), c}), "((a.fUser='1' Or a.fUser='2') And a.fUser='3')");
    EXPECT_EQ(Where({a, b, OrElse(c)}), "((a.fUser='1' And a.fUser='2') Or a.fUser='3')");
}

TEST(WhereText, WithAnOrBindsLikeOneCondition) {
    EXPECT_EQ(Where({Make("fUser", Equal, "1"), OrElse(Make("fUser", Equal, "2"))}),
              "(a.fUser='1' Or a.fUser='2')");
}

TEST(WhereText, TheFirstJoinMeansNothing) {
    EXPECT_EQ(Where({OrElse(Make("fUser", Equal, "1")), Make("fUser", Equal, "2")}),
              "a.fUser='1' And a.fUser='2'");
}

TEST(WhereText, OfTheLastDayOfTheCalendarNamesNoDayBehindIt) {
    const auto where = [](Comparison comparison) {
        Condition condition = Make("taskTime", comparison);
        condition.date = DateTime::LastDay();
        return Where({condition});
    };
    EXPECT_EQ(where(Equal), "a.taskTime>=#9999-12-31#");
    EXPECT_EQ(where(GreaterOrEqual), "a.taskTime>=#9999-12-31#");
    EXPECT_EQ(where(Less), "a.taskTime<#9999-12-31#");
    EXPECT_EQ(where(LessOrEqual), "a.taskTime is not Null");
    EXPECT_EQ(where(Greater), "(a.taskTime is Null And a.taskTime is not Null)");
    EXPECT_EQ(where(NotEqual), "(a.taskTime<#9999-12-31# Or a.taskTime is Null)");
}

}  // namespace
}  // namespace zv::items
