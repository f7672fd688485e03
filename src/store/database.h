// The shared connection and the small store operations that every window uses.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/errors.h"
#include "store/connection_opener.h"
#include "store/statement_log.h"

namespace zv::store {

using FieldValue = std::pair<std::string_view, Value>;

/// One connection for the whole control, opened on demand. Database errors reach the caller as
/// RuntimeError unless an operation says otherwise.
class Database {
 public:
    /// What a caller reads when a connection cannot be opened.
    using OpeningError =
        std::function<auto(const RuntimeError&, const ConnectionSettings&)->RuntimeError>;

    /// `settings` is asked when a connection is opened for the first time. `observer` may be null;
    /// both must outlive this. Without `openingError` the opener's reason is thrown as it is.
    Database(ConnectionOpener& opener, std::function<ConnectionSettings()> settings,
             StatementObserver* observer = nullptr, OpeningError openingError = {});

    /// Opens the connection with these settings in place of the present one; the date delimiter
    /// follows. Throws RuntimeError with the opener's reason; everything is as before then.
    void OpenConnection(const ConnectionSettings& settings);
    /// True at once when the connection is open; otherwise opens it: with the settings that it had
    /// when it was lost or closed, else with the present ones. Throws like OpenConnection.
    bool EnsureConnection();
    bool IsOpen() const;
    /// A connection is held, whatever became of it.
    bool HasConnection() const noexcept { return connection_ != nullptr; }
    /// Closes the connection until it is needed again.
    void Close();
    /// Closes the connection for good: the next one is opened with the settings of its time.
    void Leave();
    /// What the connection was opened with, also when it was lost or closed; null when there is
    /// none.
    const ConnectionSettings* OpenedWith() const { return openedWith_ ? &*openedWith_ : nullptr; }
    /// A connection beside the shared one, watched by the same observer. Throws with the opener's
    /// reason.
    std::unique_ptr<Connection> OpenAnother(const ConnectionSettings& settings) const;

    /// Runs a statement on the open connection; answers the number of rows changed.
    int Execute(const std::string& sql);
    /// What was executed or set last changed no row. False where the engine does not report it.
    bool ChangedNothing() const { return rowsChanged_ == 0; }
    std::unique_ptr<Recordset> Open(const std::string& sql,
                                    CursorType cursor = CursorType::ForwardOnly,
                                    LockType lock = LockType::ReadOnly);

    /// Whether the open database has a table that it may do without; looked at once for each
    /// connection. Throws like Execute.
    bool HasTable(std::string_view table);
    /// The tables are looked at anew: one that was there is not any more.
    void ForgetTables() { tables_.clear(); }

    /// "select count(*) from " table [" Where " filter]; a failure is trapped and answers -1.
    std::int16_t CountRows(std::string_view table, std::string_view filter);
    /// Sets fields of the first row that a select finds, through a recordset with an optimistic
    /// lock: for values that must not stand in a statement. False when there is no row.
    bool SetFields(const std::string& select, const std::vector<FieldValue>& fields);

    /// The character that brackets a date literal: '#' for Access, '\'' for a server.
    void SetDateDelimiter(char delimiter) { dateDelimiter_ = delimiter; }
    char DateDelimiter() const { return dateDelimiter_; }
    /// "#03/07/2003#".
    std::string DateLiteral(DateTime date) const;

 private:
    ConnectionOpener& opener_;
    std::function<ConnectionSettings()> settings_;
    StatementObserver* observer_;
    OpeningError openingError_;
    std::unique_ptr<Connection> connection_;
    std::optional<ConnectionSettings> openedWith_;
    char dateDelimiter_ = '#';
    int rowsChanged_ = -1;
    std::map<std::string, bool, std::less<>> tables_;  ///< those that were asked for
};

}  // namespace zv::store
