#include "report/column_widths.h"

#include <gtest/gtest.h>

#include <numeric>

#include "report/styles.h"
#include "report_stage.h"

namespace zv::report {
namespace {

double Sum(const std::vector<double>& widths) {
    return std::accumulate(widths.begin(), widths.end(), 0.0);
}

constexpr double kUpright = style::kShortSide - 2 * style::kMargin;
constexpr double kAcross = style::kLongSide - 2 * style::kMargin;

Table TableOf(int columns, const std::string& text) {
    Table table;
    table.rows.emplace_back();
    for (int i = 0; i < columns; i++) {
        table.columns.push_back({"栏" + std::to_string(i + 1), 0});
        table.rows[0].push_back(text);
    }
    return table;
}

TEST(PlanColumns, AFewColumnsStandUpright) {
    const ColumnPlan plan = PlanColumns(TableOf(3, "内容"), TestFonts());
    EXPECT_FALSE(plan.isLandscape);
    EXPECT_NEAR(Sum(plan.widths), kUpright, 0.1);
}

TEST(PlanColumns, ManyColumnsLieAcross) {
    const ColumnPlan plan = PlanColumns(TableOf(10, "内容内容内容"), TestFonts());
    EXPECT_TRUE(plan.isLandscape);
    EXPECT_NEAR(Sum(plan.widths), kAcross, 0.1);
    EXPECT_EQ(plan.textSize, style::kTextSize);
}

TEST(PlanColumns, VeryManyColumnsArePrintedSmallerAndStillFit) {
    const ColumnPlan plan = PlanColumns(TableOf(40, "内容内容"), TestFonts());
    EXPECT_LT(plan.textSize, style::kTextSize);
    EXPECT_NEAR(Sum(plan.widths), kAcross, 0.1);
}

TEST(PlanColumns, ALongTextLeavesRoomForTheOthers) {
    Table table = TableOf(3, "2003-03-07");
    table.rows[0][1] = std::string(5000, 'x');
    const ColumnPlan plan = PlanColumns(table, TestFonts());
    const double date = TestFonts().Width("2003-03-07", plan.textSize);
    EXPECT_GE(plan.widths[0], date);
    EXPECT_GE(plan.widths[2], date);
    EXPECT_GT(plan.widths[1], plan.widths[0]);
}

TEST(PlanColumns, WishedWidthsKeepTheirProportion) {
    Table table = TableOf(2, "短");
    table.columns[0].width = 100;
    table.columns[1].width = 200;
    const ColumnPlan plan = PlanColumns(table, TestFonts());
    EXPECT_NEAR(plan.widths[1] / plan.widths[0], 2, 0.01);
}

TEST(PlanColumns, NumbersStandAtTheRight) {
    Table table = TableOf(3, "12.50");
    table.rows[0][1] = "0571";
    table.rows[0][2] = "2003-03-07";
    const ColumnPlan plan = PlanColumns(table, TestFonts());
    EXPECT_TRUE(plan.isRightAligned[0]);
    EXPECT_FALSE(plan.isRightAligned[1]);  // a code
    EXPECT_FALSE(plan.isRightAligned[2]);
}

}  // namespace
}  // namespace zv::report
