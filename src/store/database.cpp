#include "store/database.h"

#include <utility>

#include "base/errors.h"

namespace zv::store {
namespace {

// The new connection stands; what the old one says at its end is nobody's concern.
void CloseQuietly(std::unique_ptr<Connection> connection) {
    try {
        if (connection && connection->State() != Connection::kStateClosed) connection->Close();
    } catch (const RuntimeError&) {
    }
}

}  // namespace

Database::Database(ConnectionOpener& opener, std::function<ConnectionSettings()> settings,
                   StatementObserver* observer, OpeningError openingError)
    : opener_(opener),
      settings_(std::move(settings)),
      observer_(observer),
      openingError_(std::move(openingError)) {}

void Database::OpenConnection(const ConnectionSettings& settings) {
    auto opened = OpenAnother(settings);
    // A copy: the settings may be those of the connection that is left.
    ConnectionSettings with = settings;
    CloseQuietly(std::exchange(connection_, std::move(opened)));
    ForgetTables();
    openedWith_ = std::move(with);
    dateDelimiter_ = openedWith_->kind >= 1 ? '\'' : '#';
}

std::unique_ptr<Connection> Database::OpenAnother(const ConnectionSettings& settings) const {
    std::unique_ptr<Connection> connection;
    try {
        connection = opener_.Open(settings);
    } catch (const RuntimeError& error) {
        if (!openingError_) throw;
        throw openingError_(error, settings);
    }
    return observer_ ? ObserveStatements(std::move(connection), *observer_) : std::move(connection);
}

bool Database::EnsureConnection() {
    if (IsOpen()) return true;
    OpenConnection(openedWith_ ? *openedWith_ : settings_());
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

void Database::Leave() {
    openedWith_.reset();
    Close();
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

bool Database::HasTable(std::string_view table) {
    if (!connection_) throw RuntimeError(ErrorNumber::ObjectClosed);
    const auto known = tables_.find(table);
    if (known != tables_.end()) return known->second;
    return tables_[std::string(table)] = connection_->HasTable(table);
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

bool Database::SetFields(const std::string& select, const std::vector<FieldValue>& fields) {
    rowsChanged_ = -1;
    const auto row = Open(select, CursorType::ForwardOnly, LockType::Optimistic);
    const bool found = !row->Eof();
    if (found) {
        for (const auto& [field, value] : fields) row->SetField(field, value);
        row->Update();
    }
    row->Close();
    rowsChanged_ = found ? 1 : 0;
    return found;
}

std::string Database::DateLiteral(DateTime date) const {
    return dateDelimiter_ + date.UsDate() + dateDelimiter_;
}

}  // namespace zv::store
