#include "statement_tables.h"

#include <sqlite3.h>

#include "fixture.h"
#include "store/engines/engines.h"
#include "store/sqlite/create_database.h"
#include "store/sqlite/sqlite_connection.h"

namespace zv::fuzz {
namespace {

constexpr std::size_t kMostRows = 200;
constexpr int kOperations = 10'000;
constexpr int kMostRounds = 20;

}  // namespace

void Finalise::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

StatementTables::StatementTables() {
    const std::string path = (folder_ / "tasks.db").string();
    store::CreateSqliteDatabase(path);
    {
        const auto connection = store::OpenSqlite(path);
        for (const std::string& sql : store::ReadDataStatements()) connection->Execute(sql);
    }
    store::SqliteOptions options;
    options.statementLimit = {};
    session_ = std::make_unique<store::sqlite::Session>(path, options);
    auto columns = session_->Prepare(
        "select t.name,c.name,c.type,c.pk from sqlite_schema t join pragma_table_info(t.name) c"
        " where t.type='table' and t.name not like 'sqlite_%'",
        {});
    while (columns.Step()) {
        const std::string column = columns.ColumnValue(1).ToText();
        serverSchema_.AddColumn(column, columns.ColumnValue(2).ToText());
        if (columns.ColumnValue(3).ToInt32() > 0) {
            serverSchema_.AddKey(columns.ColumnValue(0).ToText(), column);
        }
    }
    serverSchema_.windowIndex = store::engines::Of("postgresql").facts->WindowIndex();
}

Prepared StatementTables::Prepare(const std::string& sql, std::string& tail) {
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    sqlite3_prepare_v2(session_->Handle(), sql.data(), static_cast<int>(sql.size()), &statement,
                       &rest);
    tail.assign(rest, sql.data() + sql.size());
    return Prepared(statement);
}

std::string StatementTables::LastError() const {
    return sqlite3_errmsg(session_->Handle());
}

std::optional<std::vector<std::string>> StatementTables::RowsOf(sqlite3_stmt* statement) {
    int rounds = 0;
    sqlite3_progress_handler(
        session_->Handle(), kOperations,
        [](void* count) { return ++*static_cast<int*>(count) > kMostRounds ? 1 : 0; }, &rounds);
    std::vector<std::string> rows;
    int code = SQLITE_ROW;
    while (rows.size() <= kMostRows && (code = sqlite3_step(statement)) == SQLITE_ROW) {
        std::string& row = rows.emplace_back();
        for (int column = 0; column < sqlite3_column_count(statement); column++) {
            const auto* text = sqlite3_column_text(statement, column);
            row += text ? reinterpret_cast<const char*>(text) : "NULL";
            if (sqlite3_column_count(statement) > 1) row += '|';
        }
    }
    sqlite3_reset(statement);
    sqlite3_progress_handler(session_->Handle(), 0, nullptr, nullptr);
    if (code != SQLITE_DONE) return std::nullopt;
    return rows;
}

}  // namespace zv::fuzz
