#include "report/csv_export.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "doubles/memory_file.h"
#include "platform/scripted/scripted_machine.h"
#include "report/saving.h"
#include "report_stage.h"
#include "temporary_folder.h"

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

TEST(CsvSaving, SaysHowFarItIsAndEndsWithAWholeFile) {
    const test::TemporaryFolder folder;
    platform::scripted::ScriptedFiles files(folder.Path());
    doubles::MemoryFile whole;
    const Document document = ListOf(12000);
    WriteCsv(document, whole);
    CsvSaving saving(document, files.Create("a.csv"));
    EXPECT_EQ(saving.Percent(), 0);
    std::vector<int> seen;
    while (saving.Continue()) seen.push_back(saving.Percent().value());
    ASSERT_FALSE(seen.empty());
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_GT(seen.front(), 0);
    EXPECT_LT(seen.back(), 100);
    EXPECT_EQ(saving.Percent(), 100);
    EXPECT_EQ(std::filesystem::file_size(folder / "a.csv"), whole.bytes.size());
}

}  // namespace
}  // namespace zv::report
