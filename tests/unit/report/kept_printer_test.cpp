#include "report/kept_printer.h"

#include <gtest/gtest.h>

#include "report/page_setup.h"

namespace zv::report {
namespace {

TEST(KeptPrinter, ItsPaperHoldsForPagesOfTheSameSizeAndDirection) {
    PageSetup setup;
    const PageArea upright = AreaOf(setup, false);
    const PageArea across = AreaOf(setup, true);
    const KeptPrinter kept{"HP", {1, 2}, upright.width, upright.height};
    EXPECT_TRUE(kept.HoldsPaperFor(upright.width, upright.height));
    EXPECT_FALSE(kept.HoldsPaperFor(across.width, across.height));
    setup.paper = Paper::A5;
    const PageArea small = AreaOf(setup, false);
    EXPECT_FALSE(kept.HoldsPaperFor(small.width, small.height));
}

TEST(KeptPrinter, BeforeAChoiceNothingHolds) {
    EXPECT_FALSE(KeptPrinter().HoldsPaperFor(0, 0));
}

}  // namespace
}  // namespace zv::report
