#include "items/list_query.h"

#include <gtest/gtest.h>

namespace zv::items {
namespace {

constexpr const char* kSelect =
    "select distinct a.fID,a.fType,a.taskTime,a.taskTitle,a.tDone,a.taskID from tTaskList a ";

TEST(ListItems, WithoutAConditionTakesEverything) {
    for (const char* where : {"", "1=1"}) {
        const ListQuery query = ListItems(where, false, Order::ByDate, 0);
        EXPECT_EQ(query.statement,
                  std::string(kSelect) + " Order by a.fType,a.taskTime desc,a.taskTitle");
        EXPECT_EQ(query.condition, "");
    }
}

TEST(ListItems, QualifiesTheFieldsOfAConditionWithoutTables) {
    const ListQuery query = ListItems("fType=2", false, Order::ByTitle, 0);
    EXPECT_EQ(query.condition, "a.fType=2");
    EXPECT_EQ(query.order, "a.fType,a.taskTitle,a.taskTime desc");
}

TEST(ListItems, AConditionOnCardsIsAskedOfTheItemsAlone) {
    const ListQuery query = ListItems(" Where b.CompName like '%x%'", true, Order::ByPlan, 0);
    EXPECT_EQ(query.statement, std::string(kSelect) +
                                   " Left Join cards b on a.taskID=b.fID  Where b.CompName like "
                                   "'%x%' Order by a.fType,a.taskID,a.taskTime desc,a.taskTitle");
    EXPECT_EQ(query.condition,
              "a.fID in (select a.fID from tTaskList a  Left Join cards b on a.taskID=b.fID  Where "
              "b.CompName like '%x%')");
}

TEST(OrderOf, AnyOtherRowIsTheLast) {
    EXPECT_EQ(OrderOf(0), Order::ByDate);
    EXPECT_EQ(OrderOf(1), Order::ByTitle);
    EXPECT_EQ(OrderOf(2), Order::ByPlan);
    EXPECT_EQ(OrderOf(-1), Order::ByPlan);
}

}  // namespace
}  // namespace zv::items
