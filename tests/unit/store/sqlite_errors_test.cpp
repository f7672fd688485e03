// The numbers and places of the errors of the embedded engine.
#include "database_fixture.h"

namespace zv::store {
namespace {

class SqliteErrors : public DatabaseTest {
 protected:
    RuntimeError Error(const std::string& sql) {
        const auto raw = OpenSqlite(path_, {.translate = false});
        return ErrorOf([&] { raw->Execute(sql); });
    }
    void Expect(ErrorNumber number, const std::vector<std::string>& statements) {
        for (const std::string& sql : statements) {
            const RuntimeError error = Error(sql);
            EXPECT_EQ(error.Number(), number) << sql.substr(0, 80) << ": " << error.Text();
            EXPECT_EQ(error.Source(), "SQLite");
        }
    }
};

TEST_F(SqliteErrors, TablesAndColumnsThatAreNotThereHaveTheirNumbers) {
    Expect(ErrorNumber::DatabaseTable, {"select * from nowhere", "drop table nowhere"});
    Expect(ErrorNumber::DatabaseColumn,
           {"select missing from cards", "insert into cards(missing) values(1)",
            "select fID from cards a,cards b"});
}
TEST_F(SqliteErrors, WhatIsNoStatementHasTheNumberOfOne) {
    std::string terms = "select 1";
    for (int i = 0; i < 501; i++) terms += " union all select 1";
    std::string deep = "select 1";
    for (int i = 0; i < 1100; i++) deep += "+1";
    Expect(ErrorNumber::DatabaseStatement,
           {"select from", "selct 1", "select nothing(1)", "select abs()", "select 1 where",
            "select 'open", "select fID from cards where max(fID)=1", terms, deep,
            "insert into tRsBasic(fCode,fName) values(1)", "select 1 union select 1,2"});
}
TEST_F(SqliteErrors, EverythingElseIsAFailure) {
    Execute("insert into tTaskSet(TaskID) values(1)");
    Expect(ErrorNumber::DatabaseFailure,
           {"insert into tTaskSet(TaskID) values(1)", "select abs(-9223372036854775807-1)"});
}
TEST_F(SqliteErrors, ExactlyOneStatementIsExpected) {
    for (const char* sql : {"select 1;select 2", "", " ", ";", "-- nothing"}) {
        const RuntimeError error = Error(sql);
        EXPECT_EQ(error.Text(), "exactly one statement is expected") << sql;
        EXPECT_EQ(error.Kind(), ErrorKind::Refused);
    }
    const auto raw = OpenSqlite(path_, {.translate = false});
    EXPECT_EQ(raw->Execute("delete from cards; \t\r\n;"), 0);
}
TEST_F(SqliteErrors, ThePlaceIsThatOfTheNameInTheStatementAsItWasWritten) {
    const auto text = [&](const std::string& sql) { return ErrorOf([&] { Execute(sql); }).Text(); };
    EXPECT_EQ(text("delete from nowhere"), "no such table: nowhere at character 13");
    EXPECT_EQ(text("delete from cards where [no thing]=1"),
              "no such column: no thing at character 25");
    EXPECT_EQ(text("delete from cards where cards.Missing=1").substr(0, 22),
              "no such column: cards.");
    EXPECT_EQ(text("delete from cards where 'missing'='x' and missing=1"),
              "no such column: missing at character 43");
    EXPECT_EQ(text("insert into cards(fID,missing) values(1,2)"),
              "table cards has no column named missing at character 23");
    // In a statement of the engine's own no place is known.
    EXPECT_EQ(Error("delete from cards where missing=~1").Text(), "no such column: missing");
}

}  // namespace
}  // namespace zv::store
