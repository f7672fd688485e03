#include "items/asked_words.h"

#include <gtest/gtest.h>

#include "items/names.h"

namespace zv::items {
namespace {

constexpr std::int16_t kSimplified = 0;
constexpr std::int16_t kTraditional = 1;

std::string Heading(std::string_view column) {
    return "[" + std::string(column) + "]";
}

TEST(DescribeFilter, NamesThePeriodInAnyCase) {
    Filter filter;
    EXPECT_EQ(DescribeFilter(filter, kSimplified), "日期：不限");
    filter.from = DateTime(2003, 3, 1);
    EXPECT_EQ(DescribeFilter(filter, kSimplified), "日期：2003-03-01 当天");
    filter.until = DateTime(2003, 3, 31);
    EXPECT_EQ(DescribeFilter(filter, kSimplified), "日期：2003-03-01 至 2003-03-31");
    filter.from.reset();
    EXPECT_EQ(DescribeFilter(filter, kSimplified), "日期：至 2003-03-31");
}

TEST(DescribeFilter, NamesEverythingThatNarrowsTheList) {
    Filter filter;
    filter.kinds = {true, true, false};
    filter.title = " 合同 ";
    filter.content = "报_";
    filter.doer = "张三";
    filter.user = "O'Neil";
    filter.guest = "王";
    filter.company = "天地";
    filter.states = Filter::States::NotYetDone;
    EXPECT_EQ(DescribeFilter(filter, kSimplified),
              "日期：不限；类型：任务、客户拜访；主题：含“合同”；内容：符合“报_”；执行人：张三；"
              "设置人：O'Neil；联系人：含“王”；客户：含“天地”；状况：未办结");
    filter = {};
    filter.states = Filter::States::Done;
    filter.title = "合同";
    EXPECT_EQ(DescribeFilter(filter, kTraditional), "日期：不限；任務名：含「合同」；狀況：已完成");
}

TEST(DescribeFilter, WhatNarrowsNothingIsNotNamed) {
    Filter filter;
    filter.title = "*";
    filter.content = "  ";
    filter.company = "%";
    EXPECT_EQ(DescribeFilter(filter, kSimplified), "日期：不限");
    filter.kinds = {false, false, false};
    EXPECT_EQ(DescribeFilter(filter, kSimplified), "日期：不限；类型：-");
}

TEST(DescribeCriteria, SaysThatNothingWasAskedFor) {
    EXPECT_EQ(DescribeCriteria({}, Heading, kSimplified), "[taskTime]：不限；全部记录");
    EXPECT_EQ(DescribeCriteria({}, Heading, kTraditional), "[taskTime]：不限；全部記錄");
}

TEST(DescribeCriteria, NamesEveryCriterionUnderItsHeading) {
    AskCriteria criteria;
    criteria.user = "张";
    criteria.type = 1;
    criteria.title = "100%";
    criteria.dates = {DateTime(2003, 3, 1), DateTime(2003, 3, 31)};
    criteria.state = 2;
    criteria.doneMan = "李";
    EXPECT_EQ(DescribeCriteria(criteria, Heading, kSimplified),
              "[taskTime]：2003-03-01 至 2003-03-31；[fUser]：含“张”；[fType]：客户拜访；"
              "[taskTitle]：含“100%”；[tDone]：办理中；[tDoneMan]：含“李”");
}

TEST(DescribeCriteria, AKindThatNobodyChoseIsADash) {
    AskCriteria criteria;
    criteria.type = -1;
    EXPECT_EQ(DescribeCriteria(criteria, Heading, kSimplified), "[taskTime]：不限；[fType]：-");
}

TEST(DescribeCriteria, AKindOrAStateBehindTheLastIsADash) {
    AskCriteria criteria;
    criteria.type = static_cast<int>(KindNames(kSimplified).size());
    criteria.state = static_cast<int>(StateNames(kSimplified).size());
    EXPECT_EQ(DescribeCriteria(criteria, Heading, kSimplified),
              "[taskTime]：不限；[fType]：-；[tDone]：-");
}

}  // namespace
}  // namespace zv::items
