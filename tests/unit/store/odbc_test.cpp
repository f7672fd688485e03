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
    for (const char* value : {"", "a", "a;b", "}", "{", "a}b;c=d", " a ", "\ta", "a\n", "\r\na",
                              "{x}", "\"a\"", "O'Brien", "标题"}) {
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
TEST(OptionsFor, TellsTheDriverOfPostgreSqlHowToNoticeASilentServer) {
    const auto completed = [](const char* given, std::chrono::milliseconds limit) {
        ConnectionEntries entries(given);
        engines::Of("postgresql").connecting->Complete(entries, limit);
        return entries;
    };
    const auto usual = completed("Server=db", 30s);
    EXPECT_EQ(usual.Value("pqopt"),
              "keepalives_idle=10 keepalives_interval=3 keepalives_count=3 tcp_user_timeout=30000");
    EXPECT_EQ(usual.Value("BoolsAsChar"), "0");
    EXPECT_EQ(completed("", 18s).Value("pqopt"),
              "keepalives_idle=6 keepalives_interval=1 keepalives_count=3 tcp_user_timeout=18000");
    EXPECT_NE(completed("", 2997ms).Value("pqopt").find("tcp_user_timeout=2000"),
              std::string::npos);
    // Nothing is less than a second, and nobody waits less than two.
    EXPECT_EQ(completed("", 500ms).Value("pqopt"),
              "keepalives_idle=1 keepalives_interval=1 keepalives_count=3 tcp_user_timeout=2000");
    const auto given = completed("BoolsAsChar=1;pqopt={tcp_user_timeout=7}", 30s);
    EXPECT_EQ(given.Value("pqopt"),
              "tcp_user_timeout=7 keepalives_idle=10 keepalives_interval=3 keepalives_count=3");
    EXPECT_EQ(given.Value("BoolsAsChar"), "1");
}
TEST(OptionsFor, ReadsLoginAndPlaceOfAPostgreSqlAddressAsFarAsTheyGo) {
    const auto text = [](const char* address) {
        return engines::Of("postgresql").connecting->EntriesFor(address, "d").Text();
    };
    EXPECT_EQ(text("postgresql:"), "Driver={d};Server=localhost;");
    EXPECT_EQ(text("postgresql:/tasks"), "Driver={d};Server=localhost;Database=tasks;");
    EXPECT_EQ(text("postgresql:db/"), "Driver={d};Server=db;");
    EXPECT_EQ(text("postgresql:me@db"), "Driver={d};Server=db;UID=me;");
    EXPECT_EQ(text("postgresql:me:@db"), "Driver={d};Server=db;UID=me;PWD=;");
    EXPECT_EQ(text("postgresql://me:a:b@db:1/t/x"),
              "Driver={d};Server=db;Port=1;Database=t/x;UID=me;PWD=a:b;");
}
TEST(DriverOfPostgreSql, IsKnownByEitherName) {
    for (const char* driver : {"PostgreSQL Unicode", "psqlODBC"}) {
        EXPECT_EQ(engines::OfDriver(driver), &engines::Of("postgresql")) << driver;
    }
}
TEST(HostAndPort, AreSeparatedByAColonOrAComma) {
    const auto parts = [](std::string_view text) {
        const auto [host, port] = engines::HostAndPort(text);
        return std::string(host) + "|" + std::string(port);
    };
    EXPECT_EQ(parts("db"), "db|");
    EXPECT_EQ(parts("db:5432"), "db|5432");
    EXPECT_EQ(parts("db,1433"), "db|1433");
    EXPECT_EQ(parts("db:65535"), "db|65535");
    EXPECT_EQ(parts("db:655350"), "db:655350|");
    EXPECT_EQ(parts("db:"), "db:|");
    EXPECT_EQ(parts("db:x1"), "db:x1|");
    EXPECT_EQ(parts("[::1]:5433"), "::1|5433");
    EXPECT_EQ(parts("[::1]"), "::1|");
    EXPECT_EQ(parts("[::1]5433"), "::1|");
    EXPECT_EQ(parts("[::1]:x"), "::1|");
    EXPECT_EQ(parts("[::1"), "[::1|");
    EXPECT_EQ(parts(""), "|");
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

TEST(IsForOdbc, TakesAlsoAddressesThatNameTheirServer) {
    EXPECT_TRUE(IsForOdbc("DSN=Tasks"));
    EXPECT_TRUE(IsForOdbc(" PostgreSQL:db"));
    EXPECT_FALSE(IsForOdbc("db"));
    EXPECT_FALSE(IsForOdbc("Provider=SQLOLEDB;Data Source=db"));
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
TEST(Diagnose, WordsOfALostConnectionCountWhateverTheStateSays) {
    for (const char* state : {"42601", "HY000", "S1000", ""}) {
        EXPECT_EQ(FaultOf(state, 0, "Server closed the connection unexpectedly", false),
                  Fault::ConnectionLost)
            << state;
    }
}
TEST(Diagnose, OtherWordsCountOnlyWhereTheStateSaysNothing) {
    EXPECT_EQ(FaultOf("HY000", 1, "no such table: x", false), Fault::Table);
    EXPECT_EQ(FaultOf("S1000", 1, "near \"x\": syntax error", false), Fault::Statement);
    EXPECT_EQ(FaultOf("42S22", 1, "no such table: x", false), Fault::Column);
    EXPECT_EQ(FaultOf("23505", 1, "the value 'no such table' is there already", false),
              Fault::Other);
    EXPECT_EQ(FaultOf("HY000", 1, "something else", false), Fault::Other);
}
TEST(Diagnose, KnowsTheStatesOfAllDrivers) {
    struct Case {
        const char* state;
        Fault fault;
        Fault connecting;
    };
    for (const Case& each :
         std::vector<Case>{{"S0002", Fault::Table, Fault::Table},
                           {"S0022", Fault::Column, Fault::Column},
                           {"42999", Fault::Statement, Fault::Statement},
                           {"37000", Fault::Statement, Fault::Statement},
                           {"07002", Fault::Statement, Fault::Statement},
                           {"28000", Fault::LoginRefused, Fault::LoginRefused},
                           {"3D000", Fault::DatabaseUnknown, Fault::DatabaseUnknown},
                           {"HYT00", Fault::TimeLimit, Fault::ServerUnknown},
                           {"S1T00", Fault::TimeLimit, Fault::ServerUnknown},
                           {"HY008", Fault::TimeLimit, Fault::ServerUnknown},
                           {"57014", Fault::TimeLimit, Fault::ServerUnknown},
                           {"HYT01", Fault::ConnectionLost, Fault::ServerUnknown},
                           {"08S01", Fault::ConnectionLost, Fault::ServerUnknown},
                           {"IM003", Fault::DriverMissing, Fault::DriverMissing},
                           {"IM004", Fault::DriverMissing, Fault::DriverMissing},
                           {"53300", Fault::TooManyConnections, Fault::TooManyConnections},
                           // What it is else is for the kinds of errors to say.
                           {"42501", Fault::Other, Fault::Other},
                           {"23505", Fault::Other, Fault::Other},
                           {"01000", Fault::Other, Fault::Other}}) {
        EXPECT_EQ(FaultOf(each.state, 0, "words", false), each.fault) << each.state;
        EXPECT_EQ(FaultOf(each.state, 0, "words", true), each.connecting) << each.state;
    }
}
TEST(Diagnose, OfAConnectionTheServersNumberComesFirstAndThenTheDriverManager) {
    EXPECT_EQ(FaultOf("08001", 18456, "timeout", true), Fault::LoginRefused);
    EXPECT_EQ(FaultOf("08001", 4060, "timeout", true), Fault::DatabaseUnknown);
    // Of a statement it says nothing of a login.
    EXPECT_EQ(FaultOf("HY000", 18456, "words", false), Fault::Other);
    EXPECT_EQ(FaultOf("HY000", 0, "Data source name not found; connection refused", true),
              Fault::DriverMissing);
    for (const char* words :
         {"timeout expired", "Timed out", "connection refused", "could not connect to it",
          "No route to host", "network is unreachable", "the database system is starting up"}) {
        EXPECT_EQ(FaultOf("HY000", 0, words, true), Fault::ServerUnknown) << words;
    }
}
TEST(Diagnose, TakesOnlyWholeDecorationsFromTheWords) {
    const auto words = [](const char* text) { return Diagnose("HY000", 0, text, false).text; };
    EXPECT_EQ(words("[A][B] [c] d"), "[c] d");
    EXPECT_EQ(words("[open text"), "[open text");
    EXPECT_EQ(words("FATAL:  gone \r\n "), "gone");
    EXPECT_EQ(words("an ERROR: inside"), "an ERROR: inside");
    EXPECT_EQ(words(" \r\n"), "");
    EXPECT_EQ(words(""), "");
}
TEST(ConnectError, SaysWhatHelps) {
    const auto text = [](Fault fault) {
        const RuntimeError error = ConnectError({fault, {"HY000", 7}, "words of sa"}, "db", {"sa"});
        EXPECT_EQ(error.Source(), "ODBC");
        EXPECT_EQ(error.Code().native, 7);
        EXPECT_EQ(error.Number(), fault == Fault::DriverMissing ? ErrorNumber::CannotCreateObject
                                                                : ErrorNumber::DatabaseFailure);
        return error.Text();
    };
    const std::string head = "Cannot connect to the database server \"db\": ";
    EXPECT_EQ(text(Fault::LoginRefused), head + "the server refused the login.");
    for (const Fault silent : {Fault::ServerUnknown, Fault::ConnectionLost}) {
        EXPECT_EQ(text(silent), head + "the server cannot be reached or does not answer.");
    }
    EXPECT_EQ(text(Fault::TimeLimit), head + "the server did not answer within the time limit.");
    EXPECT_EQ(text(Fault::DatabaseUnknown), head + "the server has no such database.");
    EXPECT_EQ(text(Fault::TooManyConnections),
              head + "the server has no connection left. Try again later.");
    EXPECT_EQ(text(Fault::DriverMissing),
              head + "its ODBC driver or data source is not installed.");
    EXPECT_EQ(text(Fault::Other), head + "words of *** (SQLSTATE HY000, code 7)");
}
TEST(StatementError, HasANumberForWhatIsWrong) {
    struct Case {
        Fault fault;
        ErrorNumber number;
        const char* text;
    };
    for (const Case& each :
         std::vector<Case>{{Fault::Table, ErrorNumber::DatabaseTable, "words of ***"},
                           {Fault::Column, ErrorNumber::DatabaseColumn, "words of ***"},
                           {Fault::Statement, ErrorNumber::DatabaseStatement, "words of ***"},
                           {Fault::Other, ErrorNumber::DatabaseFailure, "words of ***"},
                           {Fault::TimeLimit, ErrorNumber::DatabaseFailure,
                            "The database server did not answer within the time limit."},
                           {Fault::ConnectionLost, ErrorNumber::DatabaseFailure,
                            "The connection to the database server was lost. Try again."}}) {
        const RuntimeError error =
            StatementError({each.fault, {"HY000", -7}, "words of sa"}, {"sa"});
        EXPECT_EQ(error.Number(), each.number);
        EXPECT_EQ(error.Text(), std::string(each.text) + " (SQLSTATE HY000, code -7)");
    }
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
