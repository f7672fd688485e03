// The calls of a database driver fail one by one, in each flow of the windows.
#include "base/errors.h"
#include "doubles/boasting_connection.h"
#include "fault_test.h"
#include "odbc_faults.h"
#include "store/sqlite/create_database.h"
#include "temporary_folder.h"

namespace zv::ring {
namespace {

// So that a minute is enough for all flows.
constexpr long kDensity = 1;

class OdbcFaultTest : public testing::TestWithParam<std::string> {
 protected:
    static void SetUpTestSuite() { UseMemoryFolder(); }
    void SetUp() override {
        if (OdbcFaults::Driver().empty()) GTEST_SKIP() << "no ODBC driver for SQLite is installed";
    }
};

/// An empty database over the driver.
class OdbcConnection : public testing::Test {
 protected:
    void SetUp() override {
        if (OdbcFaults::Driver().empty()) GTEST_SKIP() << "no ODBC driver for SQLite is installed";
        path_ = Utf8Of(folder_ / "t.db");
        store::CreateSqliteDatabase(path_);
    }
    std::unique_ptr<store::Connection> Connect() { return faults_.Options().open(path_); }

    test::TemporaryFolder folder_;
    std::string path_;
    OdbcFaults faults_;
};

TEST(OdbcFaultCorpus, HoldsNothingThatIsFoundAgain) {
    OdbcFaults faults;
    if (OdbcFaults::Driver().empty()) GTEST_SKIP() << "no ODBC driver for SQLite is installed";
    RecordProperty("played", PlayCorpus(faults));
}
TEST_F(OdbcConnection, ThatDoesNotSayWhatItsServerIsIsRefused) {
    faults_.Arm({"", "SQLGetInfoW", 1, false});
    EXPECT_THROW(Connect(), RuntimeError);
    EXPECT_TRUE(faults_.Disarm());
    EXPECT_NO_THROW(Connect());
}
TEST_F(OdbcConnection, WhoseColumnsCannotBeReadYieldsNoEmptyResult) {
    const auto connection = Connect();
    const std::string sql = "select fID,CompName from cards";
    // So that nothing but the statement itself is asked for.
    connection->Open(sql, store::CursorType::ForwardOnly, store::LockType::ReadOnly);
    for (const char* function : {"SQLNumResultCols", "SQLDescribeColW", "SQLColAttributeW"}) {
        faults_.Arm({"", function, 1, false});
        EXPECT_THROW(
            connection->Open(sql, store::CursorType::ForwardOnly, store::LockType::ReadOnly),
            RuntimeError)
            << function;
        EXPECT_TRUE(faults_.Disarm()) << function;
    }
}
TEST_F(OdbcConnection, WhoseTablesCannotBeReadLearnsNothingWrong) {
    for (long number = 1; number <= 8; number++) {
        const auto connection = Connect();
        faults_.Arm({"", "SQLGetData", number, false});
        EXPECT_THROW(connection->Open("select fID,CompName from cards", store::CursorType::Keyset,
                                      store::LockType::Optimistic),
                     RuntimeError)
            << number;
        EXPECT_TRUE(faults_.Disarm()) << number;
    }
}
TEST_F(OdbcConnection, ThatAcknowledgesWhatTheDriverRefusedIsFound) {
    const auto boast = [](const std::string& name, const FlowOptions& options) {
        FlowOptions boasting = options;
        boasting.open = [open = options.open](const std::string& path) {
            return doubles::Boast(open(path));
        };
        return MakeFlow(name, boasting);
    };
    EXPECT_TRUE(Finds("the item holds", "save", "SQLExecDirectW", faults_, boast) ||
                Finds("the item holds", "save", "SQLExecute", faults_, boast));
}

TEST_P(OdbcFaultTest, WhateverTheDriverRefusesTheFlowIsDoneOrSaysWhyAndTheFileIsSound) {
    OdbcFaults faults;
    ExpectSound(GetParam(), faults, kDensity, WindowFlows().size());
}
INSTANTIATE_TEST_SUITE_P(Flows, OdbcFaultTest, testing::ValuesIn(WindowFlows()),
                         [](const auto& flow) { return flow.param; });

}  // namespace
}  // namespace zv::ring
