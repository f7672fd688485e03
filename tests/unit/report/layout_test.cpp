#include "report/layout.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "report/styles.h"
#include "report_stage.h"

namespace zv::report {
namespace {

std::string LongText(int characters) {
    std::string text;
    for (int i = 0; i < characters; i++) text += "字";
    return text;
}

TEST(Layout, TheFirstPageCarriesTheHeading) {
    const Document document = ListOf(3);
    const Layout layout(document, TestFonts());
    const std::string text = TextOf(layout.MakePage(1));
    for (const char* part :
         {"塔尔内尔贸易有限公司\n", "任务列表\n", "2003-03-01 -- 2003-03-31\n",
          "打印日期：2003-03-07\n", "打印人：张三\n", "第 1 页，共 1 页\n", "共 3 条记录\n"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part;
    }
}

TEST(Layout, TheFooterSpeaksTheJobsLanguage) {
    Document document = ListOf(3);
    document.language = 1;
    const Layout layout(document, TestFonts());
    const std::string text = TextOf(layout.MakePage(1));
    EXPECT_NE(text.find("第 1 頁，共 1 頁"), std::string::npos);
    EXPECT_NE(text.find("列印日期：2003-03-07"), std::string::npos);
}

TEST(Layout, EveryPageHasItsNumberAndTheColumnHeadings) {
    const Document document = ListOf(1000);
    const Layout layout(document, TestFonts());
    ASSERT_GT(layout.PageCount(), 10);
    for (int number = 1; number <= layout.PageCount(); number++) {
        const std::string text = TextOf(layout.MakePage(number));
        const std::string footer = "第 " + std::to_string(number) + " 页，共 " +
                                   std::to_string(layout.PageCount()) + " 页\n";
        EXPECT_EQ(CountOf(text, footer), 1) << number;
        EXPECT_EQ(CountOf(text, "执行人\n"), 1) << number;
    }
}

TEST(Layout, EveryRowStandsOnceAndInOrder) {
    const Document document = ListOf(1000);
    const Layout layout(document, TestFonts());
    int next = 1;
    for (int number = 1; number <= layout.PageCount(); number++) {
        for (const TextRun& run : layout.MakePage(number).texts) {
            if (run.text.rfind("拜访客户", 0) != 0) continue;
            EXPECT_EQ(run.text, "拜访客户 Nr. " + std::to_string(next++));
        }
    }
    EXPECT_EQ(next, 1001);
}

TEST(Layout, LaterPagesCarryCompanyAndTitle) {
    const Document document = ListOf(200);
    const Layout layout(document, TestFonts());
    const std::string text = TextOf(layout.MakePage(2));
    EXPECT_NE(text.find("塔尔内尔贸易有限公司\n"), std::string::npos);
    EXPECT_NE(text.find("任务列表\n"), std::string::npos);
}

TEST(Layout, NothingLeavesThePagesMargins) {
    Document document = ListOf(300);
    document.title = LongText(300);
    document.company = LongText(300);
    document.user = LongText(100);
    document.table.rows[7][1] = LongText(3000);
    document.table.rows[9][3] = std::string(400, 'w');
    const Layout layout(document, TestFonts());
    for (int number = 1; number <= layout.PageCount(); number++) {
        const Page page = layout.MakePage(number);
        for (const TextRun& run : page.texts) {
            EXPECT_GE(run.x, style::kMargin - 0.1);
            EXPECT_LE(run.x + TestFonts().Width(run.text, run.size),
                      page.width - style::kMargin + 0.1)
                << run.text;
            EXPECT_GE(run.baseline - run.size, style::kMargin - 3);
            EXPECT_LE(run.baseline, page.height - style::kMargin + 3);
        }
    }
}

TEST(Layout, RowsDoNotReachIntoTheFooter) {
    const Document document = ListOf(500);
    const Layout layout(document, TestFonts());
    for (int number = 1; number <= layout.PageCount(); number++) {
        const Page page = layout.MakePage(number);
        double footer = 0;
        double lowest = 0;
        for (const TextRun& run : page.texts) {
            if (run.text.rfind("第 ", 0) == 0) footer = run.baseline;
            if (run.text.rfind("拜访", 0) == 0) lowest = std::max(lowest, run.baseline);
        }
        EXPECT_LT(lowest, footer - style::kRunningSize);
    }
}

TEST(Layout, ATextOfManyPagesIsSplitWithAMarkTheReaderSees) {
    const Document document =
        ItemOf({{"TaskTitle", "主题", "拜访"}, {"TaskContent", "内容", LongText(100000)}});
    const Layout layout(document, TestFonts());
    ASSERT_GT(layout.PageCount(), 20);
    int characters = 0;
    for (int number = 1; number <= layout.PageCount(); number++) {
        const std::string text = TextOf(layout.MakePage(number));
        characters += CountOf(text, "字");
        EXPECT_EQ(CountOf(text, "(续)"), number == 1 ? 0 : 1) << number;
        EXPECT_EQ(CountOf(text, "(转下页)"), number == layout.PageCount() ? 0 : 1) << number;
    }
    EXPECT_EQ(characters, 100000);
}

TEST(Layout, TheMarkOfATraditionalJobIsTraditional) {
    Document document = ItemOf({{"TaskContent", "內容", LongText(5000)}});
    document.language = 1;
    const Layout layout(document, TestFonts());
    EXPECT_EQ(CountOf(TextOf(layout.MakePage(2)), "(續)"), 1);
}

TEST(Layout, AnEmptyListSaysSo) {
    const Document document = ListOf(0);
    const Layout layout(document, TestFonts());
    EXPECT_EQ(layout.PageCount(), 1);
    const std::string text = TextOf(layout.MakePage(1));
    EXPECT_NE(text.find("（没有记录）"), std::string::npos);
    EXPECT_NE(text.find("执行人"), std::string::npos);
}

TEST(Layout, AnItemWithoutFieldsSaysSo) {
    const Document document = ItemOf({});
    const Layout layout(document, TestFonts());
    EXPECT_NE(TextOf(layout.MakePage(1)).find("（没有记录）"), std::string::npos);
}

TEST(Layout, ShortFieldsOfAnItemStandInPairs) {
    const Document document = ItemOf({{"TaskTitle", "主题", "拜访"},
                                      {"TaskJbr", "执行人", "张三"},
                                      {"TaskDate", "日期", "2003-03-07"},
                                      {"TaskContent", "内容", "洽谈合同"}});
    const Layout layout(document, TestFonts());
    double person = 0, date = 0, title = 0, content = 0;
    for (const TextRun& run : layout.MakePage(1).texts) {
        if (run.text == "张三") person = run.baseline;
        if (run.text == "2003-03-07") date = run.baseline;
        if (run.text == "拜访") title = run.baseline;
        if (run.text == "洽谈合同") content = run.baseline;
    }
    EXPECT_EQ(person, date);
    EXPECT_LT(title, person);
    EXPECT_GT(content, person);
}

TEST(Layout, MissingCellsAreEmpty) {
    Document document = ListOf(1);
    document.table.rows[0].resize(1);
    const Layout layout(document, TestFonts());
    EXPECT_EQ(layout.PageCount(), 1);
    EXPECT_EQ(CountOf(TextOf(layout.MakePage(1)), "李四"), 0);
}

}  // namespace
}  // namespace zv::report
