// The rows of a list or a grid.
#pragma once

#include <functional>

#include "report/column_widths.h"
#include "report/document.h"
#include "report/rows.h"

namespace zv::report {

class TableRows final : public RowSource {
 public:
    /// Table and fonts must outlive this.
    TableRows(const Table& table, const FontSet& fonts, const PageSetup& setup);

    bool IsLandscape() const { return plan_.isLandscape; }
    std::size_t Count() const override { return table_.rows.size(); }
    Row At(std::size_t row) const override;
    Row Heading() const override;
    double TextSize() const override { return plan_.textSize; }
    bool HasBoxes() const override { return false; }

 private:
    Row Cells(const std::function<std::string(std::size_t)>& textOf, bool isCaption) const;

    const Table& table_;
    ColumnPlan plan_;
};

}  // namespace zv::report
