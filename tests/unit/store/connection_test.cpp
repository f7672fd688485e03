#include <gtest/gtest.h>

#include "database_fixture.h"

namespace zv::store {
namespace {

class SqliteConnectionTest : public DatabaseTest {};

TEST_F(SqliteConnectionTest, CountsRowsThatAStatementChanged) {
    EXPECT_EQ(connection_->Execute("insert into tTaskList(taskTitle) values('a')"), 1);
    EXPECT_EQ(connection_->Execute("insert into tTaskList(taskTitle) values('b')"), 1);
    EXPECT_EQ(connection_->Execute("Update tTaskList Set tDone=1,tDoneMan = 'x' where fID =7"), 0);
    EXPECT_EQ(connection_->Execute("delete from tTaskList"), 2);
}

TEST_F(SqliteConnectionTest, YieldsDatesOfDateColumns) {
    Execute("insert into tTaskList(taskTime,tDuring1) values(#03/07/2003#,#03/05/2003 10:30:00#)");
    const auto rows = Read("select taskTime,tDuring1 as begin1,tDuring2 from tTaskList");
    EXPECT_EQ(rows->Field(0), Value(DateTime(2003, 3, 7)));
    EXPECT_EQ(rows->Field("BEGIN1"), Value(DateTime(2003, 3, 5, 10, 30)));
    EXPECT_TRUE(rows->Field("tDuring2").IsNull());
}

}  // namespace
}  // namespace zv::store
