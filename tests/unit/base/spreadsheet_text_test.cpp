#include "base/spreadsheet_text.h"

#include <gtest/gtest.h>

namespace zv {
namespace {

TEST(SpreadsheetText, WhatBeginsLikeAFormulaWouldBeComputed) {
    for (const char* text :
         {"=1+2", "+86 10 1234", "-x", "@SUM(A1)", "\tx", "\rx", "\n=1", "=", "＝1+2", "＋1", "－x",
          "＠SUM(A1)", "-1e5", "+-1", "-1.2.3", "-", "+.", "-:"}) {
        EXPECT_TRUE(WouldBeComputed(text)) << text;
    }
}

TEST(SpreadsheetText, PlainNumbersAndOtherTextsAreLeftAlone) {
    for (const char* text : {"", "-5", "+5", "-0.50", "-.5", "-9", "+90", "a=b", " =1", "报表",
                             "'=1", "2003-03-07", "一＝一", "\xEF\xBC"}) {
        EXPECT_FALSE(WouldBeComputed(text)) << text;
    }
}

}  // namespace
}  // namespace zv
