// Whether a PostgreSQL server has the index over alert windows.
#include <gtest/gtest.h>

#include "store/engines/engines.h"
#include "test_server/scratch_schema.h"

namespace zv::store {
namespace {

class PostgreSqlWindowIndex : public ::testing::Test {
 protected:
    void SetUp() override {
        if (test_server::Address().empty()) {
            GTEST_SKIP() << "engine PostgreSql is missing: ZV_TEST_POSTGRESQL names no server";
        }
        schema_ = MakeSchema();
        connection_ = test_server::ConnectRaw(schema_->Address());
    }
    void TearDown() override {
        connection_.reset();
        if (schema_) schema_->Drop();
    }

    static std::unique_ptr<test_server::ScratchSchema> MakeSchema() {
        auto schema =
            std::make_unique<test_server::ScratchSchema>(test_server::Address(), "zv_test");
        schema->CreateTables();
        return schema;
    }
    bool IsFound() {
        return !connection_
                    ->Open(engines::Of("postgresql").facts->WindowIndexQuestion(),
                           CursorType::ForwardOnly, LockType::ReadOnly)
                    ->Eof();
    }

    std::unique_ptr<test_server::ScratchSchema> schema_;
    std::unique_ptr<Connection> connection_;
};

TEST_F(PostgreSqlWindowIndex, IsThatOfTheConnectionsOwnTables) {
    const auto other = MakeSchema();
    EXPECT_TRUE(IsFound());
    connection_->Execute("drop index ttasklist_window");
    EXPECT_FALSE(IsFound());
    connection_->Execute("create index ttasklist_window on cards(fid)");
    EXPECT_FALSE(IsFound());
    connection_->Execute("drop index ttasklist_window");
    connection_->Execute("create index ttasklist_window on ttasklist(tduring1,tduring2)");
    EXPECT_FALSE(IsFound());
    other->Drop();
}

TEST_F(PostgreSqlWindowIndex, IsFoundWhileSomebodyDropsTablesElsewhere) {
    const auto other = MakeSchema();
    const auto dropping = test_server::ConnectRaw(test_server::Address());
    dropping->Execute("begin");
    dropping->Execute("drop schema " + other->Name() + " cascade");
    connection_->Execute("set lock_timeout=1000");
    EXPECT_TRUE(IsFound());
    dropping->Execute("rollback");
    other->Drop();
}

}  // namespace
}  // namespace zv::store
