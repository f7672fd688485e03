#include "report/list_rows.h"

#include <gtest/gtest.h>

namespace zv::report {
namespace {

TEST(ListStatement, JoinsFilterAndOrder) {
    EXPECT_EQ(ListStatement("fType=1", "a.taskTitle"),
              "select * from tTaskList a where fType=1 Order By a.taskTitle");
    EXPECT_EQ(ListStatement("", ""), "select * from tTaskList a ");
    EXPECT_EQ(ListStatement("", "a.fID"), "select * from tTaskList a Order By a.fID");
}

}  // namespace
}  // namespace zv::report
