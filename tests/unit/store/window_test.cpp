// The index over alert windows answers exactly as a scan of the table does.
#include <gtest/gtest.h>

#include <random>

#include "database_fixture.h"
#include "store/dialect/translator.h"
#include "store/engines/engines.h"
#include "store/engines/sqlite/window_index.h"

namespace zv::store {
namespace {

using dialect::SchemaInfo;

dialect::Translation Translate(const std::string& sql, const SchemaInfo& schema) {
    return dialect::Translate(sql, schema, *engines::Of("sqlite").dialect);
}

class WindowIndexTest : public DatabaseTest {
 protected:
    WindowIndexTest() : raw_(OpenSqlite(path_, {.translate = false})) {}

    static SchemaInfo Indexed() {
        SchemaInfo schema;
        schema.windowIndex = engines::Of("sqlite").facts->WindowIndex();
        return schema;
    }
    std::string RawRows(const std::string& sql) {
        std::string text;
        const auto rows = raw_->Open(sql, CursorType::ForwardOnly, LockType::ReadOnly);
        for (; !rows->Eof(); rows->MoveNext()) {
            for (int column = 0; column < rows->FieldCount(); column++) {
                text += rows->Field(column).ToText() + "|";
            }
            text += '\n';
        }
        return text;
    }
    std::unique_ptr<Connection> raw_;
};

const std::string kHead =
    "select distinct a.fID,a.fType,a.taskTime,a.taskTitle,a.tDone,a.taskID from tTaskList a  Where "
    "1=1";
const std::string kTail = " Order by a.fType,a.taskTime desc,a.taskTitle";

std::string DayQuery(DateTime first, DateTime last, const std::string& more) {
    return kHead + " And a.tDuring1<=#" + last.UsDate() + "# and a.tDuring2>=#" + first.UsDate() +
           "#" + more + kTail;
}

TEST_F(WindowIndexTest, SchemaMakesTheIndexThatTheTranslationUses) {
    const std::string made = RawRows("select sql from sqlite_schema where name='tTaskList_window'");
    EXPECT_TRUE(engines::sqlite::SameStatement(made.substr(0, made.size() - 2),
                                               engines::sqlite::WindowIndexStatement()))
        << made << engines::sqlite::WindowIndexStatement();
}

TEST_F(WindowIndexTest, AlertPassReadsShortRangesOfTheIndexAlone) {
    const auto translation = Translate(
        DayQuery(DateTime(2003, 3, 7), DateTime(2003, 3, 7), " And a.tDone=0"), Indexed());
    const std::string plan = RawRows("explain query plan " + translation.sql);
    EXPECT_NE(plan.find("SEARCH a USING COVERING INDEX tTaskList_window (<expr>=? AND tDuring1>? "
                        "AND tDuring1<?)"),
              std::string::npos)
        << plan;
    EXPECT_EQ(plan.find("DISTINCT"), std::string::npos) << plan;
}

TEST_F(WindowIndexTest, OtherStatementsStayAsTheyAre) {
    for (const std::string& sql :
         {kHead + kTail, kHead + " And a.tDuring1<=#03/07/2003#" + kTail,
          kHead + " And (a.tDuring1<=#03/07/2003# or a.tDuring2>=#03/07/2003#)" + kTail,
          std::string("select * from tTaskList where tDuring1<=#03/07/2009# and "
                      "tDuring2>=#03/07/2003#"),
          std::string("select a.fID from cards b,tTaskList a where a.tDuring1<=#03/07/2003# and "
                      "a.tDuring2>=#03/07/2003#")}) {
        EXPECT_EQ(Translate(sql, Indexed()).sql, Translate(sql, SchemaInfo()).sql) << sql;
    }
}

TEST_F(WindowIndexTest, ShowsTheSameColumnsWithAStar) {
    Execute("insert into tTaskList(tDuring1,tDuring2) values(#03/07/2003#,#03/07/2003#)");
    const std::string condition = " where a.tDuring1<=#03/07/2003# and a.tDuring2>=#03/07/2003#";
    EXPECT_EQ(Read("select * from tTaskList a" + condition)->FieldCount(), 19);
    EXPECT_EQ(Read("select * from tTaskList a left join cards b on a.taskID=b.fID" + condition)
                  ->FieldCount(),
              19 + 17);
    EXPECT_EQ(Rows("select count(*) from tTaskList a" + condition), "1");
}

TEST_F(WindowIndexTest, IsNotUsedWhenItWasMadeDifferently) {
    raw_->Execute("drop index tTaskList_window");
    raw_->Execute("create index tTaskList_window on tTaskList(tDuring1)");
    Execute("insert into tTaskList(tDuring1,tDuring2) values(#03/07/2003#,#03/07/2003#)");
    EXPECT_EQ(Rows("select fID from tTaskList where tDuring1<=#03/07/2003# and "
                   "tDuring2>=#03/07/2003#"),
              "1");
}

TEST_F(WindowIndexTest, AnswersAsAScanDoesForAnyDistribution) {
    std::mt19937 random(20030307);
    const auto below = [&](std::size_t limit) { return static_cast<unsigned>(random() % limit); };
    // Windows of every width, backwards ones, missing ends, times of day, and what no date is.
    raw_->Execute("begin");
    for (int i = 0; i < 4000; i++) {
        const DateTime start = DateTime(1998, 1, 1)
                                   .AddDays(static_cast<int>(below(3650)))
                                   .AddSeconds(below(2) * 37230);
        const unsigned shape = below(20);
        const int width = shape < 12   ? static_cast<int>(below(20))
                          : shape < 16 ? static_cast<int>(below(400))
                          : shape < 17 ? static_cast<int>(below(400000))
                          : shape < 18 ? -static_cast<int>(below(40))
                                       : 0;
        std::string begin = "'" + start.IsoDateTime() + "'";
        std::string end = "'" + start.AddDays(width).AddSeconds(below(86400)).IsoDateTime() + "'";
        static constexpr const char* kOdd[] = {"null",
                                               "''",
                                               "'now'",
                                               "'2003-02-31 00:00:00'",
                                               "'2003-03-07'",
                                               "x'32303033'",
                                               "20030307",
                                               "37000.5",
                                               "'9999-12-31 23:59:59'",
                                               "'2003-19-39'",
                                               "'1.3.2003'",
                                               "'2003-03-07T10:00:00+08:00'",
                                               "'0000-00-00'",
                                               "'Z'"};
        if (below(12) == 0) begin = kOdd[below(std::size(kOdd))];
        if (below(12) == 0) end = kOdd[below(std::size(kOdd))];
        raw_->Execute("insert into tTaskList(tDuring1,tDuring2,tDone,fType,taskTitle) values(" +
                      begin + "," + end + "," + std::to_string(below(3)) + "," +
                      std::to_string(below(3)) + ",'t" + std::to_string(below(50)) + "')");
    }
    raw_->Execute("commit");

    int found = 0;
    for (int i = 0; i < 150; i++) {
        const DateTime first = i == 0 ? DateTime(2003, 3, 7)
                                      : DateTime(1997, 6, 1).AddDays(static_cast<int>(below(5000)));
        // A last day before the first is a question that a scan can be asked too.
        const DateTime last = first.AddDays(below(3) == 0 ? static_cast<int>(below(60)) - 20 : 0);
        const std::string query = DayQuery(first, last, below(2) ? " And a.tDone=0" : "");
        const auto fast = Translate(query, Indexed()).sql;
        const auto plain = Translate(query, SchemaInfo()).sql;
        ASSERT_NE(fast, plain);
        const std::string expected = RawRows(plain);
        ASSERT_EQ(RawRows(fast), expected) << query;
        found += !expected.empty();
    }
    EXPECT_GT(found, 100);
    EXPECT_EQ(RawRows("pragma integrity_check"), "ok|\n");
}

}  // namespace
}  // namespace zv::store
