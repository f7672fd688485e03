#include "report/csv_export.h"

#include <gtest/gtest.h>

#include "doubles/memory_file.h"
#include "report_stage.h"

namespace zv::report {
namespace {

constexpr char kMark[] = "\xEF\xBB\xBF";

TEST(WriteCsv, ATableIsHeadingsAndRows) {
    doubles::MemoryFile file;
    Document document = ListOf(1);
    document.table.rows[0][1] = "甲, 乙";
    WriteCsv(document, file);
    EXPECT_EQ(file.bytes,
              std::string(kMark) + "编号,主题,日期,执行人\r\n1,\"甲, 乙\",2003-03-07,李四\r\n");
}

TEST(WriteCsv, AnItemIsARowForEachField) {
    doubles::MemoryFile file;
    WriteCsv(ItemOf({{"TaskTitle", "主题", "拜访"}, {"", "备注", ""}}), file);
    EXPECT_EQ(file.bytes, std::string(kMark) + "主题,拜访\r\n备注,\r\n");
}

TEST(CsvExport, GoesOnInPieces) {
    doubles::MemoryFile whole;
    const Document document = ListOf(2000);
    WriteCsv(document, whole);
    doubles::MemoryFile file;
    CsvExport csv(document, file);
    EXPECT_TRUE(csv.WriteRows(1500));
    EXPECT_EQ(csv.Done(), 1500u);
    EXPECT_FALSE(csv.WriteRows(1500));
    EXPECT_EQ(csv.Done(), csv.RowCount());
    EXPECT_EQ(file.bytes, whole.bytes);
}

}  // namespace
}  // namespace zv::report
