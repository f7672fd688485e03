// What the translation writes for PostgreSQL. That it means the same is tested on a server.
#include <gtest/gtest.h>

#include <random>

#include "base/errors.h"
#include "fixture.h"
#include "store/dialect/translator.h"
#include "store/engines/engines.h"

namespace zv::store::dialect {
namespace {

class PostgreSqlText : public ::testing::Test {
 protected:
    PostgreSqlText() {
        schema_.AddColumn("fid", "int4");
        schema_.AddColumn("taskid", "int4");
        schema_.AddColumn("tdone", "int2");
        schema_.AddColumn("ftype", "int2");
        schema_.AddColumn("tasktitle", "citext");
        schema_.AddColumn("fuser", "citext");
        schema_.AddColumn("compname", "citext");
        schema_.AddColumn("tasktime", "timestamp");
    }
    std::string Written(const std::string& sql) const {
        return Translate(sql, schema_, *engines::Of("postgresql").dialect).sql;
    }
    std::string Condition(const std::string& condition) const {
        const std::string head = "select 1 from \"t\" where ";
        return Written("select 1 from t where " + condition).substr(head.size());
    }

    SchemaInfo schema_;
};

TEST_F(PostgreSqlText, NamesAreInLowerCaseAndQuotes) {
    EXPECT_EQ(Written("select a.fID as ItemID,[My Field] from dbo.tTaskList a"),
              R"(select "a"."fid" as "itemid","my field" from "ttasklist" as "a")");
    EXPECT_EQ(Written("Update tTaskList Set tDone=2,fUser='O''x' where fID =1"),
              R"(update "ttasklist" set "tdone"=2,"fuser"='O''x' where "fid"=1)");
}
TEST_F(PostgreSqlText, OrdersSayWhereNothingStands) {
    EXPECT_EQ(Written("select fID from t Order by fType,taskTime desc,taskTitle"),
              R"(select "fid" from "t" order by "ftype" nulls first,"tasktime" desc nulls last,)"
              R"(lower("tasktitle") nulls first)");
}
TEST_F(PostgreSqlText, AnOrderOfDistinctRowsIsAmongTheirColumns) {
    EXPECT_EQ(Written("select distinct taskTitle from t Order by taskTitle"),
              R"(select distinct "tasktitle" from "t" order by "tasktitle" nulls first)");
    EXPECT_EQ(Written("select distinct Left(taskTitle,1) from t Order by Left(taskTitle,1)"),
              R"(select distinct left("tasktitle"::text,1)::citext from "t" order by )"
              R"(left("tasktitle"::text,1)::citext nulls first)");
}
TEST_F(PostgreSqlText, RowsWithTheirKeyAreDistinctByThemselves) {
    schema_.AddKey("tTaskList", "fID");
    schema_.AddKey("tTaskSet", "TaskID");
    EXPECT_EQ(Written("select distinct a.fID,a.fType from tTaskList a"),
              R"(select "a"."fid","a"."ftype" from "ttasklist" as "a")");
    EXPECT_EQ(Written("select distinct taskID as fID from tTaskSet"),
              R"(select "taskid" as "fid" from "ttaskset")");
    EXPECT_EQ(Written("select distinct a.taskID from tTaskList a").substr(0, 16),
              "select distinct ");
    EXPECT_EQ(Written("select distinct a.fID from tTaskList a Left Join cards b on a.taskID=b.fID")
                  .substr(0, 16),
              "select distinct ");
}
TEST_F(PostgreSqlText, TheWindowIsAlsoABox) {
    const std::string sql =
        "select a.fID from tTaskList a Where 1=1 And a.tDuring1<=#03/09/2003# and "
        "a.tDuring2>='03/07/2003'";
    const std::string plain = R"(1=1 and "a"."tduring1"<=timestamp '2003-03-09 00:00:00' and )"
                              R"("a"."tduring2">=timestamp '2003-03-07 00:00:00')";
    const std::string head = R"(select "a"."fid" from "ttasklist" as "a" where )";
    EXPECT_EQ(Written(sql), head + plain);
    schema_.windowIndex = engines::Of("postgresql").facts->WindowIndex();
    EXPECT_EQ(Written(sql),
              head +
                  R"(point(extract(epoch from "a"."tduring1")::float8,extract(epoch from )"
                  R"("a"."tduring2")::float8)<@box(point('-infinity',extract(epoch from timestamp )"
                  R"('2003-03-07 00:00:00')::float8),point(extract(epoch from timestamp )"
                  R"('2003-03-09 00:00:00')::float8,'infinity')) and )" +
                  plain);
    // Neither one bound alone nor what "or" makes optional confines the windows.
    EXPECT_EQ(Written("select a.fID from tTaskList a Where a.tDuring1<=#03/09/2003#").find("box"),
              std::string::npos);
    EXPECT_EQ(Written(sql + " or a.fID=1").find("box"), std::string::npos);
}
TEST_F(PostgreSqlText, PatternsHaveNoEscapeCharacter) {
    EXPECT_EQ(Condition("taskTitle like '%a\\b%' and fID not like '1%'"),
              R"("tasktitle" ilike '%a\b%' escape '' and "fid"::text not ilike '1%' escape '')");
}
TEST_F(PostgreSqlText, OperandsHaveOneType) {
    EXPECT_EQ(Condition("fID='5'"), R"("fid"=(5))");
    EXPECT_EQ(Condition("fUser=5"), R"("fuser"=5::text::citext)");
    EXPECT_EQ(Condition("Left(fUser,1)='A'"), R"(left("fuser"::text,1)::citext='A')");
    EXPECT_EQ(Condition("fUser+'x'>taskTitle"), R"(("fuser"::text||'x')::citext>"tasktitle")");
    EXPECT_EQ(Condition("taskTime='3/7/2003 8:05'"),
              R"("tasktime"=timestamp '2003-03-07 08:05:00')");
    EXPECT_EQ(Condition("fID=null or fUser<>''"), R"("fid"=null or "fuser"<>'')");
    EXPECT_EQ(Condition("tDone"), R"("tdone"<>0)");
    EXPECT_EQ(Condition("(tDone=1)=1"), R"(("tdone"=1)::integer=1)");
}
TEST_F(PostgreSqlText, TheTableOfAWritableSelectIsNamed) {
    EXPECT_EQ(
        Translate("select * from tTasklist", schema_, *engines::Of("postgresql").dialect).table,
        "tTasklist");
    EXPECT_EQ(
        Translate("select distinct fID from tTasklist", schema_, *engines::Of("postgresql").dialect)
            .table,
        "");
    EXPECT_EQ(
        Translate("select * from tTasklist", schema_, *engines::Of("postgresql").dialect).keySql,
        "");
}
TEST_F(PostgreSqlText, ErrorsAreItsOwn) {
    try {
        Written("select * from t where fID='x'");
        ADD_FAILURE();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::DatabaseStatement);
        EXPECT_EQ(error.Text(), "\"x\" is not a number at character 27");
        EXPECT_EQ(error.Source(), "PostgreSQL");
    }
}
TEST_F(PostgreSqlText, SurvivesArbitraryBytes) {
    schema_.windowIndex = engines::Of("postgresql").facts->WindowIndex();
    const std::vector<NamedStatement> statements = ReadStatements();
    std::mt19937 random(11);
    const auto below = [&](std::size_t limit) {
        return static_cast<std::size_t>(random() % limit);
    };
    int understood = 0;
    for (int i = 0; i < 3000; i++) {
        std::string sql = statements[below(statements.size())].sql;
        for (std::size_t n = below(4); n > 0; n--) {
            const std::string& other = statements[below(statements.size())].sql;
            const std::size_t at = below(sql.size());
            switch (below(4)) {
                case 0:
                    sql[at] = static_cast<char>(below(256));
                    break;
                case 1:
                    sql.erase(at, below(9));
                    break;
                case 2:
                    sql.insert(at, other.substr(below(other.size()), below(20)));
                    break;
                default:
                    sql.resize(at);
                    break;
            }
            if (sql.empty()) sql = "'";
        }
        try {
            Translate(sql, schema_, *engines::Of("postgresql").dialect);
            understood++;
        } catch (const RuntimeError& error) {
            ASSERT_EQ(error.Number(), ErrorNumber::DatabaseStatement) << sql;
            ASSERT_NE(error.Text().find(" at character "), std::string::npos) << error.Text();
        }
    }
    EXPECT_GT(understood, 600);
    EXPECT_LT(understood, 2900);
}

}  // namespace
}  // namespace zv::store::dialect
