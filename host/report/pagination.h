// Which rows stand on which page.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace zv::report {

/// A row on a page, or a part of one that no page could hold whole.
struct Fragment {
    std::size_t row = 0;
    std::size_t firstLine = 0;
    std::size_t lines = 0;
    bool isContinued = false;  ///< lines before these stand on an earlier page
    bool continues = false;    ///< lines behind these stand on a later one
};

struct PageRoom {
    double first = 0;  ///< height for rows on the first page, without the column headings
    double later = 0;
};

struct RowHeights {
    double line = 0;
    double padding = 0;  ///< above and below a row's lines together
    /// A mark that a row continues takes a line of its own, above and below.
    double OfLines(std::size_t lines, bool isContinued, bool continues) const {
        const std::size_t marks = (isContinued ? 1u : 0u) + (continues ? 1u : 0u);
        return static_cast<double>(lines + marks) * line + padding;
    }
};

/// Whether a row must not be the last of a page.
using Keeping = std::function<bool(std::size_t row)>;

/// A row that does not fit on the rest of a page begins the next one. One that fits on no page is
/// split; each part has at least one line. A row that keeps with the next one turns the page with
/// it. At least one page, which may be empty.
std::vector<std::vector<Fragment>> Paginate(std::size_t rows,
                                            const std::function<std::size_t(std::size_t)>& linesOf,
                                            const PageRoom& room, const RowHeights& heights,
                                            const Keeping& keepsWithNext = {});

}  // namespace zv::report
