#include "reports/print_grid.h"

#include <vector>

#include "reports/report_job.h"

namespace zv::reports {
namespace {

/// What the user sees of a grid.
class ShownGrid final : public platform::ReportTable {
 public:
    explicit ShownGrid(const forms::Grid& grid) : grid_(grid) {
        for (int column = 1; column <= grid.ColumnCount(); column++) {
            if (grid.GetColumn(column).visible) columns_.push_back(column);
        }
    }

    int RowCount() const override { return grid_.DataRowCount(); }
    int ColumnCount() const override { return static_cast<int>(columns_.size()); }
    std::string Heading(int column) const override { return grid_.GetColumn(At(column)).heading; }
    int ColumnWidth(int column) const override { return grid_.GetColumn(At(column)).width; }
    std::string Text(int row, int column) const override {
        return std::string(grid_.Cell(row, At(column)));
    }
    std::string Sign(int row) const override {
        const auto sign = grid_.sign ? grid_.sign(row) : std::nullopt;
        return sign ? sign->text : std::string();
    }

 private:
    int At(int column) const {
        if (column < 1 || column > ColumnCount()) {
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        }
        return columns_[static_cast<std::size_t>(column - 1)];
    }

    const forms::Grid& grid_;
    std::vector<int> columns_;
};

}  // namespace

void PrintGrid(Session& session, const forms::Grid& grid, const std::string& title,
               const std::string& subTitle, const std::string& asked) {
    if (grid.DataRowCount() == 0 || session.state.UserPath.IsEmpty()) return;
    const ShownGrid table(grid);
    platform::ReportJob job = NewJob(session);
    job.title = title;
    job.subTitle = subTitle;
    job.asked = asked;
    job.grid = &table;
    session.machine.reports.Print(job);
}

}  // namespace zv::reports
