#include "report/pagination.h"

#include <algorithm>

namespace zv::report {
namespace {

// A row that must be split anyway begins on a page only where this many lines of it have room.
constexpr std::size_t kLinesWorthBeginning = 5;

// Rounding must not push a row that fills a page exactly to the next.
constexpr double kTolerance = 0.01;

}  // namespace

std::vector<std::vector<Fragment>> Paginate(std::size_t rows,
                                            const std::function<std::size_t(std::size_t)>& linesOf,
                                            const PageRoom& room, const RowHeights& heights,
                                            const Keeping& keepsWithNext) {
    std::vector<std::vector<Fragment>> pages(1);
    double left = room.first;
    const auto turn = [&] {
        pages.emplace_back();
        left = room.later;
    };
    // What a row takes together with what must not be parted from it.
    const auto together = [&](std::size_t row, double whole) {
        if (!keepsWithNext || row + 1 >= rows || !keepsWithNext(row)) return whole;
        const std::size_t lines = linesOf(row + 1);
        const double next = heights.OfLines(lines, false, false);
        if (whole + next <= room.later + kTolerance) return whole + next;
        const double begun = whole + heights.OfLines(kLinesWorthBeginning, false, true);
        return begun <= room.later + kTolerance ? begun : whole;
    };
    for (std::size_t row = 0; row < rows; row++) {
        const std::size_t lines = linesOf(row);
        const double whole = heights.OfLines(lines, false, false);
        const double needed = together(row, whole);
        if (needed > left + kTolerance && needed <= room.later + kTolerance) turn();
        if (whole <= left + kTolerance) {
            pages.back().push_back({row, 0, lines, false, false});
            left -= whole;
            continue;
        }
        for (std::size_t done = 0; done < lines;) {
            const bool isContinued = done > 0;
            const double rest = heights.OfLines(lines - done, isContinued, false);
            if (rest <= left + kTolerance) {
                pages.back().push_back({row, done, lines - done, isContinued, false});
                left -= rest;
                break;
            }
            const double forLines = left - heights.OfLines(0, isContinued, true);
            std::size_t fits =
                forLines > 0 ? static_cast<std::size_t>((forLines + kTolerance) / heights.line) : 0;
            const bool isFresh = pages.back().empty();
            if (!isFresh && fits < kLinesWorthBeginning) {
                turn();
                continue;
            }
            fits = std::clamp<std::size_t>(fits, 1, lines - done);
            const bool continues = done + fits < lines;
            pages.back().push_back({row, done, fits, isContinued, continues});
            done += fits;
            left = 0;
            if (continues) turn();
        }
    }
    return pages;
}

}  // namespace zv::report
