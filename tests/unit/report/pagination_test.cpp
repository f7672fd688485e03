#include "report/pagination.h"

#include <gtest/gtest.h>

namespace zv::report {
namespace {

constexpr RowHeights kHeights{10, 2};

std::vector<std::vector<Fragment>> Pages(const std::vector<std::size_t>& lines, PageRoom room) {
    return Paginate(
        lines.size(), [&](std::size_t row) { return lines[row]; }, room, kHeights);
}

TEST(Paginate, RowsFollowOneAnotherUntilAPageIsFull) {
    const auto pages = Pages({1, 1, 1, 1, 1}, {36, 24});
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].size(), 3u);
    EXPECT_EQ(pages[1].size(), 2u);
    EXPECT_EQ(pages[1][0].row, 3u);
}

TEST(Paginate, NoRowsAreOnePage) {
    const auto pages = Pages({}, {36, 36});
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_TRUE(pages[0].empty());
}

TEST(Paginate, ARowThatDoesNotFitTheRestMovesWhole) {
    const auto pages = Pages({3, 4}, {60, 60});
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[1][0].lines, 4u);
    EXPECT_FALSE(pages[1][0].isContinued);
}

TEST(Paginate, ARowTallerThanAPageIsSplitWithMarks) {
    const auto pages = Pages({20}, {102, 102});
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_FALSE(pages[0][0].isContinued);
    EXPECT_TRUE(pages[0][0].continues);
    EXPECT_TRUE(pages[1][0].isContinued);
    EXPECT_TRUE(pages[1][0].continues);
    EXPECT_TRUE(pages[2][0].isContinued);
    EXPECT_FALSE(pages[2][0].continues);
}

TEST(Paginate, NoLineOfASplitRowIsLostOrDoubled) {
    const auto pages = Pages({2, 57, 1}, {102, 92});
    std::size_t next = 0;
    for (const auto& page : pages) {
        for (const Fragment& fragment : page) {
            if (fragment.row != 1) continue;
            EXPECT_EQ(fragment.firstLine, next);
            next += fragment.lines;
        }
    }
    EXPECT_EQ(next, 57u);
    EXPECT_EQ(pages.back().back().row, 2u);
}

TEST(Paginate, NoPageHoldsMoreThanItsRoom) {
    const PageRoom room{130, 150};
    for (std::size_t lines = 1; lines < 60; lines++) {
        const auto pages = Pages({3, lines, 2, lines, 1}, room);
        for (std::size_t page = 0; page < pages.size(); page++) {
            double height = 0;
            for (const Fragment& f : pages[page]) {
                height += kHeights.OfLines(f.lines, f.isContinued, f.continues);
            }
            EXPECT_LE(height, (page == 0 ? room.first : room.later) + 0.01);
        }
    }
}

TEST(Paginate, ASplitRowDoesNotBeginWithAFewLinesAtThePagesFoot) {
    const auto pages = Pages({6, 30}, {102, 102});
    EXPECT_EQ(pages[0].size(), 1u);
}

TEST(Paginate, ARowThatFillsAPageExactlyIsNotSplit) {
    const auto pages = Pages({1, 10, 1}, {102, 102});
    ASSERT_EQ(pages.size(), 3u);
    EXPECT_EQ(pages[1][0].lines, 10u);
}

TEST(Paginate, ALastPartThatFillsItsPageExactlyTurnsNone) {
    const PageRoom room{102, 102};
    const std::size_t first = 9;  // and a mark
    ASSERT_EQ(kHeights.OfLines(first, false, true), room.first);
    ASSERT_EQ(kHeights.OfLines(9, true, false), room.later);
    const auto exact = Pages({first + 9, 1}, room);
    ASSERT_EQ(exact.size(), 3u);
    ASSERT_EQ(exact[1].size(), 1u);
    EXPECT_EQ(exact[1][0].lines, 9u);
    EXPECT_FALSE(exact[1][0].continues);
    EXPECT_EQ(exact[2].size(), 1u);
    const auto oneMore = Pages({first + 10}, room);
    ASSERT_EQ(oneMore.size(), 3u);
    EXPECT_EQ(oneMore[1][0].lines, 8u);
    EXPECT_EQ(oneMore[2][0].lines, 2u);
}

TEST(Paginate, ASplitRowBeginsWhereExactlyFiveLinesHaveRoom) {
    const double before = kHeights.OfLines(3, false, false);
    const double room = before + kHeights.OfLines(5, false, true);
    const auto pages = Pages({3, 30}, {room, 102});
    ASSERT_EQ(pages[0].size(), 2u);
    EXPECT_EQ(pages[0][1].lines, 5u);
    EXPECT_EQ(Pages({3, 30}, {room - 1, 102})[0].size(), 1u);
}

TEST(Paginate, WhereNoLineHasRoomEachPageHasOneAndNoneIsEmpty) {
    const PageRoom room{5, 5};
    const auto pages = Pages({1, 2, 1}, room);
    ASSERT_EQ(pages.size(), 4u);
    for (const auto& page : pages) {
        ASSERT_EQ(page.size(), 1u);
        EXPECT_EQ(page[0].lines, 1u);
    }
    EXPECT_FALSE(pages[0][0].continues);
    EXPECT_TRUE(pages[1][0].continues);
    EXPECT_TRUE(pages[2][0].isContinued);
    EXPECT_FALSE(pages[2][0].continues);
    EXPECT_FALSE(pages[3][0].continues);
}

TEST(Paginate, NothingFollowsALastLineThatIsTallerThanItsPage) {
    // The line with its mark has no room, the next row alone would have.
    const PageRoom room{15, 15};
    ASSERT_GT(kHeights.OfLines(1, true, false), room.later);
    ASSERT_LT(kHeights.OfLines(1, false, false), room.later);
    const auto pages = Pages({2, 1}, room);
    ASSERT_EQ(pages.size(), 3u);
    for (const auto& page : pages) EXPECT_EQ(page.size(), 1u);
}

}  // namespace
}  // namespace zv::report
