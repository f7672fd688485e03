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
        const auto translation = session_->Translated(sql);
        const Result result = session_->Run(translation->sql);
        if (translation->kind == dialect::StatementKind::Definition) session_->ForgetSchema();
        return result.columns.empty() ? result.changed : 0;
    }

    std::unique_ptr<Recordset> Open(const std::string& sql, CursorType, LockType lock) override {
        const auto translation = session_->Translated(sql);
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

 private:
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
