// How the parts of a page lie to each other, whatever is printed: what a reader would notice at
// once.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "report/layout.h"
#include "report/styles.h"
#include "report_stage.h"

namespace zv::report {
namespace {

double TopOf(const TextRun& run) {
    return run.baseline - run.size;
}

bool Overlap(const TextRun& a, const TextRun& b) {
    const double right = a.x + TestFonts().Width(a.text, a.size);
    const double other = b.x + TestFonts().Width(b.text, b.size);
    return a.x < other - 0.1 && b.x < right - 0.1 && TopOf(a) < b.baseline - 0.1 &&
           TopOf(b) < a.baseline - 0.1;
}

void ExpectApart(const Page& page) {
    for (std::size_t i = 0; i < page.texts.size(); i++) {
        for (std::size_t j = i + 1; j < page.texts.size(); j++) {
            EXPECT_FALSE(Overlap(page.texts[i], page.texts[j]))
                << page.texts[i].text << " and " << page.texts[j].text;
        }
    }
}

// The lines from edge to edge, from the top down.
std::vector<double> LinesAcross(const Page& page) {
    double left = page.width;
    double right = 0;
    for (const Rule& rule : page.rules) {
        left = std::min(left, rule.x1);
        right = std::max(right, rule.x2);
    }
    std::vector<double> lines;
    for (const Rule& rule : page.rules) {
        if (rule.y1 == rule.y2 && rule.x1 == left && rule.x2 == right) lines.push_back(rule.y1);
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

const TextRun* Find(const Page& page, const std::string& text) {
    const auto at = std::find_if(page.texts.begin(), page.texts.end(),
                                 [&](const TextRun& run) { return run.text == text; });
    return at == page.texts.end() ? nullptr : &*at;
}

Document SmallItem() {
    return ItemOf({{"TaskTitle", "主题", "拜访"},
                   {"TaskDate", "日期", "2003-03-07"},
                   {"TaskContent", "内容", "洽谈合同"},
                   {"TaskOther0", "地点", "天津"}});
}

TEST(PageGeometry, NoTextLiesOnAnother) {
    for (const Document& document : {ListOf(0), ListOf(3), ListOf(100), SmallItem(), ItemOf({})}) {
        const Layout layout(document, TestFonts());
        for (int number = 1; number <= layout.PageCount(); number++) {
            ExpectApart(layout.MakePage(number));
        }
    }
}

TEST(PageGeometry, NoTextLiesOnALineAcross) {
    for (const Document& document : {ListOf(0), ListOf(3), ListOf(100), SmallItem()}) {
        const Layout layout(document, TestFonts());
        for (int number = 1; number <= layout.PageCount(); number++) {
            const Page page = layout.MakePage(number);
            for (const double line : LinesAcross(page)) {
                for (const TextRun& run : page.texts) {
                    EXPECT_FALSE(TopOf(run) + 1 < line && line < run.baseline - 1)
                        << run.text << " at " << run.baseline << ", line at " << line;
                }
            }
        }
    }
}

TEST(PageGeometry, TheTotalStandsBelowTheLastLine) {
    const Document document = ListOf(3);
    const Layout layout(document, TestFonts());
    const Page page = layout.MakePage(1);
    const auto total = std::find_if(page.texts.begin(), page.texts.end(), [](const TextRun& run) {
        return run.bold && run.text.find("3") != std::string::npos &&
               run.text.find("Nr.") == std::string::npos;
    });
    ASSERT_NE(total, page.texts.end());
    double last = 0;
    for (const double line : LinesAcross(page)) {
        if (line < total->baseline) last = line;
    }
    EXPECT_GE(TopOf(*total), last + style::kCellPadY - 0.1) << total->text;
}

TEST(PageGeometry, AnEmptyListSaysSoALineBelowItsHeading) {
    const Document document = ListOf(0);
    const Layout layout(document, TestFonts());
    const Page page = layout.MakePage(1);
    const TextRun* nothing = Find(page, "（没有记录）");
    ASSERT_NE(nothing, nullptr);
    double heading = 0;
    for (const double line : LinesAcross(page)) {
        if (line < nothing->baseline) heading = line;
    }
    EXPECT_GE(TopOf(*nothing), heading + nothing->size / 2);
}

TEST(PageGeometry, EachBoxOfAnItemIsClosed) {
    const Document document = SmallItem();
    const Layout layout(document, TestFonts());
    const Page page = layout.MakePage(1);
    const std::vector<double> lines = LinesAcross(page);
    const auto isLine = [&](double y) {
        return std::any_of(lines.begin(), lines.end(),
                           [y](double line) { return std::abs(line - y) < 0.1; });
    };
    ASSERT_FALSE(page.grounds.empty());
    for (const Ground& ground : page.grounds) {
        EXPECT_TRUE(isLine(ground.y)) << ground.y;
        EXPECT_TRUE(isLine(ground.y + ground.height)) << ground.y + ground.height;
    }
}

TEST(PageGeometry, OnlyTheCaptionsOfAnItemHaveAGround) {
    const Document document = SmallItem();
    const Layout layout(document, TestFonts());
    const Page page = layout.MakePage(1);
    EXPECT_EQ(page.grounds.size(), 4u);
    for (const char* value : {"拜访", "2003-03-07", "洽谈合同", "天津"}) {
        const TextRun* run = Find(page, value);
        ASSERT_NE(run, nullptr);
        EXPECT_FALSE(run->bold) << value;
        for (const Ground& ground : page.grounds) {
            const bool inside = run->x >= ground.x && run->x < ground.x + ground.width &&
                                run->baseline > ground.y &&
                                run->baseline < ground.y + ground.height;
            EXPECT_FALSE(inside) << value;
        }
    }
}

}  // namespace
}  // namespace zv::report
