// A database of the embedded engine for the tests of plans, with a view of what is sent to it.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "database_fixture.h"
#include "store/database.h"

namespace zv::plans {

/// Statements as they are sent, and "row" for each row that is written through a recordset.
class SentStatements : public store::StatementObserver {
 public:
    void OnStatement(const std::string& sql) override {
        sent_.push_back(sql);
        if (!failing.empty() && text::Contains(sql, failing)) {
            throw RuntimeError(ErrorNumber::DatabaseFailure, failing);
        }
    }
    void OnRowUpdate() override {
        sent_.emplace_back("row");
        if (rowsToFailure_ > 0 && --rowsToFailure_ == 0) {
            throw RuntimeError(ErrorNumber::DatabaseFailure, "disk full");
        }
    }
    /// Those since the last call.
    std::vector<std::string> Take() { return std::exchange(sent_, {}); }
    /// The `count`-th row that is written from here on fails.
    void FailRow(int count) { rowsToFailure_ = count; }

    /// A statement that holds this text fails with it; empty: none does.
    std::string failing;

 private:
    std::vector<std::string> sent_;
    int rowsToFailure_ = 0;
};

class PlanDatabase : private store::ConnectionOpener {
 public:
    PlanDatabase() { store::CreateSqliteDatabase(path_); }

    /// Runs statements of the engine, separated by ";", as another program would.
    void Sql(const std::string& script) {
        for (const std::string& statement : text::Split(script, ";")) Raw()->Execute(statement);
    }
    /// A line a row, columns joined by "|", dates as the file holds them.
    std::string Rows(const std::string& query) { return store::RowsOf(*Raw(), query); }

 private:
    std::unique_ptr<store::Connection> Open(const store::ConnectionSettings&) override {
        return store::OpenSqlite(path_);
    }
    std::unique_ptr<store::Connection> Raw() const {
        store::SqliteOptions options;
        options.translate = false;
        options.datesAsText = true;
        return store::OpenSqlite(path_, options);
    }

    store::TemporaryFolder folder_;
    std::string path_ = Utf8Of(folder_ / u8"t.db");

 public:
    SentStatements statements;
    store::Database database{*this, [] { return store::ConnectionSettings{}; }, &statements};
};

}  // namespace zv::plans
