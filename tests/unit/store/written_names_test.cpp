#include "store/odbc/written_names.h"

#include <gtest/gtest.h>

namespace zv::store::odbc {
namespace {

TEST(WithNamesAsWritten, PutsBackTheCaseOfTheStatement) {
    EXPECT_EQ(WithNamesAsWritten("relation \"ttasklist\" does not exist",
                                 "select * from tTaskList where fID=1"),
              "relation \"tTaskList\" does not exist");
    EXPECT_EQ(WithNamesAsWritten("column a.fgone does not exist", "select a.[fGone] from cards a"),
              "column a.fGone does not exist");
}

TEST(WithNamesAsWritten, LeavesPartsOfWordsAndOtherWords) {
    EXPECT_EQ(
        WithNamesAsWritten("fid fidelity 中fid \"x\"", "select fID from t where a='fidelity'"),
        "fID fidelity 中fid \"x\"");
    EXPECT_EQ(WithNamesAsWritten("", "select fID from t"), "");
}

TEST(WithNamesAsWritten, LeavesAllWhereTheStatementIsOfAnotherLanguage) {
    EXPECT_EQ(WithNamesAsWritten("relation \"t\" does not exist", "select A||'x' from T"),
              "relation \"t\" does not exist");
}

}  // namespace
}  // namespace zv::store::odbc
