// How wide the columns of a table are, and whether it lies upright or across.
#pragma once

#include <cstddef>
#include <vector>

#include "report/document.h"
#include "report/font_set.h"
#include "report/page_setup.h"

namespace zv::report {

struct PlannedColumn {
    std::size_t source = 0;  ///< position in the table
    double width = 0;        ///< with the padding
    bool isRightAligned = false;
};

struct ColumnPlan {
    bool isLandscape = false;
    double textSize = 0;
    std::vector<PlannedColumn> columns;  ///< those that are printed; they fill the body's width
};

/// Columns are as wide as what they hold; those with long texts share the room that is left and
/// wrap, empty ones are narrow or left out. The page is upright as long as this fits comfortably,
/// then it lies across, and in the end the letters become smaller. At most a few thousand rows are
/// measured, spread evenly over the table.
ColumnPlan PlanColumns(const Table& table, const FontSet& fonts, const PageSetup& setup = {});

/// Whether no row holds anything but blanks there.
bool IsEmptyColumn(const Table& table, std::size_t column);

}  // namespace zv::report
