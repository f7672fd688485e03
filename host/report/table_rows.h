// The rows of a list or a grid.
#pragma once

#include "report/column_widths.h"
#include "report/document.h"
#include "report/rows.h"

namespace zv::report {

class TableRows final : public RowSource {
 public:
    /// Both must outlive this.
    TableRows(const Table& table, const FontSet& fonts);

    bool IsLandscape() const { return plan_.isLandscape; }
    std::size_t Count() const override { return table_.rows.size(); }
    Row At(std::size_t row) const override;
    Row Heading() const override;
    double TextSize() const override { return plan_.textSize; }
    bool HasBoxes() const override { return false; }

 private:
    const Table& table_;
    ColumnPlan plan_;
};

}  // namespace zv::report
