#include "report/item_values.h"

#include <gtest/gtest.h>

#include "report/report_texts.h"

namespace zv::report {
namespace {

using store::Value;

TEST(PrintedValue, KindsAndStatesHaveTheirNames) {
    EXPECT_EQ(PrintedValue("fType", Value(0), 0), "任务");
    EXPECT_EQ(PrintedValue("ftype", Value(1), 1), "客戶拜訪");
    EXPECT_EQ(PrintedValue("fType", Value(2), 0), "工作日志");
    EXPECT_EQ(PrintedValue("tDone", Value(0), 0), "未完成");
    EXPECT_EQ(PrintedValue("tDone", Value(2), 1), "辦理中");
    EXPECT_EQ(PrintedValue("TDONE", Value(1), 0), "已完成");
}

TEST(PrintedValue, AnUnknownKindPrintsItsNumber) {
    EXPECT_EQ(PrintedValue("fType", Value(9), 0), "9");
}

TEST(PrintedValue, DatesPrintWithoutATimeAtMidnight) {
    EXPECT_EQ(PrintedValue("taskTime", Value(DateTime(2003, 3, 7)), 0), "2003-03-07");
    EXPECT_EQ(PrintedValue("taskTime", Value(DateTime(2003, 3, 7, 9, 30)), 0), "2003-03-07 09:30");
}

TEST(PrintedValue, NullIsEmpty) {
    EXPECT_EQ(PrintedValue("taskTitle", Value(), 0), "");
    EXPECT_EQ(PrintedValue("fType", Value(), 0), "");
}

TEST(FormatReportText, FillsInWhatStandsInBraces) {
    EXPECT_EQ(FormatReportText(ReportText::PageOf, 1, "2", "10"), "第 2/10 頁");
    EXPECT_EQ(FormatReportText(ReportText::PrintedBy, 0, "{1}", "x"), "打印人：{1}");
}

}  // namespace
}  // namespace zv::report
