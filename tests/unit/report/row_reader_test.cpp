#include "report/row_reader.h"

#include <gtest/gtest.h>

#include "doubles/memory_file.h"
#include "report/csv_export.h"
#include "report_stage.h"

namespace zv::report {
namespace {

using store::Value;

const DateTime kToday(2003, 3, 7);

Table Read(const std::vector<std::string>& fields, const std::vector<std::vector<Value>>& rows,
           std::int16_t language = 0) {
    Table table;
    for (const std::string& field : fields) table.columns.push_back({field});
    RowReader reader(table, fields, kToday, language);
    for (const auto& row : rows) reader.Add(row);
    return table;
}

Value Day(int day, int hour = 0) {
    return Value(DateTime(2003, 3, day, hour, 0, 0));
}

TEST(RowReader, WhatIsOverdueOrDueTodaySaysSoBesideItsState) {
    const Table table =
        Read({"taskTitle", "tDone", "taskTime"}, {{Value("甲"), Value(0), Day(4, 9)},
                                                  {Value("乙"), Value(2), Day(7, 23)},
                                                  {Value("丙"), Value(0), Day(8)},
                                                  {Value("丁"), Value(1), Day(1)}});
    EXPECT_EQ(table.Printed(0, 1), "未完成  逾期 3 天");
    EXPECT_EQ(table.Printed(1, 1), "办理中  今天");
    EXPECT_EQ(table.Printed(2, 1), "未完成");
    EXPECT_EQ(table.Printed(3, 1), "已完成");
    EXPECT_EQ(table.Printed(0, 0), "甲");
    EXPECT_EQ(table.rows[0][1], "未完成");
}

TEST(RowReader, BothScriptsSayIt) {
    EXPECT_EQ(Read({"TDONE", "TaskTime"}, {{Value(0), Day(6)}}, 1).Printed(0, 0),
              "未完成  逾期 1 天");
}

TEST(RowReader, ARowWithoutStateOrTimeSaysNothing) {
    EXPECT_TRUE(Read({"taskTitle", "taskTime"}, {{Value("甲"), Day(1)}}).signs.empty());
    EXPECT_TRUE(Read({"tDone"}, {{Value(0)}}).signs.empty());
    const Table odd = Read({"tDone", "taskTime"}, {{Value(), Day(1)},
                                                   {Value(7), Day(1)},
                                                   {Value("x"), Day(1)},
                                                   {Value(0), Value()},
                                                   {Value(0), Value("bald")}});
    EXPECT_EQ(odd.signs, std::vector<std::string>(5));
    EXPECT_EQ(odd.Printed(1, 0), "7");
}

TEST(RowReader, SignsStandOnPagesAndInNoFile) {
    Document document = ListOf(0);
    document.table = Read({"tDone", "taskTime"}, {{Value(0), Day(4)}});
    const Layout layout(document, TestFonts());
    EXPECT_EQ(CountOf(TextOf(layout.MakePage(1)), "未完成  逾期 3 天"), 1);
    doubles::MemoryFile file;
    WriteCsv(document, file);
    EXPECT_EQ(CountOf(file.bytes, "未完成"), 1);
    EXPECT_EQ(CountOf(file.bytes, "逾期"), 0);
}

}  // namespace
}  // namespace zv::report
