#include <gtest/gtest.h>

#include "base/text.h"
#include "database_fixture.h"
#include "store/engines/engines.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/diagnostics.h"
#include "store/odbc/named_tables.h"
#include "store/odbc/row_store.h"
#include "store/odbc/worker.h"
#include "store/secrets.h"

namespace zv::store::odbc {
namespace {

using namespace std::chrono_literals;

ConnectionSettings Settings(const std::string& path) {
    ConnectionSettings settings;
    settings.kind = 1;
    settings.dataPath = path;
    settings.login = "sa";
    settings.password = "pa;ss}w{ord";
    settings.database = "tasks";
    return settings;
}
ConnectionEntries EntriesOf(const std::string& path) {
    return ConnectionEntries(OptionsFor(Settings(path)).connectionString);
}

TEST(ConnectionEntries, AreReadInAnyForm) {
    const ConnectionEntries entries(
        " driver = {A}}B} ;; Server=db ; PWD={a;b}}c} ;Empty=;Last=x=y");
    EXPECT_EQ(entries.Value("Driver"), "A}B");
    EXPECT_EQ(entries.Value("SERVER"), "db");
    EXPECT_EQ(entries.Value("pwd"), "a;b}c");
    EXPECT_TRUE(entries.Has("empty"));
    EXPECT_EQ(entries.Value("empty"), "");
    EXPECT_EQ(entries.Value("last"), "x=y");
    EXPECT_FALSE(entries.Has("other"));
}
TEST(ConnectionEntries, ComeBackWhateverTheirValuesHold) {
    for (const char* value :
         {"", "a", "a;b", "}", "{", "a}b;c=d", " a ", "{x}", "O'Brien", "标题"}) {
        ConnectionEntries entries;
        entries.Add("PWD", value);
        entries.Add("Server", "db");
        const ConnectionEntries again(entries.Text());
        EXPECT_EQ(again.Value("PWD"), value);
        EXPECT_EQ(again.Value("Server"), "db");
    }
}
TEST(ConnectionEntries, EndInsideBracesDoNotRunOver) {
    EXPECT_EQ(ConnectionEntries("PWD={abc").Value("PWD"), "abc");
    EXPECT_EQ(ConnectionEntries("PWD={").Value("PWD"), "");
    EXPECT_EQ(ConnectionEntries("PWD=").Value("PWD"), "");
    EXPECT_FALSE(ConnectionEntries("PWD").Has("PWD"));
}

TEST(OptionsFor, FillsInWhatAWholeConnectionStringLacks) {
    const auto entries = EntriesOf("Driver={Any};Server=db");
    EXPECT_EQ(entries.Value("UID"), "sa");
    EXPECT_EQ(entries.Value("PWD"), "pa;ss}w{ord");
    EXPECT_EQ(entries.Value("Database"), "tasks");
}
TEST(OptionsFor, KeepsWhatAWholeConnectionStringHolds) {
    const auto entries =
        EntriesOf("Driver={Any};Server=db;User ID=me;Password=x;Initial Catalog=d");
    EXPECT_FALSE(entries.Has("UID"));
    EXPECT_FALSE(entries.Has("PWD"));
    EXPECT_FALSE(entries.Has("Database"));
}
TEST(OptionsFor, ReadsTheFormsOfAPostgreSqlServer) {
    const auto plain = EntriesOf("postgresql:db");
    EXPECT_EQ(plain.Value("Server"), "db");
    EXPECT_FALSE(plain.Has("Port"));
    EXPECT_EQ(plain.Value("Database"), "tasks");
    const auto port = EntriesOf("PostgreSQL:db:5433");
    EXPECT_EQ(port.Value("Server"), "db");
    EXPECT_EQ(port.Value("Port"), "5433");
    const auto whole = EntriesOf("postgresql://me:secret@[::1]:5433/other");
    EXPECT_EQ(whole.Value("Server"), "::1");
    EXPECT_EQ(whole.Value("Port"), "5433");
    EXPECT_EQ(whole.Value("Database"), "other");
    EXPECT_EQ(whole.Value("UID"), "me");
    EXPECT_EQ(whole.Value("PWD"), "secret");
}
TEST(OptionsFor, LimitsTheDriverOfPostgreSqlUnlessTheCallerDid) {
    const auto entries =
        EntriesOf("Driver={PostgreSQL Unicode};Server=db;pqopt={keepalives_idle=5}");
    const std::string limits(entries.Value("pqopt"));
    EXPECT_EQ(limits.find("keepalives_idle=5"), 0U);
    EXPECT_EQ(limits.find("keepalives_idle=1"), std::string::npos);
    EXPECT_NE(limits.find("tcp_user_timeout="), std::string::npos);
}
TEST(OptionsFor, ASilentServerIsAskedAfterAThirdOfTheTimeLimit) {
    const ConnectionEntries entries(
        OptionsFor(Settings("Driver={PostgreSQL Unicode};Server=db")).connectionString);
    EXPECT_NE(entries.Value("pqopt").find("keepalives_idle=10 "), std::string::npos)
        << entries.Value("pqopt");
}
TEST(OptionsFor, ReportsAServerWithoutADriver) {
    // No driver for SQL Server comes with the system that the tests run on.
    try {
        const auto entries = EntriesOf("db\\instance");
        EXPECT_EQ(entries.Value("Server"), "db\\instance");
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::CannotCreateObject);
        EXPECT_EQ(error.Text().find("No ODBC driver for SQL Server is installed"), 0U);
    }
}
TEST(PlainAddress, NamesMachineInstanceAndPort) {
    const auto server = [](std::string_view address) {
        const auto& connecting = *engines::OfAddress(address).connecting;
        return std::string(connecting.EntriesFor(address, "SQL Server").Value("Server"));
    };
    EXPECT_EQ(server("db"), "db");
    EXPECT_EQ(server("db\\instance"), "db\\instance");
    EXPECT_EQ(server("db,1433"), "db,1433");
    EXPECT_EQ(server("db:1433"), "db,1433");
    EXPECT_EQ(server("tcp:db,1433"), "tcp:db,1433");
}
TEST(ConnectionSettings, AreNamedWithoutLoginAndPassword) {
    EXPECT_EQ(Settings("postgresql://me:secret@db:5433/x").ForMessage(), "db:5433/x");
    EXPECT_EQ(Settings("Driver={A};Server=db;UID=me;PWD=secret").ForMessage(), "db");
    EXPECT_EQ(Settings("DSN=Tasks;UID=me;PWD=secret").ForMessage(), "Tasks");
    EXPECT_EQ(Settings("db\\instance").ForMessage(), "db\\instance");
}
TEST(IsOdbcConnectionString, AsksForADriverOrADataSource) {
    EXPECT_TRUE(IsOdbcConnectionString("driver={A};Server=b"));
    EXPECT_TRUE(IsOdbcConnectionString("DSN=Tasks"));
    EXPECT_FALSE(IsOdbcConnectionString("db\\instance"));
    EXPECT_FALSE(IsOdbcConnectionString("Provider=SQLOLEDB;Data Source=db"));
    EXPECT_FALSE(IsOdbcConnectionString("C:\\Driver=\\x.mdb"));
}

Fault FaultOf(const char* state, int native, const char* text, bool connecting) {
    return Diagnose(state, native, text, connecting).fault;
}

TEST(Diagnose, DistinguishesALostConnectionFromABadStatement) {
    EXPECT_EQ(FaultOf("08S01", 0, "Communication link failure", false), Fault::ConnectionLost);
    EXPECT_EQ(FaultOf("57P01", 7, "terminating connection due to administrator command", false),
              Fault::ConnectionLost);
    EXPECT_EQ(FaultOf("HY000", 35, "server closed the connection unexpectedly", false),
              Fault::ConnectionLost);
    EXPECT_EQ(FaultOf("HYT01", 0, "Connection timeout expired", false), Fault::ConnectionLost);
    EXPECT_EQ(FaultOf("42601", 1, "ERROR: syntax error", false), Fault::Statement);
    EXPECT_EQ(FaultOf("42000", 102, "Incorrect syntax near 'x'.", false), Fault::Statement);
}
TEST(Diagnose, FindsTablesAndColumns) {
    EXPECT_EQ(FaultOf("42S02", 208, "Invalid object name 'x'.", false), Fault::Table);
    EXPECT_EQ(FaultOf("42P01", 1, "ERROR: relation \"x\" does not exist;", false), Fault::Table);
    EXPECT_EQ(FaultOf("HY000", 1, "[SQLite]no such table: x (1)", false), Fault::Table);
    EXPECT_EQ(FaultOf("42S22", 207, "Invalid column name 'x'.", false), Fault::Column);
    EXPECT_EQ(FaultOf("42703", 1, "ERROR: column \"x\" does not exist;", false), Fault::Column);
}
TEST(Diagnose, UnderstandsRefusedConnections) {
    EXPECT_EQ(FaultOf("28000", 18456, "Login failed for user 'sa'.", true), Fault::LoginRefused);
    EXPECT_EQ(FaultOf("08001", 101, "FATAL: password authentication failed for user \"a\"", true),
              Fault::LoginRefused);
    EXPECT_EQ(FaultOf("08001", 101, "FATAL: sorry, too many clients already", true),
              Fault::TooManyConnections);
    EXPECT_EQ(FaultOf("08001", 101, "FATAL: database \"x\" does not exist", true),
              Fault::DatabaseUnknown);
    EXPECT_EQ(FaultOf("42000", 4060, "Cannot open database \"x\"", true), Fault::DatabaseUnknown);
    EXPECT_EQ(FaultOf("HYT00", 0, "Login timeout expired", true), Fault::ServerUnknown);
    EXPECT_EQ(FaultOf("08001", 17, "SQL Server does not exist or access denied.", true),
              Fault::ServerUnknown);
    EXPECT_EQ(FaultOf("IM002", 0, "Data source name not found", true), Fault::DriverMissing);
    EXPECT_EQ(FaultOf("01000", 0, "Can't open lib 'x' : file not found", true),
              Fault::DriverMissing);
}
TEST(Diagnose, LeavesTheDriversWordsWithoutTheirDecorations) {
    EXPECT_EQ(
        Diagnose("42703", 1, "ERROR: column \"x\" does not exist;\nError while executing the query",
                 false)
            .text,
        "column \"x\" does not exist");
    EXPECT_EQ(Diagnose("42S02", 208, "[Microsoft][ODBC Driver 18 for SQL Server][SQL Server]Words.",
                       false)
                  .text,
              "Words.");
}
TEST(StatementError, CarriesCodesAndWords) {
    const auto error = StatementError(Diagnose("42S02", 208, "[M][D]No table.", false), {});
    EXPECT_EQ(error.Number(), ErrorNumber::DatabaseTable);
    EXPECT_EQ(error.Text(), "No table. (SQLSTATE 42S02, code 208)");
    EXPECT_EQ(error.Source(), "ODBC");
    EXPECT_EQ(error.Code().sqlState, "42S02");
    EXPECT_EQ(error.Code().native, 208);
}
TEST(WithoutSecrets, HidesLoginsPasswordsAndTheirEntries) {
    EXPECT_EQ(WithoutSecrets("login failed for user \"sa\" (secret1)", {"sa", "secret1"}),
              "login failed for user \"***\" (***)");
    EXPECT_EQ(WithoutSecrets("a sad message", {"a", "sa"}), "*** sad message");
    EXPECT_EQ(WithoutSecrets("in Driver=x;UID=me;Pwd={a;b}; there", {}),
              "in Driver=x;UID=***;Pwd=***; there");
    EXPECT_EQ(WithoutSecrets("glued:secret1secret1.", {"secret1"}), "glued:******.");
    EXPECT_EQ(WithoutSecrets("PWD=", {}), "PWD=***");
}

TEST(NamedTables, AreThoseBehindTheWordsThatLeadToTables) {
    const auto tables = [](const char* sql) { return text::Join(NamedTables(sql), " "); };
    EXPECT_EQ(tables("select fID,TaskID from tTaskList where tDone=1 order by fID,x"), "tTaskList");
    EXPECT_EQ(tables("select * from tTaskList a, cards as b where a.x=b.y"), "tTaskList cards");
    EXPECT_EQ(tables("select * from tTaskList a Left Join [my cards] b on f(a.x,b.y)=1"),
              "tTaskList my cards");
    EXPECT_EQ(tables("select * from (select a,b from T1 where c in (select d from T2)) x"),
              "T1 T2");
    EXPECT_EQ(tables("select * from dbo.cards"), "cards");
    EXPECT_EQ(tables("insert into cards(fID,Name) values(1,'from x')"), "cards");
    EXPECT_EQ(tables("insert into cards(fID,Name) select a,b from Employees"), "cards Employees");
    EXPECT_EQ(tables("Update tTaskList Set tDone=1,tDoneMan = 'x' where fID =1"), "tTaskList");
    EXPECT_EQ(tables("delete from tTaskList where taskID =1"), "tTaskList");
    EXPECT_EQ(tables("select 1"), "");
    EXPECT_EQ(tables("select * from"), "");
    EXPECT_EQ(tables("select 'open"), "");
}

TEST(RowStore, GivesRowsBackInTheirOrder) {
    RowStore rows(5);
    constexpr int kRows = 20000;
    for (int i = 0; i < kRows; i++) {
        rows.BeginRow();
        rows.AddNumber(i);
        rows.AddText(std::string(static_cast<std::size_t>(i % 100), 'x'));
        rows.AddReal(i * 0.5);
        rows.AddDate(DateTime(2003, 3, 7).AddSeconds(i));
        rows.AddNull();
        rows.EndRow();
    }
    EXPECT_EQ(rows.Left(), std::size_t{kRows});
    Value value;
    int i = 0;
    for (; rows.Advance(); i++) {
        rows.Read(0, value);
        ASSERT_EQ(value, Value(i));
        rows.Read(1, value);
        ASSERT_EQ(value, Value(std::string(static_cast<std::size_t>(i % 100), 'x')));
        rows.Read(2, value);
        ASSERT_EQ(value, Value(i * 0.5));
        rows.Read(3, value);
        ASSERT_EQ(value, Value(DateTime(2003, 3, 7).AddSeconds(i)));
        rows.Read(4, value);
        ASSERT_TRUE(value.IsNull());
    }
    EXPECT_EQ(i, kRows);
    EXPECT_FALSE(rows.Advance());
}
TEST(RowStore, TurnsUtf16IntoUtf8) {
    RowStore rows(1);
    const auto add = [&](std::u16string_view text) {
        rows.BeginRow();
        rows.AddText(text.data(), text.size());
        rows.EndRow();
    };
    add(u"aé标😀");
    add(u"");
    add(u"\xD83D");
    add(u"\xDE00x");
    add(std::u16string_view(u"a\0b", 3));
    const std::vector<std::string> expected{"aé标😀", "", "\xEF\xBF\xBD", "\xEF\xBF\xBDx",
                                            std::string("a\0b", 3)};
    for (const std::string& text : expected) {
        ASSERT_TRUE(rows.Advance());
        Value value;
        rows.Read(0, value);
        EXPECT_EQ(value, Value(text));
    }
}

TEST(Worker, AnswersAndRethrows) {
    Worker worker;
    EXPECT_EQ(worker.Run([] { return 7; }, 1s, 2s, {}), std::optional<int>(7));
    EXPECT_EQ(ErrorOf([&] {
                  worker.Run([]() -> int { throw RuntimeError(ErrorNumber::Overflow); }, 1s, 2s,
                             {});
              }).Number(),
              ErrorNumber::Overflow);
    EXPECT_EQ(worker.Run([] { return 8; }, 1s, 2s, {}), std::optional<int>(8));
}
TEST(Worker, LeavesAJobAloneThatDoesNotEndInTime) {
    std::promise<void> release;
    const std::shared_future<void> released = release.get_future().share();
    bool late = false;
    {
        Worker worker;
        const auto answer = worker.Run(
            [released] {
                released.wait();
                return 7;
            },
            10ms, 30ms, [&] { late = true; });
        EXPECT_FALSE(answer.has_value());
        EXPECT_TRUE(worker.IsAbandoned());
    }
    EXPECT_TRUE(late);
    EXPECT_EQ(AbandonedThreads(), 1);
    release.set_value();
    for (int wait = 0; wait < 200 && AbandonedThreads() > 0; wait++)
        std::this_thread::sleep_for(5ms);
    EXPECT_EQ(AbandonedThreads(), 0);
}

}  // namespace
}  // namespace zv::store::odbc
