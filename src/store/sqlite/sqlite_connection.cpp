#include "store/sqlite/sqlite_connection.h"

#include <sqlite3.h>

#include <type_traits>
#include <utility>

#include "base/errors.h"
#include "store/rows/keyset_recordset.h"
#include "store/rows/reading_recordset.h"
#include "store/sqlite/database_file.h"
#include "store/sqlite/result_rows.h"
#include "store/sqlite/session.h"
#include "store/sqlite/table_rows.h"

namespace zv::store {
namespace {

using sqlite::Session;
using sqlite::Statement;

class SqliteConnection final : public Connection {
 public:
    explicit SqliteConnection(std::shared_ptr<Session> session) : session_(std::move(session)) {}
    ~SqliteConnection() override { session_->Close(); }

    int State() const override { return session_->IsOpen() ? kStateOpen : kStateClosed; }

    void Close() override {
        session_->CheckOpen();
        session_->Close();
    }

    int Execute(const std::string& sql) override {
        return OfPresentSchema([&] { return ExecuteOnce(sql); });
    }

    std::unique_ptr<Recordset> Open(const std::string& sql, CursorType, LockType lock) override {
        return OfPresentSchema([&] { return OpenOnce(sql, lock); });
    }

 private:
    /// Another program may change the tables between the translation and the run. The statement has
    /// failed then without a trace, and runs again in its new form. One that changes them all the
    /// time comes in between about every fourth time; all tries do not meet it.
    static constexpr int kTries = 50;
    template <class Run>
    std::invoke_result_t<Run> OfPresentSchema(Run run) {
        for (int left = kTries - 1;; left--) {
            try {
                return run();
            } catch (const RuntimeError&) {
                const bool again = left > 0 && session_->IsOpen() && session_->CommitsByItself() &&
                                   session_->IsSchemaOld();
                if (!again) throw;
            }
        }
    }

    int ExecuteOnce(const std::string& sql) {
        const auto translation = session_->Translated(sql);
        Statement statement = session_->Prepare(translation->sql, sql);
        if (!sqlite3_stmt_readonly(statement.Handle())) session_->Recordsets()->Detach();
        const int before = session_->TotalChanges();
        while (statement.Step()) {
        }
        if (translation->kind == dialect::StatementKind::Definition) session_->ForgetSchema();
        return session_->TotalChanges() - before;
    }

    std::unique_ptr<Recordset> OpenOnce(const std::string& sql, LockType lock) {
        auto translation = session_->Translated(sql);
        if (translation->kind != dialect::StatementKind::Select) {
            throw RuntimeError(ErrorNumber::DatabaseStatement,
                               "the statement yields no rows at character 1", sqlite::kErrorSource)
                .Of(ErrorKind::Refused);
        }
        if (lock != LockType::ReadOnly && !translation->table.empty()) {
            return std::make_unique<rows::KeysetRecordset>(
                session_->Recordsets(),
                std::make_unique<sqlite::TableRows>(session_, std::move(translation), sql));
        }
        Statement statement = session_->Prepare(translation->sql, sql);
        if (!sqlite3_stmt_readonly(statement.Handle())) session_->Recordsets()->Detach();
        return std::make_unique<rows::ReadingRecordset>(
            session_->Recordsets(),
            std::make_unique<sqlite::ResultRows>(session_, std::move(statement)));
    }

    std::shared_ptr<Session> session_;
};

}  // namespace

std::unique_ptr<Connection> OpenSqlite(const std::string& path, const SqliteOptions& options) {
    return std::make_unique<SqliteConnection>(std::make_shared<Session>(path, options));
}

}  // namespace zv::store
