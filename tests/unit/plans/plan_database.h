// A database of the embedded engine for the tests of plans, with a view of what is sent to it.
#pragma once

#include <memory>
#include <string>

#include "base/text.h"
#include "database_fixture.h"
#include "doubles/recorded_statements.h"
#include "doubles/recording_opener.h"
#include "store/database.h"

namespace zv::plans {

/// Rows that are written are told beside the statements.
class PlanDatabase {
 public:
    PlanDatabase() {
        store::CreateSqliteDatabase(path_);
        opener_.open = [this](const store::ConnectionSettings&) {
            return store::OpenSqlite(path_);
        };
        statements.tellsRows = true;
    }

    /// Runs statements of the engine, separated by ";", as another program would.
    void Sql(const std::string& script) {
        for (const std::string& statement : text::Split(script, ";")) Raw()->Execute(statement);
    }
    /// A line a row, columns joined by "|", dates as the file holds them.
    std::string Rows(const std::string& query) { return doubles::RowsOf(*Raw(), query); }

 private:
    std::unique_ptr<store::Connection> Raw() const {
        store::SqliteOptions options;
        options.translate = false;
        options.datesAsText = true;
        return store::OpenSqlite(path_, options);
    }

    store::TemporaryFolder folder_;
    std::string path_ = Utf8Of(folder_ / u8"t.db");
    doubles::RecordingOpener opener_;

 public:
    doubles::RecordedStatements statements;
    store::Database database{opener_, [] { return store::ConnectionSettings{}; }, &statements};
};

}  // namespace zv::plans
