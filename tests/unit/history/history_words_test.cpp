#include "windows/history/history_words.h"

#include <gtest/gtest.h>

#include "items/item_row.h"
#include "plans/plan_row.h"

namespace zv::windows {
namespace {

changes::Record Of(const std::string& table, const std::string& field) {
    changes::Record record;
    record.table = table;
    record.field = field;
    return record;
}

TEST(HistoryWords, EachActHasItsNameAndAnythingElseItsNumber) {
    EXPECT_EQ(ActName(1, 0), "新增");
    EXPECT_EQ(ActName(7, 0), "恢复");
    EXPECT_EQ(ActName(7, 1), "還原");
    EXPECT_EQ(ActName(0, 0), "0");
    EXPECT_EQ(ActName(8, 0), "8");
}

TEST(HistoryWords, AFieldIsCalledAsTheWindowsCallIt) {
    EXPECT_EQ(FieldName(Of("tTaskList", "TASKTITLE"), 0), "主题");
    EXPECT_EQ(FieldName(Of("tTaskList", "tDuring1"), 0), "tDuring1") << "no window shows it";
    EXPECT_EQ(FieldName(Of("tTaskSet", "taskTitle"), 0), "taskTitle");
    EXPECT_EQ(FieldName(Of("tTaskList", "other"), 0), "other");
}

TEST(HistoryWords, KindsAndStatesAreNamedAndMidnightIsLeftOut) {
    EXPECT_EQ(ShownValue(Of("tTaskList", "tDone"), "1", 0), "已完成");
    EXPECT_EQ(ShownValue(Of("tTaskList", "tDone"), "9", 0), "9");
    EXPECT_EQ(ShownValue(Of("tTaskList", "tDone"), "", 0), "");
    EXPECT_EQ(ShownValue(Of("tTaskList", "fType"), "0", 0), "任务");
    EXPECT_EQ(ShownValue(Of("tTaskList", "taskTime"), "2003-03-07 00:00:00", 0), "2003-03-07");
    EXPECT_EQ(ShownValue(Of("tTaskList", "taskTime"), "2003-03-07 14:00:00", 0),
              "2003-03-07 14:00:00");
    EXPECT_EQ(ShownValue(Of("tTaskSet", "tbegin"), "2003-03-07 00:00:00", 0), "2003-03-07");
    EXPECT_EQ(ShownValue(Of("tTaskList", "fContent"), "1", 0), "1");
}

TEST(HistoryWords, AWholeRowIsShownByItsTitle) {
    EXPECT_EQ(ShownValue(Of("tTaskList", ""), "fType=0\ntaskTitle=报表", 0), "报表");
    EXPECT_EQ(ShownValue(Of("tTaskSet", ""), "taskTitle=计划", 0), "计划");
    EXPECT_EQ(ShownValue(Of("cards", ""), "taskTitle=x", 0), "");
    EXPECT_EQ(ShownValue(Of("tTaskList", ""), "", 0), "");
}

TEST(HistoryWords, ADeletedRowKnowsItsTableAndKind) {
    changes::Record record = Of("TTASKLIST", "");
    record.row = 5;
    record.before = "fType=1\ntaskTitle=拜访";
    const changes::RowChange item = Deleted(record);
    EXPECT_EQ(item.table, &items::ItemTable());
    EXPECT_EQ(item.row, 5);
    EXPECT_FALSE(item.after);
    EXPECT_EQ(KindOf(item, 0), "客户拜访");
    record.before = "taskTitle=x";
    EXPECT_EQ(KindOf(Deleted(record), 0), "任务") << "no kind is a task";
    record.table = "tTaskSet";
    EXPECT_EQ(KindOf(Deleted(record), 0), "事件");
    record.table = "cards";
    EXPECT_EQ(Deleted(record).table, nullptr);
}

}  // namespace
}  // namespace zv::windows
