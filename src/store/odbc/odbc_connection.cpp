#include "store/odbc/odbc_connection.h"

#include <utility>

#include "base/errors.h"
#include "store/odbc/result_rows.h"
#include "store/odbc/session.h"
#include "store/odbc/table_rows.h"
#include "store/rows/keyset_recordset.h"
#include "store/rows/reading_recordset.h"

namespace zv::store::odbc {
namespace {

class OdbcConnection final : public Connection {
 public:
    explicit OdbcConnection(std::shared_ptr<Session> session) : session_(std::move(session)) {}
    ~OdbcConnection() override { session_->Close(); }

    int State() const override { return session_->IsOpen() ? kStateOpen : kStateClosed; }

    void Close() override {
        session_->CheckOpen();
        session_->Close();
    }

    int Execute(const std::string& sql) override {
        return OfPresentFacts<int>(sql, [&](const auto& translation) {
            const Result result = session_->Run(translation->sql);
            if (translation->kind == dialect::StatementKind::Definition) session_->ForgetSchema();
            return result.columns.empty() ? result.changed : 0;
        });
    }

    std::unique_ptr<Recordset> Open(const std::string& sql, CursorType, LockType lock) override {
        return OfPresentFacts<std::unique_ptr<Recordset>>(
            sql, [&](const auto& translation) { return OpenTranslated(translation, lock); });
    }

 private:
    using Translation = std::shared_ptr<const dialect::Translation>;

    /// Other programs may have changed the tables since they were looked at. A statement that fails
    /// has changed nothing, and runs again when its translation is another one then.
    template <class Result, class Run>
    Result OfPresentFacts(const std::string& sql, Run run) {
        const Translation translation = session_->Translated(sql);
        try {
            return run(translation);
        } catch (const RuntimeError&) {
            if (!session_->IsOfOldFacts(sql, *translation)) throw;
        }
        return run(session_->Translated(sql));
    }

    std::unique_ptr<Recordset> OpenTranslated(const Translation& translation, LockType lock) {
        if (translation->kind != dialect::StatementKind::Select) ThrowNoRows(" at character 1");
        if (lock != LockType::ReadOnly && !translation->table.empty()) {
            return std::make_unique<rows::KeysetRecordset>(
                session_->Recordsets(),
                std::make_unique<TableRows>(session_, translation->sql, translation->table));
        }
        Result result = session_->Run(translation->sql);
        if (result.columns.empty()) ThrowNoRows("");
        return std::make_unique<rows::ReadingRecordset>(
            session_->Recordsets(), std::make_unique<ResultRows>(std::move(result)));
    }

    [[noreturn]] static void ThrowNoRows(const std::string& place) {
        throw RuntimeError(ErrorNumber::DatabaseStatement, "the statement yields no rows" + place,
                           kErrorSource)
            .Of(ErrorKind::Refused);
    }

    std::shared_ptr<Session> session_;
};

}  // namespace

std::unique_ptr<Connection> OpenOdbc(const OdbcOptions& options) {
    return std::make_unique<OdbcConnection>(std::make_shared<Session>(options));
}

}  // namespace zv::store::odbc
