#include "store/sql_text.h"

#include <gtest/gtest.h>

namespace zv::store {
namespace {

TEST(MakeLikePattern, WrapsTextWithoutWildcards) {
    EXPECT_EQ(MakeLikePattern("abc"), "%abc%");
    EXPECT_EQ(MakeLikePattern("报表"), "%报表%");
}
TEST(MakeLikePattern, TrimsBlanksAtBothEnds) {
    EXPECT_EQ(MakeLikePattern("  abc "), "%abc%");
}
TEST(MakeLikePattern, KeepsBlanksInside) {
    EXPECT_EQ(MakeLikePattern(" a b "), "%a b%");
}
TEST(MakeLikePattern, MatchesAllForNothing) {
    EXPECT_EQ(MakeLikePattern(""), "%");
    EXPECT_EQ(MakeLikePattern("   "), "%");
}
TEST(MakeLikePattern, MatchesAllForALoneStarOrPercent) {
    EXPECT_EQ(MakeLikePattern("*"), "%");
    EXPECT_EQ(MakeLikePattern(" % "), "%");
}
TEST(MakeLikePattern, KeepsTheUsersOwnWildcards) {
    EXPECT_EQ(MakeLikePattern("a_c"), "a_c");
    EXPECT_EQ(MakeLikePattern("a%"), "a%");
    EXPECT_EQ(MakeLikePattern(" a% "), "a%");
}
TEST(MakeLikePattern, TakesAStarInsideATextLiterally) {
    EXPECT_EQ(MakeLikePattern("a*b"), "%a*b%");
}

TEST(QualifyFieldNames, PrefixesEachCondition) {
    EXPECT_EQ(QualifyFieldNames("fType=1 And tDone=0", "a.", 0), "a.fType=1 And a.tDone=0");
    EXPECT_EQ(QualifyFieldNames("fType=1", "a.", 0), "a.fType=1");
}
TEST(QualifyFieldNames, KeepsTheLetterCaseOfEachAnd) {
    EXPECT_EQ(QualifyFieldNames("x=1 AND y=2 and z=3", "a.", 1), "a.x=1 AND a.y=2 and a.z=3");
}
TEST(QualifyFieldNames, CompletesTheAliasWithAPoint) {
    EXPECT_EQ(QualifyFieldNames("fType=1", "q", 0), "q.fType=1");
}
TEST(QualifyFieldNames, TrimsEachConditionOnTheLeft) {
    EXPECT_EQ(QualifyFieldNames("  x=1 And   y=2", "q.", 0), "q.x=1 And q.y=2");
}
TEST(QualifyFieldNames, LeavesTheTextAloneWithoutWhereOrAlias) {
    EXPECT_EQ(QualifyFieldNames("", "a.", 0), "");
    EXPECT_EQ(QualifyFieldNames("x=1", "", 0), "x=1");
}
TEST(QualifyFieldNames, LeavesTheTextAloneWhenTheAliasStandsInIt) {
    EXPECT_EQ(QualifyFieldNames("A.fType=1 And tDone=0", "a.", 0), "A.fType=1 And tDone=0");
    EXPECT_EQ(QualifyFieldNames("data=1", "a", 0), "data=1");
}
TEST(QualifyFieldNames, PutsTheAliasIntoAccessFunctions) {
    EXPECT_EQ(QualifyFieldNames("Mid(x,1,2)='b' And Format(y,'yyyy')='2003'", "q.", 0),
              "Mid(q.x,1,2)='b' And Format(q.y,'yyyy')='2003'");
}
TEST(QualifyFieldNames, PutsTheAliasIntoServerFunctions) {
    EXPECT_EQ(QualifyFieldNames("substring(x,1,2)='b' and Convert(y)=1", "q.", 1),
              "substring(q.x,1,2)='b' and Convert(q.y)=1");
}
TEST(QualifyFieldNames, RecognisesOnlyTheFunctionsOfTheDatabaseKind) {
    EXPECT_EQ(QualifyFieldNames("mid(x,1,2)='b'", "q.", 1), "q.mid(x,1,2)='b'");
    EXPECT_EQ(QualifyFieldNames("substring(x,1,2)='b'", "q.", 0), "q.substring(x,1,2)='b'");
}
TEST(QualifyFieldNames, DoesNotSplitInsideTexts) {
    EXPECT_EQ(QualifyFieldNames("x='p and q' And y=1", "b.", 0), "b.x='p and q' And b.y=1");
}
TEST(QualifyFieldNames, DoesNotSplitInsideWords) {
    EXPECT_EQ(QualifyFieldNames("brand=1 And y=2", "q.", 0), "q.brand=1 And q.y=2");
}
TEST(QualifyFieldNames, KeepsABetweenWhole) {
    EXPECT_EQ(QualifyFieldNames("t between #01/01/2003# and #02/01/2003# And y=2", "q.", 0),
              "q.t between #01/01/2003# and #02/01/2003# And q.y=2");
}
TEST(QualifyFieldNames, KeepsConditionsThatBeginWithAConstant) {
    EXPECT_EQ(QualifyFieldNames("1=1 And fType=1", "a.", 0), "1=1 And a.fType=1");
}
TEST(QualifyFieldNames, KeepsALeadingWhere) {
    EXPECT_EQ(QualifyFieldNames(" Where fType=1", "a.", 0), " Where a.fType=1");
}
TEST(QualifyFieldNames, StepsOverParentheses) {
    EXPECT_EQ(QualifyFieldNames("(x=1 And y=2)", "q.", 0), "(q.x=1 And q.y=2)");
}

}  // namespace
}  // namespace zv::store
