// What users of a server meet: it stops, it comes back, it answers slowly or not at all, it
// refuses. Each has one plain message, and the next action after the fault works.

#include <chrono>
#include <cstdlib>

#include "doubles/recording_opener.h"
#include "engines.h"
#include "proxy.h"
#include "store/database.h"
#include "store/odbc/connection_string.h"
#include "store/odbc/worker.h"
#include "test_server/scratch_schema.h"

namespace zv::store {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

class ServerFault : public ::testing::Test {
 protected:
    ServerFault() {
        opener_.open = [this](const ConnectionSettings& settings) { return Open(settings); };
    }
    void SetUp() override {
        direct_ = test_server::Address();
        if (direct_.empty()) {
            GTEST_SKIP() << "engine PostgreSql is missing: ZV_TEST_POSTGRESQL names no server";
        }
        const std::string port(ConnectionEntries(direct_).Value("Port"));
        proxy_ = std::make_unique<Proxy>(std::atoi(port.c_str()));
        entries_ = ConnectionEntries(direct_);
        entries_.Remove("Port");
        entries_.Add("Port", std::to_string(proxy_->Port()));
    }

    std::unique_ptr<Connection> Open(const ConnectionSettings& settings) const {
        odbc::OdbcOptions options = odbc::OptionsFor(settings);
        options.translate = false;
        options.connectLimit = limit_;
        options.statementLimit = limit_;
        return odbc::OpenOdbc(options);
    }
    ConnectionSettings Settings() const {
        ConnectionSettings settings;
        settings.kind = 1;
        settings.dataPath = entries_.Text();
        return settings;
    }
    /// Works past the proxy.
    std::unique_ptr<Connection> Direct() {
        ConnectionSettings settings;
        settings.kind = 1;
        settings.dataPath = direct_;
        return Open(settings);
    }
    /// One action of a user: the connection is made sure of, then used.
    std::string Act(const std::string& sql = "select 7 as n") {
        database_.EnsureConnection();
        const auto rows = database_.Open(sql);
        return rows->Field(0).ToText();
    }
    RuntimeError ActingFails(const std::string& sql = "select 7 as n") {
        const auto start = steady_clock::now();
        RuntimeError error = ErrorOf([&] { Act(sql); });
        took_ = steady_clock::now() - start;
        return error;
    }
    static bool Has(const RuntimeError& error, std::string_view part) {
        return error.Text().find(part) != std::string::npos;
    }

    std::string direct_;
    ConnectionEntries entries_;
    std::unique_ptr<Proxy> proxy_;
    std::chrono::milliseconds limit_ = 3s;
    std::chrono::nanoseconds took_{};
    doubles::RecordingOpener opener_;
    Database database_{opener_, [this] { return Settings(); }};
};

TEST_F(ServerFault, AServerThatStopsIsReportedOnceAndTheNextActionOpensAgain) {
    EXPECT_EQ(Act(), "7");
    proxy_->Cut();
    const auto error = ActingFails();
    EXPECT_TRUE(Has(error, "The connection to the database server was lost. Try again."))
        << error.Text();
    EXPECT_FALSE(database_.IsOpen());
    EXPECT_EQ(Act(), "7");
}
TEST_F(ServerFault, AServerThatIsGoneIsReportedUntilItIsBack) {
    EXPECT_EQ(Act(), "7");
    proxy_->Refuse(true);
    proxy_->Cut();
    EXPECT_TRUE(Has(ActingFails(), "lost"));
    for (int attempt = 0; attempt < 2; attempt++) {
        const auto error = ActingFails();
        EXPECT_TRUE(Has(error, "cannot be reached or does not answer")) << error.Text();
        EXPECT_FALSE(database_.IsOpen());
    }
    proxy_->Refuse(false);
    EXPECT_EQ(Act(), "7");
}
TEST_F(ServerFault, AConnectionThatTheServerEndsIsLost) {
    const std::string id = Act("select pg_backend_pid() as id");
    Direct()->Execute("select pg_terminate_backend(" + id + ")");
    const auto error = ActingFails();
    EXPECT_TRUE(Has(error, "The connection to the database server was lost.")) << error.Text();
    EXPECT_EQ(Act(), "7");
}
TEST_F(ServerFault, AStatementThatRunsTooLongEndsAndTheConnectionStays) {
    const std::string id = Act("select pg_backend_pid() as id");
    const auto error = ActingFails("select pg_sleep(30)");
    EXPECT_TRUE(Has(error, "did not answer within the time limit")) << error.Text();
    EXPECT_LE(took_, limit_ + 200ms);
    EXPECT_TRUE(database_.IsOpen());
    EXPECT_EQ(Act("select pg_backend_pid() as id"), id);
}
TEST_F(ServerFault, ANetworkThatFallsSilentBlocksNoLongerThanTheLimit) {
    EXPECT_EQ(Act(), "7");
    proxy_->Freeze(true);
    const auto error = ActingFails();
    EXPECT_TRUE(Has(error, "did not answer within the time limit (3 s)")) << error.Text();
    EXPECT_LE(took_, limit_ + 200ms);
    EXPECT_FALSE(database_.IsOpen());

    const auto again = ActingFails();
    EXPECT_TRUE(Has(again, "answer")) << again.Text();
    EXPECT_LE(took_, limit_ + 200ms);

    proxy_->Freeze(false);
    proxy_->Cut();
    EXPECT_EQ(Act(), "7");
    // What was left alone with the driver comes to its end.
    for (int wait = 0; wait < 100 && odbc::AbandonedThreads() > 0; wait++) {
        std::this_thread::sleep_for(50ms);
    }
    EXPECT_EQ(odbc::AbandonedThreads(), 0);
}
TEST_F(ServerFault, AnAddressThatNeverAnswersBlocksNoLongerThanTheLimit) {
    proxy_->Freeze(true);
    const auto error = ActingFails();
    EXPECT_TRUE(Has(error, "answer")) << error.Text();
    EXPECT_LE(took_, limit_ + 200ms);
    proxy_->Freeze(false);
    proxy_->Cut();
    EXPECT_EQ(Act(), "7");
}
TEST_F(ServerFault, ARowThatIsBeingWrittenWhenTheConnectionFailsIsReported) {
    const auto server = Direct();
    server->Execute("set client_min_messages=warning");
    server->Execute("drop table if exists zv_fault");
    server->Execute("create table zv_fault(id integer primary key, t text)");
    server->Execute("insert into zv_fault values(1,'a')");
    database_.EnsureConnection();
    database_.Execute("update zv_fault set t='b'");
    proxy_->Cut();
    EXPECT_TRUE(Has(ErrorOf([&] { database_.Execute("update zv_fault set t='c'"); }), "lost"));
    EXPECT_EQ(Act("select t from zv_fault"), "b");
    server->Execute("drop table zv_fault");
}
TEST_F(ServerFault, ARefusedLoginIsReportedWithoutLoginAndPassword) {
    const auto server = Direct();
    server->Execute("set client_min_messages=warning");
    server->Execute("drop role if exists zv_refused");
    server->Execute("create role zv_refused login password 'Geheimnis7'");
    entries_.Remove("Uid");
    entries_.Remove("Pwd");
    entries_.Add("Uid", "zv_refused");
    entries_.Add("Pwd", "falsches Wort");
    const auto error = ActingFails();
    EXPECT_EQ(error.Text(),
              "Cannot connect to the database server \"127.0.0.1\": the server refused the login.");
    server->Execute("drop role zv_refused");
}
TEST_F(ServerFault, TooManyConnectionsAreReportedAndPass) {
    const auto server = Direct();
    server->Execute("set client_min_messages=warning");
    server->Execute("drop role if exists zv_crowded");
    server->Execute("create role zv_crowded login password 'Geheimnis7' connection limit 1");
    entries_.Remove("Uid");
    entries_.Remove("Pwd");
    entries_.Add("Uid", "zv_crowded");
    entries_.Add("Pwd", "Geheimnis7");
    {
        const auto first = Open(Settings());
        const auto error = ActingFails();
        EXPECT_TRUE(Has(error, "the server has no connection left.")) << error.Text();
    }
    std::this_thread::sleep_for(200ms);
    EXPECT_EQ(Act(), "7");
    database_.Close();
    std::this_thread::sleep_for(200ms);
    server->Execute("drop role zv_crowded");
}
TEST_F(ServerFault, ADatabaseThatIsNotThereIsReported) {
    entries_.Remove("Database");
    entries_.Add("Database", "zv_nowhere");
    EXPECT_TRUE(Has(ActingFails(), "the server has no such database."));
}
TEST_F(ServerFault, AMachineThatIsNotThereIsReported) {
    entries_.Remove("Server");
    entries_.Add("Server", "no-such-machine.invalid");
    EXPECT_TRUE(Has(ActingFails(), "the server cannot be reached or does not answer."));
}
TEST_F(ServerFault, ADriverThatIsNotInstalledIsReported) {
    entries_ = ConnectionEntries("Driver={No such driver};Server=x");
    const auto error = ActingFails();
    EXPECT_TRUE(Has(error, "its ODBC driver or data source is not installed.")) << error.Text();
    EXPECT_EQ(error.Number(), ErrorNumber::CannotCreateObject);
}

}  // namespace
}  // namespace zv::store
