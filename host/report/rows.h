// What stands on the pages row by row, whatever kind of report it is.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace zv::report {

enum class Align { Left, Right };

struct Cell {
    double x = 0;  ///< from the left edge of the body
    double width = 0;
    std::string text;  ///< cleaned
    Align align = Align::Left;
    bool isCaption = false;  ///< bold on a grey ground
};

using Row = std::vector<Cell>;

class RowSource {
 public:
    virtual ~RowSource() = default;
    virtual std::size_t Count() const = 0;
    virtual Row At(std::size_t row) const = 0;
    /// Stands at the head of the rows of every page; empty for none.
    virtual Row Heading() const = 0;
    virtual double TextSize() const = 0;
    /// Cells stand in boxes; otherwise rows are parted by lines only.
    virtual bool HasBoxes() const = 0;
    /// Does not stand at the foot of a page without what comes behind it.
    virtual bool KeepsWithNext(std::size_t /*row*/) const { return false; }
};

}  // namespace zv::report
