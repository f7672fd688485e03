#include "report/parameters.h"

#include <gtest/gtest.h>

namespace zv::report {
namespace {

TEST(ReadHeading, TakesCaptionAndKeyApart) {
    const Heading heading = ReadHeading("(主题)\tTaskTitle");
    EXPECT_EQ(heading.caption, "主题");
    EXPECT_EQ(heading.key, "TaskTitle");
}

TEST(ReadHeading, ACaptionMayHoldParenthesesAndTabs) {
    const Heading heading = ReadHeading("(金额(元)\t税)\tTaskOther0");
    EXPECT_EQ(heading.caption, "金额(元)\t税");
    EXPECT_EQ(heading.key, "TaskOther0");
}

TEST(ReadHeading, AnotherTextIsACaption) {
    EXPECT_EQ(ReadHeading("备注").caption, "备注");
    EXPECT_EQ(ReadHeading("备注").key, "");
    EXPECT_EQ(ReadHeading("").caption, "");
}

TEST(ReadFields, HeadingsAndValuesTakeTurns) {
    const auto fields = ReadFields({"(主题)\tTaskTitle", "拜访", "(日期)\tTaskDate", "2003-03-07"});
    ASSERT_EQ(fields.size(), 2u);
    EXPECT_EQ(fields[1].caption, "日期");
    EXPECT_EQ(fields[1].text, "2003-03-07");
}

TEST(ReadFields, ALastHeadingWithoutAValueIsEmpty) {
    const auto fields = ReadFields({"(主题)\tTaskTitle"});
    ASSERT_EQ(fields.size(), 1u);
    EXPECT_EQ(fields[0].text, "");
}

}  // namespace
}  // namespace zv::report
