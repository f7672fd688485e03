#include "report/page_setup.h"

#include <gtest/gtest.h>

#include "doubles/memory_settings.h"

namespace zv::report {
namespace {

using Settings = doubles::MemorySettings;

TEST(PageSetup, WithoutAChoiceIsA4WithTheUsualMargins) {
    const Settings settings;
    EXPECT_EQ(LoadPageSetup(settings), PageSetup());
    EXPECT_EQ(PageSetup().paper, Paper::A4);
    EXPECT_EQ(PageSetup().direction, Direction::AsNeeded);
}

TEST(PageSetup, IsRememberedAsItWasChosen) {
    for (const Paper paper : kPapers) {
        for (const Direction direction :
             {Direction::AsNeeded, Direction::Upright, Direction::Across}) {
            Settings settings;
            const PageSetup setup{paper, direction, {5, 10, 20, 40}, true};
            SavePageSetup(settings, setup);
            EXPECT_EQ(LoadPageSetup(settings), setup) << SizeOf(paper).name;
        }
    }
}

TEST(PageSetup, OnlyWhatDiffersIsWritten) {
    Settings settings;
    SavePageSetup(settings, PageSetup());
    EXPECT_TRUE(settings.values.empty());
    PageSetup setup;
    setup.leavesOutEmpty = true;
    SavePageSetup(settings, setup);
    EXPECT_EQ(settings.values.size(), 1u);
    EXPECT_EQ(settings.values["zvTask.PrintWithoutEmpty"], "1");
}

TEST(PageSetup, WhatCannotBeUnderstoodIsTheUsual) {
    for (const char* paper : {"A9", "", "8", "A4x"}) {
        Settings settings;
        settings.values["zvTask.PrintPaper"] = paper;
        EXPECT_EQ(LoadPageSetup(settings), PageSetup()) << paper;
    }
    for (const char* direction : {"3", "-1", "across", "1.5", "99999999999"}) {
        Settings settings;
        settings.values["zvTask.PrintDirection"] = direction;
        EXPECT_EQ(LoadPageSetup(settings), PageSetup()) << direction;
    }
    for (const char* margins : {"16", "10,10,10", "10,10,10,10,10", "10,10,10,4", "41,10,10,10",
                                "10,,10,10", "a,b,c,d", "10,10,10,99999999999", ",,,"}) {
        Settings settings;
        settings.values["zvTask.PrintMargins"] = margins;
        EXPECT_EQ(LoadPageSetup(settings), PageSetup()) << margins;
    }
    for (const char* without : {"yes", "2", "-1"}) {
        Settings settings;
        settings.values["zvTask.PrintWithoutEmpty"] = without;
        EXPECT_EQ(LoadPageSetup(settings), PageSetup()) << without;
    }
}

TEST(PageSetup, ABadValueLeavesTheOthers) {
    Settings settings;
    settings.values = {{"zvTask.PrintPaper", " a3 "}, {"zvTask.PrintMargins", "1,2,3,4"}};
    const PageSetup setup = LoadPageSetup(settings);
    EXPECT_EQ(setup.paper, Paper::A3);
    EXPECT_EQ(setup.margins, Margins());
}

TEST(PageSetup, AMarginIsAWholeNumberWithinBounds) {
    EXPECT_EQ(ReadMargin("5"), 5);
    EXPECT_EQ(ReadMargin(" 40 "), 40);
    for (const char* text : {"4", "41", "", " ", "10mm", "1e1", "-10", "10.5"}) {
        EXPECT_EQ(ReadMargin(text), std::nullopt) << text;
    }
}

TEST(PageSetup, EverySheetHasRoomForItsMargins) {
    for (const Paper paper : kPapers) {
        PageSetup setup;
        setup.paper = paper;
        setup.margins = {kMostMargin, kMostMargin, kMostMargin, kMostMargin};
        const PageArea area = AreaOf(setup, false);
        EXPECT_GT(area.Room(), 150) << SizeOf(paper).name;
        const PageArea across = AreaOf(setup, true);
        EXPECT_EQ(across.width, area.height);
        EXPECT_GT(across.bottom - across.top, 150) << SizeOf(paper).name;
    }
}

}  // namespace
}  // namespace zv::report
