// The shared connection on each engine of the store suite, and what is sent over it.
#pragma once

#include <memory>

#include "doubles/recorded_statements.h"
#include "doubles/recording_opener.h"
#include "engines.h"
#include "store/database.h"

namespace zv::store {

/// Tests of what stands on the shared connection, with a view of its statements.
class WatchedDatabaseTest : public EngineTest {
 protected:
    void SetUp() override {
        EngineTest::SetUp();
        opener_.open = [this](const ConnectionSettings&) {
            return EngineTest::database_->Connect();
        };
    }
    void RefuseConnections() {
        opener_.open = [](const ConnectionSettings&) -> std::unique_ptr<Connection> {
            throw RuntimeError(ErrorNumber::DatabaseFailure, "refused");
        };
    }

    template <class Act>
    static ErrorKind KindOf(Act&& act) {
        try {
            act();
        } catch (const RuntimeError& error) {
            return error.Kind();
        }
        ADD_FAILURE() << "no error";
        return {};
    }

    doubles::RecordingOpener opener_;
    doubles::RecordedStatements log_;
    Database database_{opener_, [] { return ConnectionSettings{}; }, &log_};
};

}  // namespace zv::store
