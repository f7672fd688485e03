// The shared connection on each engine of the store suite, and what is sent over it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "engines.h"
#include "store/database.h"

namespace zv::store {

class TestOpener final : public ConnectionOpener {
 public:
    std::unique_ptr<Connection> Open(const ConnectionSettings&) override {
        opened++;
        if (refuse) throw RuntimeError(ErrorNumber::DatabaseFailure, "refused");
        return database->Connect();
    }
    TestDatabase* database = nullptr;
    int opened = 0;
    bool refuse = false;
};

class TestLog final : public StatementObserver {
 public:
    void OnStatement(const std::string& sql) override {
        statements.push_back(sql);
        if (fail) throw RuntimeError(ErrorNumber::DatabaseFailure, "told to fail");
    }
    void OnRowUpdate() override {
        updates++;
        if (fail) throw RuntimeError(ErrorNumber::DatabaseFailure, "told to fail");
    }
    std::vector<std::string> statements;
    int updates = 0;
    bool fail = false;
};

/// Tests of what stands on the shared connection, with a view of its statements.
class WatchedDatabaseTest : public EngineTest {
 protected:
    void SetUp() override {
        EngineTest::SetUp();
        opener_.database = EngineTest::database_.get();
    }

    TestOpener opener_;
    TestLog log_;
    Database database_{opener_, [] { return ConnectionSettings{}; }, &log_};
};

}  // namespace zv::store
