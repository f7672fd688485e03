#include "zvdb/engine.h"

#include "store/sqlite/journal_mode.h"

namespace zv::zvdb {

std::string WhyNotWritten(const EngineError& error) {
    switch (error.Code()) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return "another program has the file open";
        case SQLITE_FULL:
            return "there is no room for it on the disk";
        case SQLITE_IOERR:
            return "the disk does not take it: no room, or a limit on the size of files";
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_CANTOPEN:
            return "the file cannot be written";
        default:
            return error.what();
    }
}

Engine::Engine(const std::string& path, int flags, Users users) {
    namespace sqlite = store::sqlite;
    const bool share = users == Users::Others && path != ":memory:" && sqlite::IsOnShare(path);
    if (share && sqlite::UsesWriteAheadLog(path)) throw ShareError(sqlite::RefusedOnShare(path));
    sqlite3* handle = nullptr;
    // An engine belongs to one thread; asking for its mutex at each value would cost a good part of
    // the time.
    const int code = sqlite3_open_v2(path.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX,
                                     share ? sqlite::ShareVfs() : nullptr);
    handle_.reset(handle);
    if (code != SQLITE_OK) {
        throw EngineError(code & 0xFF,
                          handle != nullptr ? sqlite3_errmsg(handle) : "out of memory");
    }
    sqlite3_busy_timeout(handle, 2000);
    // Before the file is looked at, so that a log is used without memory that is shared.
    if (users == Users::Alone) Run("pragma main.locking_mode=exclusive; begin exclusive; commit");
}

void Engine::Fail(const std::string& what) const {
    const std::string reason = sqlite3_errmsg(handle_.get());
    throw EngineError(sqlite3_errcode(handle_.get()) & 0xFF,
                      what.empty() ? reason : reason + " (" + what + ")");
}

void Engine::Run(const std::string& sql) {
    if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(sql);
}

std::string Engine::Text(const std::string& sql) {
    Statement statement(*this, sql);
    return statement.Step() ? statement.Text(0) : std::string();
}

std::int64_t Engine::Number(const std::string& sql) {
    Statement statement(*this, sql);
    return statement.Step() ? statement.Number(0) : 0;
}

Statement::Statement(Engine& engine, const std::string& sql) : engine_(engine) {
    sqlite3_stmt* handle = nullptr;
    if (sqlite3_prepare_v2(engine.Handle(), sql.c_str(), static_cast<int>(sql.size()), &handle,
                           nullptr) != SQLITE_OK) {
        engine.Fail(sql);
    }
    handle_.reset(handle);
}

void Statement::Check(int code) const {
    if (code != SQLITE_OK) engine_.Fail(sqlite3_sql(handle_.get()));
}

Statement& Statement::Bind(std::int64_t number) {
    Check(sqlite3_bind_int64(handle_.get(), next_++, number));
    return *this;
}

Statement& Statement::Bind(std::string_view text) {
    // An empty view may carry a null pointer, which the engine would take for NULL.
    Check(sqlite3_bind_text(handle_.get(), next_++, text.empty() ? "" : text.data(),
                            static_cast<int>(text.size()), SQLITE_STATIC));
    return *this;
}

Statement& Statement::Bind(double number) {
    Check(sqlite3_bind_double(handle_.get(), next_++, number));
    return *this;
}

Statement& Statement::BindNull() {
    Check(sqlite3_bind_null(handle_.get(), next_++));
    return *this;
}

void Statement::Run() {
    while (Step()) {
    }
    sqlite3_reset(handle_.get());
    next_ = 1;
}

bool Statement::Step() {
    const int code = sqlite3_step(handle_.get());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) engine_.Fail(sqlite3_sql(handle_.get()));
    return false;
}

bool Statement::IsNull(int column) const {
    return sqlite3_column_type(handle_.get(), column) == SQLITE_NULL;
}

std::int64_t Statement::Number(int column) const {
    return sqlite3_column_int64(handle_.get(), column);
}

std::string Statement::Text(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle_.get(), column));
    return text == nullptr
               ? std::string()
               : std::string(text,
                             static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column)));
}

}  // namespace zv::zvdb
