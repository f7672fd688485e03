// Marking an item, on every engine.
#include "items/item_store.h"
#include "watched_database.h"

namespace zv::items {
namespace {

class MarkingAnItem : public store::WatchedDatabaseTest {
 protected:
    bool Mark(std::int32_t id, std::int16_t state, std::string_view doer) {
        return items::Mark(database_, id, state, doer);
    }
};

ZV_ON_EVERY_ENGINE(MarkingAnItem);

TEST_P(MarkingAnItem, SendsExactlyThisStatement) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fID,taskTitle) values(5,'x')");
    EXPECT_TRUE(Mark(5, 2, "张三"));
    EXPECT_EQ(log_.lines.back(), "Update tTaskList Set tDone=2,tDoneMan = '张三' where fID =5");
    EXPECT_EQ(Rows("select tDone,tDoneMan from tTaskList"), "2|张三");
}
TEST_P(MarkingAnItem, SendsNothingForTheNumberZero) {
    database_.EnsureConnection();
    EXPECT_FALSE(Mark(0, 1, "x"));
    EXPECT_TRUE(log_.lines.empty());
}
TEST_P(MarkingAnItem, TakesAnUnknownItemAsMarked) {
    database_.EnsureConnection();
    EXPECT_TRUE(Mark(77, 1, "x"));
}
TEST_P(MarkingAnItem, KeepsANameWithAnApostropheOutOfTheStatement) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fID,taskTitle) values(5,'x')");
    EXPECT_TRUE(Mark(5, 1, "O'Brien"));
    EXPECT_FALSE(database_.ChangedNothing());
    EXPECT_EQ(log_.lines, std::vector<std::string>{"select * from tTaskList where fID=5"});
    EXPECT_EQ(log_.rows, 1);
    EXPECT_EQ(Rows("select taskTitle,tDone,tDoneMan from tTaskList"), "x|1|O'Brien");
}
TEST_P(MarkingAnItem, ReportsThatNoRowWasChangedEitherWay) {
    database_.EnsureConnection();
    EXPECT_TRUE(Mark(77, 1, "x"));
    EXPECT_TRUE(database_.ChangedNothing());
    EXPECT_TRUE(Mark(77, 1, "O'Brien"));
    EXPECT_TRUE(database_.ChangedNothing());
}

TEST_P(MarkingAnItem, SendsTheStatementUpToSixteenBits) {
    database_.EnsureConnection();
    EXPECT_TRUE(Mark(32767, 1, "x"));
    EXPECT_EQ(log_.lines.back(), "Update tTaskList Set tDone=1,tDoneMan = 'x' where fID =32767");
}
TEST_P(MarkingAnItem, GoesThroughARecordsetBeyondSixteenBits) {
    database_.EnsureConnection();
    Execute("insert into tTaskList(fID,taskTitle) values(32768,'x')");
    EXPECT_TRUE(Mark(32768, 2, "张三"));
    EXPECT_FALSE(database_.ChangedNothing());
    EXPECT_EQ(log_.lines, std::vector<std::string>{"select * from tTaskList where fID=32768"});
    EXPECT_EQ(Rows("select taskTitle,tDone,tDoneMan from tTaskList"), "x|2|张三");
}
TEST_P(MarkingAnItem, ReportsThatAGreatItemIsGone) {
    database_.EnsureConnection();
    EXPECT_TRUE(Mark(70000, 1, "x"));
    EXPECT_TRUE(database_.ChangedNothing());
    EXPECT_EQ(log_.rows, 0);
}
TEST_P(MarkingAnItem, OpensNothingForTheNumberZero) {
    database_.EnsureConnection();
    EXPECT_FALSE(Mark(0, 1, "O'Brien"));
    EXPECT_TRUE(log_.lines.empty());
}
TEST_P(MarkingAnItem, WritesTheNumberOfAState) {
    database_.EnsureConnection();
    EXPECT_TRUE(items::Mark(database_, 5, ItemState::InHand, "x"));
    EXPECT_EQ(log_.lines.back(), "Update tTaskList Set tDone=2,tDoneMan = 'x' where fID =5");
}

}  // namespace
}  // namespace zv::items
