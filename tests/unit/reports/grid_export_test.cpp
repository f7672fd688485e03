#include "reports/grid_export.h"

#include <gtest/gtest.h>

#include <array>

#include "application/test_application.h"
#include "base/errors.h"

namespace zv::reports {
namespace {

struct ListForm : forms::Form {
    explicit ListForm(forms::WindowSystem& windows) : Form(windows, "frmTest") {
        Grid1.SetColumns({{"日期", 90}, {"fID", 40, false}, {"主题", 90}});
    }
    forms::Grid Grid1{*this, "Grid1"};
};

class GridExportTest : public testing::Test {
 protected:
    void Fill(int rows) {
        form_.Grid1.SetDataRowCount(0);
        forms::Grid::Filling filling(form_.Grid1);
        for (int row = 1; row <= rows; row++) {
            const std::string title = "t" + std::to_string(row);
            filling.Append(std::array<std::string_view, 3>{"2003-03-07", "9", title});
        }
    }
    void Export() { ExportGrid(stage_.session, form_.Grid1, "查询任务.csv"); }

    test::TestApplication stage_;
    ListForm& form_ = stage_.windows.Create<ListForm>();
};

TEST_F(GridExportTest, WritesHeadingsAndRowsOfTheVisibleColumns) {
    Fill(2);
    stage_.dialogs.inputs = {"C:\\a.csv"};
    Export();
    EXPECT_EQ(stage_.files.written.at("C:\\a.csv"),
              "\xEF\xBB\xBF日期,主题\r\n2003-03-07,t1\r\n2003-03-07,t2\r\n");
    EXPECT_EQ(stage_.dialogs.messages, std::vector<std::string>{"64|已导出 2 行：\r\nC:\\a.csv"});
    ASSERT_EQ(stage_.dialogs.fileRequests.size(), 1U);
    EXPECT_TRUE(stage_.dialogs.fileRequests[0].forSaving);
    EXPECT_EQ(stage_.dialogs.fileRequests[0].initialFile, "查询任务.csv");
    EXPECT_EQ(stage_.dialogs.fileRequests[0].extension, "csv");
}

TEST_F(GridExportTest, WritesRowsInTheOrderShown) {
    Fill(2);
    form_.Grid1.Sort(3, true);
    stage_.dialogs.inputs = {"a.csv"};
    Export();
    EXPECT_EQ(stage_.files.written.at("a.csv"),
              "\xEF\xBB\xBF日期,主题\r\n2003-03-07,t2\r\n2003-03-07,t1\r\n");
}

TEST_F(GridExportTest, CalledOffAtTheDialogDoesNothing) {
    Fill(1);
    stage_.dialogs.inputs = {std::nullopt};
    Export();
    EXPECT_TRUE(stage_.files.written.empty());
    EXPECT_TRUE(stage_.dialogs.messages.empty());
}

TEST_F(GridExportTest, AFailureLeavesNoFileAndReachesTheCaller) {
    Fill(1);
    stage_.dialogs.inputs = {"a.csv"};
    stage_.files.failing = "磁盘已满";
    EXPECT_THROW(Export(), RuntimeError);
    EXPECT_TRUE(stage_.files.written.empty());
    EXPECT_TRUE(stage_.dialogs.messages.empty());
}

}  // namespace
}  // namespace zv::reports
