#include "items/criteria.h"

#include <gtest/gtest.h>

namespace zv::items {
namespace {

constexpr std::string_view kEnd = " order by taskTime desc,taskTitle";

std::string Asked(const AskCriteria& criteria, char delimiter = '#') {
    std::string sql = AskStatement(criteria, delimiter);
    constexpr std::string_view kBegin = "select * from tTaskList where ";
    EXPECT_TRUE(sql.starts_with(kBegin)) << sql;
    EXPECT_TRUE(sql.ends_with(kEnd)) << sql;
    return sql.substr(kBegin.size(), sql.size() - kBegin.size() - kEnd.size());
}

TEST(AskStatement, WithoutCriteriaFindsAll) {
    EXPECT_EQ(Asked({}), "1=1");
}

TEST(AskStatement, KeepsTheCapitalsAndBlanksOfEachCriterion) {
    AskCriteria criteria;
    criteria.user = "李";
    EXPECT_EQ(Asked(criteria), "1=1 And fUser like '%李%'");
    criteria = {};
    criteria.type = 2;
    EXPECT_EQ(Asked(criteria), "1=1 And fType =2");
    criteria = {};
    criteria.title = "报";
    EXPECT_EQ(Asked(criteria), "1=1 and taskTitle like '%报%'");
    criteria = {};
    criteria.state = 0;
    EXPECT_EQ(Asked(criteria), "1=1 and tDone= 0");
    criteria = {};
    criteria.doneMan = "";
    EXPECT_EQ(Asked(criteria), "1=1 and tDoneMan like '%%'");
}

TEST(AskStatement, BracketsDatesAsTheDatabaseWantsThem) {
    AskCriteria criteria;
    criteria.dates = {DateTime(2003, 3, 7), DateTime(2003, 12, 31)};
    EXPECT_EQ(Asked(criteria), "1=1 and taskTime between #03/07/2003# and #12/31/2003#");
    EXPECT_EQ(Asked(criteria, '\''), "1=1 and taskTime between '03/07/2003' and '12/31/2003'");
}

TEST(AskStatement, TakesTextsAsTheyWereTyped) {
    AskCriteria criteria;
    criteria.title = " a'b%_* ";
    EXPECT_EQ(Asked(criteria), "1=1 and taskTitle like '% a'b%_* %'");
}

TEST(AskStatement, JoinsAllInOrder) {
    AskCriteria criteria;
    criteria.doneMan = "d";
    criteria.state = 1;
    criteria.dates = {DateTime(2003, 3, 7), DateTime(2003, 3, 7)};
    criteria.title = "t";
    criteria.type = 0;
    criteria.user = "u";
    EXPECT_EQ(Asked(criteria),
              "1=1 And fUser like '%u%' And fType =0 and taskTitle like '%t%' and taskTime between "
              "#03/07/2003# and #03/07/2003# and tDone= 1 and tDoneMan like '%d%'");
}

}  // namespace
}  // namespace zv::items
