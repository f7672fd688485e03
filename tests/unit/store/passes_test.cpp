// What each pass makes of a statement: before and after, as the embedded engine's text, in which a
// tree that no pass has changed is the statement itself.
#include <gtest/gtest.h>

#include <string>

#include "store/dialect/parser.h"
#include "store/dialect/passes/distinct_rows.h"
#include "store/dialect/passes/subquery_names.h"
#include "store/dialect/passes/window_index.h"
#include "store/dialect/passes/writability.h"
#include "store/dialect/translator.h"
#include "store/dialect/writer.h"
#include "store/engines/engines.h"

namespace zv::store::dialect {
namespace {

const Target& PlainTarget() {
    return *engines::Of("sqlite").dialect;
}
const Target& NamingTarget() {
    return *engines::Of("postgresql").dialect;
}

/// Without the quotes of names.
std::string TextOf(const Statement& statement, const Target& target = PlainTarget()) {
    std::string text = Writer(SchemaInfo(), target).Write(statement);
    std::erase(text, '"');
    return text;
}

/// Says where it searched.
class SearchingTarget final : public Target {
 public:
    explicit SearchingTarget(bool byCondition) : byCondition_(byCondition) {}
    WindowSearch SearchWindows(const std::string& alias, const std::string& first,
                               const std::string& last) const override {
        const std::string span = alias + first.substr(0, 10) + ".." + last.substr(0, 10);
        if (byCondition_) return {{}, {}, "meets(" + span + ")"};
        return {"search(" + span + ") ", " found", {}};
    }
    bool WeighsIndexes() const override { return weighs; }
    bool weighs = false;

    const char* Engine() const override { return PlainTarget().Engine(); }
    std::string Name(const std::string& name) const override { return PlainTarget().Name(name); }
    std::string DateLiteral(const std::string& stored) const override {
        return PlainTarget().DateLiteral(stored.substr(0, 10));
    }
    std::string Like(Expression left, Expression pattern, bool negated) const override {
        return PlainTarget().Like(std::move(left), std::move(pattern), negated);
    }
    Expression Concatenate(Expression left, Expression right) const override {
        return PlainTarget().Concatenate(std::move(left), std::move(right));
    }
    std::string SortTerm(Expression term, bool descending, bool mayCompute) const override {
        return PlainTarget().SortTerm(std::move(term), descending, mayCompute);
    }
    std::string Part(const Expression& date, DateField field) const override {
        return PlainTarget().Part(date, field);
    }
    std::string Weekday(const Expression& date) const override {
        return PlainTarget().Weekday(date);
    }
    std::string FormatDate(const Expression& date,
                           const std::vector<FormatPiece>& pieces) const override {
        return PlainTarget().FormatDate(date, pieces);
    }
    std::string PadNumber(const Expression& number, std::size_t digits) const override {
        return PlainTarget().PadNumber(number, digits);
    }
    std::string Left(const Expression& text, const Expression& length) const override {
        return PlainTarget().Left(text, length);
    }
    std::string Right(const Expression& text, const Expression& length) const override {
        return PlainTarget().Right(text, length);
    }
    std::string Position(const Expression& text, const Expression& part) const override {
        return PlainTarget().Position(text, part);
    }
    std::string ToText(const Expression& value) const override {
        return PlainTarget().ToText(value);
    }
    std::string ToWhole(const Expression& value) const override {
        return PlainTarget().ToWhole(value);
    }
    std::string ToReal(const Expression& value) const override {
        return PlainTarget().ToReal(value);
    }
    std::string LeadingNumber(const Expression& value) const override {
        return PlainTarget().LeadingNumber(value);
    }
    std::string ToDate(const Expression& value) const override {
        return PlainTarget().ToDate(value);
    }
    std::string Round(const std::vector<Expression>& arguments) const override {
        return PlainTarget().Round(arguments);
    }
    std::string Average(const Expression& value) const override {
        return PlainTarget().Average(value);
    }
    std::string Choose(const std::vector<Expression>& arguments) const override {
        return PlainTarget().Choose(arguments);
    }
    std::string OrElse(const std::vector<Expression>& arguments) const override {
        return PlainTarget().OrElse(arguments);
    }
    std::string Now() const override { return PlainTarget().Now(); }
    std::string Today() const override { return PlainTarget().Today(); }

 private:
    bool byCondition_;
};

/// Of a table that no part of the system knows.
const WindowIndex kStays{.table = "stays",
                         .start = "arrives",
                         .end = "leaves",
                         .key = "number",
                         .columns = {"number", "arrives", "leaves"}};

std::string Searched(const std::string& sql, const SearchingTarget& target) {
    const Statement inside = passes::UseWindowIndexInside(Parse(sql), kStays, target);
    return TextOf(passes::UseWindowIndexOutside(inside, kStays, target), target);
}
std::string Joined(const std::string& sql) {
    return Searched(sql, SearchingTarget(false));
}

const std::string kMarch = "arrives<=#03/09/2003# and leaves>=#03/07/2003#";
const std::string kMarchText = "arrives<='2003-03-09' and leaves>='2003-03-07'";

TEST(Parser, ATreeIsWrittenAsItWas) {
    for (const std::string sql :
         {"select a.x,b.* from t as a left join u as b on a.x=b.x where not (a.x=1 or b.y is null)",
          "select count(distinct x),-1 from (select x from t union all select x from u) as v",
          "select x from t where x in (select y from u) group by x having count(*)>1 order by x",
          "insert into t(a,b) values(1,2),(3,null)", "insert into t select * from u",
          "update t set a=b where exists(select 1 from u)", "delete from t where a between 1 and 2",
          "drop table t"}) {
        EXPECT_EQ(TextOf(Parse(sql)), sql == std::string("select count(distinct x),-1 from (select "
                                                         "x from t union all select x from u) as v")
                                          ? "select count(distinct x),(- 1) from (select x from t "
                                            "union all select x from u) as v"
                                          : sql);
    }
}
TEST(Parser, WhatIsInAnotherLanguageIsNotReadable) {
    EXPECT_FALSE(ParseIfReadable("merge into t using u"));
    EXPECT_FALSE(ParseIfReadable("select a::text from t"));
    EXPECT_TRUE(ParseIfReadable("select a from t"));
}

TEST(NameSubqueries, InnerOnesComeFirst) {
    const std::string sql = "select * from (select * from (select 1)),(select 2) as b,(select 3)";
    EXPECT_EQ(TextOf(passes::NameSubqueries(Parse(sql), NamingTarget()), NamingTarget()),
              "select * from (select * from (select 1) as zv_1) as zv_2,(select 2) as b,"
              "(select 3) as zv_3");
    EXPECT_EQ(TextOf(passes::NameSubqueries(Parse(sql), PlainTarget())), sql);
}

class DropDistinct : public ::testing::Test {
 protected:
    DropDistinct() { schema_.AddKey("t", "number"); }
    std::string After(const std::string& sql) const {
        return TextOf(passes::DropDistinct(Parse(sql), schema_));
    }
    SchemaInfo schema_;
};

TEST_F(DropDistinct, RowsThatShowTheirKeyAreDistinct) {
    EXPECT_EQ(After("select distinct a.Number,x from T a"), "select a.Number,x from T as a");
    EXPECT_EQ(After("select x from u where x in (select distinct number from t)"),
              "select x from u where x in (select number from t)");
}
TEST_F(DropDistinct, OthersNeedNotBe) {
    for (const std::string sql :
         {"select distinct x from t", "select distinct number + 1 from t",
          "select distinct number from u", "select distinct number from t,u",
          "select distinct (number) from t", "select distinct t.* from t"}) {
        EXPECT_EQ(After(sql), sql);
    }
}

TEST(Writability, IsThatOfOneTableAsItIs) {
    const auto table = [](const std::string& sql) { return passes::WritableTable(Parse(sql)); };
    EXPECT_EQ(table("select x from Stays s where y=1 order by x"), "Stays");
    EXPECT_EQ(table("select x from stays where y in (select max(y) from stays)"), "stays");
    for (const std::string sql :
         {"select distinct x from t", "select count(*) from t", "select 1+max(x) from t",
          "select x from t group by x", "select x from t,u", "select x from (select x from t)",
          "select x from t union select x from t", "select 1", "update t set x=1",
          "insert into t select x from u"}) {
        EXPECT_EQ(table(sql), "") << sql;
    }
}
TEST(Writability, RowsAreFoundAgainByTheirNumbers) {
    Statement statement = Parse("select top 3 x,y from t a where z=1 order by y desc");
    const Query query = statement.query.front();
    statement.query = {passes::KeysOf(query, PlainTarget())};
    EXPECT_EQ(TextOf(statement), "select a.rowid from t as a where z=1 order by y desc limit 3");
    statement.query = {passes::RowOf(query, PlainTarget())};
    EXPECT_EQ(TextOf(statement), "select x,y from t as a where a.rowid=?1");
}

TEST(UseWindowIndex, SearchesAroundTheTable) {
    EXPECT_EQ(
        Joined("select number from Stays where " + kMarch),
        "select number from search(Stays.2003-03-07..2003-03-09) Stays found where " + kMarchText);
    EXPECT_EQ(Joined("select distinct s.number,p.x from stays s left join p on s.number=p.n where "
                     "p.x=1 and (s.arrives<=#03/09/2003# and s.leaves>=#03/07/2003#)"),
              "select distinct s.number,p.x from search(s.2003-03-07..2003-03-09) stays as s found "
              "left join p on s.number=p.n where p.x=1 and (s.arrives<='2003-03-09' and "
              "s.leaves>='2003-03-07')");
}
TEST(UseWindowIndex, SearchesByOneMoreCondition) {
    EXPECT_EQ(Searched("select * from stays where " + kMarch, SearchingTarget(true)),
              "select * from stays where meets(stays.2003-03-07..2003-03-09) and " + kMarchText);
}
TEST(UseWindowIndex, TakesTheTightestBounds) {
    EXPECT_EQ(Joined("select number from stays where " + kMarch +
                     " and arrives<#03/08/2003# and "
                     "leaves>#03/01/2003#")
                  .substr(0, 60),
              "select number from search(stays.2003-03-07..2003-03-08) stay");
}
TEST(UseWindowIndex, AStarForAllIsOneForTheTablesOfTheStatement) {
    EXPECT_EQ(Joined("select distinct *,1 from stays s,p where s.arrives<=#03/09/2003# and "
                     "s.leaves>=#03/07/2003#"),
              "select distinct s.*,p.*,1 from search(s.2003-03-07..2003-03-09) stays as s found,p "
              "where s.arrives<='2003-03-09' and s.leaves>='2003-03-07'");
}
TEST(UseWindowIndex, TheKeyOfTheTableKeepsItsRowsDistinct) {
    EXPECT_EQ(Joined("select distinct number from stays where " + kMarch).substr(0, 19),
              "select number from ");
}
TEST(UseWindowIndex, SearchesInsideOtherStatements) {
    EXPECT_EQ(Joined("delete from p where n in (select number from stays where " + kMarch + ")"),
              "delete from p where n in (select number from search(stays.2003-03-07..2003-03-09) "
              "stays found where " +
                  kMarchText + ")");
}
TEST(UseWindowIndex, ManyRowsAreFoundByItOnlyWhereItHoldsAllOrTheEngineWeighs) {
    const std::string years = " from stays where arrives<='2009-03-09' and leaves>='2003-03-07'";
    const std::string sent = " from stays where arrives<=#2009-03-09# and leaves>=#2003-03-07#";
    const std::string search = " from search(stays.2003-03-07..2009-03-09) stays found where";
    EXPECT_EQ(Joined("select number" + sent).substr(0, 70),
              ("select number" + search).substr(0, 70));
    EXPECT_EQ(Joined("select number,name" + sent), "select number,name" + years);
    SearchingTarget weighing(false);
    weighing.weighs = true;
    EXPECT_EQ(Searched("select number,name" + sent, weighing).substr(0, 70),
              ("select number,name" + search).substr(0, 70));
}
TEST(UseWindowIndex, OtherStatementsStayAsTheyAre) {
    for (const std::string& sql :
         {"select number from guests where " + kMarch, "select number from p,stays where " + kMarch,
          "select s.number from stays s,p where " + kMarch,
          "select number from stays where not (" + kMarch + ")",
          "select number from stays where x=1 or " + kMarch,
          std::string("select number from stays where arrives<=#03/09/2003#"),
          "select number from stays s right join p on p.n=s.number where s." + kMarch,
          "select number from stays where " + kMarch + " union select number from stays"}) {
        EXPECT_EQ(Joined(sql), TextOf(Parse(sql), SearchingTarget(false))) << sql;
    }
}

TEST(SentAsItIs, AStatementIsAskedWhatItIsAbout) {
    const Translation select = SentAsItIs("select fID,convert(taskTime) from tTaskList a");
    EXPECT_EQ(select.kind, StatementKind::Select);
    EXPECT_EQ(select.table, "tTaskList");
    EXPECT_EQ(select.sql, "select fID,convert(taskTime) from tTaskList a");
    EXPECT_EQ(SentAsItIs("update t set a=getutcdate()").kind, StatementKind::Change);
    EXPECT_EQ(SentAsItIs("drop table t").kind, StatementKind::Definition);
}
TEST(SentAsItIs, OneInAnotherLanguageIsASelectThatNobodyWrites) {
    const Translation other = SentAsItIs("select a from t with (nolock)");
    EXPECT_EQ(other.kind, StatementKind::Select);
    EXPECT_EQ(other.table, "");
    EXPECT_EQ(other.sql, "select a from t with (nolock)");
}

}  // namespace
}  // namespace zv::store::dialect
