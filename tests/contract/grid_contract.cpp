#include <array>
#include <string>
#include <vector>

#include "forms/grid.h"
#include "forms/progress_bar.h"
#include "stand.h"

namespace zv::contract {
namespace {

using namespace forms;

struct GridForm : TestForm {
    explicit GridForm(WindowSystem& windows) : TestForm(windows) {
        grdList.SetColumns({{"日期", 90}, {"主题", 120}, {"fID", 40, false}, {"内容", 150}});
    }
    Grid grdList{*this, "grdList"};
    ProgressBar barWork{*this, "barWork"};
};

class Grids : public Contract {
 protected:
    Grids() : form(windows_.Create<GridForm>()), grid(form.grdList) {
        Arrange(form);
        grid.onSelect = [this] { events_.push_back("row " + std::to_string(grid.SelectedRow())); };
    }
    void Fill(const std::vector<std::array<std::string_view, 4>>& rows) {
        grid.SetDataRowCount(0);
        Grid::Filling filling(grid);
        for (const auto& row : rows) filling.Append(row);
    }
    void FillThree() {
        Fill({{"2003-03-07", "b", "1", "x"},
              {"2003-03-06", "A", "2", "y"},
              {"2003-03-07", "c", "3", "z"}});
    }
    std::string Column(int column) {
        std::string texts;
        for (int row = 1; row <= grid.DataRowCount(); row++) {
            texts += Read(grid, "cell", {row, column});
        }
        return texts;
    }

    GridForm& form;
    Grid& grid;
};

TEST_F(Grids, CellsAreCountedFromOneAndTheHeadingIsSeparate) {
    FillThree();
    form.Show(false);
    EXPECT_EQ(Read(grid, "rows"), "3");
    EXPECT_EQ(Read(grid, "cell", {1, 1}), "2003-03-07");
    EXPECT_EQ(Read(grid, "cell", {3, 4}), "z");
    EXPECT_EQ(Read(grid, "list", {4}), "内容");
    EXPECT_THROW(grid.Cell(0, 1), RuntimeError);
    EXPECT_THROW(grid.Cell(4, 1), RuntimeError);
    EXPECT_THROW(grid.Cell(1, 5), RuntimeError);
}

TEST_F(Grids, RowsAreReplacedWhileShown) {
    FillThree();
    form.Show(false);
    Fill({{"2004-01-01", "新", "9", ""}});
    EXPECT_EQ(Read(grid, "rows"), "1");
    EXPECT_EQ(Read(grid, "cell", {1, 2}), "新");
    grid.SetDataRowCount(2);
    EXPECT_EQ(Read(grid, "cell", {2, 2}), "");
    grid.SetCell(2, 2, "写");
    EXPECT_EQ(Read(grid, "cell", {2, 2}), "写");
}

TEST_F(Grids, AHeadingSortsAndASecondPressTurnsTheOrder) {
    FillThree();
    form.Show(false);
    EXPECT_EQ(Read(grid, "sort"), "");
    driver().PressHeading(grid, 2);
    EXPECT_EQ(Column(2), "Abc");
    EXPECT_EQ(Read(grid, "sort"), "2");
    driver().PressHeading(grid, 2);
    EXPECT_EQ(Column(2), "cbA");
    EXPECT_EQ(Read(grid, "sort"), "-2");
    driver().PressHeading(grid, 4);
    EXPECT_EQ(Column(4), "xyz");
}

TEST_F(Grids, RowsThatAreEqualKeepTheirOrder) {
    FillThree();
    form.Show(false);
    driver().PressHeading(grid, 2);
    driver().PressHeading(grid, 1);
    EXPECT_EQ(Column(2), "Abc");
    driver().PressHeading(grid, 1);
    EXPECT_EQ(Column(2), "bcA");
}

TEST_F(Grids, NumbersAreSortedByTheirValues) {
    Fill({{"10"}, {"9"}, {"-1"}, {"x"}, {""}, {"09.5"}});
    form.Show(false);
    driver().PressHeading(grid, 1);
    EXPECT_EQ(Column(1), "-1909.510x");
}

TEST_F(Grids, ANewFillForgetsTheOrder) {
    FillThree();
    form.Show(false);
    driver().PressHeading(grid, 2);
    FillThree();
    EXPECT_EQ(Read(grid, "sort"), "");
    EXPECT_EQ(Column(2), "bAc");
}

TEST_F(Grids, TheSelectionGoesWithItsRows) {
    FillThree();
    form.Show(false);
    driver().SelectRow(grid, 1);
    driver().AddRow(grid, 3);
    EXPECT_EQ(Read(grid, "selection"), "1,3");
    driver().PressHeading(grid, 2);
    EXPECT_EQ(Read(grid, "selection"), "2,3");
    EXPECT_EQ(grid.SelectedRow(), 3);
    EXPECT_EQ(events_, (std::vector<std::string>{"row 1", "row 3"}));
}

TEST_F(Grids, RowsThatTheProgramSelectsAreTheOnlyOnesAndRaiseNothing) {
    FillThree();
    form.Show(false);
    driver().SelectRow(grid, 1);
    events_.clear();
    grid.SelectRows({2, 3});
    EXPECT_EQ(Read(grid, "selection"), "2,3");
    EXPECT_EQ(grid.SelectedRow(), 3);
    grid.SelectRows({});
    EXPECT_EQ(Read(grid, "selection"), "");
    EXPECT_EQ(grid.SelectedRow(), 0);
    EXPECT_EQ(grid.SelectedCount(), 0);
    EXPECT_EQ(events_, std::vector<std::string>{});
}

TEST_F(Grids, ARowThatIsSelectedAloneDropsTheOthers) {
    FillThree();
    form.Show(false);
    driver().SelectRow(grid, 1);
    driver().AddRow(grid, 2);
    driver().SelectRow(grid, 3);
    EXPECT_EQ(Read(grid, "selection"), "3");
    EXPECT_EQ(grid.SelectedCount(), 1);
    EXPECT_THROW(driver().SelectRow(grid, 4), driver::DriverError);
}

TEST_F(Grids, TheWidthThatTheUserGaveAColumnStays) {
    FillThree();
    form.Show(false);
    driver().ResizeColumn(grid, 2, 200);
    EXPECT_EQ(grid.GetColumn(2).width, 200);
    FillThree();
    EXPECT_EQ(Read(grid, "width", {2}), "200");
    EXPECT_EQ(Read(grid, "width", {1}), "90");
}

TEST_F(Grids, CopyingTakesTheSelectedRowsAsShown) {
    FillThree();
    form.Show(false);
    driver().SelectRow(grid, 1);
    driver().AddRow(grid, 2);
    driver().PressHeading(grid, 2);
    driver().ControlKey(grid, key::kC);
    EXPECT_EQ(stand_->GetBackend().ClipboardText(), "2003-03-06\tA\ty\r\n2003-03-07\tb\tx\r\n");
}

TEST_F(Grids, CopyingWithoutASelectionLeavesTheClipboardAlone) {
    FillThree();
    form.Show(false);
    stand_->GetBackend().SetClipboardText("旧");
    driver().ControlKey(grid, key::kC);
    EXPECT_EQ(stand_->GetBackend().ClipboardText(), "旧");
}

TEST_F(Grids, AllRowsAreSelectedAtOnce) {
    FillThree();
    form.Show(false);
    driver().ControlKey(grid, key::kA);
    EXPECT_EQ(Read(grid, "selection"), "1,2,3");
    EXPECT_EQ(grid.SelectedCount(), 3);
    driver().SelectRow(grid, 2);
    EXPECT_EQ(Read(grid, "selection"), "2");
}

TEST_F(Grids, TabsAndLineBreaksInATextDoNotBreakTheCopiedTable) {
    Fill({{"a\tb", "c\r\nd", "", "\"e\""}, {"f\"g", "h", "", "i"}});
    form.Show(false);
    driver().ControlKey(grid, key::kA);
    driver().ControlKey(grid, key::kC);
    EXPECT_EQ(stand_->GetBackend().ClipboardText(),
              "\"a\tb\"\t\"c\r\nd\"\t\"\"\"e\"\"\"\r\nf\"g\th\ti\r\n");
}

TEST_F(Grids, CopiedTextsAreNoFormulas) {
    Fill({{"=1+2", "＝1", "-5", "\n=1"}});
    form.Show(false);
    driver().ControlKey(grid, key::kA);
    driver().ControlKey(grid, key::kC);
    EXPECT_EQ(stand_->GetBackend().ClipboardText(), "'=1+2\t'＝1\t\"'\n=1\"\r\n");
}

TEST_F(Grids, ALongTextIsShownCutAndCopiedWhole) {
    const std::string text(100000, 'x');
    const std::string chinese = [] {
        std::string result;
        for (int i = 0; i < 20000; i++) result += "任务\n";
        return result;
    }();
    Fill({{text, chinese, "", ""}});
    form.Show(false);
    form.Refresh();
    EXPECT_EQ(Read(grid, "cell", {1, 1}), text);
    EXPECT_EQ(Read(grid, "cell", {1, 2}), chinese);
    driver().SelectRow(grid, 1);
    driver().ControlKey(grid, key::kC);
    EXPECT_EQ(stand_->GetBackend().ClipboardText(), text + "\t\"" + chinese + "\"\t\r\n");
}

TEST_F(Grids, AMillionRowsAreHeldShownSortedAndSelected) {
    constexpr int kRows = 1000000;
    {
        Grid::Filling filling(grid);
        for (int row = 0; row < kRows; row++) {
            const std::string number = std::to_string(kRows - row);
            filling.Append(std::array<std::string_view, 4>{number, "主题", "", "x"});
        }
    }
    form.Show(false);
    EXPECT_EQ(Read(grid, "rows"), "1000000");
    EXPECT_EQ(Read(grid, "cell", {kRows, 1}), "1");
    driver().PressHeading(grid, 1);
    EXPECT_EQ(Read(grid, "cell", {1, 1}), "1");
    driver().ControlKey(grid, key::kA);
    EXPECT_EQ(grid.SelectedCount(), kRows);
}

TEST_F(Grids, ABarShowsHowFarAWorkHasCome) {
    form.barWork.SetPercent(30);
    form.Show(false);
    EXPECT_EQ(Read(form.barWork, "value"), "30");
    form.barWork.SetPercent(std::nullopt);
    EXPECT_EQ(Read(form.barWork, "value"), "");
    form.barWork.SetPercent(250);
    EXPECT_EQ(Read(form.barWork, "value"), "100");
}

TEST_F(Grids, ASignIsSeenInTheFirstColumnAndIsNoPartOfACell) {
    FillThree();
    grid.sign = [](int row) -> std::optional<Sign> {
        if (row != 2) return std::nullopt;
        return Sign{"逾期", 0xB00020};
    };
    form.Show(false);
    form.Refresh();
    EXPECT_EQ(Read(grid, "signs"), "2|逾期|B00020");
    EXPECT_EQ(Read(grid, "cell", {2, 1}), std::string(grid.Cell(2, 1)));
    grid.SelectAll();
    EXPECT_EQ(grid.SelectedText().find("逾期"), std::string::npos);
}

}  // namespace
}  // namespace zv::contract
