#include "target.h"

#include <gtest/gtest.h>

namespace zv::script {
namespace {

TEST(ParseTarget, ReadsWindowControlAndIndex) {
    const Target plain = ParseTarget("frmTaskMain.cmdExit");
    EXPECT_EQ(plain.window, "frmTaskMain");
    EXPECT_EQ(plain.control, "cmdExit");
    EXPECT_EQ(plain.index, -1);
    const Target element = ParseTarget("frmTaskMain.cmdAction(3)");
    EXPECT_EQ(element.control, "cmdAction");
    EXPECT_EQ(element.index, 3);
    EXPECT_EQ(element.Text(), "frmTaskMain.cmdAction(3)");
}

TEST(ParseTarget, RefusesOtherForms) {
    for (const char* word :
         {"", "frmTaskMain", "frmTaskMain.", ".cmdExit", "frmTaskMain.a.b", "frmTaskMain.a(",
          "frmTaskMain.a()", "frmTaskMain.a(x)", "frmTaskMain.a(-1)", "frmTaskMain.a(1,2)",
          "frmTaskMain.a(1)b", "frmTaskMain(1).a"}) {
        EXPECT_THROW(ParseTarget(word), ScriptError) << word;
    }
}

TEST(ParsePropertyPath, ReadsPropertyAndNumbers) {
    const PropertyPath cell = ParsePropertyPath("frmTaskMain.Grid1.cell(2,10)");
    EXPECT_EQ(cell.target.control, "Grid1");
    EXPECT_EQ(cell.property, "cell");
    EXPECT_EQ(cell.arguments, (std::vector<int>{2, 10}));
    const PropertyPath entry = ParsePropertyPath("frmTaskMain.chkType(1).caption");
    EXPECT_EQ(entry.target.index, 1);
    EXPECT_EQ(entry.property, "caption");
    EXPECT_TRUE(entry.arguments.empty());
}

TEST(ParsePropertyPath, ReadsPropertiesOfAWindow) {
    const PropertyPath path = ParsePropertyPath("frmAsk.modal");
    EXPECT_EQ(path.target.window, "frmAsk");
    EXPECT_TRUE(path.target.control.empty());
    EXPECT_EQ(path.property, "modal");
}

TEST(ParsePropertyPath, RefusesAWrongNumberOfNumbers) {
    for (const char* word :
         {"frmTaskMain.Grid1.cell(1)", "frmTaskMain.Grid1.cell", "frmTaskMain.cboState.list",
          "frmTaskMain.cboState.text(1)", "frmTaskMain.caption(1)"}) {
        EXPECT_THROW(ParsePropertyPath(word), ScriptError) << word;
    }
}

}  // namespace
}  // namespace zv::script
