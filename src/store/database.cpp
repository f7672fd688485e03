#include "store/database.h"

#include <utility>

#include "base/errors.h"

namespace zv::store {

Database::Database(ConnectionOpener& opener, std::function<ConnectionSettings()> settings,
                   StatementObserver* observer)
    : opener_(opener), settings_(std::move(settings)), observer_(observer) {}

void Database::OpenConnection(const ConnectionSettings& settings) {
    Close();
    connection_ = OpenAnother(settings);
}

std::unique_ptr<Connection> Database::OpenAnother(const ConnectionSettings& settings) const {
    auto connection = opener_.Open(settings);
    return observer_ ? ObserveStatements(std::move(connection), *observer_) : std::move(connection);
}

bool Database::EnsureConnection() {
    if (IsOpen()) return true;
    OpenConnection(settings_());
    return connection_->State() != Connection::kStateClosed;
}

bool Database::IsOpen() const {
    return connection_ && connection_->State() == Connection::kStateOpen;
}

void Database::Close() {
    // Let go first: a connection that fails to close is of no further use.
    const auto connection = std::move(connection_);
    if (connection && connection->State() != Connection::kStateClosed) connection->Close();
}

int Database::Execute(const std::string& sql) {
    rowsChanged_ = -1;
    if (!connection_) throw RuntimeError(ErrorNumber::ObjectClosed);
    rowsChanged_ = connection_->Execute(sql);
    return rowsChanged_;
}

std::unique_ptr<Recordset> Database::Open(const std::string& sql, CursorType cursor,
                                          LockType lock) {
    if (!connection_) throw RuntimeError(ErrorNumber::ObjectClosed);
    return connection_->Open(sql, cursor, lock);
}

std::int16_t Database::CountRows(std::string_view table, std::string_view filter) {
    try {
        std::string sql = "select count(*) from " + std::string(table);
        if (!filter.empty()) sql += " Where " + std::string(filter);
        const auto rows = Open(sql, CursorType::ForwardOnly, LockType::ReadOnly);
        const std::int16_t count = rows->Field(0).ToInt16();
        rows->Close();
        return count;
    } catch (const RuntimeError&) {
        return -1;
    }
}

std::uint8_t Database::MarkItemState(std::int16_t fID, std::int16_t state,
                                     std::string_view doneMan) {
    if (fID == 0) return 0;
    Execute("Update tTaskList Set tDone=" + std::to_string(state) + ",tDoneMan = '" +
            std::string(doneMan) + "' where fID =" + std::to_string(fID));
    return 1;
}

std::string Database::DateLiteral(DateTime date) const {
    return dateDelimiter_ + date.UsDate() + dateDelimiter_;
}

}  // namespace zv::store
