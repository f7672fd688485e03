// Databases that an ODBC driver reaches, behind the database port.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "store/connection.h"
#include "store/time_limit.h"

namespace zv::store::odbc {

/// The `source` of errors that this engine raises.
inline constexpr const char* kErrorSource = "ODBC";

struct OdbcOptions {
    /// Complete, as the driver manager takes it (connection_string.h makes it from settings).
    std::string connectionString;
    /// What messages call the database; holds no login and no password.
    std::string name;
    /// Texts that no message may show: login and password.
    std::vector<std::string> secrets;
    /// A connection that is not there by then is given up; so is a statement. Neither blocks the
    /// caller any longer, whatever driver and network do. At least a second.
    std::chrono::milliseconds connectLimit{15'000};
    std::chrono::milliseconds statementLimit = kStatementLimit;
    /// Statements are in the system's dialect and are translated for the servers that need it
    /// (PostgreSQL, SQLite), one at a time (one_statement.h). Otherwise texts go as they are, also
    /// several statements in one, and recordsets cannot be written.
    bool translate = true;
};

/// Opens a connection. Throws RuntimeError, source "ODBC", whose text says in one sentence what is
/// wrong (the driver is missing, the server does not answer, the login is refused, …); Code() holds
/// the SQLSTATE and the driver's number.
///
/// A statement that fails because the connection is gone closes the connection: State() says so,
/// and the next statement needs a new one. Recordsets opened read-only hold all their rows from the
/// beginning. With any other lock the rows are taken at the first look, and each is read again when
/// it becomes current; a row that another connection changed or deleted meanwhile is not
/// overwritten: Update throws DatabaseConflict.
std::unique_ptr<Connection> OpenOdbc(const OdbcOptions& options);

}  // namespace zv::store::odbc
