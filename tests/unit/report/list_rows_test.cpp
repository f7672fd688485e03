#include "report/list_rows.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "base/path.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"
#include "temporary_folder.h"

namespace zv::report {
namespace {

TEST(ListStatement, JoinsFilterAndOrder) {
    EXPECT_EQ(ListStatement("fType=1", "a.taskTitle"),
              "select * from tTaskList a where fType=1 Order By a.taskTitle");
    EXPECT_EQ(ListStatement("", ""), "select * from tTaskList a ");
    EXPECT_EQ(ListStatement("", "a.fID"), "select * from tTaskList a Order By a.fID");
}

/// Two items, of which the first is overdue.
class ReadingRows : public testing::Test {
 protected:
    ReadingRows() {
        const std::string file = Utf8Of(folder_ / "t.db");
        store::CreateSqliteDatabase(file);
        connection_ = store::OpenSqlite(file);
        connection_->Execute(
            "insert into tTaskList(taskTitle,taskTime,tDone) values('甲',#03/04/2003#,0)");
        connection_->Execute(
            "insert into tTaskList(taskTitle,taskTime,tDone) values('乙',#03/09/2003#,1)");
    }
    Table Read(const std::string& sql, const std::vector<Heading>& columns) {
        const auto rows =
            connection_->Open(sql, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
        return ReadRows(*rows, columns, {2003, 3, 7}, 0);
    }

 private:
    const test::TemporaryFolder folder_;
    std::unique_ptr<store::Connection> connection_;
};

TEST_F(ReadingRows, TakesTheColumnsThatAreAskedForInTheirOrder) {
    const Table table = Read(ListStatement("", "a.fID"),
                             {{"状况", "tDone"}, {"主题", "taskTitle"}, {"时间", "taskTime"}});
    ASSERT_EQ(table.rows.size(), 2U);
    ASSERT_EQ(table.columns.size(), 3U);
    EXPECT_EQ(table.columns[1].heading, "主题");
    EXPECT_EQ(table.rows[0][1], "甲");
    EXPECT_EQ(table.rows[1][1], "乙");
    EXPECT_EQ(table.Printed(0, 0), "未完成  逾期 3 天");
    EXPECT_EQ(table.Printed(1, 0), table.rows[1][0]);
}
TEST_F(ReadingRows, WithoutColumnsTakesAllFieldsUnderTheirOwnNames) {
    const Table table = Read("select taskTitle,fID from tTaskList order by fID desc", {});
    ASSERT_EQ(table.columns.size(), 2U);
    EXPECT_EQ(table.columns[0].heading, "taskTitle");
    EXPECT_EQ(table.columns[1].heading, "fID");
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(table.rows[0], (std::vector<std::string>{"乙", "2"}));
}
TEST_F(ReadingRows, RefusesAColumnThatTheyDoNotHave) {
    EXPECT_THROW(Read("select taskTitle from tTaskList", {{"主题", "taskTitle"}, {"x", "other"}}),
                 RuntimeError);
}

}  // namespace
}  // namespace zv::report
