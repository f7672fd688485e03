// How long the embedded engine works for one statement.
#include <thread>

#include "database_fixture.h"

namespace zv::store {
namespace {

constexpr const char* kEndless =
    "with recursive n(i) as (select 1 union all select i+1 from n) select count(*) from n";

class EmbeddedTimeLimit : public DatabaseTest {
 protected:
    std::unique_ptr<Connection> Limited(int milliseconds, bool translate = false) {
        return OpenSqlite(path_, {.statementLimit = std::chrono::milliseconds(milliseconds),
                                  .translate = translate});
    }
};

TEST_F(EmbeddedTimeLimit, EndsAStatementLikeAServersDoes) {
    const auto connection = Limited(1000);
    const auto begin = std::chrono::steady_clock::now();
    const auto error = ErrorOf([&] { RowsOf(*connection, kEndless); });
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseFailure);
    EXPECT_EQ(error.Text(), "The database did not answer within the time limit (1 s). Try again.");
    EXPECT_EQ(error.Source(), "SQLite");
    EXPECT_EQ(error.Code().sqlState, "HYT00");
    EXPECT_EQ(RowsOf(*connection, "select 1"), "1");
}
TEST_F(EmbeddedTimeLimit, LeavesNothingOfAWriteThatIsEnded) {
    const auto connection = Limited(300);
    ErrorOf([&] {
        connection->Execute(
            "insert into cards(CompName) with recursive n(i) as (select 1 union all select i+1 "
            "from "
            "n) select i from n");
    });
    EXPECT_EQ(Rows("select count(*) from cards"), "0");
    EXPECT_EQ(connection->Execute("insert into cards(CompName) values('a')"), 1);
}
TEST_F(EmbeddedTimeLimit, CountsTheWorkOfAllRowsAndNotThePausesOfTheReader) {
    const auto connection = Limited(400);
    // Each row takes the engine a while.
    const std::string slow =
        "with recursive r(k) as (select 1 union all select k+1 from r where k<400) select "
        "(with recursive n(i) as (select 1 union all select i+1 from n where i<100000) select "
        "sum(i+k) from n) from r";
    const auto rows = connection->Open(slow, CursorType::ForwardOnly, LockType::ReadOnly);
    const auto error = ErrorOf([&] {
        for (; !rows->Eof(); rows->MoveNext()) {
        }
    });
    EXPECT_EQ(error.Code().sqlState, "HYT00") << error.Text();
    const auto quick = connection->Open("select 1 union all select 2", CursorType::ForwardOnly,
                                        LockType::ReadOnly);
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    quick->MoveNext();
    EXPECT_EQ(quick->Field(0).ToInt32(), 2);
}
TEST_F(EmbeddedTimeLimit, IsThatOfAServerUnlessSetOtherwise) {
    EXPECT_EQ(SqliteOptions().statementLimit, std::chrono::seconds(30));
    EXPECT_EQ(RowsOf(*Limited(0), "select 1"), "1");
}

}  // namespace
}  // namespace zv::store
