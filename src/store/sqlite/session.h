// One open database file of the embedded engine, shared by a connection and its recordsets.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/translations.h"
#include "store/rows/open_recordsets.h"
#include "store/sqlite/sqlite_connection.h"
#include "store/value.h"

struct sqlite3;
struct sqlite3_stmt;

namespace zv::store::sqlite {

class Session;

/// A prepared statement; goes back to its session's store of statements when it is let go.
class Statement {
 public:
    Statement() = default;
    Statement(Session* session, sqlite3_stmt* handle) : session_(session), handle_(handle) {}
    Statement(Statement&& other) noexcept;
    Statement& operator=(Statement&& other) noexcept;
    ~Statement() { Release(); }

    /// Ends the reading and lets go of the statement.
    void Release();
    explicit operator bool() const { return handle_ != nullptr; }
    sqlite3_stmt* Handle() const { return handle_; }

    /// Parameters count from 1.
    void Bind(int parameter, const Value& value);
    void Bind(int parameter, std::int64_t value);
    /// True when a row came. Throws the engine's error.
    bool Step();
    /// Ready to run again; parameters keep their values.
    void Reset();

    int ColumnCount() const;
    std::string ColumnName(int column) const;
    /// Dates are texts here, as stored.
    Value ColumnValue(int column) const;
    /// Of any value but NULL, in place: good until the next step or look at the column.
    std::string_view ColumnText(int column) const;

 private:
    Session* session_ = nullptr;
    sqlite3_stmt* handle_ = nullptr;
    std::chrono::steady_clock::duration worked_{};  ///< of the engine, for this statement
};

class Session {
 public:
    Session(const std::string& path, const SqliteOptions& options);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    bool IsOpen() const { return handle_ != nullptr; }
    void Close() noexcept;
    /// Throws error 3704 when closed.
    void CheckOpen() const;
    sqlite3* Handle() const { return handle_; }
    bool DatesAsText() const { return options_.datesAsText; }

    /// A row that is half read keeps no other program from writing.
    bool ReadersStandAside() const { return writeAhead_; }

    /// The statement in the engine's terms; kept for the next time, until the tables change.
    std::shared_ptr<const dialect::Translation> Translated(const std::string& sql);
    /// Prepares or takes up again. `source` is the statement as the caller wrote it, for the place
    /// in an error's text.
    Statement Prepare(const std::string& sql, const std::string& source);
    void TakeBack(sqlite3_stmt* handle) noexcept;

    const std::shared_ptr<rows::OpenRecordsets>& Recordsets() const { return recordsets_; }
    /// Forgets what was learnt of the tables.
    void ForgetSchema();
    /// Some program has changed tables or indexes since they were learnt.
    bool IsSchemaOld();
    /// Steps, and ends it when the engine has worked for longer than the limit; adds the time to
    /// `worked`. Answers the engine's code.
    int Step(sqlite3_stmt* statement, std::chrono::steady_clock::duration& worked);

    /// No transaction of the user's own is open.
    bool CommitsByItself() const;
    /// Rows changed since the session was opened.
    int TotalChanges() const;
    std::int64_t LastRowId() const;

    /// Throws RuntimeError with the engine's present error.
    [[noreturn]] void Throw(const std::string& source = {}) const;

 private:
    void Configure(bool share);
    [[noreturn]] void Refuse(int code) const;
    const dialect::SchemaInfo& Schema();
    std::int64_t SchemaVersion();

    std::string path_;
    SqliteOptions options_;
    sqlite3* handle_ = nullptr;
    bool writeAhead_ = false;
    std::chrono::steady_clock::time_point end_{};  ///< of the step under way
    /// Most recently used first. Has room for all, because taking back must not fail.
    std::vector<sqlite3_stmt*> idle_;
    dialect::Translations translations_;
    std::shared_ptr<rows::OpenRecordsets> recordsets_ = std::make_shared<rows::OpenRecordsets>();
    std::optional<dialect::SchemaInfo> schema_;
    std::int64_t schemaVersion_ = 0;  ///< that `schema_` and the translations are of
};

}  // namespace zv::store::sqlite
