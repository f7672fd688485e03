#include "store/sqlite/session.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

#include "base/errors.h"
#include "base/text.h"
#include "store/connection_text.h"
#include "store/dialect/lexer.h"
#include "store/engines/engines.h"
#include "store/sqlite/database_file.h"
#include "store/sqlite/error_kinds.h"
#include "store/sqlite/journal_mode.h"

namespace zv::store::sqlite {
namespace {

constexpr std::size_t kKeptStatements = 32;

ErrorNumber NumberOf(std::string_view message) {
    const auto holds = [&](std::string_view part) { return text::Contains(message, part); };
    if (holds("no such table")) return ErrorNumber::DatabaseTable;
    if (holds("no such column") || holds("has no column named") || holds("ambiguous column")) {
        return ErrorNumber::DatabaseColumn;
    }
    if (holds("syntax error") || holds("no such function") || holds("wrong number of arguments") ||
        holds("incomplete input") || holds("unrecognized token") || holds("misuse of aggregate") ||
        holds("too many terms") || holds("Expression tree is too large") ||
        holds("parser stack overflow") || holds("values for") || holds("aliases") ||
        holds("do not have the same number of result columns")) {
        return ErrorNumber::DatabaseStatement;
    }
    return ErrorNumber::DatabaseFailure;
}

/// The engine takes a name in quotes that is no column for a text that was meant; the names of a
/// translation are all in quotes.
std::string WithoutHint(std::string message) {
    const std::size_t hint = message.find("\" - should this be a string literal");
    const std::size_t quote = message.rfind('"', hint - 1);
    if (hint == std::string::npos || quote == std::string::npos) return message;
    return message.substr(0, quote) + message.substr(quote + 1, hint - quote - 1);
}

/// The place of the name that `message` ends in - "no such column: a.x" - in the statement.
std::string PlaceOf(std::string_view message, const std::string& source) {
    const std::size_t colon = message.rfind(": ");
    const std::size_t named = message.rfind("named ");
    std::string_view name;
    if (colon != std::string_view::npos)
        name = message.substr(colon + 2);
    else if (named != std::string_view::npos)
        name = message.substr(named + 6);
    if (const std::size_t point = name.rfind('.'); point != std::string_view::npos) {
        name.remove_prefix(point + 1);
    }
    if (name.empty()) return {};
    // A statement in the engine's own dialect has no tokens: the message goes without a place.
    for (const dialect::Token& token : dialect::TokensIfReadable(source)) {
        const bool isName =
            token.kind == dialect::TokenKind::Name || token.kind == dialect::TokenKind::QuotedName;
        if (isName && text::EqualsIgnoreCase(token.text, name)) {
            return " at character " + std::to_string(token.position);
        }
    }
    return {};
}

/// Says it without asking for memory.
[[noreturn]] void ThrowOutOfMemory() {
    throw RuntimeError(ErrorNumber::OutOfMemory, {}, kErrorSource).Of(ErrorKind::OutOfMemory);
}

}  // namespace

Statement::Statement(Statement&& other) noexcept
    : session_(other.session_),
      handle_(std::exchange(other.handle_, nullptr)),
      worked_(other.worked_) {}

Statement& Statement::operator=(Statement&& other) noexcept {
    if (this != &other) {
        Release();
        session_ = other.session_;
        handle_ = std::exchange(other.handle_, nullptr);
        worked_ = other.worked_;
    }
    return *this;
}

void Statement::Release() {
    if (handle_) session_->TakeBack(std::exchange(handle_, nullptr));
}

void Statement::Bind(int parameter, std::int64_t value) {
    if (sqlite3_bind_int64(handle_, parameter, value) != SQLITE_OK) session_->Throw();
}

void Statement::Bind(int parameter, const Value& value) {
    int code = SQLITE_OK;
    if (const auto* whole = std::get_if<std::int64_t>(&value.Data())) {
        code = sqlite3_bind_int64(handle_, parameter, *whole);
    } else if (const auto* real = std::get_if<double>(&value.Data())) {
        code = sqlite3_bind_double(handle_, parameter, *real);
    } else if (!value.IsNull()) {
        const std::string text = value.ToText();
        code = sqlite3_bind_text64(handle_, parameter, text.data(), text.size(), SQLITE_TRANSIENT,
                                   SQLITE_UTF8);
    } else {
        code = sqlite3_bind_null(handle_, parameter);
    }
    if (code != SQLITE_OK) session_->Throw();
}

bool Statement::Step() {
    const int code = session_->Step(handle_, worked_);
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    session_->Throw();
}

// The error of the last step is known already.
void Statement::Reset() {
    sqlite3_reset(handle_);
    worked_ = {};
}

int Statement::ColumnCount() const {
    return sqlite3_column_count(handle_);
}
std::string Statement::ColumnName(int column) const {
    const char* name = sqlite3_column_name(handle_, column);
    if (!name) ThrowOutOfMemory();
    return name;
}

Value Statement::ColumnValue(int column) const {
    switch (sqlite3_column_type(handle_, column)) {
        case SQLITE_INTEGER:
            return std::int64_t{sqlite3_column_int64(handle_, column)};
        case SQLITE_FLOAT:
            return sqlite3_column_double(handle_, column);
        case SQLITE_NULL:
            return {};
        default:
            return Value(ColumnText(column));
    }
}

std::string_view Statement::ColumnText(int column) const {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(handle_, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle_, column));
    if (text) return {text, size};
    // An empty binary value has no bytes to point at; a text without them had no room.
    if (sqlite3_errcode(sqlite3_db_handle(handle_)) == SQLITE_NOMEM) ThrowOutOfMemory();
    return {};
}

Session::Session(const std::string& path, const SqliteOptions& options)
    : path_(path), options_(options) {
    CheckDatabaseFile(path);
    const bool share = IsOnShare(path);
    idle_.reserve(kKeptStatements + 1);
    // A connection belongs to one thread, so that the engine need not lock at every field it reads.
    const int code =
        sqlite3_open_v2(path.c_str(), &handle_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX,
                        share ? ShareVfs() : nullptr);
    try {
        if (code != SQLITE_OK) Refuse(code);
        Configure(share);
    } catch (...) {
        sqlite3_close_v2(std::exchange(handle_, nullptr));
        throw;
    }
}

Session::~Session() {
    Close();
}

void Session::Configure(bool share) {
    sqlite3_extended_result_codes(handle_, 1);
    sqlite3_busy_timeout(handle_, options_.busyTimeout);
    if (share && UsesWriteAheadLog(path_)) {
        throw RuntimeError(ErrorNumber::PathFileAccess, RefusedOnShare(path_), kErrorSource)
            .Of(ErrorKind::WriteAheadOnShare);
    }
    // The first statement reads the header and with it finds what is wrong with the file. In the
    // roll-back mode less than the last would let a journal come back when the power fails.
    for (const char* sql : {"select count(*) from sqlite_schema", "pragma synchronous=extra"}) {
        const int code = sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) Refuse(code);
    }
    writeAhead_ = JournalMode(handle_) == "wal";
    if (options_.statementLimit.count() > 0) {
        constexpr int kOperations = 10'000;
        sqlite3_progress_handler(
            handle_, kOperations,
            [](void* session) {
                return std::chrono::steady_clock::now() > static_cast<Session*>(session)->end_ ? 1
                                                                                               : 0;
            },
            this);
    }
    if (sqlite3_db_readonly(handle_, "main") == 1) Refuse(SQLITE_READONLY);
}

void Session::Refuse(int code) const {
    ErrorNumber number = ErrorNumber::DatabaseFailure;
    std::string reason;
    switch (code & 0xFF) {
        case SQLITE_NOTADB:
            reason = "The file is not a database";
            break;
        case SQLITE_CORRUPT:
            reason = "The database file is damaged or cut short";
            break;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            reason = "The database is locked by another program";
            break;
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            number = ErrorNumber::PathFileAccess;
            reason = "The database file cannot be written";
            break;
        case SQLITE_CANTOPEN:
            number = ErrorNumber::PathFileAccess;
            reason = "The database file cannot be opened";
            break;
        default:
            reason = handle_ ? sqlite3_errmsg(handle_) : sqlite3_errstr(code);
            break;
    }
    throw RuntimeError(number, reason + ": " + ConnectionText(path_).ForMessage(), kErrorSource)
        .Of(KindOf(code, number));
}

void Session::Close() noexcept {
    if (!handle_) return;
    recordsets_->Abandon();
    for (sqlite3_stmt* statement : idle_) sqlite3_finalize(statement);
    idle_.clear();
    sqlite3_close_v2(std::exchange(handle_, nullptr));
}

void Session::CheckOpen() const {
    if (!handle_) throw RuntimeError(ErrorNumber::ObjectClosed);
}

std::shared_ptr<const dialect::Translation> Session::Translated(const std::string& sql) {
    CheckOpen();
    if (options_.translate && IsSchemaOld()) ForgetSchema();
    return translations_.For(sql, [&] {
        return options_.translate ? dialect::Translate(sql, Schema(), *EmbeddedEngine().dialect)
                                  : dialect::Untranslated(sql);
    });
}

Statement Session::Prepare(const std::string& sql, const std::string& source) {
    CheckOpen();
    const auto idle = std::find_if(idle_.begin(), idle_.end(), [&](sqlite3_stmt* statement) {
        return sql == sqlite3_sql(statement);
    });
    if (idle != idle_.end()) {
        sqlite3_stmt* handle = *idle;
        idle_.erase(idle);
        return {this, handle};
    }
    sqlite3_stmt* handle = nullptr;
    const char* rest = nullptr;
    const int code = sqlite3_prepare_v3(handle_, sql.c_str(), static_cast<int>(sql.size() + 1),
                                        SQLITE_PREPARE_PERSISTENT, &handle, &rest);
    if (code != SQLITE_OK) Throw(source);
    Statement statement(this, handle);
    const bool more =
        rest && std::string_view(rest).find_first_not_of(" \t\r\n;") != std::string_view::npos;
    if (!handle || more) {
        throw RuntimeError(ErrorNumber::DatabaseStatement, "exactly one statement is expected",
                           kErrorSource)
            .Of(ErrorKind::Refused);
    }
    return statement;
}

void Session::TakeBack(sqlite3_stmt* handle) noexcept {
    sqlite3_reset(handle);
    sqlite3_clear_bindings(handle);
    idle_.insert(idle_.begin(), handle);
    if (idle_.size() > kKeptStatements) {
        sqlite3_finalize(idle_.back());
        idle_.pop_back();
    }
}

void Session::ForgetSchema() {
    schema_.reset();
    translations_.Clear();
    // A prepared "select *" would still have the columns of then.
    for (sqlite3_stmt* statement : idle_) sqlite3_finalize(statement);
    idle_.clear();
}

const dialect::SchemaInfo& Session::Schema() {
    if (schema_) return *schema_;
    // Asked for first: what changes meanwhile is then noticed at the next statement.
    const std::int64_t version = SchemaVersion();
    dialect::SchemaInfo info;
    Statement columns = Prepare(
        "select c.name,c.type from sqlite_schema t join pragma_table_info(t.name) c"
        " where t.type='table' and t.name not like 'sqlite_%'",
        {});
    while (columns.Step()) {
        info.AddColumn(columns.ColumnValue(0).ToText(), columns.ColumnValue(1).ToText());
    }
    const engines::Facts& facts = *EmbeddedEngine().facts;
    Statement index = Prepare(facts.WindowIndexQuestion(), {});
    if (index.Step() && facts.IsWindowIndex(index.ColumnValue(0))) {
        info.windowIndex = facts.WindowIndex();
    }
    schema_ = std::move(info);
    schemaVersion_ = version;
    return *schema_;
}

std::int64_t Session::SchemaVersion() {
    Statement version = Prepare("pragma schema_version", {});
    return version.Step() ? version.ColumnValue(0).ToInt32() : 0;
}

bool Session::IsSchemaOld() {
    return schema_ && SchemaVersion() != schemaVersion_;
}

int Session::Step(sqlite3_stmt* statement, std::chrono::steady_clock::duration& worked) {
    if (options_.statementLimit.count() == 0) return sqlite3_step(statement);
    const auto begin = std::chrono::steady_clock::now();
    end_ = begin + options_.statementLimit - worked;
    const int code = sqlite3_step(statement);
    worked += std::chrono::steady_clock::now() - begin;
    if ((code & 0xFF) == SQLITE_INTERRUPT) {
        throw StatementTookTooLong("The database", options_.statementLimit, kErrorSource);
    }
    return code;
}

bool Session::CommitsByItself() const {
    return sqlite3_get_autocommit(handle_) != 0;
}
int Session::TotalChanges() const {
    return sqlite3_total_changes(handle_);
}
std::int64_t Session::LastRowId() const {
    return sqlite3_last_insert_rowid(handle_);
}

void Session::Throw(const std::string& source) const {
    if (sqlite3_errcode(handle_) == SQLITE_NOMEM) ThrowOutOfMemory();
    std::string message = WithoutHint(sqlite3_errmsg(handle_));
    const ErrorNumber number = NumberOf(message);
    message += PlaceOf(message, source);
    throw RuntimeError(number, message, kErrorSource)
        .Of(KindOf(sqlite3_extended_errcode(handle_), number));
}

}  // namespace zv::store::sqlite
