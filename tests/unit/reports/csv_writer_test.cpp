#include "reports/csv_writer.h"

#include <gtest/gtest.h>

#include <vector>

#include "doubles/memory_file.h"

namespace zv::reports {
namespace {

std::string Written(const std::vector<std::vector<std::string>>& rows) {
    doubles::MemoryFile sink;
    CsvWriter writer(sink);
    for (const auto& row : rows) {
        for (const std::string& field : row) writer.Field(field);
        writer.EndRow();
    }
    writer.Flush();
    EXPECT_TRUE(sink.bytes.starts_with("\xEF\xBB\xBF"));
    return sink.bytes.substr(3);
}

TEST(CsvWriter, AnEmptyFileHoldsTheByteOrderMark) {
    EXPECT_EQ(Written({}), "");
}

TEST(CsvWriter, SeparatesFieldsByCommasAndEndsRowsWithCrLf) {
    EXPECT_EQ(Written({{"日期", "主题"}, {"2003-03-07", "报表"}}),
              "日期,主题\r\n2003-03-07,报表\r\n");
}

TEST(CsvWriter, KeepsEmptyFields) {
    EXPECT_EQ(Written({{"", "", ""}, {"a", "", ""}}), ",,\r\na,,\r\n");
}

TEST(CsvWriter, QuotesSeparatorsQuotesAndLineBreaks) {
    EXPECT_EQ(Written({{"a,b", "a\"b", "a\nb", "a\r\nb", "\"", "a b"}}),
              "\"a,b\",\"a\"\"b\",\"a\nb\",\"a\r\nb\",\"\"\"\",a b\r\n");
}

TEST(CsvWriter, DisarmsWhatASpreadsheetWouldCompute) {
    EXPECT_EQ(Written({{"=1+2", "+86 10 1234", "-x", "@SUM(A1)", "\tx"}}),
              "'=1+2,'+86 10 1234,'-x,'@SUM(A1),'\tx\r\n");
    EXPECT_EQ(Written({{"=HYPERLINK(\"x\",\"y\")", "\rx"}}),
              "\"'=HYPERLINK(\"\"x\"\",\"\"y\"\")\",\"'\rx\"\r\n");
}

TEST(CsvWriter, DisarmsALineFeedAndFullWidthSigns) {
    EXPECT_EQ(Written({{"\n=1", "＝1+2", "＋1", "－x", "＠SUM(A1)"}}),
              "\"'\n=1\",'＝1+2,'＋1,'－x,'＠SUM(A1)\r\n");
}

TEST(CsvWriter, LeavesPlainNumbersAlone) {
    EXPECT_EQ(Written({{"-5", "+5", "-0.50", "-.5", "a=b"}}), "-5,+5,-0.50,-.5,a=b\r\n");
    EXPECT_EQ(Written({{"-", "+.", "-1.2.3", "-1e5"}}), "'-,'+.,'-1.2.3,'-1e5\r\n");
}

TEST(CsvWriter, HandsOverLargePieces) {
    doubles::MemoryFile sink;
    CsvWriter writer(sink);
    for (int row = 0; row < 20000; row++) {
        writer.Field("0123456789");
        writer.EndRow();
    }
    writer.Flush();
    EXPECT_EQ(sink.bytes.size(), 3U + 20000U * 12U);
    EXPECT_LT(sink.pieces, 10);
    EXPECT_FALSE(sink.committed);
}

TEST(CsvWriter, KeepsATextOfAnyLengthWhole) {
    const std::string text(100000, 'x');
    EXPECT_EQ(Written({{text, "y"}}), text + ",y\r\n");
}

}  // namespace
}  // namespace zv::reports
