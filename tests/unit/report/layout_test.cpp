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

void ExpectInside(const Page& page, const PageArea& area) {
    EXPECT_EQ(page.width, area.width);
    EXPECT_EQ(page.height, area.height);
    for (const TextRun& run : page.texts) {
        EXPECT_GE(run.x, area.left - 0.1) << run.text;
        EXPECT_LE(run.x + TestFonts().Width(run.text, run.size), area.right + 0.1) << run.text;
        EXPECT_GE(run.baseline - run.size, area.top - 3) << run.text;
        EXPECT_LE(run.baseline, area.bottom + 3) << run.text;
    }
}

// The first text of a page with these words, null when there is none.
const TextRun* Find(const Page& page, const std::string& text) {
    for (const TextRun& run : page.texts) {
        if (run.text == text) return &run;
    }
    return nullptr;
}

TEST(Layout, TheFirstPageCarriesTheHeading) {
    const Document document = ListOf(3);
    const Layout layout(document, TestFonts());
    const std::string text = TextOf(layout.MakePage(1));
    for (const char* part :
         {"塔尔内尔贸易有限公司\n", "任务列表\n", "2003-03-01 -- 2003-03-31\n",
          "打印时间：2003-03-07 00:00\n", "打印人：张三\n", "第 1/1 页\n", "共 3 条记录\n"}) {
        EXPECT_NE(text.find(part), std::string::npos) << part;
    }
}

TEST(Layout, TheFooterSpeaksTheJobsLanguage) {
    Document document = ListOf(3);
    document.language = 1;
    const Layout layout(document, TestFonts());
    const std::string text = TextOf(layout.MakePage(1));
    EXPECT_NE(text.find("第 1/1 頁"), std::string::npos);
    EXPECT_NE(text.find("打印時間：2003-03-07 00:00"), std::string::npos);
}

TEST(Layout, EveryPageHasItsNumberAndTheColumnHeadings) {
    const Document document = ListOf(1000);
    const Layout layout(document, TestFonts());
    ASSERT_GT(layout.PageCount(), 10);
    for (int number = 1; number <= layout.PageCount(); number++) {
        const std::string text = TextOf(layout.MakePage(number));
        const std::string footer =
            "第 " + std::to_string(number) + "/" + std::to_string(layout.PageCount()) + " 页\n";
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
        ExpectInside(page, AreaOf({}, page.width > page.height));
    }
}

TEST(Layout, NothingLeavesTheMarginsOfAnySheet) {
    Document document = ListOf(60);
    document.asked = LongText(300);
    const Document item = ItemOf({{"TaskTitle", "主题", LongText(200)},
                                  {"TaskContent", LongText(90), LongText(900)},
                                  {"TaskOther0", LongText(40), std::string(300, 'w')}});
    for (const Paper paper : kPapers) {
        for (const Direction direction : {Direction::Upright, Direction::Across}) {
            const PageSetup setup{paper, direction, {5, 40, 33, 12}, false};
            for (const Document* source : {static_cast<const Document*>(&document), &item}) {
                const Layout layout(*source, TestFonts(), setup);
                for (int number = 1; number <= layout.PageCount(); number++) {
                    ExpectInside(layout.MakePage(number),
                                 AreaOf(setup, direction == Direction::Across));
                }
            }
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

TEST(Layout, WhatStandsRoundTheBodyIsNotBold) {
    const Document document = ListOf(200);
    const Layout layout(document, TestFonts());
    for (const int number : {1, 2}) {
        const Page page = layout.MakePage(number);
        int seen = 0;
        for (const TextRun& run : page.texts) {
            if (run.grey != style::kSoft) continue;
            EXPECT_FALSE(run.bold) << run.text;
            seen++;
        }
        EXPECT_GE(seen, 3) << number;
    }
}

TEST(Layout, AnItemStandsOnAGrid) {
    const Document document = ItemOf({{"TaskTitle", "主题", "拜访"},
                                      {"TaskJbr", "这是一个很长的字段名称", "张三"},
                                      {"TaskDate", "日期", "2003-03-07"},
                                      {"TaskContent", "内容", "洽谈合同"},
                                      {"TaskOther0", "地点", "天津"}});
    const Layout layout(document, TestFonts());
    const Page page = layout.MakePage(1);
    const double left = Find(page, "主题")->x;
    const double values = Find(page, "拜访")->x;
    for (const char* caption : {"这是一个很长的字段名称", "日期", "内容", "地点"}) {
        EXPECT_EQ(Find(page, caption)->x, left) << caption;
        EXPECT_TRUE(Find(page, caption)->bold) << caption;
    }
    for (const char* value : {"张三", "2003-03-07", "天津"}) {
        EXPECT_EQ(Find(page, value)->x, values) << value;
    }
    EXPECT_EQ(Find(page, "日期")->baseline, Find(page, "2003-03-07")->baseline);
    // The content has the full width, below its caption.
    EXPECT_EQ(Find(page, "洽谈合同")->x, left);
    EXPECT_GT(Find(page, "洽谈合同")->baseline, Find(page, "内容")->baseline);
    EXPECT_EQ(Find(page, "（没有记录）"), nullptr);
}

TEST(Layout, TheCaptionOfAContentStandsOnThePageOfItsBox) {
    for (int others = 20; others < 60; others++) {
        std::vector<Field> fields;
        for (int i = 0; i < others; i++) fields.push_back({"", "栏", "值"});
        fields.push_back({"TaskContent", "内容", LongText(300)});
        const Document document = ItemOf(std::move(fields));
        const Layout layout(document, TestFonts());
        for (int number = 1; number <= layout.PageCount(); number++) {
            const std::string text = TextOf(layout.MakePage(number));
            EXPECT_EQ(CountOf(text, "内容\n") > 0, CountOf(text, "字") > 0) << others;
        }
    }
}

TEST(Layout, EveryPageSaysWhatWasAskedAndHowManyRecordsThereAre) {
    Document document = ListOf(200);
    document.asked = "计划日期：不限；类型：任务";
    const Layout layout(document, TestFonts());
    ASSERT_GT(layout.PageCount(), 2);
    for (int number = 1; number <= layout.PageCount(); number++) {
        const Page page = layout.MakePage(number);
        const TextRun* asked = Find(page, document.asked);
        const TextRun* count = Find(page, "共 200 条记录");
        ASSERT_TRUE(asked && count) << number;
        EXPECT_EQ(asked->baseline, count->baseline);
        EXPECT_LT(count->baseline, Find(page, "编号")->baseline);
    }
}

TEST(Layout, ALongQuestionWrapsAtTheHeadAndLeavesTheCountItsRoom) {
    Document document = ListOf(200);
    document.asked = LongText(400);
    const Layout layout(document, TestFonts());
    const std::string first = TextOf(layout.MakePage(1));
    EXPECT_GT(CountOf(first, "字"), 100);
    EXPECT_EQ(CountOf(first, "…"), 1);
    EXPECT_EQ(CountOf(TextOf(layout.MakePage(2)), "…"), 1);
    EXPECT_EQ(CountOf(TextOf(layout.MakePage(2)), "共 200 条记录\n"), 1);
}

TEST(Layout, TheTotalStandsOnceBehindTheLastRow) {
    for (int rows = 60; rows < 110; rows++) {
        const Document document = ListOf(rows);
        const Layout layout(document, TestFonts());
        const std::string total = "合计：共 " + std::to_string(rows) + " 条记录";
        for (int number = 1; number < layout.PageCount(); number++) {
            EXPECT_EQ(Find(layout.MakePage(number), total), nullptr) << rows;
        }
        const Page last = layout.MakePage(layout.PageCount());
        const TextRun* run = Find(last, total);
        const TextRun* row = Find(last, "拜访客户 Nr. " + std::to_string(rows));
        // Never alone on a page.
        ASSERT_TRUE(run && row) << rows;
        EXPECT_GT(run->baseline, row->baseline);
    }
}

TEST(Layout, AnItemAndAnEmptyListHaveNoTotal) {
    const Document item = ItemOf({{"TaskTitle", "主题", "拜访"}});
    EXPECT_EQ(CountOf(TextOf(Layout(item, TestFonts()).MakePage(1)), "合计"), 0);
    EXPECT_EQ(CountOf(TextOf(Layout(item, TestFonts()).MakePage(1)), "条记录"), 0);
    const Document none = ListOf(0);
    EXPECT_EQ(CountOf(TextOf(Layout(none, TestFonts()).MakePage(1)), "合计"), 0);
}

TEST(Layout, APageLiesAsTheUserSetItUp) {
    const Document document = ListOf(3);
    PageSetup setup;
    setup.paper = Paper::A5;
    setup.direction = Direction::Across;
    const Layout layout(document, TestFonts(), setup);
    EXPECT_NEAR(layout.PageWidth(), 595.28, 0.1);
    EXPECT_NEAR(layout.PageHeight(), 419.53, 0.1);
    EXPECT_EQ(layout.Setup(), setup);
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
