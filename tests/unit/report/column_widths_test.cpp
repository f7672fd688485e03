#include "report/column_widths.h"

#include <gtest/gtest.h>

#include "report/styles.h"
#include "report_stage.h"

namespace zv::report {
namespace {

double Sum(const ColumnPlan& plan) {
    double sum = 0;
    for (const PlannedColumn& column : plan.columns) sum += column.width;
    return sum;
}

double WidthOf(const ColumnPlan& plan, std::size_t column) {
    return plan.columns.at(column).width;
}

const double kUpright = AreaOf({}, false).Room();
const double kAcross = AreaOf({}, true).Room();

double Needed(const std::string& text) {
    return TestFonts().Width(text, style::kTextSize) + 2 * style::kCellPadX;
}

std::string Long(int characters) {
    std::string text;
    for (int i = 0; i < characters; i++) text += "字";
    return text;
}

// As a query finds items: six columns that hold something, title and content long, six that nobody
// fills in.
Table QueryOf(int rows) {
    Table table;
    for (const char* heading : {"计划日期", "主题", "内容", "执行人", "登记人", "类型", "状况",
                                "其他一", "其他二", "其他三", "其他四", "其他五", "其他六"}) {
        table.columns.push_back({heading});
    }
    for (int i = 0; i < rows; i++) {
        std::vector<std::string> row{"2003-03-07", Long(14), Long(30), "张三",
                                     "李四",       "任务",   "未办"};
        row.resize(table.columns.size());
        table.rows.push_back(std::move(row));
    }
    return table;
}

Table TableOf(int columns, const std::string& text) {
    Table table;
    table.rows.emplace_back();
    for (int i = 0; i < columns; i++) {
        table.columns.push_back({"栏" + std::to_string(i + 1)});
        table.rows[0].push_back(text);
    }
    return table;
}

TEST(PlanColumns, AFewColumnsStandUpright) {
    const ColumnPlan plan = PlanColumns(TableOf(3, "内容"), TestFonts());
    EXPECT_FALSE(plan.isLandscape);
    EXPECT_NEAR(Sum(plan), kUpright, 0.1);
}

TEST(PlanColumns, ManyColumnsLieAcross) {
    const ColumnPlan plan = PlanColumns(TableOf(10, "内容内容内容"), TestFonts());
    EXPECT_TRUE(plan.isLandscape);
    EXPECT_NEAR(Sum(plan), kAcross, 0.1);
    EXPECT_EQ(plan.textSize, style::kTextSize);
}

TEST(PlanColumns, VeryManyColumnsArePrintedSmallerAndStillFit) {
    const ColumnPlan plan = PlanColumns(TableOf(40, "内容内容"), TestFonts());
    EXPECT_LT(plan.textSize, style::kTextSize);
    EXPECT_NEAR(Sum(plan), kAcross, 0.1);
}

TEST(PlanColumns, ALongTextLeavesRoomForTheOthers) {
    Table table = TableOf(3, "2003-03-07");
    table.rows[0][1] = std::string(5000, 'x');
    const ColumnPlan plan = PlanColumns(table, TestFonts());
    const double date = TestFonts().Width("2003-03-07", plan.textSize);
    EXPECT_GE(WidthOf(plan, 0), date);
    EXPECT_GE(WidthOf(plan, 2), date);
    EXPECT_GT(WidthOf(plan, 1), WidthOf(plan, 0));
}

TEST(PlanColumns, ShortColumnsAreAsWideAsWhatTheyHoldAndLongOnesShareTheRest) {
    const ColumnPlan plan = PlanColumns(QueryOf(60), TestFonts());
    EXPECT_TRUE(plan.isLandscape);
    EXPECT_EQ(plan.textSize, style::kTextSize);
    EXPECT_NEAR(Sum(plan), kAcross, 0.1);
    EXPECT_NEAR(WidthOf(plan, 0), Needed("2003-03-07"), 0.1);
    EXPECT_NEAR(WidthOf(plan, 3), Needed("执行人"), 0.1);
    EXPECT_GE(WidthOf(plan, 1), Needed(Long(14)) - 0.1);
    EXPECT_GT(WidthOf(plan, 2), WidthOf(plan, 1));
}

TEST(PlanColumns, EmptyColumnsAreNarrow) {
    const ColumnPlan plan = PlanColumns(QueryOf(60), TestFonts());
    double empty = 0;
    for (std::size_t i = 7; i < 13; i++) empty += WidthOf(plan, i);
    EXPECT_LT(empty, kAcross / 4);
    // Two letters of the heading still stand beside each other.
    EXPECT_GE(WidthOf(plan, 7), Needed("其他") - 0.1);
}

TEST(PlanColumns, EmptyColumnsAreLeftOutWhenTheUserWantsThat) {
    Table table = QueryOf(10000);
    table.rows[9999][9] = "天津";
    for (auto& row : table.rows) row[8] = " \r\n";
    PageSetup setup;
    setup.leavesOutEmpty = true;
    const ColumnPlan plan = PlanColumns(table, TestFonts(), setup);
    std::vector<std::size_t> printed;
    for (const PlannedColumn& column : plan.columns) printed.push_back(column.source);
    EXPECT_EQ(printed, (std::vector<std::size_t>{0, 1, 2, 3, 4, 5, 6, 9}));
    EXPECT_NEAR(Sum(plan), kAcross, 0.1);
    EXPECT_TRUE(IsEmptyColumn(table, 8));
    EXPECT_FALSE(IsEmptyColumn(table, 9));
}

TEST(PlanColumns, ATableOfEmptyCellsKeepsItsHeadings) {
    PageSetup setup;
    setup.leavesOutEmpty = true;
    const ColumnPlan plan = PlanColumns(TableOf(3, ""), TestFonts(), setup);
    EXPECT_EQ(plan.columns.size(), 3u);
    EXPECT_NEAR(Sum(plan), kUpright, 0.1);
}

TEST(PlanColumns, ALongHeadingDoesNotWidenAColumn) {
    Table table = TableOf(2, "短");
    table.columns[0].heading = Long(40);
    const ColumnPlan plan = PlanColumns(table, TestFonts());
    EXPECT_FALSE(plan.isLandscape);
    EXPECT_LT(WidthOf(plan, 0), kUpright * 0.8);
}

TEST(PlanColumns, OfAVeryLongTableRowsAreMeasuredAllOverIt) {
    Table table = TableOf(2, "短");
    table.rows.assign(90000, table.rows[0]);
    for (std::size_t row = 80000; row < table.rows.size(); row++) table.rows[row][0] = Long(8);
    const ColumnPlan plan = PlanColumns(table, TestFonts());
    EXPECT_GT(WidthOf(plan, 0), 2 * WidthOf(plan, 1));
}

TEST(PlanColumns, TheUsersDirectionHoldsWhateverTheColumnsNeed) {
    PageSetup upright;
    upright.direction = Direction::Upright;
    const ColumnPlan narrow = PlanColumns(QueryOf(60), TestFonts(), upright);
    EXPECT_FALSE(narrow.isLandscape);
    EXPECT_NEAR(Sum(narrow), kUpright, 0.1);
    PageSetup across;
    across.direction = Direction::Across;
    EXPECT_TRUE(PlanColumns(TableOf(2, "短"), TestFonts(), across).isLandscape);
}

TEST(PlanColumns, ColumnsFillEverySheetWithinItsMargins) {
    for (const Paper paper : kPapers) {
        PageSetup setup;
        setup.paper = paper;
        setup.margins = {40, 10, 5, 10};
        const ColumnPlan plan = PlanColumns(QueryOf(60), TestFonts(), setup);
        EXPECT_NEAR(Sum(plan), AreaOf(setup, plan.isLandscape).Room(), 0.1) << SizeOf(paper).name;
    }
}

TEST(PlanColumns, NumbersStandAtTheRight) {
    Table table = TableOf(3, "12.50");
    table.rows[0][1] = "0571";
    table.rows[0][2] = "2003-03-07";
    const ColumnPlan plan = PlanColumns(table, TestFonts());
    EXPECT_TRUE(plan.columns[0].isRightAligned);
    EXPECT_FALSE(plan.columns[1].isRightAligned);  // a code
    EXPECT_FALSE(plan.columns[2].isRightAligned);
}

TEST(PlanColumns, TheWidestOfFewRowsCountsWhereverItStands) {
    for (std::size_t widest = 0; widest < 5; widest++) {
        Table table = TableOf(2, "短");
        table.rows.resize(5, table.rows[0]);
        table.rows[widest][0] = Long(12);
        const ColumnPlan plan = PlanColumns(table, TestFonts());
        EXPECT_GT(WidthOf(plan, 0), 2 * WidthOf(plan, 1)) << widest;
    }
}

}  // namespace
}  // namespace zv::report
