// How wide the columns of a table are, and whether it lies upright or across.
#pragma once

#include <vector>

#include "report/document.h"
#include "report/font_set.h"

namespace zv::report {

struct ColumnPlan {
    bool isLandscape = false;
    double textSize = 0;
    std::vector<double> widths;        ///< with the padding; together the width of the body
    std::vector<bool> isRightAligned;  ///< columns of numbers
};

/// Columns take what they ask for, or what their contents need up to a part of the page. The page
/// is upright as long as they fit; then it lies across, then wide columns give way, and in the end
/// the letters become smaller. Room that is left goes to the columns in proportion.
ColumnPlan PlanColumns(const Table& table, const FontSet& fonts);

}  // namespace zv::report
